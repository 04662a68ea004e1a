#include "qvannot/cli/helpText.h"

#include <algorithm>
#include <cctype>

#include "qvannot/cli/textColumns.h"
#include "qvannot/cli/toolText.h"

namespace qvannot {

namespace {

constexpr std::size_t EntryIndent = 2;
constexpr std::size_t TextColumn = 28;
constexpr std::size_t EffectIndent = 6;
constexpr std::size_t ExitColumn = 6;

constexpr std::string_view ToolDescription =
    "Shows, checks and migrates legacy CAD annotations. Documents are JSON or object streams, told by their "
    "content.";

/// A name and what is said of it, beside it or, where there is no room, below.
std::string formatEntry(std::string_view name, std::string_view text) {
  std::string entry = padText(std::string(EntryIndent, ' ').append(name), TextColumn);
  if (entry.back() != ' ') entry += '\n' + std::string(TextColumn, ' ');
  return entry + wrapText(text, TerminalWidth, TextColumn);
}

/// "-o, --output DIR", "FILE..."
std::string formatSyntax(Option const& option) {
  if (isOperand(option)) return formatValue(option) + (option.m_repeats ? "..." : "");
  std::string text;
  for (std::string_view const name : splitNames(option.m_names))
    text.append(text.empty() ? "" : ", ").append(name);
  return isFlag(option) ? text : text + ' ' + formatValue(option);
}

std::string formatHeading(Option const& first) {
  std::string const group(isOperand(first) ? "Arguments" : first.m_group);
  return '\n' + group + (first.m_presence == Presence::OneOfGroup ? ", exactly one:\n" : ":\n");
}

bool belongTogether(Option const& a, Option const& b) {
  return isOperand(a) == isOperand(b) && a.m_group == b.m_group;
}

/// Each group under its heading, in the order of their first options.
std::string formatGroups(Options const& options) {
  std::string text;
  for (std::size_t i = 0; i < options.size(); ++i) {
    auto const isOfGroup = [&](Option const& other) { return belongTogether(options[i], other); };
    if (std::any_of(options.begin(), options.begin() + static_cast<std::ptrdiff_t>(i), isOfGroup)) continue;
    text += formatHeading(options[i]);
    for (Option const& option : options) {
      if (isOfGroup(option)) text += formatEntry(formatSyntax(option), describeOption(option));
    }
  }
  return text;
}

std::string formatExample(Example const& example) {
  std::string const indent(EffectIndent, ' ');
  return "  " + std::string(example.m_line) + '\n' + indent +
         wrapText(example.m_effect, TerminalWidth, EffectIndent);
}

/// What a command line has to hold of an option; empty for nothing.
std::string formatNeed(Option const& option) {
  if (isOperand(option))
    return option.m_presence == Presence::Required ? formatSyntax(option) : '[' + formatSyntax(option) + ']';
  if (option.m_presence != Presence::Required) return {};
  return std::string(splitNames(option.m_names).front()) + ' ' + formatValue(option);
}

std::string formatExitCodes() {
  std::string text = "\nExit codes, of which the highest that happened counts:\n";
  for (ExitRow const& row : listExitRows()) {
    text += padText("  " + std::to_string(row.m_code), ExitColumn) + std::string(row.m_summary) + '\n';
  }
  return text;
}

std::string raise(std::string_view text) {
  std::string raised(text);
  for (char& c : raised) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return raised;
}

}  // namespace

std::string formatUsage(CommandRow const& command) {
  std::string text = std::string(ToolName) + ' ' + std::string(command.m_name);
  std::string group;
  bool hasChoice = false;
  for (Option const& option : describeOptions(command)) {
    std::string const need = formatNeed(option);
    if (!need.empty()) text += ' ' + need;
    if (option.m_presence == Presence::OneOfGroup) group = ' ' + raise(option.m_group);
    bool const isOwn = option.m_names != makeHelpFlag().m_names && !isOperand(option);
    hasChoice = hasChoice || (isOwn && option.m_presence == Presence::Optional);
  }
  return text + group + (hasChoice ? " [OPTION...]" : "");
}

std::string formatCommandHelp(CommandRow const& command) {
  std::string text = "Usage: " + formatUsage(command) + "\n\n";
  text += std::string(command.m_summary) + ".\n\n";
  text += wrapText(command.m_description, TerminalWidth);
  if (!command.m_examples.empty()) text += "\nExamples:\n";
  for (Example const& example : command.m_examples) text += formatExample(example);
  return text + formatGroups(describeOptions(command)) +
         "\n'qvannot help' lists the commands and tells what the exit codes mean.\n";
}

std::string formatToolHelp(CommandRows commands) {
  std::string text = "Examples:\n";
  for (CommandRow const* const command : commands) {
    if (!command->m_isAboutTool) text += formatExample(command->m_examples.front());
  }
  text += '\n' + wrapText(ToolDescription, TerminalWidth) + "\nUsage: qvannot COMMAND [ARGUMENT...]\n";
  text += formatGroups({makeHelpFlag(), makeVersionFlag()}) + "\nCommands:\n";
  for (CommandRow const* const command : commands) text += formatEntry(command->m_name, command->m_summary);
  return text + "\n'qvannot help COMMAND' tells what a command takes.\n" + formatExitCodes() +
         "\nFindings go to standard error, one line each; results go to standard output.\n";
}

}  // namespace qvannot
