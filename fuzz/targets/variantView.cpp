/// Whole documents as JSON text.

#include "qvToolkit/stream/streamEncoder.h"
#include "support/modelChecks.h"
#include "support/target.h"

namespace qvFuzz {

void runTarget(InputCursor& input) {
  std::string const text = input.takeRestAsText();
  qvToolkit::OpenLimits limits;
  limits.m_maxContainers = 100;
  qvToolkit::Document const document = qvToolkit::readDocument(text, "input", limits);
  require(qvToolkit::getFailure(document) == qvToolkit::ExitDone || document.m_views.empty(),
          "a failure leaves no view");
  require(qvToolkit::getFailure(document) == qvToolkit::ExitDone || !document.m_findings.empty(),
          "a failure has a reason");
  requireReports(document);
  for (qvToolkit::LoadedView const& loaded : document.m_views) {
    require(loaded.m_view != nullptr || !document.m_findings.empty(), "a refused view has a reason");
    if (loaded.m_view == nullptr) return;
    requireEqualCopies(*loaded.m_view);
  }
  requireRoundTrip(document, qvToolkit::getNewestWritableVersion(), false);
}

}  // namespace qvFuzz
