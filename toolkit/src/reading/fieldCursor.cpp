#include "reading/fieldCursor.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "annotationLegacy/platform.h"
#include "qvToolkit/text/textEscape.h"
#include "text/countText.h"
#include "text/utf8.h"

namespace qvToolkit {

namespace {

constexpr std::size_t MaxShownParts = 8;
constexpr std::size_t MaxShownText = 60;

/// A text on one line between quotes, shortened, without a part of a character at its end.
std::string describeText(std::string_view text) {
  std::size_t length = std::min(text.size(), MaxShownText);
  if (length < text.size()) {
    for (int i = 0; i < 3 && !beginsCharacter(text[length]); ++i) --length;
  }
  return '"' + escapeTerminal(text.substr(0, length)) + '"' + (length < text.size() ? "..." : "");
}

void appendFloat(std::string& text, std::string_view bytes) {
  std::uint32_t bits = 0;
  for (std::size_t i = 0; i < 4; ++i) bits |= std::uint32_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
  std::array<char, 32> buffer;
  auto const result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::bit_cast<float>(bits));
  text.append(buffer.data(), result.ptr);
}

}  // namespace

std::string FieldPath::join(std::string_view name) const {
  std::string path;
  for (std::size_t i = 0; i < m_parts.size(); ++i) {
    if (m_parts.size() > 2 * MaxShownParts && i == MaxShownParts) {
      std::size_t const hidden = m_parts.size() - 2 * MaxShownParts;
      path += "(" + std::to_string(hidden) + " levels).";
      i += hidden;
    }
    path += m_parts[i] + '.';
  }
  return path + std::string(name);
}

void FieldCursor::emit(StreamField::State state, std::string_view name, std::uint64_t size,
                       std::string value) {
  m_visit({m_offset - size, size, m_path.join(name), std::move(value), std::move(m_gate), state});
  m_gate.clear();
  m_taken = 0;
}

void FieldCursor::beginPayload(std::uint64_t size) {
  m_limitName = size > getLeft() ? "document" : "payload";
  m_limit = m_offset + std::min(size, getLeft());
}

void FieldCursor::endPayload(std::string_view expected) {
  std::uint64_t const left = getLeft();
  m_offset = m_limit;
  if (left > 0) {
    emit(StreamField::State::Rest, "rest", left,
         (m_isBroken ? "not walked: " : std::string(expected)) + formatCount(left, "byte"));
  }
  m_limit = m_bytes.size();
  m_limitName = "document";
  m_isBroken = false;
}

bool FieldCursor::has(qvLegacy::rules::Since since, std::string_view name) {
  if (m_isBroken) return false;
  if (since == qvLegacy::rules::Since::views) return true;
  qvLegacy::rules::Gate const& gate = qvLegacy::rules::gateOf(since);
  bool const isOpen = m_version >= gate.version;
  std::string const version = qv::qvStreamVersion(gate.version).toString();
  if (!isOpen && !name.empty()) {
    m_gate = "since " + version;
    emit(StreamField::State::Absent, name, 0, "not in " + qv::qvStreamVersion(m_version).toString());
  } else {
    m_gate = (isOpen ? "since " : "before ") + version;
  }
  return isOpen;
}

std::string_view FieldCursor::take(std::string_view name, std::uint64_t size) {
  if (m_isBroken) return {};
  m_taken = std::min(size, getLeft());
  std::string_view const bytes = m_bytes.substr(m_offset, m_taken);
  m_offset += m_taken;
  if (m_taken == size) return bytes;
  breakHere(name, "expected " + formatCount(size, "byte") + ", found " + formatCount(m_taken, "byte") +
                      " before the end of the " + std::string(m_limitName));
  return {};
}

void FieldCursor::show(std::string_view name, std::string value) {
  if (!m_isBroken) emit(StreamField::State::Present, name, m_taken, std::move(value));
}

void FieldCursor::breakHere(std::string_view name, std::string expected) {
  if (m_isBroken) return;
  m_isBroken = true;
  emit(StreamField::State::Break, name, m_taken, std::move(expected));
}

void FieldCursor::floats(std::string_view name, std::size_t count) {
  std::string_view const bytes = take(name, 4 * count);
  std::string value;
  for (std::size_t i = 0; i < bytes.size(); i += 4) {
    value += value.empty() ? "(" : ", ";
    appendFloat(value, bytes.substr(i));
  }
  show(name, value + ')');
}

std::string_view FieldCursor::text(std::string_view name) {
  std::string const lengthName = std::string(name) + ".length";
  auto const length = static_cast<std::int32_t>(takeNumber<std::uint32_t>(lengthName));
  show(lengthName, std::to_string(length));
  return length > 0 ? text(name, static_cast<std::uint64_t>(length)) : std::string_view();
}

std::string_view FieldCursor::text(std::string_view name, std::uint64_t length) {
  if (length == 0) return {};
  std::string_view const bytes = take(name, length);
  show(name, describeText(bytes));
  return bytes;
}

}  // namespace qvToolkit
