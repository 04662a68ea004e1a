#pragma once

#include <array>
#include <cstddef>

#include "qvSvg/text.h"

namespace qvToolkit {

/// "asked", "metric-compatible", "substitute" or "missing".
constexpr char const* getMatchText(qv::svg::FontMatch match) {
  constexpr std::array<char const*, 4> Texts = {"asked", "metric-compatible", "substitute", "missing"};
  return Texts[static_cast<std::size_t>(match)];
}

}  // namespace qvToolkit
