#include "stream/variantMapWriter.h"

#include <algorithm>
#include <cstdint>

#include "reading/streamContainer.h"

namespace qvToolkit {

namespace {

using Kind = qv::qvVariant::Kind;

bool isContainer(qv::qvVariant const& value) {
  return value.isMap() || value.isList();
}

void writeMap(StreamBytes& out, VariantMap const& map, int level);
void writeList(StreamBytes& out, VariantList const& list, int level);

/// `level` is that of the map or list around the value.
void writeValue(StreamBytes& out, qv::qvVariant const& value, int level) {
  if (isContainer(value) && level == MaxVariantLevel) return out.byte(0);
  out.byte(static_cast<std::uint8_t>(value.getKind()));
  switch (value.getKind()) {
    case Kind::Null:
      return;
    case Kind::Integer:
      return out.number(static_cast<std::uint64_t>(value.toInteger()));
    case Kind::Real:
      return out.real(value.toReal());
    case Kind::String:
      return out.text(value.getString());
    case Kind::Bool:
      return out.byte(value.toBool() ? 1 : 0);
    case Kind::Map:
      return writeMap(out, value.toMap(), level + 1);
    case Kind::List:
      return writeList(out, value.toList(), level + 1);
  }
}

void writeMap(StreamBytes& out, VariantMap const& map, int level) {
  out.count(map.size());
  for (auto const& [key, value] : map) {
    out.text(key);
    writeValue(out, value, level);
  }
}

void writeList(StreamBytes& out, VariantList const& list, int level) {
  out.count(list.size());
  for (qv::qvVariant const& value : list) writeValue(out, value, level);
}

std::size_t countTooDeep(qv::qvVariant const& value, int level);

std::size_t countTooDeepInMap(VariantMap const& map, int level) {
  std::size_t count = 0;
  for (auto const& [key, value] : map) count += countTooDeep(value, level);
  return count;
}

std::size_t countTooDeep(qv::qvVariant const& value, int level) {
  if (!isContainer(value)) return 0;
  if (level == MaxVariantLevel) return 1;
  if (value.isMap()) return countTooDeepInMap(value.toMap(), level + 1);
  std::size_t count = 0;
  for (qv::qvVariant const& element : value.toList()) count += countTooDeep(element, level + 1);
  return count;
}

}  // namespace

void writeVariantMap(StreamBytes& out, VariantMap const& map) {
  writeMap(out, map, 1);
}

std::size_t countTooDeep(VariantMap const& map) {
  return countTooDeepInMap(map, 1);
}

}  // namespace qvToolkit
