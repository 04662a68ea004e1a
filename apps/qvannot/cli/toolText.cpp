#include "qvannot/cli/toolText.h"

#include <algorithm>

#include "annotationLegacy/version.h"
#include "qvannot/cli/buildText.h"
#include "qvannot/optionNames.h"

namespace qvannot {

namespace {

using namespace qvToolkit;

constexpr ExitRow ExitRows[] = {
    {ExitDone, "all done",
     "All done, no finding at or above the threshold (errors; with --strict also warnings)."},
    {ExitFindings, "done, with findings or views that are not migrated",
     "Done with findings, or some views not migrated."},
    {ExitUsage, "bad command line", "Bad command line."},
    {ExitInputUnreadable, "an input cannot be opened", "An input cannot be opened."},
    {ExitInputBroken, "an input is no known format",
     "An input is of no known format or broken beyond reading."},
    {ExitOutputFailed, "an output cannot be written",
     "An output cannot be written, standard output and standard error among them. Without a message when "
     "whoever "
     "reads standard output has gone away; the other inputs are then worked on only if that writes files."},
    {ExitLimit, "a limit was hit or a process died", "A limit was hit, or the process of an input died."},
    {ExitNothingToDo, "nothing to do", "Nothing to do: no input, or no view in any of them."},
    {ExitBug, "a bug", "A bug: please report it."},
};

}  // namespace

std::span<ExitRow const> listExitRows() {
  return ExitRows;
}

Option makeHelpFlag() {
  return {.m_names = option::Help, .m_help = "Print this help and exit"};
}

Option makeVersionFlag() {
  return {.m_names = option::Version, .m_help = "Print the version and exit"};
}

Options describeOptions(CommandRow const& command) {
  Options options = command.m_make()->listOptions();
  for (Option& option : options) option.m_read = nullptr;
  options.push_back(makeHelpFlag());
  return options;
}

std::vector<std::string_view> listNames(CommandRows commands) {
  std::vector<std::string_view> names(commands.size());
  std::ranges::transform(commands, names.begin(), &CommandRow::m_name);
  return names;
}

std::string formatVersion() {
  return std::string(ToolName) + ' ' + qvAnnotationLegacy::Version::GetDescStringMajorMinorRelease(false) +
         '\n' + formatBuild();
}

}  // namespace qvannot
