#include "tests/support/modelComparison.h"

#include <bit>
#include <cstdint>
#include <string_view>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"

namespace qvStreamTest {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationRaster;
using qvLegacy::qvAnnotationText;
using qvLegacy::qvAnnotationView;
using Map = qv::qvVariant::qvVariantMapImpl;
using Point = Wm4::Vector3<float>;

/// Keeps the place of the first difference.
class Comparison {
 public:
  std::string const& get() const { return m_difference; }

  void note(bool areEqual, std::string const& place) {
    if (!areEqual && m_difference.empty()) m_difference = place;
  }
  void point(Point const& a, Point const& b, std::string const& place) {
    for (std::size_t i = 0; i < 3; ++i)
      note(std::bit_cast<std::uint32_t>(a[i]) == std::bit_cast<std::uint32_t>(b[i]), place);
  }
  void map(Map const& a, Map const& b, std::string const& place);
  void annotation(qvAnnotationInterface const* a, qvAnnotationInterface const* b, std::string const& place);

 private:
  void value(qv::qvVariant const& a, qv::qvVariant const& b, std::string const& place);
  void leaders(qvAnnotationInterface const& a, qvAnnotationInterface const& b, std::string const& place);
  void children(qvAnnotationInterface const& a, qvAnnotationInterface const& b, std::string const& place);
  void properties(qvAnnotationText::TextProperties const& a, qvAnnotationText::TextProperties const& b,
                  std::string const& place);
  void lines(qvAnnotationText const& a, qvAnnotationText const& b, std::string const& place);
  void run(qvAnnotationText::TextSegment const& a, qvAnnotationText::TextSegment const& b,
           std::string const& place);

