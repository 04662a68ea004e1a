#pragma once

#include <cstddef>
#include <string_view>

namespace qvToolkit {

/// How many characters of a text leave something on the page where a font has them: blanks, tabs and
/// characters that only direct the layout do not; what is shown as U+FFFD does.
std::size_t countVisibleCharacters(std::string_view bytes);

}  // namespace qvToolkit
