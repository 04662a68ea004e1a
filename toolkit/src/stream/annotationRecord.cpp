#include "stream/annotationRecord.h"

#include <string_view>
#include <vector>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "rules/fields.h"
#include "stream/variantMapWriter.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationRaster;
using qvLegacy::qvAnnotationText;
using qvLegacy::rules::Since;

namespace members = qvLegacy::rules::members;

/// Writes the parts of annotation records of one version.
class RecordWriter {
 public:
  RecordWriter(StreamBytes& out, std::uint32_t version) : m_out(out), m_version(version) {}

  bool has(Since since) const { return qvLegacy::rules::reaches(m_version, since); }

  void writeOldText(qvAnnotationText const& text);
  /// Everything in front of an annotation's children, their count included.
  void writeHead(qvAnnotationInterface const& annotation);
  void writeNode(qvAnnotationInterface::SubAnnot const& node);
  /// Everything behind an annotation's children.
  void writeTail(qvAnnotationInterface const& annotation);

 private:
  /// The fields that the version has, in order.
  template <class Record, class... Members>
  void writeFields(Record const& record, std::tuple<Members...> const& members) {
    std::apply([&](Members const&... member) { (writeField(record, member), ...); }, members);
  }
  template <class Record, class Member>
  void writeField(Record const& record, Member const& member) {
    if (has(member.field.inStreams)) write(record.*member.member);
  }

  void write(std::uint8_t value) { m_out.byte(value); }
  void write(std::uint16_t value) { m_out.number(value); }
  void write(std::string const& value) { m_out.text(value); }
  void write(Wm4::Vector3<float> const& value) { m_out.point(value); }
  void write(Wm4::Vector2<float> const& value);
  void write(Wm4::Vector3<unsigned char> const& color);
  void write(qvAnnotationInterface::Leader const& leader) {
    writeFields(leader, members::leader<qvAnnotationInterface::Leader>);
  }
  void write(qvAnnotationInterface::MeasureLeader const& measure) {
    writeFields(measure, members::measure<qvAnnotationInterface::MeasureLeader>);
  }
  void write(qvAnnotationText::TextProperties const& value) {
    writeFields(value, members::properties<qvAnnotationText::TextProperties>);
  }
  void write(qvAnnotationText::TextSegment const& run);
  /// A count and that many elements.
  template <class List>
  void writeList(List const& list) {
    m_out.count(list.size());
    for (auto const& element : list) write(element);
  }
  void write(std::vector<qvAnnotationInterface::Leader> const& leaders) { writeList(leaders); }
  void write(std::vector<qvAnnotationInterface::MeasureLeader> const& measures) { writeList(measures); }
  void write(qvAnnotationText::Line const& line) { writeList(line); }
  void write(qvAnnotationText::LineList const& lines) { writeList(lines); }

  StreamBytes& m_out;
  std::uint32_t m_version;
};

/// Before 6.15 a text had an order of its own.
void RecordWriter::writeOldText(qvAnnotationText const& text) {
  if (has(Since::annotationNames)) write(text.m_name);
  write(text.m_defaultTextProperties);
  write(text.m_leaders);
  write(text.m_lines);
  write(text.m_position);
  write(text.m_color);
  bool const hasFrame = (text.m_style & qvAnnotationInterface::FrameShapeMask) != 0;
  write(has(Since::frameShapes) ? text.m_style : static_cast<std::uint8_t>(hasFrame));
}

void RecordWriter::writeHead(qvAnnotationInterface const& annotation) {
  writeFields(annotation, members::head<qvAnnotationInterface>);
  if (has(Since::children)) m_out.count(annotation.getSubAnnotsCount());
}

void RecordWriter::writeNode(qvAnnotationInterface::SubAnnot const& node) {
  m_out.byte(getAnchorByte(node.m_anchor));
  m_out.byte(getRecordKind(node.m_annot.get()));
}

void RecordWriter::writeTail(qvAnnotationInterface const& annotation) {
  if (has(Since::annotationMetadata)) writeVariantMap(m_out, annotation.m_metadata);
  if (auto const* const text = dynamic_cast<qvAnnotationText const*>(&annotation)) {
    writeFields(*text, members::text<qvAnnotationText>);
  } else if (auto const* const raster = dynamic_cast<qvAnnotationRaster const*>(&annotation)) {
    writeFields(*raster, members::raster<qvAnnotationRaster>);
  }
}

void RecordWriter::write(Wm4::Vector2<float> const& value) {
  m_out.real(value.X());
  m_out.real(value.Y());
}

void RecordWriter::write(Wm4::Vector3<unsigned char> const& color) {
  m_out.byte(color.X());
  m_out.byte(color.Y());
  m_out.byte(color.Z());
}

void RecordWriter::write(qvAnnotationText::TextSegment const& run) {
  if (has(Since::segmentTypes)) {
    m_out.number(run.m_length);
    m_out.raw({run.getText(), run.m_length});
    m_out.byte(static_cast<std::uint8_t>(run.m_type));
  } else {
    // Readers of this form end a text at its first zero character.
    m_out.text(std::string_view(run.getText()));
  }
  m_out.byte(run.m_textProperties != nullptr ? 1 : 0);
  if (run.m_textProperties != nullptr) write(*run.m_textProperties);
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
  if (!writer.has(Since::children)) return writer.writeTail(root);
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
    if (getRecordKind(node.m_annot.get()) == qvAnnotationInterface::Unknown) continue;
    writer.writeHead(*node.m_annot);
    levels.emplace_back(*node.m_annot);
  }
}

}  // namespace

void writeAnnotationRecord(StreamBytes& out, qvAnnotationInterface const& annotation, std::uint32_t version) {
  RecordWriter writer(out, version);
  auto const* const text = dynamic_cast<qvAnnotationText const*>(&annotation);
  if (text != nullptr && !writer.has(Since::sharedRecord)) return writer.writeOldText(*text);
  writeTree(writer, annotation);
}

std::uint8_t getRecordKind(qvAnnotationInterface const* annotation) {
  if (dynamic_cast<qvAnnotationText const*>(annotation) != nullptr) return qvAnnotationInterface::Text;
  return dynamic_cast<qvAnnotationRaster const*>(annotation) != nullptr ? qvAnnotationInterface::Raster
                                                                        : qvAnnotationInterface::Unknown;
}

std::uint8_t getAnchorByte(std::uint32_t anchor) {
  return anchor <= 0xFF ? static_cast<std::uint8_t>(anchor) : std::uint8_t{0};
}

}  // namespace qvToolkit