  std::string m_difference;
};

void Comparison::value(qv::qvVariant const& a, qv::qvVariant const& b, std::string const& place) {
  note(a.getKind() == b.getKind(), place + "/kind");
  if (a.getKind() != b.getKind()) return;
  if (a.isMap()) return map(a.toMap(), b.toMap(), place);
  if (a.isList()) {
    note(a.toList().size() == b.toList().size(), place + "/size");
    for (std::size_t i = 0; i < a.toList().size() && i < b.toList().size(); ++i)
      value(a.toList()[i], b.toList()[i], place + "/" + std::to_string(i));
  } else if (a.getKind() == qv::qvVariant::Kind::Real) {
    note(std::bit_cast<std::uint64_t>(a.toReal()) == std::bit_cast<std::uint64_t>(b.toReal()), place);
  } else {
    note(a == b, place);
  }
}

void Comparison::map(Map const& a, Map const& b, std::string const& place) {
  note(a.size() == b.size(), place + "/size");
  auto other = b.begin();
  for (auto const& [key, content] : a) {
    if (other == b.end()) return;
    note(key == other->first, place + "/" + key);
    value(content, other->second, place + "/" + key);
    ++other;
  }
}

void Comparison::leaders(qvAnnotationInterface const& a, qvAnnotationInterface const& b,
                         std::string const& place) {
  note(a.m_leaders.size() == b.m_leaders.size(), place + "/leaders");
  for (std::size_t i = 0; i < a.m_leaders.size() && i < b.m_leaders.size(); ++i) {
    std::string const at = place + "/leader/" + std::to_string(i);
    point(a.m_leaders[i].m_position, b.m_leaders[i].m_position, at + "/position");
    note(a.m_leaders[i].m_head == b.m_leaders[i].m_head, at + "/head");
  }
  note(a.m_measures.size() == b.m_measures.size(), place + "/measures");
  for (std::size_t i = 0; i < a.m_measures.size() && i < b.m_measures.size(); ++i) {
    std::string const at = place + "/measure/" + std::to_string(i);
    point(a.m_measures[i].m_pointA, b.m_measures[i].m_pointA, at + "/A");
    point(a.m_measures[i].m_pointB, b.m_measures[i].m_pointB, at + "/B");
    point(a.m_measures[i].m_offset, b.m_measures[i].m_offset, at + "/offset");
    note(a.m_measures[i].m_arrowDir == b.m_measures[i].m_arrowDir, at + "/arrowDirection");
  }
}

void Comparison::children(qvAnnotationInterface const& a, qvAnnotationInterface const& b,
                          std::string const& place) {
  note(a.getSubAnnotsCount() == b.getSubAnnotsCount(), place + "/subs");
  auto other = b.getSubAnnots().begin();
  std::size_t index = 0;
  for (qvAnnotationInterface::SubAnnot const& node : a.getSubAnnots()) {
    if (other == b.getSubAnnots().end()) return;
    std::string const at = place + "/sub/" + std::to_string(index++);
    note(node.m_anchor == other->m_anchor, at + "/anchor");
    annotation(node.m_annot.get(), other->m_annot.get(), at);
    ++other;
  }
}

void Comparison::properties(qvAnnotationText::TextProperties const& a,
                            qvAnnotationText::TextProperties const& b, std::string const& place) {
  note(a.m_fontName == b.m_fontName, place + "/font");
  note(a.m_height == b.m_height, place + "/height");
  note(a.m_styleFlags == b.m_styleFlags, place + "/styleFlags");
}

void Comparison::run(qvAnnotationText::TextSegment const& a, qvAnnotationText::TextSegment const& b,
                     std::string const& place) {
  note(std::string_view(a.getText(), a.m_length) == std::string_view(b.getText(), b.m_length),
       place + "/text");
  note((a.m_text == nullptr) == (b.m_text == nullptr), place + "/hasText");
  note(a.m_type == b.m_type, place + "/type");
  bool const haveProperties = a.m_textProperties != nullptr && b.m_textProperties != nullptr;
  note(haveProperties || a.m_textProperties == b.m_textProperties, place + "/hasProperties");
  if (haveProperties) properties(*a.m_textProperties, *b.m_textProperties, place);
}

void Comparison::lines(qvAnnotationText const& a, qvAnnotationText const& b, std::string const& place) {
  properties(a.m_defaultTextProperties, b.m_defaultTextProperties, place + "/default");
  note(a.m_lines.size() == b.m_lines.size(), place + "/lines");
  auto otherLine = b.m_lines.begin();
  std::size_t index = 0;
  for (qvAnnotationText::Line const& line : a.m_lines) {
    if (otherLine == b.m_lines.end()) return;
    std::string const at = place + "/line/" + std::to_string(index++);
    note(line.size() == otherLine->size(), at + "/runs");
    auto other = otherLine->begin();
    for (qvAnnotationText::TextSegment const& segment : line) {
      if (other == otherLine->end()) return;
      run(segment, *other++, at);
    }
    ++otherLine;
  }
}

void Comparison::annotation(qvAnnotationInterface const* a, qvAnnotationInterface const* b,
                            std::string const& place) {
  note((a == nullptr) == (b == nullptr), place + "/isNull");
  if (a == nullptr || b == nullptr) return;
  note(a->m_type == b->m_type, place + "/type");
  note(a->m_name == b->m_name, place + "/name");
  point(a->m_position, b->m_position, place + "/position");
  note(a->m_color == b->m_color, place + "/color");
  note(a->m_style == b->m_style, place + "/style");
  leaders(*a, *b, place);
  children(*a, *b, place);
  map(a->m_metadata, b->m_metadata, place + "/metadata");
  auto const* const text = dynamic_cast<qvAnnotationText const*>(a);
  auto const* const otherText = dynamic_cast<qvAnnotationText const*>(b);
  note((text == nullptr) == (otherText == nullptr), place + "/class");
  if (text != nullptr && otherText != nullptr) lines(*text, *otherText, place);
  auto const* const raster = dynamic_cast<qvAnnotationRaster const*>(a);
  auto const* const otherRaster = dynamic_cast<qvAnnotationRaster const*>(b);
  if (raster == nullptr || otherRaster == nullptr) return;
  note(raster->m_rasterName == otherRaster->m_rasterName, place + "/rasterName");
  point({raster->m_size[0], raster->m_size[1], 0}, {otherRaster->m_size[0], otherRaster->m_size[1], 0},
        place + "/size");
}

}  // namespace

std::string findDifference(qvAnnotationView const& a, qvAnnotationView const& b) {
  Comparison comparison;
  comparison.note(a.m_name == b.m_name, "name");
  comparison.point(a.m_planeOrigin, b.m_planeOrigin, "planeOrigin");
  comparison.point(a.m_planeNormal, b.m_planeNormal, "planeNormal");
  comparison.point(a.m_planeXAxis, b.m_planeXAxis, "planeXAxis");
  comparison.map(a.m_metadata, b.m_metadata, "metadata");
  comparison.note(a.m_annotations.size() == b.m_annotations.size(), "annotations");
  for (std::size_t i = 0; i < a.m_annotations.size() && i < b.m_annotations.size(); ++i) {
    comparison.annotation(a.m_annotations[i].get(), b.m_annotations[i].get(), "annot/" + std::to_string(i));
  }
  return comparison.get();
}

}  // namespace qvStreamTest
