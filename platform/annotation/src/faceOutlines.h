#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "fontFace.h"
#include "qvSvg/glyphSource.h"

namespace qv::text {

/// The outlines of a face, upright as they are or slanted.
class FaceOutlines final : public svg::GlyphSource {
 public:
  FaceOutlines(std::shared_ptr<FontFace const> face, bool isSlanted);
  ~FaceOutlines() override;

  std::string const& getFontFile() const noexcept override;
  unsigned getFaceIndex() const noexcept override;
  std::string getFontVersion() const override;
  std::string_view getFontData() const noexcept override;
  unsigned getUnitsPerEm() const noexcept override;
  svg::Outline getOutline(std::uint32_t glyph) const override;

 private:
  std::shared_ptr<FontFace const> m_face;
  float m_slant;  // x moves by this times y
};

}  // namespace qv::text
