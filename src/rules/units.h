#pragma once

namespace qvLegacy::rules {

/// Legacy sizes of texts and rasters times this are SVG units.
inline constexpr float svgUnitsPerLegacyUnit = 3.175F;

}  // namespace qvLegacy::rules
