#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qvannot {

/// What is offered for a word that somebody begins to type.
enum class Completion : std::uint8_t { None, File, Folder, Choice };

/// What an option takes.
struct Value {
  std::string m_word =
      {};  ///< as the help shows it, such as "DIR"; empty for a flag, and where the choices stand
  Completion m_completion = Completion::None;
  std::vector<std::string_view> m_choices = {};
  bool m_hasWords = false;  ///< one option takes all words up to the next one
};

/// Whether a command line needs an option.
enum class Presence : std::uint8_t { Optional, Required, OneOfGroup };

/// Takes the words of an option, none for a flag. Returns what is wrong with them; empty when nothing is.
using OptionReader = std::function<std::string(std::span<std::string const> words)>;

/// An option of a command, or an operand: one row for parser, help, manual page and completion.
struct Option {
  std::string_view m_names;  ///< as optionNames.h spells it; of an operand its word, such as "FILE"
  Value m_value = {};
  std::string m_help;               ///< without a full stop
  std::string_view m_default = {};  ///< as the help shows it; empty for none
  OptionReader m_read = {};
  std::string_view m_group = "Options";  ///< the heading in the help
  Presence m_presence = Presence::Optional;
  bool m_repeats = false;         ///< may be given several times
  std::string_view m_needs = {};  ///< another option without which this one has no sense
};

using Options = std::vector<Option>;

/// The spellings of an option, each with its dashes: "-o", "--output".
std::vector<std::string_view> splitNames(std::string_view names);
/// Those of all options; operands have none.
std::vector<std::string_view> listSpellings(Options const& options);
/// The last spelling, which messages name.
std::string_view getLongName(Option const& option);
bool isOperand(Option const& option);
bool isFlag(Option const& option);
/// What the option takes, as the help shows it: "DIR", "{live,outline,both}", nothing for a flag.
std::string formatValue(Option const& option);
/// The whole help of an option, with its default and whether it is required.
std::string describeOption(Option const& option);

/// An option without a value that sets a switch.
Option makeFlag(std::string_view names, std::string help, bool& isSet);

/// What is wrong with a word that is none of those that an option takes.
std::string refuseChoice(std::string_view text, std::span<std::string_view const> choices);

/// A word of an option and what it stands for.
template <class Meaning>
struct Choice {
  std::string_view m_word;
  Meaning m_meaning;
};

/// An option that takes one of a few words. Its default is what `chosen` holds.
template <class Meaning>
Option makeChoice(std::string_view names, std::string help, std::span<Choice<Meaning> const> choices,
                  Meaning& chosen) {
  Option option{.m_names = names, .m_help = std::move(help)};
  option.m_value.m_completion = Completion::Choice;
  for (Choice<Meaning> const& choice : choices) {
    option.m_value.m_choices.push_back(choice.m_word);
    if (choice.m_meaning == chosen) option.m_default = choice.m_word;
  }
  option.m_read = [choices, &chosen, words = option.m_value.m_choices](auto const& given) -> std::string {
    for (Choice<Meaning> const& choice : choices) {
      if (choice.m_word != given[0]) continue;
      chosen = choice.m_meaning;
      return {};
    }
    return refuseChoice(given[0], words);
  };
  return option;
}

/// The rows of several sets, in order.
template <class... Sets>
Options join(Options options, Sets const&... more) {
  (options.insert(options.end(), more.begin(), more.end()), ...);
  return options;
}

}  // namespace qvannot
