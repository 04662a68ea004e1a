#include <new>

#include "commands.h"
#include "encodedOutput.h"
#include "toolkit/documentTransform.h"

namespace qvannot {

void run(TransformCommand const& command, Reporter& reporter) {
  try {
    qvToolkit::Document document = qvToolkit::openDocument(command.m_file);
    if (!reporter.reportOpened(document)) return;
    transformDocument(document, command.m_transformation);
    writeEncoded(document, command, reporter);
  } catch (std::bad_alloc const&) {
    reporter.fail(qvToolkit::ExitLimit, "out of memory, '" + command.m_file + "' is not transformed");
  }
}

}  // namespace qvannot
