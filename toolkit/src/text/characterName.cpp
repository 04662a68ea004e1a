#include "text/characterName.h"

#include <algorithm>
#include <iterator>

#include "text/hexadecimal.h"

namespace qvToolkit {

namespace {

struct CharacterName {
  char32_t m_character;
  char const* m_name;
};

constexpr CharacterName CharacterNames[] = {
    {0x00B0, "DEGREE SIGN"},
    {0x00B1, "PLUS-MINUS SIGN"},
    {0x00D7, "MULTIPLICATION SIGN"},
    {0x2190, "LEFTWARDS ARROW"},
    {0x2191, "UPWARDS ARROW"},
    {0x2192, "RIGHTWARDS ARROW"},
    {0x2193, "DOWNWARDS ARROW"},
    {0x2197, "NORTH EAST ARROW"},
    {0x21A7, "DOWNWARDS ARROW FROM BAR"},
    {0x2205, "EMPTY SET"},
    {0x221A, "SQUARE ROOT"},
    {0x2220, "ANGLE"},
    {0x2221, "MEASURED ANGLE"},
    {0x2225, "PARALLEL TO"},
    {0x2260, "NOT EQUAL TO"},
    {0x2264, "LESS-THAN OR EQUAL TO"},
    {0x2265, "GREATER-THAN OR EQUAL TO"},
    {0x22A5, "UP TACK"},
    {0x2300, "DIAMETER SIGN"},
    {0x2312, "ARC"},
    {0x2313, "SEGMENT"},
    {0x2314, "SECTOR"},
    {0x2316, "POSITION INDICATOR"},
    {0x232D, "CYLINDRICITY"},
    {0x232E, "ALL AROUND-PROFILE"},
    {0x232F, "SYMMETRY"},
    {0x2330, "TOTAL RUNOUT"},
    {0x2331, "DIMENSION ORIGIN"},
    {0x2332, "CONICAL TAPER"},
    {0x2333, "SLOPE"},
    {0x2334, "COUNTERBORE"},
    {0x2335, "COUNTERSINK"},
    {0x23E2, "WHITE TRAPEZIUM"},
    {0x23E4, "STRAIGHTNESS"},
    {0x23E5, "FLATNESS"},
    {0x25A1, "WHITE SQUARE"},
    {0x25B3, "WHITE UP-POINTING TRIANGLE"},
    {0x25B7, "WHITE RIGHT-POINTING TRIANGLE"},
    {0x25CB, "WHITE CIRCLE"},
    {0x25CE, "BULLSEYE"},
    {0x27C2, "PERPENDICULAR"},
    {0xFFFD, "REPLACEMENT CHARACTER"},
};

static_assert(std::ranges::is_sorted(CharacterNames, {}, &CharacterName::m_character));

constexpr char32_t CircledA = 0x24B6;
constexpr char32_t CircledZ = 0x24CF;

}  // namespace

std::string formatCodePoint(char32_t character) {
  return "U+" + toHexNumber(character, 4, HexCase::Upper);
}

std::string findCharacterName(char32_t character) {
  if (character >= CircledA && character <= CircledZ) {
    return std::string("CIRCLED LATIN CAPITAL LETTER ") + static_cast<char>('A' + (character - CircledA));
  }
  auto const* const known =
      std::ranges::lower_bound(CharacterNames, character, {}, &CharacterName::m_character);
  bool const isKnown = known != std::end(CharacterNames) && known->m_character == character;
  return isKnown ? known->m_name : std::string();
}

std::string describeCharacter(char32_t character) {
  std::string const name = findCharacterName(character);
  return name.empty() ? formatCodePoint(character) : formatCodePoint(character) + ' ' + name;
}

}  // namespace qvToolkit
