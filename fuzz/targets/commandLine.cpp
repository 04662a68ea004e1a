/// The tool's command line: parsed, never run, so no input can touch a file.

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "qvannot/cli/parser.h"
#include "qvannot/commandList.h"
#include "support/target.h"

namespace qvFuzz {

namespace {

using namespace qvannot;

void check(Answer const& answer) {
  requirePrintable(answer.m_text);
  require(!answer.m_text.empty(), "an answer says something");
  constexpr std::array Codes{qvToolkit::ExitDone, qvToolkit::ExitUsage, qvToolkit::ExitNothingToDo};
  require(std::ranges::find(Codes, answer.m_exitCode) != Codes.end(),
          "an answer has an exit code of its own");
}

void check(std::unique_ptr<Command> const& command) {
  require(command != nullptr, "what is no answer is a command");
  Options const options = command->listOptions();
  require(std::ranges::all_of(options, [](Option const& option) { return option.m_read != nullptr; }),
          "each option is read");
}

/// One argument a line.
std::vector<std::string> takeWords(InputCursor& input) {
  std::vector<std::string> words{"qvannot"};
  std::string const text = input.takeRestAsText();
  std::size_t begin = 0;
  while (begin < text.size()) {
    std::size_t const end = std::min(text.find('\n', begin), text.size());
    // What the system hands over ends at the first zero character.
    words.emplace_back(text.substr(begin, end - begin).c_str());
    begin = end + 1;
  }
  return words;
}

}  // namespace

void runTarget(InputCursor& input) {
  // The parser behind it leaks when memory runs out, with which the tool ends anyway.
  FaultPause const pause;
  std::vector<std::string> const words = takeWords(input);
  std::vector<char const*> arguments;
  for (std::string const& word : words) arguments.push_back(word.c_str());
  auto const parsed = parseCommandLine(Commands, static_cast<int>(arguments.size()), arguments.data());
  std::visit([](auto const& chosen) { check(chosen); }, parsed);
}

}  // namespace qvFuzz
