#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "lineLayout.h"

namespace qv::text {

/// What keeps its place as a whole when a line is put into visual order: text of one run and one direction, a
/// tab, or a column of superscripts above subscripts.
struct LinePiece {
  LineRun const* m_run = nullptr;            ///< of a column: its first one
  unsigned m_level = 0;                      ///< odd: from right to left
  bool m_isTab = false;                      ///< then the text is a blank
  std::shared_ptr<ShapedText const> m_text;  ///< null for a column
  float m_size = 0.0F;                       ///< em size
  float m_baseline = 0.0F;
  float m_x = 0.0F;  ///< left end, in the line or in the column
  float m_width = 0.0F;
  std::vector<LinePiece> m_above;  ///< column only: both rows from left to right
  std::vector<LinePiece> m_below;
};

/// Cuts the runs of a line into pieces and puts these into visual order, each at its place.
std::vector<LinePiece> placePieces(std::span<LineRun const> runs, RunShaper& shaper);

}  // namespace qv::text
