#include <cstdint>
#include <optional>

#include "qvannot/cli/sharedOptions.h"
#include "qvannot/commandList.h"
#include "qvannot/documentRun.h"
#include "qvannot/optionNames.h"
#include "qvannot/optionNumbers.h"

namespace qvannot {

namespace {

struct DumpCommand final : Command {
  Options listOptions() override;
  void run(Reporter& reporter) const override;

  DocumentRun m_run{qvToolkit::Action::Dump};
};

std::string readPlace(std::string const& text, std::optional<std::uint64_t>& at) {
  at = readOffset(text);
  if (at.has_value()) return {};
  return refuseNumber(text, "offset", "0", "18446744073709551615") + "; write it like 288 or 0x120";
}

Options DumpCommand::listOptions() {
  qvToolkit::Request& request = m_run.m_request;
  return join({makeFileOperand(m_run.m_files),
               {.m_names = option::At,
                .m_value = {.m_word = "OFFSET"},
                .m_help = "Show only the field that holds this byte, and its neighbours",
                .m_read = [&request](auto const& words) { return readPlace(words[0], request.m_offset); }}},
              makeLimitOptions(request.m_limits));
}

void DumpCommand::run(Reporter& reporter) const {
  reporter.expectNoViews();
  runDocuments(m_run, reporter);
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
