#include "faceOutlines.h"

#include <hb-ot.h>
#include <hb.h>

#include <new>
#include <utility>

#include "memoryWatch.h"
#include "qvSvg/text.h"

namespace qv::text {

namespace {

using svg::OutlineCommand;
using Kind = OutlineCommand::Kind;
using Point = Wm4::Vector2<float>;

/// Collects what HarfBuzz draws. No exception may pass through HarfBuzz, which would lose what it holds.
struct Pen {
  Point place(float x, float y) const { return {(x + m_slant * y) * m_unit, y * m_unit}; }

  void add(OutlineCommand const& command) noexcept {
    try {
      m_outline.push_back(command);
    } catch (std::bad_alloc const&) {
      m_isOutOfMemory = true;
    }
  }

  float m_unit;
  float m_slant;
  bool m_isOutOfMemory = false;
  svg::Outline m_outline = {};
};

Pen& toPen(void* data) {
  return *static_cast<Pen*>(data);
}

void moveTo(hb_draw_funcs_t*, void* data, hb_draw_state_t*, float x, float y, void*) noexcept {
  toPen(data).add({Kind::Move, {toPen(data).place(x, y)}});
}

void lineTo(hb_draw_funcs_t*, void* data, hb_draw_state_t*, float x, float y, void*) noexcept {
  toPen(data).add({Kind::Line, {toPen(data).place(x, y)}});
}

void quadraticTo(hb_draw_funcs_t*, void* data, hb_draw_state_t*, float controlX, float controlY, float x,
                 float y, void*) noexcept {
  Pen& pen = toPen(data);
  pen.add({Kind::Quadratic, {pen.place(controlX, controlY), pen.place(x, y)}});
}

void cubicTo(hb_draw_funcs_t*, void* data, hb_draw_state_t*, float firstX, float firstY, float secondX,
             float secondY, float x, float y, void*) noexcept {
  Pen& pen = toPen(data);
  pen.add({Kind::Cubic, {pen.place(firstX, firstY), pen.place(secondX, secondY), pen.place(x, y)}});
}

void closePath(hb_draw_funcs_t*, void* data, hb_draw_state_t*, void*) noexcept {
  toPen(data).add({Kind::Close, {}});
}

hb_draw_funcs_t* createDrawing() {
  hb_draw_funcs_t* const drawing = hb_draw_funcs_create();
  // The one that stands for all that there was no memory for takes no functions.
  if (hb_draw_funcs_is_immutable(drawing) != 0) throw std::bad_alloc();
  hb_draw_funcs_set_move_to_func(drawing, moveTo, nullptr, nullptr);
  hb_draw_funcs_set_line_to_func(drawing, lineTo, nullptr, nullptr);
  hb_draw_funcs_set_quadratic_to_func(drawing, quadraticTo, nullptr, nullptr);
  hb_draw_funcs_set_cubic_to_func(drawing, cubicTo, nullptr, nullptr);
  hb_draw_funcs_set_close_path_func(drawing, closePath, nullptr, nullptr);
  hb_draw_funcs_make_immutable(drawing);
  return drawing;
}

}  // namespace

FaceOutlines::FaceOutlines(std::shared_ptr<FontFace const> face, bool isSlanted)
    : m_face(std::move(face)), m_slant(isSlanted ? svg::FontSynthesis::SLANT : 0.0F) {
}

FaceOutlines::~FaceOutlines() = default;

std::string const& FaceOutlines::getFontFile() const noexcept {
  return m_face->getLocation().m_path;
}

unsigned FaceOutlines::getFaceIndex() const noexcept {
  return m_face->getLocation().m_index;
}

std::string FaceOutlines::getFontVersion() const {
  hb_face_t* const face = hb_font_get_face(m_face->getFont());
  MemoryWatch const watch;
  unsigned const length =
      hb_ot_name_get_utf8(face, HB_OT_NAME_ID_VERSION_STRING, HB_LANGUAGE_INVALID, nullptr, nullptr);
  std::string version(length, '\0');
  unsigned size = length + 1;  // with the zero behind
  hb_ot_name_get_utf8(face, HB_OT_NAME_ID_VERSION_STRING, HB_LANGUAGE_INVALID, &size, version.data());
  m_face->checkMemory(watch);
  return version;
}

std::string_view FaceOutlines::getFontData() const noexcept {
  hb_blob_t* const blob = hb_face_reference_blob(hb_font_get_face(m_face->getFont()));
  unsigned length = 0;
  char const* const bytes = hb_blob_get_data(blob, &length);
  hb_blob_destroy(blob);  // the face holds it, too
  return {bytes, length};
}

unsigned FaceOutlines::getUnitsPerEm() const noexcept {
  return hb_face_get_upem(hb_font_get_face(m_face->getFont()));
}

svg::Outline FaceOutlines::getOutline(std::uint32_t glyph) const {
  static hb_draw_funcs_t* const drawing = createDrawing();
  Pen pen{m_face->getUnit(), m_slant};
  MemoryWatch const watch;
  hb_font_get_glyph_shape(m_face->getFont(), glyph, drawing, &pen);
  m_face->checkMemory(watch);
  if (pen.m_isOutOfMemory) throw std::bad_alloc();
  return std::move(pen.m_outline);
}

}  // namespace qv::text
