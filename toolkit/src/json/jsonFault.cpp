#include "json/jsonFault.h"

#include <array>
#include <utility>
#include <vector>

#include "findings/textPosition.h"
#include "json/jsonNumber.h"
#include "json/jsonString.h"
#include "text/utf8.h"

namespace qvToolkit {

namespace {

constexpr std::string_view EndOfText = "the end of the text";
/// Longer words and numbers are shown by their beginning.
constexpr std::size_t MaxShownLength = 40;

constexpr bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

constexpr bool isWordCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

std::string quoted(std::string_view text) {
  if (text.size() <= MaxShownLength) return "'" + std::string(text) + "'";
  return "'" + std::string(text.substr(0, MaxShownLength)) + "...'";
}

class FaultFinder {
 public:
  FaultFinder(std::string_view text, std::size_t maxContainers)
      : m_text(text), m_maxContainers(maxContainers) {}

  std::optional<JsonFault> find() {
    while (step()) {
    }
    return std::move(m_fault);
  }

 private:
  /// What may stand next.
  enum class State { Value, FirstElement, FirstKey, Key, AfterValue };
  struct Container {
    std::size_t m_offset;
    bool m_isArray;
  };

  bool atEnd() const { return m_offset >= m_text.size(); }
  char current() const { return m_text[m_offset]; }
  bool isAt(char c) const { return !atEnd() && current() == c; }

  bool fail(std::size_t offset, std::string_view found, std::string_view expected) {
    m_fault = JsonFault{offset, std::string(found), std::string(expected), false};
    return false;
  }
  bool failHere(std::string_view expected) { return fail(m_offset, describeHere(), expected); }
  std::string describeHere() const;
  std::string describePlace(std::size_t offset) const;

  bool step();
  bool stepAfterValue();
  bool scanKey();
  bool scanValue();
  bool open(bool isArray);
  bool close();
  bool scanWord(std::string_view word);
  bool scanNumber();
  bool scanDigits();
  bool scanString();
  bool scanEscape();
  bool scanUnicodeEscape();

