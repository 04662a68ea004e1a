#include "annotationRecord.h"

#include <string_view>
#include <vector>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "streamGates.h"
#include "variantMapWriter.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationRaster;
using qvLegacy::qvAnnotationText;

/// Writes the parts of annotation records of one version.
class RecordWriter {
 public:
  RecordWriter(StreamBytes& out, std::uint32_t version) : m_out(out), m_version(version) {}

  bool has(StreamGate const& gate) const { return gate.isOpenAt(m_version); }

  void writeOldText(qvAnnotationText const& text);
  /// Everything in front of an annotation's children, their count included.
  void writeHead(qvAnnotationInterface const& annotation);
  void writeNode(qvAnnotationInterface::SubAnnot const& node);
  /// Everything behind an annotation's children.
  void writeTail(qvAnnotationInterface const& annotation);

 private:
  void writeColor(qvAnnotationInterface const& annotation);
  void writeLeaders(qvAnnotationInterface const& annotation);
  void writeMeasures(qvAnnotationInterface const& annotation);
  void writeProperties(qvAnnotationText::TextProperties const& properties);
  void writeLines(qvAnnotationText const& text);
  void writeRun(qvAnnotationText::TextSegment const& run);

  StreamBytes& m_out;
  std::uint32_t m_version;
};

/// Before 6.15 a text had an order of its own.
void RecordWriter::writeOldText(qvAnnotationText const& text) {
  if (has(streamGates::Names)) m_out.text(text.m_name);
  writeProperties(text.m_defaultTextProperties);
  writeLeaders(text);
  writeLines(text);
  m_out.point(text.m_position);
  writeColor(text);
  bool const hasFrame = (text.m_style & qvAnnotationInterface::FrameShapeMask) != 0;
  m_out.byte(has(streamGates::FrameShapes) ? text.m_style : static_cast<std::uint8_t>(hasFrame));
}

void RecordWriter::writeHead(qvAnnotationInterface const& annotation) {
  m_out.text(annotation.m_name);
  writeLeaders(annotation);
  if (has(streamGates::Measures)) writeMeasures(annotation);
  m_out.point(annotation.m_position);
  writeColor(annotation);
  m_out.byte(annotation.m_style);
  if (has(streamGates::Children)) m_out.count(annotation.getSubAnnotsCount());
}

void RecordWriter::writeNode(qvAnnotationInterface::SubAnnot const& node) {
  m_out.byte(getAnchorByte(node.m_anchor));
  m_out.byte(getRecordKind(node.m_annot.get()));
}

void RecordWriter::writeTail(qvAnnotationInterface const& annotation) {
  if (has(streamGates::AnnotationMetadata)) writeVariantMap(m_out, annotation.m_metadata);
  if (auto const* const text = dynamic_cast<qvAnnotationText const*>(&annotation)) {
    writeProperties(text->m_defaultTextProperties);
    writeLines(*text);
  } else if (auto const* const raster = dynamic_cast<qvAnnotationRaster const*>(&annotation)) {
    m_out.text(raster->m_rasterName);
    m_out.real(raster->m_size.X());
    m_out.real(raster->m_size.Y());
  }
}

void RecordWriter::writeColor(qvAnnotationInterface const& annotation) {
  m_out.byte(annotation.m_color.X());
  m_out.byte(annotation.m_color.Y());
  m_out.byte(annotation.m_color.Z());
}

void RecordWriter::writeLeaders(qvAnnotationInterface const& annotation) {
  m_out.count(annotation.m_leaders.size());
  for (qvAnnotationInterface::Leader const& leader : annotation.m_leaders) {
    m_out.point(leader.m_position);
    if (has(streamGates::Heads)) m_out.byte(leader.m_head);
  }
}

void RecordWriter::writeMeasures(qvAnnotationInterface const& annotation) {
  m_out.count(annotation.m_measures.size());
  for (qvAnnotationInterface::MeasureLeader const& measure : annotation.m_measures) {
    m_out.point(measure.m_pointA);
    m_out.point(measure.m_pointB);
    m_out.point(measure.m_offset);
    if (has(streamGates::Arrows)) m_out.byte(measure.m_arrowDir);
  }
}

void RecordWriter::writeProperties(qvAnnotationText::TextProperties const& properties) {
  m_out.text(properties.m_fontName);
  m_out.number(properties.m_height);
  m_out.number(properties.m_styleFlags);
}

void RecordWriter::writeLines(qvAnnotationText const& text) {
  m_out.count(text.m_lines.size());
  for (qvAnnotationText::Line const& line : text.m_lines) {
    m_out.count(line.size());
    for (qvAnnotationText::TextSegment const& run : line) writeRun(run);
  }
}

void RecordWriter::writeRun(qvAnnotationText::TextSegment const& run) {
  if (has(streamGates::RunTypes)) {
    m_out.number(run.m_length);
    m_out.raw({run.getText(), run.m_length});
    m_out.byte(static_cast<std::uint8_t>(run.m_type));
  } else {
    // Readers of this form end a text at its first zero character.
    m_out.text(std::string_view(run.getText()));
  }
  m_out.byte(run.m_textProperties != nullptr ? 1 : 0);
  if (run.m_textProperties != nullptr) writeProperties(*run.m_textProperties);
}

/// An annotation whose children are being written.
struct Level {
  explicit Level(qvAnnotationInterface const& annotation)
      : m_annotation(annotation),
        m_next(annotation.getSubAnnots().begin()),
        m_end(annotation.getSubAnnots().end()) {}

  qvAnnotationInterface const& m_annotation;
  qvAnnotationInterface::SubAnnotList::const_iterator m_next;
  qvAnnotationInterface::SubAnnotList::const_iterator m_end;
};

void writeTree(RecordWriter& writer, qvAnnotationInterface const& root) {
  writer.writeHead(root);
  if (!writer.has(streamGates::Children)) return writer.writeTail(root);
  std::vector<Level> levels = {Level(root)};
  while (!levels.empty()) {
    Level& level = levels.back();
    if (level.m_next == level.m_end) {
      writer.writeTail(level.m_annotation);
      levels.pop_back();
      continue;
    }
    qvAnnotationInterface::SubAnnot const& node = *level.m_next++;
    writer.writeNode(node);
    if (getRecordKind(node.m_annot.get()) == 0) continue;
    writer.writeHead(*node.m_annot);
    levels.emplace_back(*node.m_annot);
  }
}

}  // namespace

void writeAnnotationRecord(StreamBytes& out, qvAnnotationInterface const& annotation, std::uint32_t version) {
  RecordWriter writer(out, version);
  auto const* const text = dynamic_cast<qvAnnotationText const*>(&annotation);
  if (text != nullptr && !writer.has(streamGates::SharedRecord)) return writer.writeOldText(*text);
  writeTree(writer, annotation);
}

std::uint8_t getRecordKind(qvAnnotationInterface const* annotation) {
  if (dynamic_cast<qvAnnotationText const*>(annotation) != nullptr) return 1;
  return dynamic_cast<qvAnnotationRaster const*>(annotation) != nullptr ? 2 : 0;
}

std::uint8_t getAnchorByte(std::uint32_t anchor) {
  return anchor <= 0xFF ? static_cast<std::uint8_t>(anchor) : std::uint8_t{0};
}

}  // namespace qvToolkit
