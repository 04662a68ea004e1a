#include "lineLayout.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

namespace qv::text {

namespace {

constexpr float SCRIPT_SCALE = 0.63F;

// Shifts in em of the normal run. Figures are 0.72 em high, so reduced ones stand from 0.44 to 0.89, and from
// -0.16 to 0.29: clear of each other when stacked, and the stack centred on the normal figures.
constexpr float SUPERSCRIPT_RISE = 0.44F;
constexpr float SUBSCRIPT_DROP = 0.16F;

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

/// For each run the size of the normal run that it belongs to, its own when the line has none.
std::vector<float> getBaseSizes(std::vector<LineRun> const& runs) {
  std::vector<float> sizes;
  auto const isNormal = [](LineRun const& run) { return run.m_type == TextSegment::Normal; };
  auto const firstNormal = std::ranges::find_if(runs, isNormal);
  std::optional<float> base;
  if (firstNormal != runs.end()) base = firstNormal->m_size;
  for (LineRun const& run : runs) {
    if (isNormal(run)) base = run.m_size;
    sizes.push_back(base.value_or(run.m_size));
  }
  return sizes;
}

/// Where the next run begins.
class Cursor {
 public:
  /// The x at which a run of the type begins; to be called for each run in turn.
  float place(TextSegment::SegmentType type) {
    bool const wasSuperscript = m_previous == TextSegment::Superscript;
    if (type == TextSegment::Subscript && wasSuperscript) {
      m_columnEnd = std::exchange(m_x, m_columnStart);
    } else if (type != TextSegment::Subscript) {
      m_x = std::max(m_x, m_columnEnd);
    }
    if (!wasSuperscript) m_columnStart = m_x;
    m_previous = type;
    return m_x;
  }

  void advance(float distance) { m_x += distance; }

 private:
  float m_x = 0.0F;
  float m_columnStart = 0.0F;  // of the superscripts before the cursor
  float m_columnEnd = 0.0F;    // of the superscripts above the cursor
  TextSegment::SegmentType m_previous = TextSegment::Normal;
};

/// The item for the baseline and size: the last one where they are the same.
svg::Text& editItem(LineLayout& line, float baseline, float size) {
  bool const continues = !line.m_items.empty() && line.m_items.back()->m_baseline == baseline &&
                         line.m_items.back()->m_size == size;
  if (continues) return *line.m_items.back();
  svg::Text& item = *line.m_items.emplace_back(std::make_shared<svg::Text>());
  item.m_borderColor = "none";
  item.m_baseline = baseline;
  item.m_size = size;
  return item;
}

void addRun(ShapedRun&& run, float x, float baseline, svg::Text& item) {
  for (svg::TextSpan& span : run.m_spans) {
    span.m_x += x;
    item.m_spans.push_back(std::move(span));
  }
  run.m_box.translate({x, baseline});
  item.m_box.addBox(run.m_box);
}

}  // namespace

LineLayout layoutLine(std::vector<LineRun> const& runs, RunShaper& shaper) {
  LineLayout line;
  Cursor cursor;
  std::vector<float> const baseSizes = getBaseSizes(runs);
  for (std::size_t i = 0; i < runs.size(); ++i) {
    LineRun const& run = runs[i];
    float const size = run.m_type == TextSegment::Normal ? run.m_size : run.m_size * SCRIPT_SCALE;
    float const baseline = getShift(run.m_type, baseSizes[i]);
    float const x = cursor.place(run.m_type);
    ShapedRun shaped = shaper.shape(run.m_text, *run.m_fonts, size, x);
    cursor.advance(shaped.m_advance);
    line.m_lineGap = std::max(line.m_lineGap, shaped.m_lineGap);
    addRun(std::move(shaped), x, baseline, editItem(line, baseline, size));
  }
  for (std::shared_ptr<svg::Text> const& item : line.m_items) line.m_box.addBox(item->m_box);
  return line;
}

}  // namespace qv::text
