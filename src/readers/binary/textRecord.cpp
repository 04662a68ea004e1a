#include "annotationLegacy/qvAnnotationText.h"
#include "readers/binary/recordReader.h"

namespace qvLegacy {

using readers::RecordReader;
using rules::Since;

namespace {

/// Reads lines of runs. Lines and runs that are there already are kept and overwritten.
void readLines(RecordReader& in, qvAnnotationText::LineList& lines) {
  lines.resize(in.count());
  for (qvAnnotationText::Line& line : lines) in.records(line);
}

/// Before 6.14 the frame byte says only whether there is a frame. One that could not be read says no.
std::uint8_t readFrameSwitch(RecordReader& in) {
  return in.byte() != 0 ? qvAnnotationInterface::Rectangle : qvAnnotationInterface::NoFrame;
}

}  // namespace

void qvAnnotationText::TextProperties::load(qv::qvBaseStream& stream) {
  RecordReader in(stream);
  in.text(m_fontName);
  // One word: the height in its low half, the style flags in its high half.
  std::uint32_t word = (static_cast<std::uint32_t>(m_styleFlags) << 16) | m_height;
  in.number(word);
  m_height = static_cast<std::uint16_t>(word & 0xFFFFU);
  m_styleFlags = static_cast<std::uint16_t>(word >> 16);
}

void qvAnnotationText::TextSegment::load(qv::qvBaseStream& stream) {
  RecordReader in(stream);
  setText(nullptr, 0);
  clearTextProperties();
  if (in.has(Since::segmentTypes)) {
    std::uint16_t length = 0;
    in.number(length);
    if (length > 0) {
      // Unlike `setText` this keeps zero characters inside the text, and its length as announced.
      resizeText(length);
      in.raw(m_text.get(), length);
    }
    auto type = static_cast<std::uint8_t>(m_type);
    in.byte(type);
    m_type = static_cast<SegmentType>(type);
  } else {
    std::string text;
    in.text(text);
    // KEEP: the text of the older form ends at its first zero character.
    setText(text.c_str(), 0);
    m_type = Normal;
  }
  if (in.byte() == 0) return;
  m_textProperties = std::make_unique<TextProperties>();
  m_textProperties->load(stream);
}

void qvAnnotationText::load(qv::qvBaseStream& stream) {
  RecordReader in(stream);
  if (!in.has(Since::sharedRecord)) return loadPrior_6_15(stream);
  qvAnnotationInterface::load(stream);
  m_defaultTextProperties.load(stream);
  readLines(in, m_lines);
}

void qvAnnotationText::loadPrior_6_15(qv::qvBaseStream& stream) {
  RecordReader in(stream);
  if (in.has(Since::annotationNames)) in.text(m_name);
  m_defaultTextProperties.load(stream);
  in.records(m_leaders);
  readLines(in, m_lines);
  in.vector(m_position);
  in.byte(m_color.X());
  in.byte(m_color.Y());
  in.byte(m_color.Z());
  if (in.has(Since::frameShapes)) {
    in.byte(m_style);
  } else {
    m_style = readFrameSwitch(in);
  }
}

}  // namespace qvLegacy
