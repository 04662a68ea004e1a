#include "reading/readRules.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "rules/fields.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;

namespace rules = qvLegacy::rules;

/// In the order of `RecordKind`.
constexpr rules::Record const* Records[] = {
    &rules::records::views, &rules::records::texts,   &rules::records::rasters,  &rules::records::properties,
    &rules::records::runs,  &rules::records::leaders, &rules::records::measures,
};
static_assert(std::size(Records) == static_cast<std::size_t>(RecordKind::MeasureLeader) + 1);

rules::Record const& getRecord(RecordKind kind) {
  return *Records[static_cast<std::size_t>(kind)];
}

bool isRefusedSize(VariantMap const& record) {
  qv::qvVariant const* const size = findValue(record, "sizeem");
  return size != nullptr && (!size->isList() || size->toList().size() != 2);
}

bool holdsOnlyMaps(VariantList const& list) {
  return std::all_of(list.begin(), list.end(), [](qv::qvVariant const& element) { return element.isMap(); });
}

}  // namespace

std::string_view getRecordName(RecordKind kind) {
  return getRecord(kind).name;
}

bool isKnownKey(RecordKind kind, std::string_view key) {
  return getRecord(kind).find(key) != nullptr;
}

rules::ValueNames const* findValueNames(RecordKind kind, std::string_view key) {
  rules::Field const* const field = getRecord(kind).find(key);
  // A record of an unknown kind is refused, which is said elsewhere.
  return field == nullptr || field == &rules::annotation::type ? nullptr : field->names;
}

qvAnnotationInterface::Type getNamedType(VariantMap const& record) {
  std::string const name = findText(record, "type");
  if (name == "text") return qvAnnotationInterface::Text;
  return name == "raster" ? qvAnnotationInterface::Raster : qvAnnotationInterface::Unknown;
}

std::string_view findRefusal(qv::qvVariant const& record, qvAnnotationInterface::Type type,
                             qv::qvStreamVersion version) {
  if (!record.isMap()) return "it is no map";
  if (type == qvAnnotationInterface::Unknown) return "its type is neither 'text' nor 'raster'";
  VariantMap const& map = record.toMap();
  qv::qvVariant const* const position = findValue(map, "position");
  if (position != nullptr && !isNumberList(*position, 3)) return "its 'position' is no list of three numbers";
  VariantList const* const children = findChildren(map, version);
  if (children != nullptr && !holdsOnlyMaps(*children)) return "one of its sub-annotations is no map";
  bool const isRaster = type == qvAnnotationInterface::Raster;
  return isRaster && isRefusedSize(map) ? "its 'sizeem' is no list of two numbers" : std::string_view();
}

VariantList const* findChildren(VariantMap const& record, qv::qvStreamVersion version) {
  if (version < gates::OneList) return nullptr;
  // The older key counts only where the newer one is absent altogether.
  return findValue(record, "children") != nullptr ? findList(record, "children") : findList(record, "childs");
}

std::size_t countRecords(VariantList const& records) {
  std::size_t count = 0;
  std::vector<VariantList const*> pending = {&records};
  while (!pending.empty()) {
    VariantList const& list = *pending.back();
    pending.pop_back();
    for (qv::qvVariant const& record : list) {
      ++count;
      for (char const* const key : {"children", "childs"}) {
        if (VariantList const* const children = findList(record.toMap(), key)) pending.push_back(children);
      }
    }
  }
  return count;
}

std::size_t countDescendants(VariantMap const& record) {
  std::size_t count = 0;
  for (char const* const key : {"children", "childs"}) {
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
