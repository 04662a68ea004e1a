#include "qvToolkit/model/document.h"

#include <algorithm>

namespace qvToolkit {

namespace {

/// What is lost of a document of which nothing else is left has broken it.
ExitCode getFailure(Finding const& finding) {
  ExitCode const code = getExitCode(finding.m_code);
  if (code > ExitFindings) return code;
  return finding.m_severity == Severity::Error ? ExitInputBroken : ExitDone;
}

}  // namespace

ExitCode getFailure(Document const& document) {
  ExitCode failure = ExitDone;
  if (!document.m_views.empty()) return failure;
  for (Finding const& finding : document.m_findings) {
    if (finding.m_code == FindingCode::NoViews) return ExitDone;
    failure = std::max(failure, getFailure(finding));
  }
  return failure;
}

}  // namespace qvToolkit
