#pragma once

#include <string>
#include <string_view>

namespace qvToolkit {

/// The bytes in base 64, padded, without line breaks.
std::string encodeBase64(std::string_view bytes);

}  // namespace qvToolkit
