#include <new>

#include "commands.h"
#include "encodedOutput.h"

namespace qvannot {

void run(EncodeCommand const& command, Reporter& reporter) {
  try {
    qvToolkit::Document const document = qvToolkit::openDocument(command.m_file);
    if (reporter.reportOpened(document)) writeEncoded(document, command, reporter);
  } catch (std::bad_alloc const&) {
    reporter.fail(qvToolkit::ExitLimit, "out of memory, '" + command.m_file + "' is not encoded");
  }
}

}  // namespace qvannot
