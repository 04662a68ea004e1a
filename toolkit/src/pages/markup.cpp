#include "pages/markup.h"

#include <cstddef>

#include "qvToolkit/text/textEscape.h"

namespace qvToolkit {

namespace {

constexpr std::size_t PieceBytes = std::size_t{1} << 20;

bool holdsText(std::string_view element) {
  return element == "text";
}

}  // namespace

Markup& Markup::open(char const* element) {
  endTag();
  if (!m_inText) startLine();
  m_buffer += '<';
  m_buffer += element;
  m_elements.push_back(element);
  m_inTag = true;
  if (holdsText(element)) m_inText = true;
  return *this;
}

Markup& Markup::attribute(char const* name, std::string_view value) {
  return rawAttribute(name, escapeXml(value));
}

Markup& Markup::rawAttribute(char const* name, std::string_view value) {
  m_buffer += ' ';
  m_buffer += name;
  m_buffer += "=\"";
  m_buffer += value;
  m_buffer += '"';
  return *this;
}

Markup& Markup::text(std::string_view content) {
  endTag();
  m_buffer += escapeXml(content);
  return *this;
}

Markup& Markup::close() {
  char const* const element = m_elements.back();
  m_elements.pop_back();
  if (m_inTag) {
    m_buffer += "/>";
    m_inTag = false;
  } else {
    if (m_buffer.ends_with('>') && !m_inText) startLine();
    m_buffer += "</";
    m_buffer += element;
    m_buffer += '>';
  }
  if (holdsText(element)) m_inText = false;
  flushWhenFull();
  return *this;
}

bool Markup::finish() {
  m_buffer += '\n';
  flush();
  return !m_hasFailed;
}

void Markup::endTag() {
  if (m_inTag) m_buffer += '>';
  m_inTag = false;
}

/// Each element stands on a line of its own; the XML declaration is the caller's first line.
void Markup::startLine() {
  m_buffer += '\n';
}

void Markup::flushWhenFull() {
  // The last character stays: `close` looks at it.
  if (m_buffer.size() < PieceBytes) return;
  char const last = m_buffer.back();
  m_buffer.pop_back();
  flush();
  m_buffer.assign(1, last);
}

void Markup::flush() {
  if (!m_hasFailed) m_hasFailed = !m_sink.write(m_buffer);
  m_buffer.clear();
}

}  // namespace qvToolkit
