#include "modelFromInput.h"

#include <string_view>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "variantFromInput.h"

namespace qvFuzz {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationRaster;
using qvLegacy::qvAnnotationText;
using qvLegacy::qvAnnotationView;
using Run = qvAnnotationText::TextSegment;

constexpr int MaxDepth = 6;
constexpr unsigned MaxParts = 4;

/// Words that layout and markup treat in ways of their own: bidirectional, combining, composed of several
/// characters, missing in all fonts, dangerous in markup, no text at all.
constexpr std::array<std::string_view, 20> Words{"A",
                                                 "note 12.5",
                                                 " ",
                                                 "",
                                                 "\xC2\xB1",
                                                 "\xE2\x8C\x80"
                                                 "8",
                                                 "<b a=\"'&",
                                                 "]]>",
                                                 "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D",
                                                 "e\xCC\x81",
                                                 "\xF0\x9F\x91\xA8\xE2\x80\x8D\xF0\x9F\x91\xA9",
                                                 "\xEF\xBF\xBE",
                                                 "\xED\xA0\x80",
                                                 "\xC0\xBC",
                                                 "\xFF\xFE",
                                                 "\x1B[2J",
                                                 "\t",
                                                 "\xE2\x80\xAE"
                                                 "abc",
                                                 "\xF4\x8F\xBF\xBF",
                                                 "fi ffl"};

constexpr std::array<std::string_view, 8> Fonts{
    "Arial", "", "Times New Roman", "DejaVu Sans Mono", "No Such Font", "a\"'<>;{}\\", "\xFF", "Symbol"};

Wm4::Vector3<float> takePoint(InputCursor& input) {
  auto const x = input.takeReal();
  auto const y = input.takeReal();
  return {x, y, input.takeReal()};
}

std::string takeWord(InputCursor& input) {
  std::uint8_t const choice = input.takeByte();
  return choice < 64 ? input.takeText(12) : std::string(Words[choice % Words.size()]);
}

qvAnnotationText::TextProperties takeProperties(InputCursor& input) {
  qvAnnotationText::TextProperties properties;
  properties.m_fontName = input.takeOneOf(Fonts);
  properties.m_height = input.takeBelow(4) == 0 ? input.takeNumber<std::uint16_t>() : input.takeByte();
  properties.m_styleFlags = input.takeByte();
  return properties;
}

void fillRun(InputCursor& input, Run& run) {
  // Not by a string: a run may hold zero characters.
  std::string const word = takeWord(input);
  if (!word.empty()) run.setText(word.data(), word.size());
  run.m_type = static_cast<Run::SegmentType>(input.takeByte() % 4);
  if (input.takeBelow(4) == 0) run.setTextProperties(takeProperties(input));
}

qv::qvPointer<qvAnnotationInterface> takeAnnotation(InputCursor& input, int depth);

void fillChildren(InputCursor& input, qvAnnotationInterface& annotation, int depth) {
  for (unsigned i = input.takeBelow(MaxParts); i > 0 && depth > 0 && !input.isAtEnd(); --i) {
    auto& node = annotation.editSubAnnots().emplace_back();
    node.m_anchor = input.takeBelow(16);
    if (input.takeBelow(16) != 0) node.m_annot = takeAnnotation(input, depth - 1);
  }
}

void fillLeaders(InputCursor& input, qvAnnotationInterface& annotation) {
  annotation.m_leaders.resize(input.takeBelow(MaxParts));
  for (auto& leader : annotation.m_leaders) {
    leader.m_position = takePoint(input);
    leader.m_head = input.takeByte() % 9;
  }
  annotation.m_measures.resize(input.takeBelow(MaxParts));
  for (auto& measure : annotation.m_measures) {
    measure.m_pointA = takePoint(input);
    measure.m_pointB = takePoint(input);
    measure.m_offset = takePoint(input);
    measure.m_arrowDir = input.takeByte() % 5;
  }
}

void fillShared(InputCursor& input, qvAnnotationInterface& annotation, int depth) {
  annotation.m_position = takePoint(input);
  annotation.m_style = input.takeByte();
  std::uint8_t const parts = input.takeByte();
  if ((parts & 1U) != 0) fillLeaders(input, annotation);
  if ((parts & 2U) != 0) fillChildren(input, annotation, depth);
  if ((parts & 4U) != 0) annotation.m_name = takeWord(input);
  if ((parts & 8U) != 0) annotation.m_color = {input.takeByte(), input.takeByte(), input.takeByte()};
  if ((parts & 0xF0U) == 0xF0U) annotation.m_metadata = takeVariantMap(input, 3);
}

void fillLines(InputCursor& input, qvAnnotationText& text) {
  text.m_lines.resize(input.takeBelow(MaxParts));
  for (auto& line : text.m_lines) {
    line.resize(input.takeBelow(MaxParts));
    for (Run& run : line) fillRun(input, run);
  }
}

qv::qvPointer<qvAnnotationInterface> takeAnnotation(InputCursor& input, int depth) {
  unsigned const kind = input.takeBelow(16);
  if (kind == 0) return new qvAnnotationInterface(qvAnnotationInterface::Unknown);
  if (kind < 4) {
    qv::qvPointer<qvAnnotationRaster> const raster = new qvAnnotationRaster;
    fillShared(input, *raster, depth);
    raster->m_rasterName = takeWord(input);
    raster->m_size = {input.takeReal(), input.takeReal()};
    return raster;
  }
  qv::qvPointer<qvAnnotationText> const text = new qvAnnotationText;
  fillShared(input, *text, depth);
  if (input.takeFlag()) text->m_defaultTextProperties = takeProperties(input);
  fillLines(input, *text);
  return text;
}

}  // namespace

qv::qvPointer<qvAnnotationView> takeView(InputCursor& input) {
  qv::qvPointer<qvAnnotationView> const view = new qvAnnotationView;
  std::uint8_t const parts = input.takeByte();
  if ((parts & 1U) != 0) view->m_name = takeWord(input);
  if ((parts & 2U) != 0) view->m_planeOrigin = takePoint(input);
  if ((parts & 0x1CU) == 0x1CU) {
    view->m_planeNormal = takePoint(input);
    view->m_planeXAxis = takePoint(input);
  }
  if ((parts & 0xE0U) == 0xE0U) view->m_metadata = takeVariantMap(input, 3);
  for (unsigned i = 1 + input.takeBelow(MaxParts); i > 0; --i) {
    view->m_annotations.push_back(takeAnnotation(input, MaxDepth));
  }
  return view;
}

}  // namespace qvFuzz
