#include <filesystem>
#include <new>

#include "commands.h"
#include "interruption.h"
#include "toolkit/outputSet.h"

namespace qvannot {

namespace {

bool writeOutput(EncodeCommand const& command, std::string const& bytes, qvToolkit::OutputSet& outputs) {
  outputs.protect(command.m_file);
  std::string const name = std::filesystem::path(command.m_output).filename();
  return outputs.open(name) && outputs.write(bytes) && outputs.commit();
}

void encode(EncodeCommand const& command, Reporter& reporter) {
  qvToolkit::Document const document = qvToolkit::openDocument(command.m_file);
  if (!reporter.reportOpened(document)) return;
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

}  // namespace

void run(EncodeCommand const& command, Reporter& reporter) {
  try {
    encode(command, reporter);
  } catch (std::bad_alloc const&) {
    reporter.fail(qvToolkit::ExitLimit, "out of memory, '" + command.m_file + "' is not encoded");
  }
}

}  // namespace qvannot
