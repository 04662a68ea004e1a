#include "encodedOutput.h"

#include <filesystem>

#include "interruption.h"
#include "job.h"
#include "qvToolkit/files/outputSet.h"

namespace qvannot {

namespace {

std::string getFolder(EncodeCommand const& command) {
  std::string const folder = std::filesystem::path(command.m_output).parent_path();
  return folder.empty() ? "." : folder;
}

bool writeOutput(EncodeCommand const& command, std::string const& bytes, Reporter const& reporter,
                 qvToolkit::OutputSet& outputs) {
  outputs.limit(reporter.getOutputBudget(), command.m_limits.get(Limit::OutputFile));
  std::string const name = std::filesystem::path(command.m_output).filename();
  return outputs.open(name) && outputs.write(bytes) && outputs.commit();
}

}  // namespace

void writeEncoded(qvToolkit::Document const& document, EncodeCommand const& command, Reporter& reporter) {
  if (auto const refusal = checkTrees(document, command.m_limits.getTreeLimits())) {
    return reporter.report(document.m_path, {*refusal});
  }
  qvToolkit::EncodedDocument encoded = encodeDocument(document, command.m_options);
  qvToolkit::FileIdentities const input({command.m_file});
  qvToolkit::OutputSet outputs(getFolder(command), command.m_force, getInterruption());
  outputs.protect(input);
  bool const isWritten = writeOutput(command, encoded.m_bytes, reporter, outputs);
  if (!isWritten) encoded.m_findings.push_back(outputs.getProblem());
  reporter.report(document.m_path, encoded.m_findings);
  if (isWritten) reporter.print(command.m_output + '\n');
}

void runEncoding(EncodeCommand const& command, std::function<void()> const& work, Reporter& reporter) {
  auto const cleanUp = [&](pid_t process, qvToolkit::Finding const&) {
    qvToolkit::removeTemporaryFiles(getFolder(command), process);
  };
  static_cast<void>(run({command.m_file, command.m_limits, work, {}, cleanUp}, reporter, Progress(1)));
}

}  // namespace qvannot
