#include "variantFromInput.h"

#include <string_view>

namespace qvFuzz {

namespace {

using Map = qv::qvVariant::qvVariantMapImpl;
using List = qv::qvVariant::qvVariantListImpl;

constexpr std::array<std::string_view, 47> Keys{"A",
                                                "B",
                                                "V",
                                                "anchorloc",
                                                "annotation",
                                                "annotations",
                                                "arrowdir",
                                                "axis",
                                                "bold",
                                                "childs",
                                                "children",
                                                "color",
                                                "data",
                                                "default",
                                                "defaulttextprop",
                                                "font",
                                                "frame",
                                                "frameshape",
                                                "head",
                                                "height",
                                                "heightem",
                                                "isframelocked",
                                                "isignoreztest",
                                                "isscalelocked",
                                                "italic",
                                                "leaders",
                                                "lines",
                                                "measures",
                                                "metadata",
                                                "name",
                                                "normal",
                                                "origin",
                                                "pos",
                                                "position",
                                                "prop",
                                                "rasterannotations",
                                                "rastername",
                                                "segments",
                                                "sizeem",
                                                "text",
                                                "textannotations",
                                                "textprop",
                                                "type",
                                                "value",
                                                "ver",
                                                "views",
                                                ""};

constexpr std::array<std::string_view, 40> Names{
    "text",    "raster",    "square",   "circle",  "arrow",      "plus",   "cross",      "triangle",
    "outout",  "inout",     "outin",    "rt",      "rc",         "rb",     "lt",         "lc",
    "lb",      "tr",        "tc",       "tl",      "br",         "bc",     "bl",         "rectangle",
    "diamond", "flagright", "flagboth", "hexagon", "pentagon",   "oblong", "oblongleft", "noframe",
    "sub",     "sup",       "#FF8000",  "#12345",  "two\nlines", "6.17",   "6.22",       "6.27"};

constexpr unsigned MaxElements = 5;

qv::qvVariant takeValue(InputCursor& input, int depth);

/// Three numbers, or a few more or less: positions and sizes are such lists.
List takeNumbers(InputCursor& input) {
  List list;
  for (unsigned i = input.takeBelow(8) == 0 ? input.takeBelow(MaxElements) : 3; i > 0; --i) {
    list.emplace_back(input.takeReal<double>());
  }
  return list;
}

List takeList(InputCursor& input, int depth) {
  List list;
  for (unsigned i = input.takeBelow(MaxElements); i > 0; --i) list.push_back(takeValue(input, depth));
  return list;
}

qv::qvVariant takeScalar(InputCursor& input) {
  switch (input.takeBelow(8)) {
    case 0:
      return {};
    case 1:
      return input.takeNumber<std::int64_t>();
    case 2:
      return std::int64_t{input.takeNumber<std::int8_t>()};
    case 3:
      return input.takeReal<double>();
    case 4:
      return input.takeFlag();
    case 5:
      return input.takeText(20);
    default:
      return std::string(input.takeOneOf(Names));
  }
}

qv::qvVariant takeValue(InputCursor& input, int depth) {
  unsigned const kind = input.takeBelow(8);
  if (kind < 2) return takeNumbers(input);
  if (kind < 5 || depth <= 0) return takeScalar(input);
  if (kind < 7) return takeList(input, depth - 1);
  return takeVariantMap(input, depth - 1);
}

}  // namespace

Map takeVariantMap(InputCursor& input, int depth) {
  Map map;
  for (unsigned i = input.takeBelow(12); i > 0 && !input.isAtEnd(); --i) {
    std::string const key(input.takeOneOf(Keys));
    map.insert_or_assign(key.empty() ? input.takeText(8) : key, takeValue(input, depth));
  }
  return map;
}

std::uint32_t takeVersion(InputCursor& input) {
  constexpr std::uint32_t Oldest = 0x6000C;
  std::uint8_t const choice = input.takeByte();
  return choice < 240 ? Oldest + choice % 18 : input.takeNumber<std::uint32_t>();
}

}  // namespace qvFuzz
