/// Metadata in an object stream: the reader of variant maps alone.

#include "qvSceneGraph/qvInstanceMetaData.h"
#include "qvSystem/qvMemoryStream.h"
#include "qvToolkit/stream/streamEncoder.h"
#include "support/modelChecks.h"
#include "support/target.h"

namespace qvFuzz {

void runTarget(InputCursor& input) {
  auto const bytes = input.takeRest();
  qv::qvPointer<qvLegacy::qvAnnotationView> const view = new qvLegacy::qvAnnotationView;
  qv::qvMemoryStream stream(std::as_bytes(bytes), qvToolkit::getNewestWritableVersion());
  qv::qvInstanceMetaData::LoadVariantMap(stream, view->m_metadata);
  qv::qvVariant const copy = view->m_metadata;
  require(copy.toMap().size() == view->m_metadata.size(), "a copy has all entries");
  requireEqualCopies(*view);
  qvToolkit::Document const document = makeDocument(view);
  requireReports(document);
  requireRoundTrip(document, qvToolkit::getNewestWritableVersion(), true);
}

}  // namespace qvFuzz
