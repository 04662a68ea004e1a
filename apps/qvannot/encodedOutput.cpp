#include "encodedOutput.h"

#include <filesystem>

#include "interruption.h"
#include "toolkit/outputSet.h"

namespace qvannot {

namespace {

bool writeOutput(EncodeCommand const& command, std::string const& bytes, qvToolkit::OutputSet& outputs) {
  outputs.protect(command.m_file);
  std::string const name = std::filesystem::path(command.m_output).filename();
  return outputs.open(name) && outputs.write(bytes) && outputs.commit();
}

}  // namespace

void writeEncoded(qvToolkit::Document const& document, EncodeCommand const& command, Reporter& reporter) {
  qvToolkit::EncodedDocument encoded = encodeDocument(document, command.m_options);
  std::string const folder = std::filesystem::path(command.m_output).parent_path();
  qvToolkit::OutputSet outputs(folder.empty() ? "." : folder, command.m_force, getInterruption());
  bool const isWritten = writeOutput(command, encoded.m_bytes, outputs);
  if (!isWritten) {
    encoded.m_findings.push_back(outputs.getProblem());
    reporter.count(qvToolkit::ExitOutputFailed);
  }
  reporter.report(document.m_path, encoded.m_findings);
  if (isWritten) reporter.print(command.m_output + '\n');
}

}  // namespace qvannot
