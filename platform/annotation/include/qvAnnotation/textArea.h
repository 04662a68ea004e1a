#pragma once

#include <list>
#include <vector>

#include "qvAnnotation/textProperties.h"
#include "qvAnnotation/textSegment.h"
#include "qvSystem/export.h"
#include "wm4/vector3.h"

namespace qv::text {

/// A block of text to lay out: lines from top to bottom, each a list of runs.
class QV_EXPORT TextArea {
 public:
  using Line = std::list<TextSegment>;

  TextArea();
  ~TextArea();

  TextProperties m_defaultProperties;       ///< for runs that have none of their own
  Wm4::Vector3<unsigned char> m_textColor;  ///< red, green, blue; black by default
  std::list<Line> m_lines;
};

}  // namespace qv::text
