#include "linePieces.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "bidiLevels.h"

namespace qv::text {

namespace {

constexpr float SCRIPT_SCALE = 0.63F;

// Shifts in em of the normal run. Figures are 0.72 em high, so reduced ones stand from 0.44 to 0.89, and from
// -0.16 to 0.29: clear of each other when stacked, and the stack centred on the normal figures.
constexpr float SUPERSCRIPT_RISE = 0.44F;
constexpr float SUBSCRIPT_DROP = 0.16F;

constexpr float BLANKS_PER_TAB = 8.0F;

using Pieces = std::vector<LinePiece>;

float getShift(TextSegment::SegmentType type, float baseSize) {
  switch (type) {
    case TextSegment::Subscript:
      return -SUBSCRIPT_DROP * baseSize;
    case TextSegment::Superscript:
      return SUPERSCRIPT_RISE * baseSize;
    default:
      return 0.0F;
  }
}

bool isNormal(LineRun const& run) {
  return run.m_type == TextSegment::Normal;
}

BidiLevels findLevels(std::span<LineRun const> runs) {
  auto const isNeeded = [](LineRun const& run) { return BidiLevels::isNeededFor(run.m_text); };
  if (std::ranges::none_of(runs, isNeeded)) return {};
  std::u32string text;
  for (LineRun const& run : runs) text += run.m_text;
  return BidiLevels(text);
}

/// Cuts runs into pieces of text and tabs, in logical order.
class Cutter {
 public:
  Cutter(std::span<LineRun const> runs, RunShaper& shaper) : m_shaper(shaper), m_levels(findLevels(runs)) {
    auto const firstNormal = std::ranges::find_if(runs, isNormal);
    if (firstNormal != runs.end()) m_baseSize = firstNormal->m_size;
  }

  bool isRightToLeft() const { return m_levels.isRightToLeft(); }

  /// To be called for each run in turn.
  void cut(LineRun const& run, Pieces& pieces) {
    if (isNormal(run)) m_baseSize = run.m_size;
    for (std::size_t start = 0; start < run.m_text.size();) {
      std::size_t const length = getLength(run.m_text, start);
      pieces.push_back(makePiece(run, start, length));
      start += length;
    }
    m_position += run.m_text.size();
  }

 private:
  /// How many characters go together from `start` on: up to the next tab or change of level.
  std::size_t getLength(std::u32string_view text, std::size_t start) const {
    if (text[start] == U'\t') return 1;
    if (!m_levels.areMixed()) return std::min(text.find(U'\t', start), text.size()) - start;
    // Not beyond the piece: a line may be a piece for each character.
    unsigned const level = m_levels.getLevel(m_position + start);
    std::size_t end = start + 1;
    while (end < text.size() && text[end] != U'\t' && m_levels.getLevel(m_position + end) == level) ++end;
    return end - start;
  }

  LinePiece makePiece(LineRun const& run, std::size_t start, std::size_t length) {
    LinePiece piece;
    piece.m_run = &run;
    piece.m_level = m_levels.getLevel(m_position + start);
    piece.m_isTab = run.m_text[start] == U'\t';
    std::u32string_view const text = piece.m_isTab ? U" " : run.m_text.substr(start, length);
    piece.m_text = m_shaper.shape(text, *run.m_fonts, piece.m_level % 2 != 0);
    piece.m_size = isNormal(run) ? run.m_size : run.m_size * SCRIPT_SCALE;
    piece.m_baseline = getShift(run.m_type, m_baseSize.value_or(run.m_size));
    piece.m_width = piece.m_text->m_advance * piece.m_size;
    return piece;
  }

