#include "commands.h"
#include "encodedOutput.h"
#include "job.h"
#include "qvToolkit/model/documentTransform.h"

namespace qvannot {

namespace {

void transformFile(TransformCommand const& command, Reporter& reporter) {
  qvToolkit::Document document = openInput(command.m_file, command.m_limits, reporter);
  if (!reporter.reportOpened(document)) return;
  if (auto const refusal = checkTrees(document, command.m_limits.getTreeLimits())) {
    return reporter.report(document.m_path, {*refusal});
  }
  auto const outcome = transformDocument(document, command.m_transformation);
  reporter.report(document.m_path, outcome.m_findings);
  if (outcome.m_isMoved) writeEncoded(document, command, reporter);
}

}  // namespace

void run(TransformCommand const& command, Reporter& reporter) {
  runEncoding(
      command, [&] { transformFile(command, reporter); }, reporter);
}

}  // namespace qvannot
