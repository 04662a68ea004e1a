#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

#include "annotationLegacy/qvAnnotationText.h"

namespace qvLegacy {

namespace {

using TextSegment = qvAnnotationText::TextSegment;
using TextArray = decltype(TextSegment::m_text);

constexpr std::size_t MAX_LENGTH = std::numeric_limits<decltype(TextSegment::m_length)>::max();

/// Room for `length` characters and the terminating zero, all zero.
TextArray makeText(std::size_t length) {
  auto* const text = static_cast<char*>(impl::allocateModelMemory(length + 1));
  std::memset(text, 0, length + 1);
  return TextArray(text);
}

}  // namespace

qvAnnotationText::TextSegment::TextSegment() = default;

qvAnnotationText::TextSegment::TextSegment(char const* text, SegmentType type) : m_type(type) {
  setText(text, 0);
}

qvAnnotationText::TextSegment::TextSegment(std::string const& text, SegmentType type) : m_type(type) {
  setText(text);
}

qvAnnotationText::TextSegment::TextSegment(TextSegment const& other) {
  *this = other;
}

TextSegment& qvAnnotationText::TextSegment::operator=(TextSegment const& other) {
  if (this == &other) return *this;
  m_type = other.m_type;
  setText(other.m_text.get(), 0);  // KEEP: up to the first zero, not the whole length
  m_textProperties.reset();
  if (other.m_textProperties != nullptr) setTextProperties(*other.m_textProperties);
  return *this;
}

qvAnnotationText::TextSegment::~TextSegment() = default;

/// The new text is complete before the old one goes: it may be a part of it.
void qvAnnotationText::TextSegment::setText(char const* text, unsigned long length) {
  std::size_t const available = text != nullptr && length == 0 ? std::strlen(text) : length;
  std::size_t const kept = text == nullptr ? 0 : std::min(available, MAX_LENGTH);
  TextArray copy;
  if (kept > 0) {
    copy = makeText(kept);
    std::memcpy(copy.get(), text, kept);
  }
  m_text = std::move(copy);
  m_length = static_cast<std::uint16_t>(kept);
}

void qvAnnotationText::TextSegment::setText(std::string const& text) {
  setText(text.data(), text.size());
}

char const* qvAnnotationText::TextSegment::getText() const {
  return m_text == nullptr ? "" : m_text.get();
}

void qvAnnotationText::TextSegment::setTextProperties(TextProperties const& properties) {
  if (m_textProperties == nullptr) {
    m_textProperties = std::make_unique<TextProperties>(properties);
  } else {
    *m_textProperties = properties;
  }
}

void qvAnnotationText::TextSegment::clearTextProperties() {
  m_textProperties.reset();
}

float qvAnnotationText::TextSegment::GetFontScaleFactor(SegmentType type) {
  return type == Normal ? 1.0F : 0.63F;
}

void qvAnnotationText::TextSegment::resizeText(std::uint16_t length) {
  m_text = length == 0 ? nullptr : makeText(length);
  m_length = length;
}

}  // namespace qvLegacy
