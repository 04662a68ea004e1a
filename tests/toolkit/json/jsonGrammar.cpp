#include "tests/toolkit/json/jsonGrammar.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace qvToolkit::test {

namespace {

constexpr std::string_view Digits = "0123456789";
constexpr std::string_view HexDigits = "0123456789abcdefABCDEF";

/// A row of the table of well-formed UTF-8: how many bytes follow the first one, and the range of the second.
struct Utf8Row {
  unsigned char m_first;
  unsigned char m_last;
  std::size_t m_following;
  unsigned char m_lowest = 0x80;
  unsigned char m_highest = 0xBF;
};
constexpr Utf8Row Utf8Rows[] = {{0x20, 0x7F, 0},
                                {0xC2, 0xDF, 1},
                                {0xE0, 0xE0, 2, 0xA0, 0xBF},
                                {0xE1, 0xEC, 2},
                                {0xED, 0xED, 2, 0x80, 0x9F},
                                {0xEE, 0xEF, 2},
                                {0xF0, 0xF0, 3, 0x90, 0xBF},
                                {0xF1, 0xF3, 3},
                                {0xF4, 0xF4, 3, 0x80, 0x8F}};

/// The length of the well-formed character at the beginning, 0 when there is none.
std::size_t measureCharacter(std::string_view text) {
  auto const byteAt = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  for (Utf8Row const& row : Utf8Rows) {
    if (text.size() <= row.m_following || byteAt(0) < row.m_first || byteAt(0) > row.m_last) continue;
    for (std::size_t i = 1; i <= row.m_following; ++i) {
      unsigned char const lowest = i == 1 ? row.m_lowest : 0x80;
      unsigned char const highest = i == 1 ? row.m_highest : 0xBF;
      if (byteAt(i) < lowest || byteAt(i) > highest) return 0;
    }
    return row.m_following + 1;
  }
  return 0;
}

}  // namespace

bool JsonGrammar::takeAnyOf(std::string_view characters) {
  if (m_rest.empty() || characters.find(m_rest.front()) == std::string_view::npos) return false;
  m_rest.remove_prefix(1);
  return true;
}

bool JsonGrammar::take(char c) {
  return takeAnyOf(std::string_view(&c, 1));
}

bool JsonGrammar::takeWord(std::string_view word) {
  if (!m_rest.starts_with(word)) return false;
  m_rest.remove_prefix(word.size());
  return true;
}

void JsonGrammar::takeBlanks() {
  while (takeAnyOf(" \t\n\r")) {
  }
}

bool JsonGrammar::takeDigits() {
  bool const hasDigit = takeAnyOf(Digits);
  while (takeAnyOf(Digits)) {
  }
  return hasDigit;
}

// number = [ "-" ] int [ "." 1*digit ] [ ("e" / "E") [ "-" / "+" ] 1*digit ]; int = "0" / digit1-9 *digit
bool JsonGrammar::takeNumber() {
  std::string_view const whole = m_rest;
  take('-');
  if (!take('0') && !takeDigits()) return false;
  if (take('.') && !takeDigits()) return false;
  if (takeAnyOf("eE")) {
    takeAnyOf("+-");
    if (!takeDigits()) return false;
  }
  std::string const number(whole.substr(0, whole.size() - m_rest.size()));
  m_hasHugeNumber |= std::isinf(std::strtod(number.c_str(), nullptr));
  return true;
}

bool JsonGrammar::takeEscape() {
  if (takeAnyOf("\"\\/bfnrt")) return true;
  if (!take('u')) return false;
  for (int i = 0; i < 4; ++i) {
    if (!takeAnyOf(HexDigits)) return false;
  }
  return true;
}

bool JsonGrammar::takeCharacter() {
  if (take('\\')) return takeEscape();
  std::size_t const length = measureCharacter(m_rest);
  m_rest.remove_prefix(length);
  return length > 0;
}

bool JsonGrammar::takeString() {
  if (!take('"')) return false;
  while (!take('"')) {
    if (!takeCharacter()) return false;
  }
  return true;
}

bool JsonGrammar::takeMember() {
  takeBlanks();
  if (!takeString()) return false;
  takeBlanks();
  return take(':') && takeValue();
}

bool JsonGrammar::takeArray() {
  takeBlanks();
  if (take(']')) return true;
  while (takeValue()) {
    if (!take(',')) return take(']');
  }
  return false;
}

bool JsonGrammar::takeObject() {
  takeBlanks();
  if (take('}')) return true;
  while (takeMember()) {
    if (!take(',')) return take('}');
  }
  return false;
}

bool JsonGrammar::takeValue() {
  takeBlanks();
  bool const isValue = take('[')   ? takeArray()
                       : take('{') ? takeObject()
                       : !m_rest.empty() && m_rest.front() == '"'
                           ? takeString()
                           : takeWord("null") || takeWord("true") || takeWord("false") || takeNumber();
  takeBlanks();
  return isValue;
}

bool JsonGrammar::takeText() {
  return takeValue() && m_rest.empty();
}

}  // namespace qvToolkit::test
