#include "qvToolkit/json/jsonWriter.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <utility>

#include "qvToolkit/text/textEscape.h"

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

template <class Real>
void appendReal(std::string& text, Real number) {
  // From here on digits without exponent would be read as an integer that no 64 bits hold.
  constexpr Real FirstBigInteger = static_cast<Real>(0x1p63);
  if (!std::isfinite(number)) {
    text += "null";
  } else if (std::fabs(number) >= FirstBigInteger) {
    appendDigits(text, number, std::chars_format::scientific);
  } else {
    appendDigits(text, number == Real(0) ? Real(0) : number);
  }
}

}  // namespace

JsonWriter& JsonWriter::beginObject() {
  beforeValue();
  m_text += '{';
  m_levels.push_back({false, true});
  return *this;
}

JsonWriter& JsonWriter::endObject() {
  bool const isEmpty = m_levels.back().m_isEmpty;
  m_levels.pop_back();
  if (!isEmpty) breakLine();
  m_text += '}';
  return *this;
}

JsonWriter& JsonWriter::beginArray() {
  beforeValue();
  m_text += '[';
  m_levels.push_back({true, true});
  return *this;
}

JsonWriter& JsonWriter::endArray() {
  bool const isEmpty = m_levels.back().m_isEmpty;
  m_levels.pop_back();
  if (!isEmpty) breakLine();
  m_text += ']';
  return *this;
}

JsonWriter& JsonWriter::inlineArray(std::vector<float> const& numbers) {
  beforeValue();
  m_text += '[';
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (i > 0) m_text += ", ";
    appendReal(m_text, numbers[i]);
  }
  m_text += ']';
  return *this;
}

JsonWriter& JsonWriter::key(std::string_view name) {
  beforeValue();
  m_text += quoteJson(name);
  m_text += ": ";
  m_afterKey = true;
  return *this;
}

JsonWriter& JsonWriter::value(std::string_view text) {
  beforeValue();
  m_text += quoteJson(text);
  return *this;
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
  m_text += '\n';
  m_levels.clear();
  m_afterKey = false;
  return std::exchange(m_text, std::string());
}

bool JsonWriter::finish() {
  m_text += '\n';
  flush();
  m_levels.clear();
  m_afterKey = false;
  return !m_hasFailed;
}

void JsonWriter::flush() {
  if (!m_hasFailed) m_hasFailed = !m_sink->write(m_text);
  m_text.clear();
}

/// Places what comes next: behind its key, or on a line of its own within an object or array.
void JsonWriter::beforeValue() {
  if (m_sink != nullptr && m_text.size() >= PieceSize) flush();
  if (std::exchange(m_afterKey, false) || m_levels.empty()) return;
  if (!std::exchange(m_levels.back().m_isEmpty, false)) m_text += ',';
  breakLine();
}

void JsonWriter::breakLine() {
  m_text += '\n';
  m_text.append(2 * m_levels.size(), ' ');
}

}  // namespace qvToolkit
