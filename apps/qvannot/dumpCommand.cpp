#include <new>

#include "commands.h"
#include "toolkit/streamDump.h"

namespace qvannot {

void run(DumpCommand const& command, Reporter& reporter) {
  reporter.expectNoViews();
  try {
    qvToolkit::DumpResult const result = qvToolkit::dumpStreamFile(
        command.m_file, command.m_at, [&reporter](std::string_view text) { reporter.print(text); });
    reporter.report(command.m_file, result.m_findings);
    reporter.count(result.m_failure);
  } catch (std::bad_alloc const&) {
    reporter.fail(qvToolkit::ExitLimit, "out of memory, '" + command.m_file + "' is passed over");
  }
}

}  // namespace qvannot
