#include "qvannot/cli/parser.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <utility>

#include "qvToolkit/text/textEscape.h"
#include "qvannot/cli/helpText.h"
#include "qvannot/cli/nearestNames.h"
#include "qvannot/cli/toolText.h"
#include "qvannot/optionNames.h"

namespace qvannot {

namespace {

/// A command with its rows, and the parser's view of it.
struct Candidate {
  CommandRow const* m_row;
  std::unique_ptr<Command> m_command;
  Options m_options;
  CLI::App* m_parser;
};

void read(Option const& option, std::span<std::string const> words) {
  std::string const problem = option.m_read(words);
  if (problem.empty()) return;
  std::string const place = isOperand(option) ? "" : std::string(getLongName(option)) + ": ";
  throw CLI::ValidationError(place + problem);
}

CLI::Option* addReader(CLI::App& parser, Option const& option) {
  std::string const names(option.m_names);
  if (isFlag(option)) return parser.add_flag_callback(names, [&option] { read(option, {}); });
  if (option.m_value.m_hasWords) {
    return parser.add_option_function<std::vector<std::string>>(
        names, [&option](std::vector<std::string> const& words) { read(option, words); });
  }
  return parser.add_option_function<std::string>(names, [&option](std::string const& word) {
    read(option, {&word, 1});
  });
}

/// Operands that are a list may be none: a pattern may have met none.
bool mayBeNone(Option const& option) {
  return isOperand(option) && option.m_repeats;
}

void addOption(CLI::App& parser, Option const& option) {
  CLI::Option* const added = addReader(parser, option);
  if (!isFlag(option)) added->type_name(formatValue(option));
  if (option.m_presence == Presence::Required && !mayBeNone(option)) added->required();
  if (!option.m_needs.empty()) added->needs(parser.get_option(std::string(option.m_needs)));
  if (option.m_repeats && !option.m_value.m_hasWords) {
    added->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)->trigger_on_parse();
  }
}

Candidate addCandidate(CLI::App& parser, CommandRow const& row) {
  Candidate candidate{&row, row.m_make(), {}, parser.add_subcommand(std::string(row.m_name))};
  candidate.m_options = candidate.m_command->listOptions();
  candidate.m_parser->set_help_flag(option::Help);
  return candidate;
}

/// The whole command line as the parser knows it: of the commands those that the words may mean. Half of the
/// time that the tool takes to start would go by for the options of the others.
class CommandLine {
 public:
  CommandLine(CommandRows commands, std::span<char const* const> words);

  void parse(int count, char const* const* arguments) { m_parser.parse(count, arguments); }
  /// Null when no command was named.
  Candidate* findChosen();
  /// What is wrong, with the names that may have been meant.
  std::string describe(CLI::ParseError const& error, int count, char const* const* arguments);

 private:
  std::string describeFirst(std::string_view word) const;

  CommandRows m_rows;
  CLI::App m_parser;
  std::vector<Candidate> m_candidates;
};

CommandLine::CommandLine(CommandRows commands, std::span<char const* const> words) : m_rows(commands) {
  m_parser.set_help_flag(option::Help);
  m_parser.set_version_flag(option::Version, std::string());
  m_parser.require_subcommand(1);
  for (CommandRow const* const row : commands) {
    bool const isNamed = std::ranges::find(words, row->m_name) != words.end();
    if (isNamed) m_candidates.push_back(addCandidate(m_parser, *row));
  }
  for (Candidate const& candidate : m_candidates) {
    for (Option const& option : candidate.m_options) addOption(*candidate.m_parser, option);
  }
}

Candidate* CommandLine::findChosen() {
  auto const chosen = std::ranges::find_if(
      m_candidates, [](Candidate const& candidate) { return candidate.m_parser->parsed(); });
  return chosen == m_candidates.end() ? nullptr : &*chosen;
}

std::string refuseOption(std::string_view word, Options const& options) {
  std::string_view const name = word.substr(0, word.find('='));
  return "there is no option '" + std::string(name) + "'" + suggestName(name, listSpellings(options));
}

/// CLI11 only says that a command is missing.
std::string CommandLine::describeFirst(std::string_view word) const {
  if (word.starts_with('-')) return refuseOption(word, {makeHelpFlag(), makeVersionFlag()});
  return "there is no command '" + std::string(word) + "'" + suggestName(word, listNames(m_rows));
}

std::string CommandLine::describe(CLI::ParseError const& error, int count, char const* const* arguments) {
  Candidate const* const chosen = findChosen();
  if (chosen == nullptr) return count < 2 ? "a command is missing" : describeFirst(arguments[1]);
  for (std::string const& word : chosen->m_parser->remaining(true)) {
    if (word.size() > 1 && word.starts_with('-')) return refuseOption(word, describeOptions(*chosen->m_row));
  }
  return error.what();
}

Answer makeError(Candidate const* chosen, std::string const& problem) {
  std::string const command =
      std::string(ToolName) + (chosen == nullptr ? "" : ' ' + std::string(chosen->m_row->m_name));
  return {std::string(ToolName) + ": " + qvToolkit::escapeTerminal(problem) + "\nRun '" + command +
              " --help' to see what it takes.\n",
          qvToolkit::ExitUsage};
}

bool isGiven(Candidate const& chosen, Option const& option) {
  return chosen.m_parser->count(std::string(getLongName(option))) > 0;
}

/// What is wrong with options that exclude each other. Not by an option group of CLI11: that one is a command
/// without a name, and takes an empty argument for it.
std::string findAlternativeProblem(Candidate const& chosen) {
  std::string all;
  std::size_t given = 0;
  for (Option const& option : chosen.m_options) {
    if (option.m_presence != Presence::OneOfGroup) continue;
    all.append(all.empty() ? "" : ", ").append(getLongName(option));
    given += isGiven(chosen, option) ? 1U : 0U;
  }
  return all.empty() || given == 1 ? std::string() : "exactly one of " + all + " is required";
}

bool lacksInput(Candidate const& chosen) {
  return std::ranges::any_of(chosen.m_options, [&](Option const& option) {
    return mayBeNone(option) && option.m_presence == Presence::Required && !isGiven(chosen, option);
  });
}

}  // namespace

std::variant<Answer, std::unique_ptr<Command>> parseCommandLine(CommandRows commands, int count,
                                                                char const* const* arguments) {
  CommandLine line(commands, {arguments, static_cast<std::size_t>(count)});
  try {
    line.parse(count, arguments);
  } catch (CLI::CallForHelp const&) {
    Candidate const* const chosen = line.findChosen();
    return Answer{chosen == nullptr ? formatToolHelp(commands) : formatCommandHelp(*chosen->m_row)};
  } catch (CLI::CallForVersion const&) {
    return Answer{formatVersion()};
  } catch (CLI::ParseError const& error) {
    return makeError(line.findChosen(), line.describe(error, count, arguments));
  }
  Candidate& chosen = *line.findChosen();
  std::string const problem = findAlternativeProblem(chosen);
  if (!problem.empty()) return makeError(&chosen, problem);
  if (lacksInput(chosen)) {
    return Answer{"qvannot: no input; name at least one document\n", qvToolkit::ExitNothingToDo};
  }
  return std::move(chosen.m_command);
}

}  // namespace qvannot
