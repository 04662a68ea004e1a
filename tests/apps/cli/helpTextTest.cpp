#include "qvannot/cli/helpText.h"

#include <gtest/gtest.h>

#include <sstream>

#include "qvannot/cli/toolText.h"
#include "qvannot/commandList.h"

namespace qvTest {

namespace {

using namespace qvannot;

constexpr std::size_t Width = 80;
/// What people copy is never broken.
constexpr std::size_t ExampleWidth = 100;

void expectToFit(std::string const& text) {
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    bool const isExample = line.starts_with("  qvannot ");
    EXPECT_LE(line.size(), isExample ? ExampleWidth : Width) << line;
    EXPECT_FALSE(line.ends_with(' ')) << line;
  }
  EXPECT_TRUE(text.ends_with('\n'));
}

TEST(HelpText, FitsATerminal) {
  expectToFit(formatToolHelp(Commands));
  for (CommandRow const* const command : Commands) expectToFit(formatCommandHelp(*command));
}

TEST(HelpText, OfTheToolListsEveryCommandAndExitCode) {
  std::string const text = formatToolHelp(Commands);
  EXPECT_TRUE(text.starts_with("Examples:\n  qvannot inspect ")) << text;
  for (CommandRow const* const command : Commands) {
    EXPECT_NE(text.find("\n  " + std::string(command->m_name) + " "), std::string::npos) << command->m_name;
    EXPECT_NE(text.find(" " + std::string(command->m_summary) + "\n"), std::string::npos) << command->m_name;
    bool const isShown = text.find("\n  qvannot " + std::string(command->m_name) + " ") != std::string::npos;
    EXPECT_EQ(isShown, !command->m_isAboutTool) << command->m_name;
  }
  for (ExitRow const& row : listExitRows()) {
    std::string const code = "\n  " + std::to_string(row.m_code) + " ";
    EXPECT_NE(text.find(code, text.find("\nExit codes")), std::string::npos) << code;
    EXPECT_NE(text.find(" " + std::string(row.m_summary) + "\n"), std::string::npos) << code;
  }
}

TEST(HelpText, OfACommandListsEveryOptionOnce) {
  for (CommandRow const* const command : Commands) {
    std::string const text = formatCommandHelp(*command);
    EXPECT_TRUE(text.starts_with("Usage: qvannot " + std::string(command->m_name))) << text;
    for (Option const& option : describeOptions(*command)) {
      std::string const entry =
          "\n  " +
          (isOperand(option) ? formatValue(option) : std::string(splitNames(option.m_names).front()));
      std::size_t const first = text.find(entry);
      EXPECT_NE(first, std::string::npos) << command->m_name << entry;
    }
  }
}

TEST(HelpText, SaysWhatACommandLineHasToHold) {
  EXPECT_EQ(formatUsage(migrateCommand), "qvannot migrate FILE... -o DIR [OPTION...]");
  EXPECT_EQ(formatUsage(encodeCommand), "qvannot encode FILE -o OUT --stream-version X.Y [OPTION...]");
  EXPECT_EQ(formatUsage(transformCommand), "qvannot transform FILE -o OUT TRANSFORMATION [OPTION...]");
  EXPECT_EQ(formatUsage(explainCommand), "qvannot explain [CODE] [OPTION...]");
  EXPECT_EQ(formatUsage(versionCommand), "qvannot version");
}

TEST(HelpText, TellsDefaultsRepetitionAndWhatIsRequired) {
  std::string const text = formatCommandHelp(migrateCommand);
  EXPECT_NE(text.find("  --dpi N                   Resolution of PNG pages in pixels per inch, from 10\n"
                      "                            to 2400 (default 150)\n"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("Look for fonts in this folder first; may be repeated\n"), std::string::npos) << text;
  EXPECT_NE(text.find("(required)\n"), std::string::npos) << text;
  EXPECT_NE(formatCommandHelp(transformCommand).find("\nTransformation, exactly one:\n  --matrix "),
            std::string::npos);
}

}  // namespace

}  // namespace qvTest
