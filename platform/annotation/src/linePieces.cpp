#include "linePieces.h"

#include <algorithm>
#include <cmath>
#include <limits>
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
/// The least room between the ink of the rows of a stack: tall signs move them apart.
constexpr float STACK_GAP = 0.04F;

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

/// Orders pieces and sets where each one begins.
void place(Pieces& pieces, bool isRightToLeft) {
  putIntoVisualOrder(pieces);
  float passed = 0.0F;
  if (isRightToLeft) {
    std::for_each(pieces.rbegin(), pieces.rend(), [&passed](LinePiece& piece) { pass(piece, passed); });
  } else {
    for (LinePiece& piece : pieces) pass(piece, passed);
  }
  float x = 0.0F;
  for (LinePiece& piece : pieces) {
    piece.m_x = x;
    x += piece.m_width;
  }
}

float getWidth(Pieces const& row) {
  return row.back().m_x + row.back().m_width;
}

/// Both rows begin where the line comes from: at the right end where it runs from right to left.
void alignRows(LinePiece& column) {
  column.m_width = std::max(getWidth(column.m_above), getWidth(column.m_below));
  if (column.m_level % 2 == 0) return;
  for (Pieces* const row : {&column.m_above, &column.m_below}) {
    float const indent = column.m_width - getWidth(*row);
    for (LinePiece& piece : *row) piece.m_x += indent;
  }
}

/// Moves the rows apart where their ink would leave less than `gap` between them.
void separateRows(LinePiece& column, float gap) {
  float bottom = std::numeric_limits<float>::infinity();
  float top = -bottom;
  for (LinePiece const& piece : column.m_above) {
    bottom = std::min(bottom, piece.m_baseline + piece.m_text->m_ink.m_bottom * piece.m_size);
  }
  for (LinePiece const& piece : column.m_below) {
    top = std::max(top, piece.m_baseline + piece.m_text->m_ink.m_top * piece.m_size);
  }
  float const lack = top + gap - bottom;
  if (!(lack > 0.0F)) return;
  for (LinePiece& piece : column.m_above) piece.m_baseline += lack / 2.0F;
  for (LinePiece& piece : column.m_below) piece.m_baseline -= lack / 2.0F;
}

/// Cuts runs into pieces of text and tabs, in logical order.
class Cutter {
 public:
  Cutter(std::span<LineRun const> runs, RunShaper& shaper) : m_shaper(shaper), m_levels(findLevels(runs)) {
    auto const firstNormal = std::ranges::find_if(runs, isNormal);
    if (firstNormal != runs.end()) m_baseSize = firstNormal->m_size;
  }

  bool isRightToLeft() const { return m_levels.isRightToLeft(); }

  /// To be called for the runs in turn, each once, here or in a column.
  void cut(LineRun const& run, Pieces& pieces) {
    if (isNormal(run)) m_baseSize = run.m_size;
    for (std::size_t start = 0; start < run.m_text.size();) {
      std::size_t const length = getLength(run.m_text, start);
      pieces.push_back(makePiece(run, start, length));
      start += length;
    }
    m_position += run.m_text.size();
  }

  /// The column stands in the line as its first character would.
  LinePiece cutColumn(std::span<LineRun const> above, std::span<LineRun const> below) {
    LinePiece column;
    column.m_run = &above.front();
    column.m_level = m_levels.getLevel(m_position);
    column.m_above = cutRow(above);
    column.m_below = cutRow(below);
    alignRows(column);
    separateRows(column, STACK_GAP * m_baseSize.value_or(above.front().m_size));
    return column;
  }

 private:
  /// A row of a column is a line of its own: what stands around it must not turn signs and figures about.
  Pieces cutRow(std::span<LineRun const> runs) {
    Cutter row(runs, m_shaper);
    row.m_baseSize = m_baseSize;
    Pieces pieces;
    for (LineRun const& run : runs) row.cut(run, pieces);
    place(pieces, row.isRightToLeft());
    m_position += row.m_position;
    return pieces;
  }

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
    std::size_t const taken = below > 0 ? above + below : std::max<std::size_t>(above, 1);
    if (below > 0) {
      line.push_back(cutter.cutColumn(runs.first(above), runs.subspan(above, below)));
    } else {
      for (LineRun const& run : runs.first(taken)) cutter.cut(run, line);
    }
    runs = runs.subspan(taken);
  }
  place(line, cutter.isRightToLeft());
  return line;
}

}  // namespace qv::text
