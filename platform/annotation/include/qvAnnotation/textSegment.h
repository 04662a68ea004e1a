#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "qvAnnotation/textProperties.h"
#include "qvSystem/export.h"

namespace qv::text {

/// A run of text with one set of properties.
class QV_EXPORT TextSegment {
 public:
  /// How the run sits on its line.
  enum SegmentType : std::uint8_t { Normal = 0, Subscript = 1, Superscript = 2 };

  TextSegment();
  TextSegment(std::string text, SegmentType type, TextProperties const& properties);
  TextSegment(TextSegment const& other);
  TextSegment(TextSegment&&) noexcept;
  TextSegment& operator=(TextSegment const& other);
  TextSegment& operator=(TextSegment&&) noexcept;
  ~TextSegment();

  /// Replaces the text by `length` characters; null or 0 leaves it empty.
  void setText(char const* text, unsigned long length);
  std::string const& getText() const noexcept { return m_text; }

  SegmentType m_type = Normal;
  /// The run's own properties; null when those of the area apply.
  std::unique_ptr<TextProperties> m_properties;

 private:
  std::string m_text;
};

}  // namespace qv::text
