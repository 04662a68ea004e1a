#include "fontFace.h"

#include <hb-ot.h>

#include <utility>

#include "memoryWatch.h"

namespace qv::text {

namespace {

/// fontconfig counts the named instances of a variable font in the upper half of a face's number.
constexpr unsigned FACE_MASK = 0xFFFF;
constexpr unsigned INSTANCE_SHIFT = 16;

struct FontDeleter {
  void operator()(hb_font_t* font) const { hb_font_destroy(font); }
};
using FontHandle = std::unique_ptr<hb_font_t, FontDeleter>;

/// HarfBuzz makes the functions that read fonts once for the process, and keeps empty ones for good when it
/// had no memory for them.
void requireFontFunctions() {
  static bool const areThere = [] {
    MemoryWatch const watch;
    FontHandle const font(hb_font_create(hb_face_get_empty()));
    hb_ot_font_set_funcs(font.get());
    return !watch.hasFailed();
  }();
  if (!areThere) throw std::bad_alloc();
}

/// A font with units per em as its scale, or null.
FontHandle createFont(FaceLocation const& location) {
  hb_blob_t* const blob = hb_blob_create_from_file_or_fail(location.m_path.c_str());
  if (blob == nullptr) return nullptr;
  hb_face_t* const face = hb_face_create(blob, location.m_index & FACE_MASK);
  hb_blob_destroy(blob);
  FontHandle font;
  if (hb_face_get_glyph_count(face) > 0) {
    font.reset(hb_font_create(face));
    hb_ot_font_set_funcs(font.get());
    unsigned const instance = location.m_index >> INSTANCE_SHIFT;
    if (instance > 0) hb_font_set_var_named_instance(font.get(), instance - 1);
    hb_font_make_immutable(font.get());
  }
  hb_face_destroy(face);
  return font;
}

float getBlankWidth(hb_font_t* font) {
  hb_codepoint_t glyph = 0;
  hb_font_get_nominal_glyph(font, ' ', &glyph);
  return static_cast<float>(hb_font_get_glyph_h_advance(font, glyph));
}

}  // namespace

std::shared_ptr<FontFace const> FontFace::load(FaceLocation const& location) {
  requireFontFunctions();
  MemoryWatch const watch;
  FontHandle font = createFont(location);
  watch.check();
  if (font == nullptr) return nullptr;
  std::unique_ptr<FontFace const> face(new FontFace(font.get(), location));
  static_cast<void>(font.release());  // the face destroys it from here on
  watch.check();
  return face;
}

FontFace::FontFace(hb_font_t* font, FaceLocation location)
    : m_location(std::move(location)),
      m_font(font),
      m_unit(1.0F / static_cast<float>(hb_face_get_upem(hb_font_get_face(font)))) {
  hb_font_extents_t extents{};
  hb_font_get_h_extents(font, &extents);
  m_ascender = static_cast<float>(extents.ascender) * m_unit;
  m_descender = static_cast<float>(extents.descender) * m_unit;
  m_lineGap = static_cast<float>(extents.line_gap) * m_unit;
  m_blankAdvance = getBlankWidth(font) * m_unit;
  for (char32_t character = 0; character < FIRST_MARK; ++character) m_basic[character] = hasGlyph(character);
}

FontFace::~FontFace() {
  hb_font_destroy(m_font);
}

void FontFace::checkMemory(MemoryWatch const& watch) const {
  if (watch.hasFailed()) m_isSpoiled = true;
  if (m_isSpoiled) throw std::bad_alloc();
}

bool FontFace::hasGlyph(char32_t character) const {
  hb_codepoint_t glyph = 0;
  return hb_font_get_nominal_glyph(m_font, character, &glyph) != 0;
}

}  // namespace qv::text
