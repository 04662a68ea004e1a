#pragma once

#include <string>
#include <string_view>

namespace qvToolkit {

/// A value for SVG's font-family: the family in single quotes and a generic family to fall back on. Only the
/// characters A-Z a-z 0-9 blank _ - and those above U+00A0 survive, at most 128 bytes of them, so nothing can
/// leave the quotes.
std::string formatFontFamily(std::string_view family);

}  // namespace qvToolkit