  std::string_view m_text;
  std::size_t m_maxContainers;
  std::size_t m_offset = 0;
  State m_state = State::Value;
  std::vector<Container> m_containers;
  std::optional<JsonFault> m_fault;
};

std::string FaultFinder::describeHere() const {
  if (atEnd()) return std::string(EndOfText);
  std::string_view const rest = m_text.substr(m_offset);
  std::size_t length = 0;
  while (length < rest.size() && isWordCharacter(rest[length])) ++length;
  if (length > 0) return quoted(rest.substr(0, length));
  Utf8Step const character = decodeUtf8(rest);
  if (!character.m_isValid) return "invalid UTF-8 " + quoted(rest.substr(0, character.m_length));
  return quoted(rest.substr(0, character.m_length));
}

std::string FaultFinder::describePlace(std::size_t offset) const {
  SourcePlace const place = LineCounter(m_text).locate(offset);
  return "line " + std::to_string(place.m_line.value_or(0)) + ", column " +
         std::to_string(place.m_column.value_or(0));
}

/// Takes one token; false at the end and at a fault.
bool FaultFinder::step() {
  while (!atEnd() && isBlank(current())) ++m_offset;
  switch (m_state) {
    case State::Value:
      return scanValue();
    case State::FirstElement:
      return isAt(']') ? close() : scanValue();
    case State::FirstKey:
      return isAt('}') ? close() : scanKey();
    case State::Key:
      return scanKey();
    case State::AfterValue:
      break;
  }
  return stepAfterValue();
}

bool FaultFinder::stepAfterValue() {
  if (m_containers.empty()) return atEnd() ? false : failHere("the end of the text");
  Container const& container = m_containers.back();
  if (isAt(',')) {
    ++m_offset;
    m_state = container.m_isArray ? State::Value : State::Key;
    return true;
  }
  if (isAt(container.m_isArray ? ']' : '}')) return close();
  std::string const kind = container.m_isArray ? "',' or ']' of the array" : "',' or '}' of the object";
  return failHere(kind + " that begins at " + describePlace(container.m_offset));
}

bool FaultFinder::scanKey() {
  if (!isAt('"')) return failHere("a key in double quotes");
  if (!scanString()) return false;
  while (!atEnd() && isBlank(current())) ++m_offset;
  if (!isAt(':')) return failHere("':' after a key");
  ++m_offset;
  m_state = State::Value;
  return true;
}

bool FaultFinder::scanValue() {
  m_state = State::AfterValue;
  if (atEnd()) return failHere("a value");
  switch (current()) {
    case '{':
      return open(false);
    case '[':
      return open(true);
    case '"':
      return scanString();
    case 't':
      return scanWord("true");
    case 'f':
      return scanWord("false");
    case 'n':
      return scanWord("null");
    default:
      break;
  }
  bool const isNumber = current() == '-' || (current() >= '0' && current() <= '9');
  return isNumber ? scanNumber() : failHere("a value");
}

bool FaultFinder::open(bool isArray) {
  if (m_containers.size() >= m_maxContainers) {
    fail(m_offset, "more than " + std::to_string(m_maxContainers) + " objects and arrays within each other",
         "at most " + std::to_string(m_maxContainers));
    m_fault->m_isTooDeep = true;
    return false;
  }
  m_containers.push_back({m_offset, isArray});
  ++m_offset;
  m_state = isArray ? State::FirstElement : State::FirstKey;
  return true;
}

bool FaultFinder::close() {
  m_containers.pop_back();
  ++m_offset;
  m_state = State::AfterValue;
  return true;
}

bool FaultFinder::scanWord(std::string_view word) {
  std::size_t const end = m_offset + word.size();
  bool const isWord = m_text.substr(m_offset, word.size()) == word;
  if (!isWord || (end < m_text.size() && isWordCharacter(m_text[end]))) return failHere(word);
  m_offset = end;
  return true;
}

bool FaultFinder::scanDigits() {
  std::size_t const start = m_offset;
  while (!atEnd() && current() >= '0' && current() <= '9') ++m_offset;
  return m_offset > start || failHere("a digit");
}

bool FaultFinder::scanNumber() {
  std::size_t const start = m_offset;
  if (isAt('-')) ++m_offset;
  bool const hasLeadingZero = isAt('0');
  std::size_t const firstDigit = m_offset;
  if (!scanDigits()) return false;
  if (hasLeadingZero && m_offset > firstDigit + 1) {
    m_offset = firstDigit;
    return failHere("a number without leading zeros");
  }
  if (isAt('.')) {
    ++m_offset;
    if (!scanDigits()) return false;
  }
  if (isAt('e') || isAt('E')) {
    ++m_offset;
    if (isAt('+') || isAt('-')) ++m_offset;
    if (!scanDigits()) return false;
  }
  if (!atEnd() && isWordCharacter(current()))
    return failHere("',' or the end of the number's object or array");
  std::string_view const number = m_text.substr(start, m_offset - start);
  if (!readReal(number).has_value())
    return fail(start, "the number " + quoted(number), "a number of at most 1.8e308");
  return true;
}

bool FaultFinder::scanString() {
  std::size_t const start = m_offset++;
  while (!isAt('"')) {
    if (atEnd()) return failHere("the closing quote of the string that begins at " + describePlace(start));
    auto const byte = static_cast<unsigned char>(current());
    if (byte == '\\') {
      if (!scanEscape()) return false;
    } else if (byte < 0x20) {
      return fail(m_offset, "the control character " + quoted(m_text.substr(m_offset, 1)) + " in a string",
                  "its escape, or the closing quote of the string that begins at " + describePlace(start));
    } else {
      Utf8Step const character = decodeUtf8(m_text.substr(m_offset));
      if (!character.m_isValid) return failHere("UTF-8 text");
      m_offset += character.m_length;
    }
  }
  ++m_offset;
  return true;
}

bool FaultFinder::scanEscape() {
  constexpr std::string_view Simple = "\"\\/bfnrt";
  constexpr std::string_view Expected = "one of the escapes \\\" \\\\ \\/ \\b \\f \\n \\r \\t \\uXXXX";
  if (m_offset + 1 >= m_text.size()) return fail(m_text.size(), EndOfText, Expected);
  if (m_text[m_offset + 1] == 'u') return scanUnicodeEscape();
  if (Simple.find(m_text[m_offset + 1]) == std::string_view::npos) {
    std::size_t const length = 1 + decodeUtf8(m_text.substr(m_offset + 1)).m_length;
    return fail(m_offset, quoted(m_text.substr(m_offset, length)), Expected);
  }
  m_offset += 2;
  return true;
}

bool FaultFinder::scanUnicodeEscape() {
  constexpr std::size_t Length = 6;
  if (!readHexDigits(m_text, m_offset + 2)) {
    return fail(m_offset, quoted(m_text.substr(m_offset, Length)), "four hexadecimal digits after \\u");
  }
  m_offset += Length;
  return true;
}

}  // namespace

std::optional<JsonFault> findJsonFault(std::string_view text, std::size_t maxContainers) {
  return FaultFinder(text, maxContainers).find();
}

}  // namespace qvToolkit
