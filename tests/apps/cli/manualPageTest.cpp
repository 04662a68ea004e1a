#include "qvannot/cli/manualPage.h"

#include <gtest/gtest.h>

#include "qvannot/cli/toolText.h"
#include "qvannot/commandList.h"

namespace qvTest {

namespace {

using namespace qvannot;

TEST(ManualPage, HasASectionForEachThingThatPeopleLookFor) {
  std::string const text = formatManualPage(Commands);
  std::size_t at = 0;
  for (char const* section :
       {"NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "COMMANDS", "EXIT STATUS", "EXAMPLES"}) {
    std::size_t const found = text.find("\n.SH " + std::string(section) + "\n");
    ASSERT_NE(found, std::string::npos) << section;
    EXPECT_GT(found, at) << section;
    at = found;
  }
}

TEST(ManualPage, DescribesEveryOptionOfEveryCommand) {
  std::string const text = formatManualPage(Commands);
  for (CommandRow const* const command : Commands) {
    std::size_t const begin = text.find("\n.SS " + std::string(command->m_name) + "\n");
    ASSERT_NE(begin, std::string::npos) << command->m_name;
    std::string const section = text.substr(begin, text.find("\n.S", begin + 1) - begin);
    std::size_t entries = 0;
    for (std::size_t at = section.find("\n.TP\n"); at != std::string::npos;
         at = section.find("\n.TP\n", at + 1)) {
      ++entries;
    }
    EXPECT_EQ(entries + 1, describeOptions(*command).size()) << "all but the help: " << section;
  }
}

TEST(ManualPage, ShowsWhatIsTypedAsItIsTyped) {
  std::string const text = formatManualPage(Commands);
  EXPECT_NE(text.find("\n\\fB\\-o\\fR, \\fB\\-\\-output\\fR \\fIDIR\\fR\n"), std::string::npos);
  EXPECT_NE(text.find("\nqvannot transform bracket.json \\-o moved.qvs \\-\\-rotate z 90\n"),
            std::string::npos);
}

TEST(ManualPage, TakesNoTextForARequest) {
  Example const examples[] = {{"qvannot odd", ".so stands here, \\ and 'quoted' too."}};
  CommandRow const odd = {"odd", "'Odd", ".TH is no heading.", examples, versionCommand.m_make};
  CommandRow const* const rows[] = {&odd};
  std::string const text = formatManualPage(rows);
  EXPECT_NE(text.find("\n\\&'Odd.\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\n\\&.TH is no heading.\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\n\\&.so stands here, \\e and 'quoted' too.\n"), std::string::npos) << text;
}

}  // namespace

}  // namespace qvTest
