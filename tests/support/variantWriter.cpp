#include "tests/support/variantWriter.h"

#include <string_view>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "model/variantLookup.h"
#include "qvToolkit/text/textEscape.h"
#include "rules/valueNames.h"
#include "text/colorText.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationRaster;
using qvLegacy::qvAnnotationText;
namespace rules = qvLegacy::rules;

/// Writes the records of one version.
class VariantWriter {
 public:
  explicit VariantWriter(qv::qvStreamVersion version) : m_isNew(version >= qv::qvStreamVersion(6, 22)) {}

  VariantMap write(qvAnnotationInterface const& annotation) const;

 private:
  VariantMap write(qvAnnotationInterface::MeasureLeader const& measure) const;
  qv::qvVariant write(qvAnnotationInterface::Leader const& leader) const;
  static void write(VariantMap& map, qvAnnotationText const& text);
  static void write(VariantMap& map, qvAnnotationText::TextProperties const& properties);
  VariantList writeChildren(qvAnnotationInterface const& parent) const;

  bool m_isNew;
};

VariantList writeVector(Wm4::Vector3<float> const& v) {
  return {static_cast<double>(v.X()), static_cast<double>(v.Y()), static_cast<double>(v.Z())};
}

std::string nameOf(rules::ValueNames const& names, std::uint32_t value) {
  return std::string(names.nameOf(value));
}

qv::qvVariant VariantWriter::write(qvAnnotationInterface::Leader const& leader) const {
  if (!m_isNew) return writeVector(leader.m_position);
  return VariantMap{{"pos", writeVector(leader.m_position)},
                    {"head", nameOf(rules::leaderHeads, leader.m_head)}};
}

VariantMap VariantWriter::write(qvAnnotationInterface::MeasureLeader const& measure) const {
  VariantMap map{{"A", writeVector(measure.m_pointA)},
                 {"B", writeVector(measure.m_pointB)},
                 {"V", writeVector(measure.m_offset)}};
  if (m_isNew) map["arrowdir"] = nameOf(rules::arrowDirections, measure.m_arrowDir);
  return map;
}

void VariantWriter::write(VariantMap& map, qvAnnotationText::TextProperties const& properties) {
  map["font"] = properties.m_fontName;
  // In the middle of the hundredth, so that it is read as the same again.
  map["heightem"] = properties.m_height == 0 ? 0.0 : (properties.m_height + 0.5) / 100.0;
  map["bold"] = (properties.m_styleFlags & qvAnnotationText::TextProperties::Bold) != 0;
  map["italic"] = (properties.m_styleFlags & qvAnnotationText::TextProperties::Italic) != 0;
}

void VariantWriter::write(VariantMap& map, qvAnnotationText const& text) {
  VariantMap defaults;
  write(defaults, text.m_defaultTextProperties);
  map["defaulttextprop"] = std::move(defaults);
  VariantList lines;
  std::string plain;
  for (qvAnnotationText::Line const& line : text.m_lines) {
    VariantList runs;
    if (!lines.empty()) plain += '\n';
    for (qvAnnotationText::TextSegment const& run : line) {
      VariantMap segment{{"text", std::string(run.getText(), run.m_length)},
                         {"type", nameOf(rules::segmentTypes, static_cast<std::uint32_t>(run.m_type))}};
      write(segment, run.m_textProperties ? *run.m_textProperties : text.m_defaultTextProperties);
      plain.append(run.getText(), run.m_length);
      runs.emplace_back(std::move(segment));
    }
    lines.emplace_back(std::move(runs));
  }
  map["lines"] = std::move(lines);
  map["text"] = plain;
}

VariantList VariantWriter::writeChildren(qvAnnotationInterface const& parent) const {
  VariantList children;
  for (qvAnnotationInterface::SubAnnot const& node : parent.getSubAnnots()) {
    VariantMap child = write(*node.m_annot);
    // The name of right bottom is read as right top.
    child["anchorloc"] = nameOf(rules::anchors, node.m_anchor);
    children.emplace_back(std::move(child));
  }
  return children;
}

VariantMap VariantWriter::write(qvAnnotationInterface const& annotation) const {
  VariantMap map{{"name", annotation.m_name},
                 {"color", formatColor(annotation.m_color).substr(1)},
                 {"position", writeVector(annotation.m_position)}};
  VariantList leaders;
  for (auto const& leader : annotation.m_leaders) leaders.push_back(write(leader));
  map["leaders"] = std::move(leaders);
  VariantList measures;
  for (auto const& measure : annotation.m_measures) measures.emplace_back(write(measure));
  map["measures"] = std::move(measures);
  unsigned const style = annotation.m_style;
  map["frameshape"] = nameOf(rules::frameShapes, style & qvAnnotationInterface::FrameShapeMask);
  map["isframelocked"] = (style & qvAnnotationInterface::FrameLocked) != 0;
  map["isscalelocked"] = (style & qvAnnotationInterface::ScaleLocked) != 0;
  map["isignoreztest"] = (style & qvAnnotationInterface::IgnoreZTest) != 0;
  if (m_isNew) {
    map["type"] = nameOf(rules::annotationTypes, static_cast<std::uint32_t>(annotation.m_type));
    map["metadata"] = annotation.m_metadata;
    map["children"] = writeChildren(annotation);
  }
  if (auto const* text = dynamic_cast<qvAnnotationText const*>(&annotation)) write(map, *text);
  if (auto const* raster = dynamic_cast<qvAnnotationRaster const*>(&annotation)) {
    map["rastername"] = raster->m_rasterName;
    map["sizeem"] =
        VariantList{static_cast<double>(raster->m_size.X()), static_cast<double>(raster->m_size.Y())};
  }
  return map;
}

}  // namespace

qv::qvVariant writeVariant(qvLegacy::qvAnnotationView const& view, qv::qvStreamVersion version) {
  VariantMap map{{"ver", version.toString()},
                 {"name", view.m_name},
                 {"origin", writeVector(view.m_planeOrigin)},
                 {"normal", writeVector(view.m_planeNormal)},
                 {"axis", writeVector(view.m_planeXAxis)}};
  VariantList all;
  VariantList texts;
  VariantList rasters;
  for (auto const& annotation : view.m_annotations) {
    all.emplace_back(VariantWriter(version).write(*annotation));
    (annotation->m_type == qvAnnotationInterface::Text ? texts : rasters).push_back(all.back());
  }
  if (version >= qv::qvStreamVersion(6, 27)) map["metadata"] = view.m_metadata;
  if (version >= qv::qvStreamVersion(6, 22)) {
    map["annotations"] = std::move(all);
  } else {
    map["textannotations"] = std::move(texts);
    map["rasterannotations"] = std::move(rasters);
  }
  return map;
}

std::string writeJsonText(qv::qvVariant const& value) {
  using Kind = qv::qvVariant::Kind;
  std::string text;
  switch (value.getKind()) {
    case Kind::Null:
      return "null";
    case Kind::String:
      return quoteJson(value.getString());
    case Kind::List:
      for (qv::qvVariant const& element : value.toList())
        text += (text.empty() ? "" : ",") + writeJsonText(element);
      return "[" + text + "]";
    case Kind::Map:
      for (auto const& [key, entry] : value.toMap())
        text += (text.empty() ? "" : ",") + quoteJson(key) + ":" + writeJsonText(entry);
      return "{" + text + "}";
    case Kind::Real:
      text = value.toString();
      return text.find_first_of(".e") == std::string::npos ? text + ".0" : text;
    default:
      return value.toString();
  }
}

}  // namespace qvToolkit
