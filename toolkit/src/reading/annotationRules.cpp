#include "reading/annotationRules.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "rules/fields.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;

namespace rules = qvLegacy::rules;

constexpr std::array ChildKeys = {rules::annotation::children.key, rules::annotation::childs.key};

bool isRefusedSize(VariantMap const& record) {
  qv::qvVariant const* const size = findValue(record, rules::raster::size.key);
  return size != nullptr && (!size->isList() || size->toList().size() != 2);
}

bool holdsOnlyMaps(VariantList const& list) {
  return std::all_of(list.begin(), list.end(), [](qv::qvVariant const& element) { return element.isMap(); });
}

}  // namespace

qvAnnotationInterface::Type getNamedType(VariantMap const& record) {
  std::string const name = findText(record, rules::annotation::type.key);
  return static_cast<qvAnnotationInterface::Type>(rules::annotationTypes.valueOf(name));
}

std::string_view findRefusal(qv::qvVariant const& record, qvAnnotationInterface::Type type,
                             qv::qvStreamVersion version) {
  if (!record.isMap()) return "it is no map";
  if (type == qvAnnotationInterface::Unknown) return "its type is neither 'text' nor 'raster'";
  VariantMap const& map = record.toMap();
  qv::qvVariant const* const position = findValue(map, rules::annotation::position.key);
  if (position != nullptr && !isNumberList(*position, 3)) return "its 'position' is no list of three numbers";
  VariantList const* const children = findChildren(map, version);
  if (children != nullptr && !holdsOnlyMaps(*children)) return "one of its sub-annotations is no map";
  bool const isRaster = type == qvAnnotationInterface::Raster;
  return isRaster && isRefusedSize(map) ? "its 'sizeem' is no list of two numbers" : std::string_view();
}

VariantList const* findChildren(VariantMap const& record, qv::qvStreamVersion version) {
  if (!rules::annotation::children.isInVariants(version.GetPacked())) return nullptr;
  // The older key counts only where the newer one is absent altogether.
  bool const isNewer = findValue(record, rules::annotation::children.key) != nullptr;
  return findList(record, (isNewer ? rules::annotation::children : rules::annotation::childs).key);
}

std::size_t countRecords(VariantList const& records) {
  std::size_t count = 0;
  std::vector<VariantList const*> pending = {&records};
  while (!pending.empty()) {
    VariantList const& list = *pending.back();
    pending.pop_back();
    for (qv::qvVariant const& record : list) {
      ++count;
      for (std::string_view const key : ChildKeys) {
        if (VariantList const* const children = findList(record.toMap(), key)) pending.push_back(children);
      }
    }
  }
  return count;
}

std::size_t countDescendants(VariantMap const& record) {
  std::size_t count = 0;
  for (std::string_view const key : ChildKeys) {
    if (VariantList const* const children = findList(record, key)) count += countRecords(*children);
  }
  return count;
}

bool isNumberList(qv::qvVariant const& value, std::size_t count) {
  VariantList const& list = value.toList();
  return value.isList() && list.size() == count &&
         std::all_of(list.begin(), list.end(), [](qv::qvVariant const& number) { return number.isNumber(); });
}

}  // namespace qvToolkit
