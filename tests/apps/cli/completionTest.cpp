#include "qvannot/cli/completion.h"

#include <gtest/gtest.h>

#include "qvannot/cli/toolText.h"
#include "qvannot/commandList.h"

namespace qvTest {

namespace {

using namespace qvannot;

struct Shell {
  char const* m_name;
  std::string m_script;
};

std::vector<Shell> const& listScripts() {
  static std::vector<Shell> const scripts = {{"bash", formatBashCompletion(Commands)},
                                             {"zsh", formatZshCompletion(Commands)},
                                             {"fish", formatFishCompletion(Commands)}};
  return scripts;
}

// What the shells make of the scripts is tested with the shells, over the installed tree.

TEST(Completion, HoldsEveryCommandAndEveryWordOfAChoice) {
  for (auto const& [name, script] : listScripts()) {
    for (CommandRow const* const command : Commands) {
      EXPECT_NE(script.find(command->m_name), std::string::npos) << name << " " << command->m_name;
      for (Option const& option : describeOptions(*command)) {
        for (std::string_view const word : option.m_value.m_choices) {
          EXPECT_NE(script.find(word), std::string::npos) << name << " " << word;
        }
      }
    }
  }
}

TEST(Completion, TellsHowItIsMadeAndForWhichTool) {
  for (auto const& [name, script] : listScripts()) {
    EXPECT_NE(script.find("made by: qvannot completion " + std::string(name) + "\n"), std::string::npos)
        << name;
    EXPECT_TRUE(script.ends_with("\n")) << name;
  }
  EXPECT_TRUE(listScripts()[1].m_script.starts_with("#compdef qvannot\n"));
}

TEST(Completion, QuotesWhatAShellWouldReadOtherwise) {
  CommandRow odd = versionCommand;
  odd.m_name = "odd";
  odd.m_summary = "It's $HOME [odd]: \\n";
  CommandRow const* const rows[] = {&odd};
  EXPECT_NE(formatFishCompletion(rows).find(R"( -d 'It\'s $HOME [odd]: \\n')"), std::string::npos);
  EXPECT_NE(formatZshCompletion(rows).find(R"('odd:It'\''s $HOME [odd]\: \\n')"), std::string::npos);
}

}  // namespace

}  // namespace qvTest
