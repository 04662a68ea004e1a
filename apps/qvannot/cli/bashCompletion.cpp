#include "qvannot/cli/completion.h"
#include "qvannot/cli/textColumns.h"
#include "qvannot/cli/toolText.h"

namespace qvannot {

namespace {

constexpr std::string_view Head = R"(# Completion of qvannot for bash, made by: qvannot completion bash

# _qvannot_offer KIND [WORD...]: what begins like the current word.
_qvannot_offer() {
  local kind=$1
  shift
  case $kind in
    words) mapfile -t COMPREPLY < <(compgen -W "$*" -- "$current") ;;
    files) compopt -o filenames 2>/dev/null; mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
    folders) compopt -o filenames 2>/dev/null; mapfile -t COMPREPLY < <(compgen -d -- "$current") ;;
  esac
}

)";

constexpr std::string_view Tail = R"(
_qvannot() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command=''
  # Of "--text=live" bash makes three words.
  if [[ $current == '=' ]]; then
    current=''
  elif [[ $previous == '=' ]]; then
    previous=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  ((COMP_CWORD > 1)) && command=${COMP_WORDS[1]}
  COMPREPLY=()
  if [[ $previous == -* ]] && _qvannot_value "$command" "$previous"; then
    return
  fi
  if [[ $current == -* ]]; then
    _qvannot_options "$command"
  else
    _qvannot_operand "$command"
  fi
}

complete -F _qvannot qvannot
)";

std::string formatOffer(Value const& value) {
  switch (value.m_completion) {
    case Completion::File:
      return "_qvannot_offer files";
    case Completion::Folder:
      return "_qvannot_offer folders";
    case Completion::Choice:
      return "_qvannot_offer words " + joinWords(value.m_choices, " ");
    case Completion::None:
      break;
  }
  return ":";
}

std::string formatCase(std::string_view pattern, std::string_view action) {
  return "    " + std::string(pattern) + ") " + std::string(action) + " ;;\n";
}

std::string formatFunction(std::string_view head, std::string_view subject, std::string_view cases) {
  return std::string(head) + " {\n  case " + std::string(subject) + " in\n" + std::string(cases) +
         "  esac\n}\n";
}

std::string formatNames(Options const& options) {
  return "_qvannot_offer words " + joinWords(listSpellings(options), " ");
}

/// What options with a value take.
std::string formatValues(CommandRow const& command) {
  std::string cases;
  for (Option const& option : describeOptions(command)) {
    if (isOperand(option) || isFlag(option)) continue;
    std::string pattern;
    for (std::string_view const name : splitNames(option.m_names)) {
      pattern.append(pattern.empty() ? "" : " | ").append(command.m_name).append(":").append(name);
    }
    cases += formatCase(pattern, formatOffer(option.m_value));
  }
  return cases;
}

std::string formatOperand(CommandRow const& command) {
  for (Option const& option : describeOptions(command)) {
    if (isOperand(option)) return formatCase(command.m_name, formatOffer(option.m_value));
  }
  return {};
}

}  // namespace

std::string formatBashCompletion(CommandRows commands) {
  std::string options = formatCase("''", formatNames({makeHelpFlag(), makeVersionFlag()}));
  std::string operands = formatCase("''", "_qvannot_offer words " + joinWords(listNames(commands), " "));
  std::string values;
  for (CommandRow const* const command : commands) {
    options += formatCase(command->m_name, formatNames(describeOptions(*command)));
    operands += formatOperand(*command);
    values += formatValues(*command);
  }
  values += formatCase("*", "return 1");
  return std::string(Head) + formatFunction("# _qvannot_options COMMAND\n_qvannot_options()", "$1", options) +
         formatFunction(
             "\n# _qvannot_value COMMAND OPTION: false when the option takes nothing.\n_qvannot_value()",
             "$1:$2", values) +
         formatFunction("\n# _qvannot_operand COMMAND\n_qvannot_operand()", "$1", operands) +
         std::string(Tail);
}

}  // namespace qvannot
