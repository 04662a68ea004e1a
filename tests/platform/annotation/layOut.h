#pragma once

#include <memory>
#include <string>
#include <vector>

#include "qvAnnotation/textSegmentToSvgConverter.h"
#include "qvSvg/text.h"

namespace qv::text {

using Segments = std::vector<TextSegment>;

/// The properties of test text: Arial with an em of 10 unless said otherwise.
inline TextProperties makeProperties(float size = 10.0F, std::string const& font = "Arial") {
  return {.m_size = size, .m_fontName = font};
}

inline TextSegment normal(std::string const& text, TextProperties const& properties = makeProperties()) {
  return {text, TextSegment::Normal, properties};
}
inline TextSegment superscript(std::string const& text, TextProperties const& properties = makeProperties()) {
  return {text, TextSegment::Superscript, properties};
}
inline TextSegment subscript(std::string const& text, TextProperties const& properties = makeProperties()) {
  return {text, TextSegment::Subscript, properties};
}

/// The text items that the lines yield, in order.
inline std::vector<std::shared_ptr<svg::Text const>> layOut(std::vector<Segments> const& lines,
                                                            TextSegmentToSvgConverter& converter) {
  TextArea area;
  area.m_defaultProperties = makeProperties();
  for (Segments const& line : lines) area.m_lines.emplace_back(line.begin(), line.end());
  svg::Node node;
  std::vector<std::shared_ptr<svg::Text const>> items;
  if (!converter.convertTextAreaToSvg(area, node, nullptr, "text") || node.getChildren().empty())
    return items;
  auto const& group = static_cast<svg::Node const&>(*node.getChildren().front());
  for (auto const& child : group.getChildren())
    items.push_back(std::static_pointer_cast<svg::Text const>(child));
  return items;
}

inline std::vector<std::shared_ptr<svg::Text const>> layOut(std::vector<Segments> const& lines) {
  static TextSegmentToSvgConverter converter;
  return layOut(lines, converter);
}

/// The only item of a text of one run.
inline svg::Text layOutRun(TextSegment const& segment) {
  return *layOut({{segment}}).at(0);
}

/// The spans of a text of one run of the string, from left to right.
inline std::vector<svg::TextSpan> layOutSpans(std::string const& text,
                                              TextProperties const& properties = makeProperties()) {
  return layOutRun(normal(text, properties)).m_spans;
}

inline float getEnd(svg::TextSpan const& span) {
  return span.m_x + span.m_advance;
}

/// The advance of the run.
inline float measure(TextSegment const& segment) {
  return getEnd(layOutRun(segment).m_spans.back());
}

}  // namespace qv::text
