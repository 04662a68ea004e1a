#pragma once

#include <optional>
#include <string_view>

namespace qvToolkit {

enum class NumberForm { None, Integer, Real };

/// The form of a text that is, as a whole, one number of JSON: an integer has neither fraction nor exponent.
/// None for all that only other number parsers take, such as "-inf", "01", "1." and "0x1".
NumberForm getNumberForm(std::string_view text);

/// The double that is nearest to a number of JSON that has a fraction, no exponent and few digits, as most
/// have; nothing for any other text. Takes a fraction of the time of `getNumberForm` and `readReal`.
std::optional<double> readShortReal(std::string_view text);

/// The double that is nearest to a number of JSON; nothing when it is too large for a double. One that is too
/// small becomes zero.
std::optional<double> readReal(std::string_view number);

}  // namespace qvToolkit
