#include "qvannot/cli/sharedOptions.h"

#include <utility>

#include "qvannot/limitOptions.h"
#include "qvannot/optionNames.h"
#include "qvannot/optionNumbers.h"

namespace qvannot {

namespace {

/// A shell hands over an empty name where a variable is not set.
std::string refuseName(std::string_view path) {
  return path.empty() ? "'' is no name of a file or folder" : std::string();
}

/// Keeps all names when none of them is empty.
std::string readNames(std::span<std::string const> words, std::vector<std::string>& names) {
  for (std::string const& word : words) {
    if (std::string problem = refuseName(word); !problem.empty()) return problem;
  }
  names.insert(names.end(), words.begin(), words.end());
  return {};
}

std::string readName(std::string const& word, std::string& name) {
  name = word;
  return refuseName(word);
}

std::string readFontMap(std::string const& text, qvToolkit::FontOptions& fonts) {
  std::size_t const sign = text.find('=');
  if (sign == std::string::npos || sign == 0 || sign + 1 == text.size())
    return "'" + text + "' is no pair of families; write it like Old=New";
  fonts.m_replacements.push_back({text.substr(0, sign), text.substr(sign + 1)});
  return {};
}

std::string readJobs(std::string const& text, std::size_t& jobs) {
  constexpr CountRange Jobs{1, 1024};
  auto const number = readCount(text, Jobs);
  if (!number.has_value())
    return refuseNumber(text, "number", std::to_string(Jobs.m_least), std::to_string(Jobs.m_most));
  jobs = static_cast<std::size_t>(*number);
  return {};
}

Option makeLimitOption(LimitOption const& row, qvToolkit::Limits& limits) {
  Option option{.m_names = row.m_name, .m_help = row.m_help, .m_default = row.m_default};
  if (row.m_limit.has_value()) {
    option.m_value.m_word = row.m_word;
  } else {
    option.m_value.m_completion = Completion::Choice;
    option.m_value.m_choices = {row.m_word};
  }
  option.m_group = "Limits";
  option.m_read = [&row, &limits](auto const& words) { return setLimit(row, words[0], limits); };
  return option;
}

}  // namespace

Option makeFileOperand(std::vector<std::string>& files) {
  return {.m_names = "FILE",
          .m_value = {.m_word = "FILE", .m_completion = Completion::File},
          .m_help = "Document; '-' reads standard input",
          .m_read = [&files](auto const& words) { return readNames(words, files); },
          .m_presence = Presence::Required};
}

Option makeFilesOperand(std::vector<std::string>& files) {
  return {.m_names = "FILE",
          .m_value = {.m_word = "FILE", .m_completion = Completion::File, .m_hasWords = true},
          .m_help = "Documents; '-' reads standard input",
          .m_read = [&files](auto const& words) { return readNames(words, files); },
          .m_presence = Presence::Required,
          .m_repeats = true};
}

Option makeJobsOption(std::size_t& jobs) {
  return {
      .m_names = option::Jobs,
      .m_value = {.m_word = "N"},
      .m_help = "Documents at a time (default: as many as processors and memory allow); results are the same",
      .m_read = [&jobs](auto const& words) { return readJobs(words[0], jobs); }};
}

Option makeStrictFlag(bool& isStrict) {
  return makeFlag(option::Strict, "Let warnings count, too: exit code 1 instead of 0", isStrict);
}

Option makePrettyFlag(bool& isPretty) {
  Option pretty =
      makeFlag(option::Pretty, std::string("With ") + option::Json + ": indented, for people", isPretty);
  pretty.m_needs = option::Json;
  return pretty;
}

Option makeFolderOption(std::string_view names, std::string help, std::string& folder) {
  return {.m_names = names,
          .m_value = {.m_word = "DIR", .m_completion = Completion::Folder},
          .m_help = std::move(help),
          .m_read = [&folder](auto const& words) { return readName(words[0], folder); }};
}

Options makeFontOptions(qvToolkit::FontOptions& fonts) {
  constexpr std::string_view Group = "Fonts";
  return {{.m_names = option::FontDir,
           .m_value = {.m_word = "DIR", .m_completion = Completion::Folder},
           .m_help = "Look for fonts in this folder first",
           .m_read = [&fonts](auto const& words) { return readNames(words, fonts.m_directories); },
           .m_group = Group,
           .m_repeats = true},
          {.m_names = option::FontMap,
           .m_value = {.m_word = "OLD=NEW"},
           .m_help = "Draw text of one font family with another one",
           .m_read = [&fonts](auto const& words) { return readFontMap(words[0], fonts); },
           .m_group = Group,
           .m_repeats = true},
          {.m_names = option::NoSystemFonts,
           .m_help = std::string("Use only the fonts of ") + option::FontDir,
           .m_read =
               [&fonts](auto const&) {
                 fonts.m_useSystemFonts = false;
                 return std::string();
               },
           .m_group = Group}};
}

Options makeLimitOptions(qvToolkit::Limits& limits) {
  Options options;
  for (LimitOption const& row : listLimitOptions()) options.push_back(makeLimitOption(row, limits));
  return options;
}

}  // namespace qvannot
