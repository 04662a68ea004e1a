/// The tool's command line: parsed, never run, so no input can touch a file.

#include "apps/qvannot/commandLine.h"

#include <algorithm>
#include <cmath>

#include "apps/qvannot/optionNumbers.h"
#include "qvToolkit/findings/catalogue.h"
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

void check(InspectCommand const& command) {
  require(!command.m_files.empty(), "there is a file to inspect");
}

void check(MigrateCommand const& command) {
  require(!command.m_files.empty() && !command.m_outputFolder.empty(), "there are files and a folder");
  require(HeadSizes.holds(command.m_options.m_headSize), "heads have a size that can be seen");
  require(command.m_options.m_dropped >= 0 && command.m_options.m_dropped < 8, "options are known bits");
}

void check(EncodeCommand const& command) {
  require(!command.m_file.empty() && !command.m_output.empty(), "there is a file and its result");
  require(command.m_options.m_version >= qvToolkit::OldestWritableVersion &&
              command.m_options.m_version <= qvToolkit::NewestWritableVersion,
          "the version can be written");
}

void check(TransformCommand const& command) {
  check(static_cast<EncodeCommand const&>(command));
  qvToolkit::Similarity const& moved = command.m_transformation;
  require(qvToolkit::checkScale(moved.m_scale).empty(), "the scale is one that keeps a drawing");
  for (int i = 0; i < 3; ++i) require(std::isfinite(moved.m_translation[i]), "the move is finite");
}

void check(DumpCommand const& command) {
  require(!command.m_file.empty(), "there is a file to dump");
}

void check(FontsCommand const& command) {
  require(!command.m_files.empty(), "there is a file to look at");
}

void check(ExplainCommand const& command) {
  auto const rows = qvToolkit::getCatalogue();
  bool const isKnown =
      std::ranges::find(rows, command.m_code, &qvToolkit::CatalogueRow::m_text) != rows.end();
  require(command.m_code.empty() || isKnown, "the code is in the catalogue");
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
  Command const command = parseCommandLine(static_cast<int>(arguments.size()), arguments.data());
  std::visit([](auto const& chosen) { check(chosen); }, command);
}

}  // namespace qvFuzz
