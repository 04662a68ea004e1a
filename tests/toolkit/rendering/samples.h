#pragma once

#include <span>
#include <string>
#include <vector>

#include "qvAnnotation/textArea.h"

namespace qvTest {

/// A run of a sample line; `m_type` as in the layout.
struct SampleRun {
  char const* m_text;
  qv::text::TextSegment::SegmentType m_type = qv::text::TextSegment::Normal;
};

/// A text as drawings have them.
struct Sample {
  char const* m_font;
  bool m_bold;
  bool m_italic;
  std::vector<SampleRun> m_runs;
};

/// Em size of the samples in page units, that of common documents: renderers round more in small text.
constexpr float SampleSize = 3.175F;

/// Latin, Greek, Cyrillic, Hebrew, Arabic, Devanagari and Thai, with the signs of drawings.
std::vector<Sample> const& getSamples();

qv::text::TextArea makeTextArea(Sample const& sample);
std::string describe(Sample const& sample);

}  // namespace qvTest
