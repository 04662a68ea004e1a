#include "qvToolkit/text/textEscape.h"

#include <algorithm>

#include "text/hexadecimal.h"
#include "text/utf8.h"

namespace qvToolkit {

namespace {

constexpr bool isShownInXml(Utf8Step const& step) {
  char32_t const c = step.m_codePoint;
  if (c == '\t' || c == '\n' || c == '\r') return true;
  return step.m_isValid && !isControl(c) && c != 0xFFFE && c != 0xFFFF;
}

/// "\u001b"; characters above U+FFFF need no escape anywhere.
void appendUnicodeEscape(std::string& text, char32_t c) {
  text += "\\u";
  appendHex(text, c, 4);
}

void appendByteEscape(std::string& text, char byte) {
  text += "\\x";
  appendHex(text, static_cast<unsigned char>(byte), 2);
}

std::string_view findXmlReference(char32_t c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\'':
      return "&#39;";
    case '\t':
      return "&#9;";
    case '\n':
      return "&#10;";
    case '\r':
      return "&#13;";
    default:
      return {};
  }
}

std::string_view findJsonEscape(char32_t c) {
  switch (c) {
    case '"':
      return "\\\"";
    case '\\':
      return "\\\\";
    case '\b':
      return "\\b";
    case '\f':
      return "\\f";
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      return {};
  }
}

void appendJsonCharacter(std::string& text, Utf8Step const& step, std::string_view bytes) {
  if (!step.m_isValid) {
    appendUtf8(text, ReplacementCharacter);
  } else if (std::string_view const escape = findJsonEscape(step.m_codePoint); !escape.empty()) {
    text += escape;
  } else if (isControl(step.m_codePoint) || isLayoutControl(step.m_codePoint)) {
    appendUnicodeEscape(text, step.m_codePoint);
  } else {
    text += bytes;
  }
}

/// How many bytes stand in front that are nothing but themselves: ASCII without quotes, backslashes and
/// control characters. Most texts are nothing else.
std::size_t countPlainInJson(std::string_view bytes) {
  auto const isPlain = [](char c) { return c >= ' ' && c <= '~' && c != '"' && c != '\\'; };
  return static_cast<std::size_t>(std::ranges::find_if_not(bytes, isPlain) - bytes.begin());
}

void appendTerminalCharacter(std::string& text, Utf8Step const& step, std::string_view bytes) {
  if (!step.m_isValid || step.m_codePoint < 0x20 || step.m_codePoint == 0x7F) {
    for (char const byte : bytes) appendByteEscape(text, byte);
  } else if (isControl(step.m_codePoint) || isLayoutControl(step.m_codePoint)) {
    appendUnicodeEscape(text, step.m_codePoint);
  } else if (step.m_codePoint == '\\') {
    text += "\\\\";
  } else {
    text += bytes;
  }
}

}  // namespace

std::string repairUtf8(std::string_view bytes, bool* repaired) {
  std::string text;
  text.reserve(bytes.size());
  bool hasChanged = false;
  forEachCharacter(bytes, [&](Utf8Step const& step, std::string_view character) {
    if (isShownInXml(step)) {
      text += character;
      return;
    }
    appendUtf8(text, ReplacementCharacter);
    hasChanged = true;
  });
  if (repaired != nullptr) *repaired = hasChanged;
  return text;
}

std::string escapeXml(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  forEachCharacter(bytes, [&text](Utf8Step const& step, std::string_view character) {
    if (!isShownInXml(step)) {
      appendUtf8(text, ReplacementCharacter);
    } else if (std::string_view const reference = findXmlReference(step.m_codePoint); !reference.empty()) {
      text += reference;
    } else {
      text += character;
    }
  });
  return text;
}

bool appendJson(std::string& text, std::string_view bytes) {
  bool isWhole = true;
  text += '"';
  while (!bytes.empty()) {
    std::size_t const plain = countPlainInJson(bytes);
    text.append(bytes, 0, plain);
    bytes.remove_prefix(plain);
    if (bytes.empty()) break;
    std::string_view const rest = bytes;
    Utf8Step const step = takeUtf8(bytes);
    isWhole &= step.m_isValid;
    appendJsonCharacter(text, step, rest.substr(0, step.m_length));
  }
  text += '"';
  return isWhole;
}

std::string quoteJson(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() + 2);
  appendJson(text, bytes);
  return text;
}

std::string escapeTerminal(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  forEachCharacter(bytes, [&](Utf8Step const& step, std::string_view character) {
    appendTerminalCharacter(text, step, character);
  });
  return text;
}

std::string shortenText(std::string_view bytes, std::size_t maxBytes) {
  if (bytes.size() <= maxBytes) return std::string(bytes);
  std::size_t end = 0;
  for (std::size_t next = 0; next <= maxBytes; next += decodeUtf8(bytes.substr(next)).m_length) end = next;
  return std::string(bytes.substr(0, end)) + "... (" + std::to_string(bytes.size()) + " bytes)";
}

}  // namespace qvToolkit
