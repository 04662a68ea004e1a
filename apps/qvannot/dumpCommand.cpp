#include "commands.h"
#include "job.h"
#include "qvToolkit/stream/streamDump.h"

namespace qvannot {

namespace {

void dumpFile(DumpCommand const& command, Reporter& reporter) {
  qvToolkit::OpenLimits limits = command.m_limits.getOpenLimits();
  limits.m_onInput = [&](std::uint64_t bytes) { setBudgets(bytes, command.m_limits, reporter); };
  qvToolkit::Findings const findings = qvToolkit::dumpStreamFile(
      command.m_file, command.m_at, [&reporter](std::string_view text) { reporter.print(text); }, limits);
  reporter.report(command.m_file, findings);
}

}  // namespace

void run(DumpCommand const& command, Reporter& reporter) {
  auto const work = [&] {
    reporter.expectNoViews();
    dumpFile(command, reporter);
  };
  reporter.expectNoViews();
  static_cast<void>(run({command.m_file, command.m_limits, work, {}, {}}, reporter, Progress(1)));
}

}  // namespace qvannot
