#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

/// The names that variant documents use for the values of closed sets. Names are compared exactly, case
/// included.
namespace qvLegacy::rules {

/// One name of a set. `reads` is the value that a document's text stands for, `shows` the value that is shown
/// by it.
struct ValueName {
  std::string_view text;
  std::uint8_t reads;
  std::uint8_t shows = reads;
};

/// A closed set of values. Every other text stands for `otherwise`.
struct ValueNames {
  std::span<ValueName const> names;
  std::uint8_t otherwise;

  /// The value that `text` stands for.
  constexpr std::uint8_t valueOf(std::string_view text) const noexcept {
    for (ValueName const& name : names) {
      if (name.text == text) return name.reads;
    }
    return otherwise;
  }
  constexpr bool has(std::string_view text) const noexcept {
    return std::ranges::any_of(names, [text](ValueName const& name) { return name.text == text; });
  }
  /// The name by which `value` is shown; empty for a value beyond the set.
  constexpr std::string_view nameOf(std::uint32_t value) const noexcept {
    for (ValueName const& name : names) {
      if (name.shows == value) return name.text;
    }
    return {};
  }
};

namespace tables {

inline constexpr std::array<ValueName, 3> annotationTypes{{{"text", 1}, {"raster", 2}, {"unknown", 0}}};

inline constexpr std::array<ValueName, 7> leaderHeads{{
    {"square", 1},
    {"circle", 2},
    {"arrow", 3},
    {"plus", 4},
    {"cross", 5},
    {"triangle", 6},
    {"none", 0},
}};

inline constexpr std::array<ValueName, 4> arrowDirections{
    {{"outout", 1}, {"inout", 2}, {"outin", 3}, {"none", 0}}};

inline constexpr std::array<ValueName, 13> anchors{{
    {"rt", 12},
    {"rc", 11},
    // KEEP: "rb" was always read as right top; documents were laid out by that. No name gives right bottom,
    // which an object stream may hold and which is shown by its place.
    {"rb", 12, 10},
    {"lt", 9},
    {"lc", 8},
    {"lb", 7},
    {"tr", 6},
    {"tc", 5},
    {"tl", 4},
    {"br", 3},
    {"bc", 2},
    {"bl", 1},
    {"none", 0},
}};

inline constexpr std::array<ValueName, 15> frameShapes{{
    {"rectangle", 1},
    {"square", 2},
    {"diamond", 3},
    {"triangle", 4},
    {"flagright", 5},
    {"flagleft", 6},
    {"flagboth", 7},
    {"parallelogram", 8},
    {"hexagon", 9},
    {"pentagon", 10},
    {"circle", 11},
    {"oblong", 12},
    {"oblongleft", 13},
    {"oblongright", 14},
    {"noframe", 0},
}};

inline constexpr std::array<ValueName, 3> segmentTypes{{{"sub", 1}, {"sup", 2}, {"normal", 0}}};

}  // namespace tables

inline constexpr ValueNames annotationTypes{tables::annotationTypes, 0};
inline constexpr ValueNames leaderHeads{tables::leaderHeads, 0};
inline constexpr ValueNames arrowDirections{tables::arrowDirections, 0};
inline constexpr ValueNames anchors{tables::anchors, 0};
inline constexpr ValueNames frameShapes{tables::frameShapes, 1};
inline constexpr ValueNames segmentTypes{tables::segmentTypes, 0};

constexpr bool namesAreDistinct(ValueNames const& set) {
  for (std::size_t i = 0; i < set.names.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      if (set.names[i].text == set.names[j].text || set.names[i].shows == set.names[j].shows) return false;
    }
  }
  return true;
}
static_assert(namesAreDistinct(annotationTypes) && namesAreDistinct(leaderHeads) &&
              namesAreDistinct(arrowDirections) && namesAreDistinct(anchors) &&
              namesAreDistinct(frameShapes) && namesAreDistinct(segmentTypes));

}  // namespace qvLegacy::rules
