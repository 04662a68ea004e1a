#include "qvToolkit/model/documentTransform.h"
#include "qvToolkit/model/treeLimits.h"
#include "qvToolkit/stream/streamEncoder.h"
#include "work/work.h"

namespace qvToolkit {

namespace {

/// False where the trees of a document are no trees to copy or to write.
bool admitTrees(Work& work, Document const& document) {
  auto const refusal = checkTrees(document, makeTreeLimits(work.m_request.m_limits));
  if (refusal.has_value()) tell(work, *refusal);
  return !refusal.has_value();
}

void writeEncoded(Work& work, Document const& document) {
  EncodedDocument const encoded =
      encodeDocument(document, {work.m_request.m_streamVersion, work.m_request.m_viewsOnly});
  tell(work, encoded.m_findings);
  bool const isWritten =
      beginFile(work, work.m_task.m_stem) && work.m_results.getFile().write(encoded.m_bytes);
  if (!isWritten) fail(work, work.m_results.getProblem());
}

}  // namespace

void encode(Work& work) {
  Document const document = openInput(work);
  if (!document.m_views.empty() && admitTrees(work, document)) writeEncoded(work, document);
}

void transform(Work& work) {
  Document document = openInput(work);
  if (document.m_views.empty() || !admitTrees(work, document)) return;
  TransformOutcome const outcome = transformDocument(document, work.m_request.m_transformation);
  tell(work, outcome.m_findings);
  if (outcome.m_isMoved) writeEncoded(work, document);
}

}  // namespace qvToolkit
