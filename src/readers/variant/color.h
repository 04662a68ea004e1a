#pragma once

#include <optional>
#include <string_view>

#include "annotationLegacy/platform.h"

namespace qvLegacy::readers {

/// The colour that six characters state as RRGGBB in hexadecimal digits of either case.
///
/// The number ends at the first character that is no digit: "ff80zz" is 0x00FF80. Zero is a colour only as
/// "000000". No sign, blank or prefix is taken.
[[nodiscard]] std::optional<Wm4::Vector3<unsigned char>> parseColor(std::string_view text);

}  // namespace qvLegacy::readers