  RunShaper& m_shaper;
  BidiLevels m_levels;
  std::size_t m_position = 0;       // of the run in the line
  std::optional<float> m_baseSize;  // of the normal run that scripts belong to; none: their own
};

/// Reverses, from the highest level down to the lowest odd one, each sequence of pieces at that level or
/// higher.
void putIntoVisualOrder(Pieces& pieces) {
  auto const levels = [](LinePiece const& piece) { return piece.m_level; };
  if (pieces.empty()) return;
  for (unsigned level = std::ranges::max(pieces, {}, levels).m_level; level > 0; --level) {
    auto const isReversed = [level](LinePiece const& piece) { return piece.m_level >= level; };
    for (auto first = std::ranges::find_if(pieces, isReversed); first != pieces.end();) {
      auto const last = std::find_if_not(first, pieces.end(), isReversed);
      std::reverse(first, last);
      first = std::find_if(last, pieces.end(), isReversed);
    }
  }
}

/// The distance from `x` to the next tab stop.
float getTabAdvance(float x, float tabWidth) {
  if (!(tabWidth > 0.0F)) return 0.0F;
  float const advance = (std::floor(x / tabWidth) + 1.0F) * tabWidth - x;
  return advance > 0.0F ? advance : tabWidth;
}

/// Moves on by the piece's width; that of a tab is set before.
void pass(LinePiece& piece, float& x) {
  if (piece.m_isTab) {
    float const blank = piece.m_run->m_fonts->getPrimary()->m_face->getBlankAdvance();
    piece.m_width = getTabAdvance(x, BLANKS_PER_TAB * blank * piece.m_size);
  }
  x += piece.m_width;
}

/// Orders pieces and sets where each one begins; returns the width of all.
float place(Pieces& pieces, bool isRightToLeft) {
  putIntoVisualOrder(pieces);
  float width = 0.0F;
  if (isRightToLeft) {
    for (auto piece = pieces.rbegin(); piece != pieces.rend(); ++piece) pass(*piece, width);
  } else {
    for (LinePiece& piece : pieces) pass(piece, width);
  }
  float x = 0.0F;
  for (LinePiece& piece : pieces) {
    piece.m_x = x;
    x += piece.m_width;
  }
  return width;
}

/// Both rows of a column begin where its text begins, which runs in the direction of its first piece.
LinePiece makeColumn(Pieces above, Pieces below) {
  LinePiece column;
  column.m_run = above.front().m_run;
  column.m_level = above.front().m_level;
  bool const isRightToLeft = column.m_level % 2 != 0;
  float const widthAbove = place(above, isRightToLeft);
  float const widthBelow = place(below, isRightToLeft);
  column.m_width = std::max(widthAbove, widthBelow);
  if (isRightToLeft) {
    for (LinePiece& piece : above) piece.m_x += column.m_width - widthAbove;
    for (LinePiece& piece : below) piece.m_x += column.m_width - widthBelow;
  }
  column.m_above = std::move(above);
  column.m_below = std::move(below);
  return column;
}

/// The number of runs of the type at the front.
std::size_t countRuns(std::span<LineRun const> runs, TextSegment::SegmentType type) {
  auto const isOther = [type](LineRun const& run) { return run.m_type != type; };
  return static_cast<std::size_t>(std::ranges::find_if(runs, isOther) - runs.begin());
}

}  // namespace

std::vector<LinePiece> placePieces(std::span<LineRun const> runs, RunShaper& shaper) {
  Pieces line;
  Cutter cutter(runs, shaper);
  while (!runs.empty()) {
    std::size_t const above = countRuns(runs, TextSegment::Superscript);
    std::size_t const below = above > 0 ? countRuns(runs.subspan(above), TextSegment::Subscript) : 0;
    bool const isColumn = below > 0;
    std::size_t const taken = isColumn ? above + below : std::max<std::size_t>(above, 1);
    Pieces rows[2];
    for (std::size_t i = 0; i < taken; ++i) cutter.cut(runs[i], isColumn ? rows[i < above ? 0 : 1] : line);
    if (isColumn) {
      line.push_back(makeColumn(std::move(rows[0]), std::move(rows[1])));
    }
    runs = runs.subspan(taken);
  }
  place(line, cutter.isRightToLeft());
  return line;
}

}  // namespace qv::text
