#include "annotationLegacy/qvAnnotationText.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "model/keepAlive.h"

namespace qvLegacy {

namespace {

/// Takes the first line off `rest`, with the CR LF, CR or LF that ends it; `isLast` says that none did.
std::string_view takeLine(std::string_view& rest, bool& isLast) {
  auto const end = std::find_if(rest.begin(), rest.end(), [](char c) { return c == '\r' || c == '\n'; });
  auto const length = static_cast<std::size_t>(end - rest.begin());
  std::string_view const line = rest.substr(0, length);
  rest.remove_prefix(length);
  isLast = rest.empty();
  rest.remove_prefix(rest.starts_with("\r\n") ? 2 : isLast ? 0 : 1);
  return line;
}

/// Drops the elements for which `isEmpty` holds from the asked ends of the list.
template <class List, class IsEmpty>
void trimEnds(List& list, bool leading, bool trailing, IsEmpty isEmpty) {
  while (trailing && !list.empty() && isEmpty(list.back())) list.pop_back();
  while (leading && !list.empty() && isEmpty(list.front())) list.pop_front();
}

}  // namespace

qvAnnotationText::qvAnnotationText() : qvAnnotationInterface(Text) {
}

qvAnnotationText::qvAnnotationText(qvAnnotationText const& other) : qvAnnotationText() {
  *this = other;
}

qvAnnotationText& qvAnnotationText::operator=(qvAnnotationText const& other) {
  if (this == &other) return *this;
  auto const source = keepAlive(other, *this);
  qvAnnotationInterface::operator=(other);
  m_defaultTextProperties = other.m_defaultTextProperties;
  m_lines = other.m_lines;  // list assignment reuses the nodes, of the lines and of the runs within
  return *this;
}

qvAnnotationText::~qvAnnotationText() = default;

void qvAnnotationText::setText(std::string const& text) {
  LineList lines;
  std::string_view rest = text;
  for (bool isLast = false; !isLast;) {
    std::string_view const piece = takeLine(rest, isLast);
    TextSegment& run = lines.emplace_back().emplace_back();
    if (!piece.empty()) run.setText(piece.data(), piece.size());
  }
  m_lines.swap(lines);
}

void qvAnnotationText::toString(std::string& out) const {
  std::string text;
  for (Line const& line : m_lines) {
    if (&line != &m_lines.front()) text += '\n';
    for (TextSegment const& run : line) text += run.getText();
  }
  out.swap(text);
}

void qvAnnotationText::trim(bool leading, bool trailing) {
  for (Line& line : m_lines) {
    trimEnds(line, leading, trailing, [](TextSegment const& run) { return run.m_length == 0; });
  }
  trimEnds(m_lines, leading, trailing, [](Line const& line) { return line.empty(); });
}

}  // namespace qvLegacy
