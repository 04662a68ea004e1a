#include "glyphInk.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

#include "memoryWatch.h"

namespace qv::text {

namespace {

using Point = Wm4::Vector2<float>;

InkBox getUprightInk(FontFace const& face, hb_codepoint_t glyph) {
  hb_glyph_extents_t extents{};
  MemoryWatch const watch;
  hb_font_get_glyph_extents(face.getFont(), glyph, &extents);
  face.checkMemory(watch);
  if (extents.width == 0 && extents.height == 0) return {};
  float const unit = face.getUnit();
  auto const left = static_cast<float>(extents.x_bearing);
  auto const top = static_cast<float>(extents.y_bearing);
  return {left * unit, (top + static_cast<float>(extents.height)) * unit,
          (left + static_cast<float>(extents.width)) * unit, top * unit};
}

/// The point of the curve at `t`, by repeated interpolation between its control points.
Point getCurvePoint(std::array<Point, 4> points, std::size_t degree, float t) {
  for (std::size_t i = degree; i > 0; --i) {
    for (std::size_t j = 0; j < i; ++j) points[j] = points[j] + (points[j + 1] - points[j]) * t;
  }
  return points[0];
}

void addPoint(Point const& point, InkBox& box) {
  box.add({0.0F, 0.0F, 0.0F, 0.0F}, point.X(), point.Y());
}

/// Adds the points at which the curve turns back along x; its ends are added by the caller.
void addTurns(std::array<Point, 4> const& p, std::size_t degree, InkBox& box) {
  // The derivative along x is a * t^2 + b * t + c up to a factor.
  float const first = p[1].X() - p[0].X();
  float const second = p[2].X() - p[1].X();
  float const third = degree == 3 ? p[3].X() - p[2].X() : 0.0F;
  float const a = degree == 3 ? first - 2.0F * second + third : 0.0F;
  float const b = degree == 3 ? 2.0F * (second - first) : second - first;
  float const c = first;
  float const root = std::sqrt(std::max(b * b - 4.0F * a * c, 0.0F));
  float const q = -0.5F * (b + std::copysign(root, b));
  for (float const t : {q / a, c / q}) {
    if (t > 0.0F && t < 1.0F) addPoint(getCurvePoint(p, degree, t), box);
  }
}

/// A slanted glyph is not as wide as its upright box slanted, so its outline is followed.
InkBox getSlantedInk(FaceOutlines const& outlines, hb_codepoint_t glyph) {
  InkBox box;
  Point pen;
  for (svg::OutlineCommand const& command : outlines.getOutline(glyph)) {
    std::size_t const count = svg::OutlineCommand::countPoints(command.m_kind);
    if (count == 0) continue;
    auto const& points = command.m_points;
    if (count > 1) addTurns({pen, points[0], points[1], points[2]}, count, box);
    pen = points[count - 1];
    if (command.m_kind != svg::OutlineCommand::Kind::Move) addPoint(pen, box);
  }
  return box;
}

InkBox findInk(FontLink const& font, hb_codepoint_t glyph) {
  InkBox box = getUprightInk(*font.m_face, glyph);
  if (box.isEmpty()) return box;
  if (font.m_synthesis.m_oblique) {
    InkBox const slanted = getSlantedInk(*font.m_outlines, glyph);
    box.m_left = slanted.m_left;
    box.m_right = slanted.m_right;
  }
  if (font.m_synthesis.m_bold) {
    constexpr float margin = svg::FontSynthesis::BOLD_STROKE / 2.0F;
    box = {box.m_left - margin, box.m_bottom - margin, box.m_right + margin, box.m_top + margin};
  }
  return box;
}

}  // namespace

InkBox const& GlyphInk::get(FontLink const& font, hb_codepoint_t glyph) {
  // Fonts lie apart by more than a few bytes, so a shifted address spreads them over the places.
  std::size_t const key = glyph + (reinterpret_cast<std::uintptr_t>(&font) >> 5);
  Place& place = m_places[key % m_places.size()];
  if (place.m_font != &font || place.m_glyph != glyph) place = {&font, glyph, findInk(font, glyph)};
  return place.m_ink;
}

}  // namespace qv::text
