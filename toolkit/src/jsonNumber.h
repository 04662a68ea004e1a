#pragma once

#include <string_view>

namespace qvToolkit {

/// True for digits with an optional minus sign: no fraction, no exponent.
bool isIntegerText(std::string_view number);

/// True when a well-formed JSON number is too large for a double. One that is too small is not: it becomes
/// zero.
bool isBeyondDouble(std::string_view number);

}  // namespace qvToolkit
