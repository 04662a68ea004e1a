#include "qvannot/cli/completion.h"
#include "qvannot/cli/textColumns.h"
#include "qvannot/cli/toolText.h"

namespace qvannot {

namespace {

constexpr std::string_view Head = R"(# Completion of qvannot for fish, made by: qvannot completion fish

function __qvannot_has_command
    set -l words (commandline -opc)
    test (count $words) -gt 1; and contains -- $words[2] $argv
end

function __qvannot_has_no_command
    test (count (commandline -opc)) -eq 1
end

complete -c qvannot -f
)";

/// The text as one word of fish.
std::string quote(std::string_view text) {
  std::string quoted = "'";
  for (char const c : text) quoted.append(c == '\'' || c == '\\' ? "\\" : "").push_back(c);
  return quoted + '\'';
}

std::string formatNames(Option const& option) {
  std::string text;
  for (std::string_view const name : splitNames(option.m_names)) {
    bool const isLong = name.starts_with("--");
    text.append(isLong ? " -l " : " -s ").append(name.substr(isLong ? 2 : 1));
  }
  return text;
}

std::string formatOffer(Value const& value) {
  switch (value.m_completion) {
    case Completion::File:
      return " -r -F";
    case Completion::Folder:
      return " -x -a '(__fish_complete_directories)'";
    case Completion::Choice:
      return " -x -a " + quote(joinWords(value.m_choices, " "));
    case Completion::None:
      break;
  }
  return " -x";
}

/// Operands are offered without the mark of options that take a value.
std::string formatOperand(Option const& option) {
  if (option.m_value.m_completion == Completion::File) return " -F";
  return " -a " + quote(joinWords(option.m_value.m_choices, " "));
}

std::string formatLine(std::string_view condition, Option const& option) {
  std::string text = "complete -c qvannot -n " + quote(condition);
  if (isOperand(option)) return text + formatOperand(option) + '\n';
  text += formatNames(option);
  if (!isFlag(option)) text += formatOffer(option.m_value);
  return text + " -d " + quote(describeOption(option)) + '\n';
}

std::string formatCommand(CommandRow const& command) {
  std::string text = "\ncomplete -c qvannot -n __qvannot_has_no_command -a " + std::string(command.m_name) +
                     " -d " + quote(command.m_summary) + '\n';
  std::string const condition = "__qvannot_has_command " + std::string(command.m_name);
  for (Option const& option : describeOptions(command)) text += formatLine(condition, option);
  return text;
}

}  // namespace

std::string formatFishCompletion(CommandRows commands) {
  std::string text(Head);
  text += formatLine("__qvannot_has_no_command", makeHelpFlag());
  text += formatLine("__qvannot_has_no_command", makeVersionFlag());
  for (CommandRow const* const command : commands) text += formatCommand(*command);
  return text;
}

}  // namespace qvannot
