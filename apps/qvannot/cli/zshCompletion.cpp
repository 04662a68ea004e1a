#include "qvannot/cli/completion.h"
#include "qvannot/cli/textColumns.h"
#include "qvannot/cli/toolText.h"

namespace qvannot {

namespace {

constexpr std::string_view Head = R"(#compdef qvannot
# Completion of qvannot for zsh, made by: qvannot completion zsh

)";

/// The file is the function itself where the shell loads it by its name, and defines it where it is sourced.
constexpr std::string_view Tail = R"(
if [[ $funcstack[1] == _qvannot ]]; then
  _qvannot "$@"
else
  compdef _qvannot qvannot
fi
)";

/// The text as one word of zsh.
std::string quote(std::string_view text) {
  std::string quoted = "'";
  for (char const c : text) quoted += c == '\'' ? "'\\''" : std::string(1, c);
  return quoted + '\'';
}

/// With a backslash in front of what ends a part of an entry.
std::string escape(std::string_view text, std::string_view special) {
  std::string escaped;
  for (char const c : text) {
    if (c == '\\' || special.find(c) != std::string_view::npos) escaped += '\\';
    escaped += c;
  }
  return escaped;
}

/// What is offered for a word: ":MESSAGE:ACTION".
std::string formatOffer(Option const& option) {
  Value const& value = option.m_value;
  std::string const text = ":" + escape(formatValue(option), ":") + ":";
  switch (value.m_completion) {
    case Completion::File:
      return text + "_files";
    case Completion::Folder:
      return text + "_files -/";
    case Completion::Choice:
      return text + "(" + joinWords(value.m_choices, " ") + ")";
    case Completion::None:
      break;
  }
  return text + " ";
}

/// What an option excludes: itself, unless it may be repeated, or all of its group.
std::string formatExclusion(Option const& option, Options const& options) {
  if (option.m_repeats) return "*";
  std::string names;
  for (Option const& other : options) {
    bool const isOfGroup = option.m_presence == Presence::OneOfGroup && other.m_group == option.m_group;
    if (!isOfGroup && other.m_names != option.m_names) continue;
    names.append(names.empty() ? "" : " ").append(joinWords(splitNames(other.m_names), " "));
  }
  return "(" + names + ")";
}

/// One entry for each spelling, and each on a line.
std::string formatOption(Option const& option, Options const& options) {
  std::string text;
  for (std::string_view const name : splitNames(option.m_names)) {
    // "-oDIR" and "--output=DIR" are one word, too.
    std::string_view const joint = isFlag(option) ? "" : name.starts_with("--") ? "=" : "+";
    std::string spec = formatExclusion(option, options) + std::string(name) + std::string(joint) + "[" +
                       escape(describeOption(option), "[]") + "]";
    if (!isFlag(option)) spec += formatOffer(option);
    text += " \\\n        " + quote(spec);
  }
  return text;
}

std::string formatOperand(Option const& option) {
  std::string const place = option.m_repeats ? "*" : option.m_presence == Presence::Required ? "1" : "1:";
  return " \\\n        " + quote(place + formatOffer(option));
}

std::string formatArguments(Options const& options) {
  std::string text = "_arguments -s -S";
  for (Option const& option : options) {
    text += isOperand(option) ? formatOperand(option) : formatOption(option, options);
  }
  return text + '\n';
}

std::string formatCommand(CommandRow const& command) {
  return "    (" + std::string(command.m_name) + ")\n      " + formatArguments(describeOptions(command)) +
         "      ;;\n";
}

std::string formatCommandList(CommandRows commands) {
  std::string text = "_qvannot_commands() {\n  local -a commands=(\n";
  for (CommandRow const* const command : commands) {
    text += "    " + quote(std::string(command->m_name) + ":" + escape(command->m_summary, ":")) + '\n';
  }
  return text + "  )\n  _describe command commands\n}\n";
}

std::string formatToolArguments() {
  Options const options = {makeHelpFlag(), makeVersionFlag()};
  std::string text = "  _arguments -C";
  for (Option const& option : options) text += formatOption(option, options);
  return text + " \\\n        '1:command:_qvannot_commands' '*::argument:->arguments' && return\n";
}

}  // namespace

std::string formatZshCompletion(CommandRows commands) {
  std::string text = std::string(Head) + formatCommandList(commands) +
                     "\n_qvannot() {\n  local curcontext=$curcontext state state_descr line\n"
                     "  typeset -A opt_args\n" +
                     formatToolArguments() + "  [[ $state == arguments ]] || return 1\n  case $words[1] in\n";
  for (CommandRow const* const command : commands) text += formatCommand(*command);
  return text + "  esac\n}\n" + std::string(Tail);
}

}  // namespace qvannot
