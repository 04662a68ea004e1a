#pragma once

#include <string>

#include "qvToolkit/findings/exitCode.h"
#include "qvannot/cli/command.h"

namespace qvannot {

// What is said of the tool as a whole.

inline constexpr std::string_view ToolName = "qvannot";
inline constexpr std::string_view ToolSummary = "show, check and migrate legacy CAD annotations";

/// What an exit code of the tool says.
struct ExitRow {
  qvToolkit::ExitCode m_code;
  std::string_view m_summary;      ///< in the help
  std::string_view m_explanation;  ///< in the manual
};

/// Lowest first.
std::span<ExitRow const> listExitRows();

/// What `-h` and `-V` are to every help text; the parser acts on them itself.
Option makeHelpFlag();
Option makeVersionFlag();

/// The options of a command without the readers that would fill it, and the flag for help.
Options describeOptions(CommandRow const& command);

/// The names of all commands.
std::vector<std::string_view> listNames(CommandRows commands);

/// What `--version` prints; its first line is the tool's name and version.
std::string formatVersion();

}  // namespace qvannot
