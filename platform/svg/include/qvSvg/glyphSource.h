#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <cstddef>
#include "qvSystem/export.h"
#include "wm4/vector2.h"

namespace qv::svg {

/// One command of a glyph's outline, as in SVG path data: the points that the command takes stand first, its
/// end point last.
struct OutlineCommand {
  enum class Kind : std::uint8_t { Move, Line, Quadratic, Cubic, Close };

  /// The number of points that the command takes: 1, 1, 2, 3 and 0.
  static constexpr std::size_t countPoints(Kind kind) noexcept {
    constexpr std::array<std::size_t, 5> COUNTS = {1, 1, 2, 3, 0};
    return COUNTS[static_cast<std::size_t>(kind)];
  }

  Kind m_kind = Kind::Close;
  std::array<Wm4::Vector2<float>, 3> m_points;
};

/// Begins each contour with a move and ends it with a close; to be filled with the non-zero rule.
using Outline = std::vector<OutlineCommand>;

/// Outlines of the glyphs of one face, with bold or oblique made up where the face lacks it. One object
/// stands for the same face and synthesis throughout a process, so its address may serve as a key while it is
/// held. Threads may share it.
class QV_EXPORT GlyphSource {
 public:
  virtual ~GlyphSource();

  /// The font file, as an absolute path where the font's folder was given so.
  virtual std::string const& getFontFile() const noexcept = 0;
  /// The face's number in the file; for an instance of a variable font, the instance's number, counted from
  /// 1, stands in the upper 16 bits.
  virtual unsigned getFaceIndex() const noexcept = 0;
  /// The version that the font states in its table of names, such as "Version 2.37", as UTF-8; empty when it
  /// states none.
  virtual std::string getFontVersion() const = 0;
  /// All bytes of the font file as the outlines are read from them; they live as long as the source.
  virtual std::string_view getFontData() const noexcept = 0;
  /// Points of upright outlines lie on multiples of 1 / units per em.
  virtual unsigned getUnitsPerEm() const noexcept = 0;
  /// The outline for an em of 1, y up, the glyph's origin at (0, 0). Empty for glyphs without ink and for
  /// numbers that the face does not have.
  virtual Outline getOutline(std::uint32_t glyph) const = 0;

 protected:
  GlyphSource() = default;
  GlyphSource(GlyphSource const&) = default;
  GlyphSource& operator=(GlyphSource const&) = default;
};

}  // namespace qv::svg
