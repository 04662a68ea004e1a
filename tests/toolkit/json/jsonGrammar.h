#pragma once

#include <cstddef>
#include <string_view>

namespace qvToolkit::test {

/// Says of a text whether it is JSON by RFC 8259, on its own: shares nothing with the reader. Calls itself
/// for nested values, so texts must be shallow.
class JsonGrammar {
 public:
  explicit JsonGrammar(std::string_view text) : m_rest(text) {}

  /// Takes the whole text, with the blanks around it.
  bool takeText();
  /// Takes one number and leaves what follows it.
  bool takeNumber();
  std::string_view getRest() const { return m_rest; }
  /// Whether a number that was taken is larger than every double.
  bool hasHugeNumber() const { return m_hasHugeNumber; }

 private:
  bool take(char c);
  bool takeAnyOf(std::string_view characters);
  bool takeWord(std::string_view word);
  void takeBlanks();
  bool takeDigits();
  bool takeValue();
  bool takeString();
  bool takeEscape();
  bool takeCharacter();
  bool takeMember();
  bool takeArray();
  bool takeObject();

  std::string_view m_rest;
  bool m_hasHugeNumber = false;
};

}  // namespace qvToolkit::test
