#pragma once

#include <array>
#include <cstdint>

#include "rules/valueNames.h"

namespace qvLegacy::rules {

/// Which way the barbs of a measure leader's arrows lie from the two feet of its dimension line, along that
/// line: 1 with it, -1 against it.
struct ArrowRule {
  float atA;
  float atB;
};

/// In the order of the directions' values. KEEP: "none" has arrows, too.
inline constexpr std::array<ArrowRule, 4> arrowRules{
    {{-1.0F, 1.0F}, {1.0F, -1.0F}, {-1.0F, -1.0F}, {1.0F, 1.0F}}};
static_assert(arrowRules.size() == arrowDirections.names.size());

/// As this one every value beyond them is drawn.
inline constexpr std::uint8_t otherArrowDirection = 3;

constexpr ArrowRule const& arrowRuleOf(std::uint8_t direction) noexcept {
  return arrowRules[direction < arrowRules.size() ? direction : otherArrowDirection];
}

}  // namespace qvLegacy::rules
