#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "fontChain.h"
#include "qvAnnotation/textSegment.h"
#include "qvSvg/boundingBox.h"
#include "qvSvg/text.h"
#include "runShaper.h"

namespace qv::text {

/// Characters of a line that are asked for in one way.
struct LineRun {
  std::u32string_view m_text;  ///< not empty
  FontChain* m_fonts = nullptr;
  float m_size = 0.0F;  ///< em size before sub- and superscripts are reduced
  TextSegment::SegmentType m_type = TextSegment::Normal;
};

/// A laid-out line, its baseline at y = 0, its left end at x = 0.
struct LineLayout {
  std::vector<std::shared_ptr<svg::Text>> m_items;  ///< one for each change of baseline or size
  svg::BoundingBox m_box;                           ///< of all items
  float m_lineGap = 0.0F;                           ///< the largest that a font of the line wants
};

/// Sets the runs one after the other on a common baseline, in the visual order of mixed directions. A tab
/// leads to the next stop, counted from where the line begins: the right end when the line runs from right to
/// left. Sub- and superscripts are reduced and shifted by the size of the normal run that they belong to: the
/// nearest before them, else the nearest after them. Subscripts that directly follow superscripts stand below
/// them, in one column, which keeps its place in the line as a whole. Each row of it is a line of its own,
/// and the rows move apart where tall signs would touch.
LineLayout layoutLine(std::vector<LineRun> const& runs, RunShaper& shaper);

}  // namespace qv::text
