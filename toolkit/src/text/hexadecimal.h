#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace qvToolkit {

/// Lower-case digits without a prefix, at least `width` of them.
std::string toHexNumber(std::uint64_t number, std::size_t width);

}  // namespace qvToolkit
