#include "annotationLegacy/qvAnnotationInterface.h"
#include "readers/binary/recordReader.h"
#include "readers/newAnnotation.h"

namespace qvLegacy {

using readers::RecordReader;
using rules::Since;

namespace {

/// Reads one node of the child list and, on the same stream, the child's whole record. False for an unknown
/// kind.
bool readChild(RecordReader& in, qv::qvBaseStream& stream, qvAnnotationInterface::SubAnnot& node) {
  node.m_anchor = in.byte();
  // A kind byte that could not be read is 0, "no child".
  std::uint8_t const kind = in.byte();
  node.m_annot = readers::newAnnotation(static_cast<qvAnnotationInterface::Type>(kind));
  if (node.m_annot.get() != nullptr) node.m_annot->load(stream);
  return node.m_annot.get() != nullptr || kind == qvAnnotationInterface::Unknown;
}

/// Replaces the children. False when an unknown kind ended the reading: where the next node starts is not
/// known then.
bool readChildren(RecordReader& in, qv::qvBaseStream& stream, qvAnnotationInterface& parent) {
  std::uint32_t const count = in.count();
  parent.removeSubAnnots();
  if (count == 0) return true;
  parent.editSubAnnots().resize(count);
  for (qvAnnotationInterface::SubAnnot& node : parent.editSubAnnots()) {
    if (!readChild(in, stream, node)) {
      in.fail();
      return false;
    }
  }
  return true;
}

}  // namespace

void qvAnnotationInterface::Leader::load(qv::qvBaseStream& stream) {
  RecordReader(stream).fields(*this, rules::members::leader<Leader>);
}

void qvAnnotationInterface::MeasureLeader::load(qv::qvBaseStream& stream) {
  RecordReader(stream).fields(*this, rules::members::measure<MeasureLeader>);
}

void qvAnnotationInterface::load(qv::qvBaseStream& stream) {
  RecordReader in(stream);
  if (!in.has(Since::sharedRecord)) return;
  in.fields(*this, rules::members::head<qvAnnotationInterface>);
  // KEEP: an unknown child kind ends this record alone. A text or raster goes on with its own fields at the
  // next byte.
  if (in.has(rules::annotation::children) && !readChildren(in, stream, *this)) return;
  if (in.has(rules::annotation::metadata)) in.metadata(m_metadata);
}

}  // namespace qvLegacy
