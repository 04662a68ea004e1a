#pragma once

#include <string>

#include "qvSystem/export.h"

namespace qv::text {

/// How a run of text is drawn.
struct QV_EXPORT TextProperties {
  float m_size = 3.175F;  ///< em size in SVG units
  std::string m_fontName = "Arial";
  bool m_bold = false;
  bool m_italic = false;

  friend bool operator==(TextProperties const&, TextProperties const&) = default;
};

}  // namespace qv::text
