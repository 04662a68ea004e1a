#include <array>
#include <bit>
#include <charconv>

#include "reading/recordWalk.h"
#include "reading/streamContainer.h"

namespace qvToolkit {

namespace {

enum Kind : std::uint8_t { Null = 0, Integer = 1, Real = 2, String = 3, Bool = 4, Map = 10, List = 11 };

std::string_view getKindName(std::uint8_t kind) {
  switch (kind) {
    case Null:
      return "null";
    case Integer:
      return "integer";
    case Real:
      return "real";
    case String:
      return "string";
    case Bool:
      return "bool";
    case Map:
      return "map";
    case List:
      return "list";
    default:
      return {};
  }
}

void walkMap(FieldCursor& in, int level);
void walkList(FieldCursor& in, int level);

/// A count that the bytes left cannot hold is a break: a reader stops there, too.
std::uint32_t walkCount(FieldCursor& in, std::uint64_t smallest) {
  auto const count = in.takeNumber<std::uint32_t>("count");
  if (count * smallest <= in.getLeft()) {
    in.show("count", std::to_string(count));
    return count;
  }
  in.breakHere("count", "expected at most " + std::to_string(in.getLeft() / smallest) +
                            " entries, which the bytes left can hold, found " + std::to_string(count));
  return 0;
}

void walkReal(FieldCursor& in) {
  auto const value = std::bit_cast<double>(in.takeNumber<std::uint64_t>("value"));
  std::array<char, 32> buffer;
  auto const result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  in.show("value", {buffer.data(), result.ptr});
}

void walkContainer(FieldCursor& in, std::uint8_t kind, int level) {
  if (level > MaxVariantLevel) {
    in.breakHere("value", "expected at most " + std::to_string(MaxVariantLevel) +
                              " maps and lists within each other, found one more");
  } else if (kind == Map) {
    walkMap(in, level);
  } else {
    walkList(in, level);
  }
}

/// `level` is that of the map or list around the value.
void walkValue(FieldCursor& in, int level) {
  auto const kind = in.takeNumber<std::uint8_t>("kind");
  if (in.isBroken()) return;
  if (getKindName(kind).empty()) {
    return in.breakHere("kind", "expected a kind of value, 0 to 4, 10 or 11, found " + std::to_string(kind));
  }
  in.show("kind", std::to_string(kind) + " (" + std::string(getKindName(kind)) + ")");
  switch (kind) {
    case Integer:
      return in.show("value",
                     std::to_string(static_cast<std::int64_t>(in.takeNumber<std::uint64_t>("value"))));
    case Real:
      return walkReal(in);
    case String:
      in.text("value");
      return;
    case Bool:
      return in.show("value", in.takeNumber<std::uint8_t>("value") != 0 ? "true" : "false");
    case Map:
    case List:
      return walkContainer(in, kind, level + 1);
    default:
      return;
  }
}

void walkMap(FieldCursor& in, int level) {
  constexpr std::uint64_t SmallestEntry = 5;  // an empty key and the kind null
  std::uint32_t const count = walkCount(in, SmallestEntry);
  for (std::uint32_t i = 0; i < count && !in.isBroken(); ++i) {
    FieldCursor::Inside const inEntry(in, "entry", i);
    in.text("key");
    walkValue(in, level);
  }
}

void walkList(FieldCursor& in, int level) {
  constexpr std::uint64_t SmallestValue = 1;  // the kind null
  std::uint32_t const count = walkCount(in, SmallestValue);
  for (std::uint32_t i = 0; i < count && !in.isBroken(); ++i) {
    FieldCursor::Inside const inElement(in, "element", i);
    walkValue(in, level);
  }
}

}  // namespace

void walkVariantMap(FieldCursor& in, std::string const& name) {
  FieldCursor::Inside const inMap(in, name);
  walkMap(in, 1);
}

}  // namespace qvToolkit
