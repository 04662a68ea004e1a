#include "qvAnnotation/textSegment.h"

#include <utility>

namespace qv::text {

TextSegment::TextSegment() = default;

TextSegment::TextSegment(std::string text, SegmentType type, TextProperties const& properties)
    : m_type(type), m_properties(std::make_unique<TextProperties>(properties)), m_text(std::move(text)) {
}

TextSegment::TextSegment(TextSegment const& other)
    : m_type(other.m_type),
      m_properties(other.m_properties != nullptr ? std::make_unique<TextProperties>(*other.m_properties)
                                                 : nullptr),
      m_text(other.m_text) {
}

TextSegment::TextSegment(TextSegment&&) noexcept = default;

TextSegment& TextSegment::operator=(TextSegment const& other) {
  return *this = TextSegment(other);
}

TextSegment& TextSegment::operator=(TextSegment&&) noexcept = default;

TextSegment::~TextSegment() = default;

void TextSegment::setText(char const* text, unsigned long length) {
  if (text == nullptr) {
    m_text.clear();
  } else {
    m_text.assign(text, length);
  }
}

}  // namespace qv::text
