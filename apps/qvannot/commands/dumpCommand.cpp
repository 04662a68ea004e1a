#include <cstdint>
#include <optional>

#include "qvToolkit/stream/streamDump.h"
#include "qvannot/cli/sharedOptions.h"
#include "qvannot/commandList.h"
#include "qvannot/job.h"
#include "qvannot/optionNames.h"
#include "qvannot/optionNumbers.h"

namespace qvannot {

namespace {

struct DumpCommand final : Command {
  Options listOptions() override;
  void run(Reporter& reporter) const override;

  std::string m_file;
  std::optional<std::uint64_t> m_at;  ///< show only the field at this byte
  qvToolkit::Limits m_limits;
};

std::string readPlace(std::string const& text, std::optional<std::uint64_t>& at) {
  at = readOffset(text);
  if (at.has_value()) return {};
  return refuseNumber(text, "offset", "0", "18446744073709551615") + "; write it like 288 or 0x120";
}

Options DumpCommand::listOptions() {
  return join({makeFileOperand(m_file),
               {.m_names = option::At,
                .m_value = {.m_word = "OFFSET"},
                .m_help = "Show only the field that holds this byte, and its neighbours",
                .m_read = [this](auto const& words) { return readPlace(words[0], m_at); }}},
              makeLimitOptions(m_limits));
}

void dumpFile(DumpCommand const& command, Reporter& reporter) {
  qvToolkit::OpenLimits limits = qvToolkit::makeOpenLimits(command.m_limits);
  limits.m_onInput = [&](std::uint64_t bytes) { setBudgets(bytes, command.m_limits, reporter); };
  qvToolkit::Findings const findings = qvToolkit::dumpStreamFile(
      command.m_file, command.m_at, [&reporter](std::string_view text) { reporter.print(text); }, limits);
  reporter.report(command.m_file, findings);
}

void DumpCommand::run(Reporter& reporter) const {
  auto const work = [&] {
    reporter.expectNoViews();
    dumpFile(*this, reporter);
  };
  reporter.expectNoViews();
  static_cast<void>(qvannot::run({m_file, m_limits, work, {}, {}}, reporter, Progress(1)));
}

constexpr Example Examples[] = {
    {"qvannot dump bracket.qvs --at 0x120",
     "Shows the field of an object stream that holds byte 0x120; without --at, every field."},
};

}  // namespace

constexpr CommandRow dumpCommand = {
    "dump", "Show the fields of an object stream, byte by byte",
    "Shows each field with its offset, bytes, name and value, as far as the stream can be followed.",
    Examples, makeCommand<DumpCommand>};

}  // namespace qvannot
