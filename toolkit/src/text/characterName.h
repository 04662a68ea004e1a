#pragma once

#include <string>

namespace qvToolkit {

/// "U+2300", at least four digits.
std::string formatCodePoint(char32_t character);

/// Unicode's name of a sign that drawings use, such as "DIAMETER SIGN"; empty for other characters.
std::string findCharacterName(char32_t character);

/// "U+2300 DIAMETER SIGN".
std::string describeCharacter(char32_t character);

}  // namespace qvToolkit
