#pragma once

#include <memory>
#include <string>
#include <variant>

#include "qvToolkit/findings/exitCode.h"
#include "qvannot/cli/command.h"

namespace qvannot {

/// Nothing to run: the text answers the command line (help, version), or says what is wrong with it.
struct Answer {
  std::string m_text;
  qvToolkit::ExitCode m_exitCode = qvToolkit::ExitDone;  ///< `ExitDone` for an answer, else an error
};

/// The command that a command line asks for, with its settings; or an answer to it.
std::variant<Answer, std::unique_ptr<Command>> parseCommandLine(CommandRows commands, int count,
                                                                char const* const* arguments);

}  // namespace qvannot
