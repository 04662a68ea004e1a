#include "readRules.h"

#include <algorithm>
#include <span>
#include <vector>

#include "legacyNames.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;

constexpr std::string_view ViewKeys[] = {
    "ver",      "name",        "origin",          "normal",           "axis",
    "metadata", "annotations", "textannotations", "rasterannotations"};
constexpr std::string_view SharedKeys[] = {
    "name",          "type",          "anchorloc",     "color",      "position", "leaders", "measures",
    "isframelocked", "isscalelocked", "isignoreztest", "frameshape", "children", "childs",  "metadata"};
constexpr std::string_view TextKeys[] = {"defaulttextprop", "lines", "text"};
constexpr std::string_view RasterKeys[] = {"sizeem", "rastername"};
constexpr std::string_view PropertyKeys[] = {"heightem", "bold", "italic", "font"};
constexpr std::string_view RunKeys[] = {"text", "type"};
constexpr std::string_view LeaderKeys[] = {"pos", "head"};
constexpr std::string_view MeasureKeys[] = {"A", "B", "V", "arrowdir"};

/// The keys of a record: its own and those that it shares with another kind.
struct RecordKeys {
  std::string_view m_name;
  std::span<std::string_view const> m_own;
  std::span<std::string_view const> m_shared;
};

/// In the order of `RecordKind`.
constexpr RecordKeys Records[] = {
    {"views", ViewKeys, {}},
    {"text annotations", TextKeys, SharedKeys},
    {"raster annotations", RasterKeys, SharedKeys},
    {"text properties", PropertyKeys, {}},
    {"text runs", RunKeys, PropertyKeys},
    {"leaders", LeaderKeys, {}},
    {"measure leaders", MeasureKeys, {}},
};
static_assert(std::size(Records) == static_cast<std::size_t>(RecordKind::MeasureLeader) + 1);

RecordKeys const& getKeys(RecordKind kind) {
  return Records[static_cast<std::size_t>(kind)];
}

bool contains(std::span<std::string_view const> keys, std::string_view key) {
  return std::find(keys.begin(), keys.end(), key) != keys.end();
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
  return getKeys(kind).m_name;
}

bool isKnownKey(RecordKind kind, std::string_view key) {
  return contains(getKeys(kind).m_own, key) || contains(getKeys(kind).m_shared, key);
}

std::span<std::string_view const> findValueNames(RecordKind kind, std::string_view key) {
  bool const isAnnotation = kind == RecordKind::TextAnnotation || kind == RecordKind::RasterAnnotation;
  if (isAnnotation && key == "frameshape") return getFrameShapeNames();
  if (isAnnotation && key == "anchorloc") return getAnchorNames();
  if (kind == RecordKind::Leader && key == "head") return getHeadNames();
  if (kind == RecordKind::MeasureLeader && key == "arrowdir") return getArrowDirectionNames();
  if (kind == RecordKind::Run && key == "type") return getSegmentTypeNames();
  return {};
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
