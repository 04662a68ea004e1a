#include "qvToolkit/json/jsonWriter.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <utility>

#include "qvToolkit/text/textEscape.h"
#include "text/hexadecimal.h"

namespace qvToolkit {

namespace {

constexpr std::size_t PieceSize = std::size_t{1} << 20;

/// Longer than any number's shortest text.
using NumberBuffer = std::array<char, 64>;

template <class Number, class... Format>
void appendDigits(std::string& text, Number number, Format... format) {
  NumberBuffer buffer;
  auto const result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, format...);
  text.append(buffer.data(), result.ptr);
}

/// Whether the shortest digits are those of an integer, which are made much faster: from 1e+05 on an exponent
/// would be shorter.
template <class Real>
bool isSmallInteger(Real number) {
  return std::fabs(number) < Real(100'000) && number == std::trunc(number);
}

template <class Real>
void appendReal(std::string& text, Real number) {
  // From here on digits without exponent would be read as an integer that no 64 bits hold.
  constexpr Real FirstBigInteger = static_cast<Real>(0x1p63);
  if (number == Real(0)) {
    // "-0" would be read as the integer, which has no sign.
    text += std::signbit(number) ? "-0.0" : "0";
  } else if (isSmallInteger(number)) {
    appendDigits(text, static_cast<int>(number));
  } else if (!std::isfinite(number)) {
    text += "null";
  } else if (std::fabs(number) >= FirstBigInteger) {
    appendDigits(text, number, std::chars_format::scientific);
  } else {
    appendDigits(text, number);
  }
}

}  // namespace

JsonWriter& JsonWriter::begin(char bracket) {
  beforeValue();
  m_text += bracket;
  ++m_levels;
  m_isEmpty = true;
  return *this;
}

JsonWriter& JsonWriter::end(char bracket) {
  --m_levels;
  if (!std::exchange(m_isEmpty, false) && m_isPretty) breakLine();
  m_text += bracket;
  return *this;
}

JsonWriter& JsonWriter::beginObject() {
  return begin('{');
}

JsonWriter& JsonWriter::endObject() {
  return end('}');
}

JsonWriter& JsonWriter::beginArray() {
  return begin('[');
}

JsonWriter& JsonWriter::endArray() {
  return end(']');
}

JsonWriter& JsonWriter::inlineArray(std::span<float const> numbers) {
  beforeValue();
  m_text += '[';
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (i > 0) m_text += m_isPretty ? ", " : ",";
    appendReal(m_text, numbers[i]);
  }
  m_text += ']';
  return *this;
}

JsonWriter& JsonWriter::key(JsonKey name, std::string_view ending) {
  beforeValue();
  m_text += '"';
  m_text += name.getText();
  m_text += ending;
  m_text += m_isPretty ? "\": " : "\":";
  m_afterKey = true;
  return *this;
}

JsonWriter& JsonWriter::value(std::string_view text) {
  beforeValue();
  appendJson(m_text, text);
  return *this;
}

JsonWriter& JsonWriter::bytes(JsonKey name, std::string_view bytes) {
  key(name).beforeValue();
  bool const isWhole = appendJson(m_text, bytes);
  key(name, "Hex");
  return isWhole ? null() : value(toHexBytes(bytes));
}

JsonWriter& JsonWriter::value(bool flag) {
  beforeValue();
  m_text += flag ? "true" : "false";
  return *this;
}

JsonWriter& JsonWriter::value(std::int64_t number) {
  beforeValue();
  appendDigits(m_text, number);
  return *this;
}

JsonWriter& JsonWriter::value(std::uint64_t number) {
  beforeValue();
  appendDigits(m_text, number);
  return *this;
}

JsonWriter& JsonWriter::value(float number) {
  beforeValue();
  appendReal(m_text, number);
  return *this;
}

JsonWriter& JsonWriter::value(double number) {
  beforeValue();
  appendReal(m_text, number);
  return *this;
}

JsonWriter& JsonWriter::null() {
  beforeValue();
  m_text += "null";
  return *this;
}

std::string JsonWriter::takeText() {
  endText();
  return std::exchange(m_text, std::string());
}

bool JsonWriter::finish() {
  endText();
  flush();
  return !m_hasFailed;
}

void JsonWriter::endText() {
  if (m_depth == 0) m_text += '\n';
  m_levels = 0;
  m_isEmpty = true;
  m_afterKey = false;
}

void JsonWriter::flush() {
  if (!m_hasFailed) m_hasFailed = !m_sink->write(m_text);
  m_text.clear();
}

/// Places what comes next: behind its key, or behind what stands before it in its object or array.
void JsonWriter::beforeValue() {
  if (m_sink != nullptr && m_text.size() >= PieceSize) flush();
  if (std::exchange(m_afterKey, false)) return;
  if (!std::exchange(m_isEmpty, false)) m_text += ',';
  if (m_isPretty && m_levels > 0) breakLine();
}

void JsonWriter::breakLine() {
  m_text += '\n';
  m_text.append(2 * (m_depth + m_levels), ' ');
}

}  // namespace qvToolkit
