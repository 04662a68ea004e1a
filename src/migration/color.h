#pragma once

#include <string>

#include "ports/geometry.h"

namespace qvLegacy::migration {

/// Red, green, blue.
using Color = Wm4::Vector3<unsigned char>;

inline constexpr Color black{0, 0, 0};
inline constexpr Color white{255, 255, 255};

/// The colour, black or white, of text on a background of `color`.
[[nodiscard]] Color contrastColor(Color const& color);

/// "#RRGGBB", upper case.
[[nodiscard]] std::string colorText(Color const& color);

}  // namespace qvLegacy::migration
