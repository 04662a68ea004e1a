#include "annotationLegacy/qvAnnotationMetaData.h"
#include "ports/stream.h"
#include "readers/binary/recordReader.h"

namespace qvLegacy {

void qvAnnotationMetaData::Load(qv::qvBaseStream& stream) {
  qv::qvMetadataInterface::Load(stream);
  m_views.clear();
  m_views.resize(readers::RecordReader(stream).count());
  // The stream fills the entries in when it resolves its links: the list must not move until then.
  for (qv::qvPointer<qvAnnotationView>& view : m_views) {
    stream.ReadObjectImpl(&view, true, &qv::qvBaseStream::GetLinkPointer<qvAnnotationView>);
  }
}

}  // namespace qvLegacy
