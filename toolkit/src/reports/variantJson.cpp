#include "reports/variantJson.h"

#include <cmath>
#include <cstddef>
#include <string_view>
#include <vector>

#include "model/variantLookup.h"
#include "reports/jsonParts.h"

namespace qvToolkit {

namespace {

using Kind = qv::qvVariant::Kind;

std::string_view getKindName(Kind kind) {
  switch (kind) {
    case Kind::Null:
      return "null";
    case Kind::Integer:
      return "integer";
    case Kind::Real:
      return "real";
    case Kind::String:
      return "string";
    case Kind::Bool:
      return "bool";
    case Kind::Map:
      return "map";
    case Kind::List:
      break;
  }
  return "list";
}

/// What is left of an open map or list.
struct Level {
  VariantMap::const_iterator m_nextEntry;
  VariantMap::const_iterator m_entriesEnd;
  VariantList const* m_list = nullptr;
  std::size_t m_nextElement = 0;
};

class VariantWriter {
 public:
  explicit VariantWriter(JsonWriter& json) : m_json(json) {}

  void run(VariantMap const& map) {
    openMap(map);
    while (!m_levels.empty()) step();
  }

 private:
  void openMap(VariantMap const& map) {
    m_json.beginArray();
    m_levels.push_back({map.begin(), map.end()});
  }
  void openList(VariantList const& list) {
    m_json.beginArray();
    m_levels.push_back({{}, {}, &list});
  }
  void step();
  void close();
  void writeContent(qv::qvVariant const& value);
  void writeReal(double number);

  JsonWriter& m_json;
  std::vector<Level> m_levels;
};

void VariantWriter::step() {
  Level& level = m_levels.back();
  bool const isList = level.m_list != nullptr;
  bool const isAtEnd =
      isList ? level.m_nextElement == level.m_list->size() : level.m_nextEntry == level.m_entriesEnd;
  if (isAtEnd) {
    close();
    return;
  }
  m_json.beginObject();
  if (isList) {
    writeContent((*level.m_list)[level.m_nextElement++]);
    return;
  }
  auto const& [key, value] = *level.m_nextEntry++;
  m_json.bytes("key", key);
  writeContent(value);
}

/// Ends a container, and with it the entry that holds it.
void VariantWriter::close() {
  m_json.endArray();
  m_levels.pop_back();
  if (!m_levels.empty()) m_json.endObject();
}

void VariantWriter::writeContent(qv::qvVariant const& value) {
  m_json.member("kind", getKindName(value.getKind()));
  if (!value.isString()) m_json.key("value");
  switch (value.getKind()) {
    case Kind::Map:
      return openMap(value.toMap());
    case Kind::List:
      return openList(value.toList());
    case Kind::Null:
      m_json.null();
      break;
    case Kind::Integer:
      m_json.value(value.toInteger());
      break;
    case Kind::Bool:
      m_json.value(value.toBool());
      break;
    case Kind::String:
      m_json.bytes("value", value.getString());
      break;
    case Kind::Real:
      writeReal(value.toReal());
      break;
  }
  m_json.endObject();
}

void VariantWriter::writeReal(double number) {
  m_json.value(number).key("valueBits");
  if (std::isfinite(number)) {
    m_json.null();
  } else {
    m_json.value(toHex(number));
  }
}

}  // namespace

void writeVariantMap(JsonWriter& json, VariantMap const& map) {
  VariantWriter(json).run(map);
}

}  // namespace qvToolkit
