#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

#include "qvannot/cli/toolText.h"
#include "qvannot/commandList.h"

namespace qvTest {

namespace {

using namespace qvannot;

std::string readSource(std::string const& name) {
  std::ifstream file(std::string(QVA_TOOL_SOURCES) + "/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The spellings in optionNames.h.
std::set<std::string> listSpellings() {
  std::string const text = readSource("optionNames.h");
  std::regex const quoted("= \"([^\"]+)\"");
  std::set<std::string> spellings;
  for (auto at = std::sregex_iterator(text.begin(), text.end(), quoted); at != std::sregex_iterator(); ++at) {
    spellings.insert((*at)[1]);
  }
  return spellings;
}

bool isSentencePart(std::string_view text) {
  return !text.empty() && std::isupper(static_cast<unsigned char>(text.front())) != 0 && !text.ends_with('.');
}

TEST(CommandTable, SaysOfEveryCommandWhatItDoesAndShowsHow) {
  for (CommandRow const* const command : Commands) {
    EXPECT_TRUE(isSentencePart(command->m_summary)) << command->m_name;
    EXPECT_LE(command->m_summary.size(), 52U) << command->m_name << " has no line of its own in the help";
    EXPECT_TRUE(command->m_description.ends_with('.')) << command->m_name;
    EXPECT_TRUE(command->m_isAboutTool || !command->m_examples.empty()) << command->m_name;
    for (Example const& example : command->m_examples) {
      EXPECT_NE(example.m_line.find("qvannot " + std::string(command->m_name)), std::string_view::npos);
      EXPECT_TRUE(example.m_effect.ends_with('.')) << example.m_line;
    }
  }
}

TEST(CommandTable, NamesEachCommandOnce) {
  auto const names = listNames(Commands);
  EXPECT_EQ(std::set(names.begin(), names.end()).size(), names.size());
}

TEST(CommandTable, SaysOfEveryOptionWhatItIsFor) {
  for (CommandRow const* const command : Commands) {
    for (Option const& option : describeOptions(*command)) {
      EXPECT_TRUE(isSentencePart(option.m_help)) << command->m_name << " " << option.m_names;
      EXPECT_FALSE(option.m_group.empty()) << command->m_name << " " << option.m_names;
    }
  }
}

TEST(CommandTable, ReadsEveryOption) {
  for (CommandRow const* const row : Commands) {
    auto const command = row->m_make();
    for (Option const& option : command->listOptions()) {
      EXPECT_NE(option.m_read, nullptr) << row->m_name << " " << option.m_names;
    }
  }
}

TEST(CommandTable, SpellsNoOptionOfACommandTwice) {
  for (CommandRow const* const command : Commands) {
    std::set<std::string_view> spellings;
    for (Option const& option : describeOptions(*command)) {
      for (std::string_view const name : splitNames(option.m_names)) {
        EXPECT_TRUE(spellings.insert(name).second) << command->m_name << " " << name;
      }
    }
  }
}

TEST(CommandTable, HasEverySpellingFromTheFileOfOptionNamesAndNoOther) {
  std::set<std::string> used = {std::string(makeVersionFlag().m_names)};
  for (CommandRow const* const command : Commands) {
    for (Option const& option : describeOptions(*command)) {
      if (!isOperand(option)) used.insert(std::string(option.m_names));
    }
  }
  EXPECT_EQ(used, listSpellings());
}

TEST(CommandTable, OffersWordsWhereAnOptionTakesOneOfAFew) {
  for (CommandRow const* const command : Commands) {
    for (Option const& option : describeOptions(*command)) {
      bool const isChoice = option.m_value.m_completion == Completion::Choice;
      EXPECT_EQ(isChoice, !option.m_value.m_choices.empty()) << command->m_name << " " << option.m_names;
    }
  }
}

TEST(CommandTable, TakesEachWordThatItOffers) {
  for (CommandRow const* const row : Commands) {
    auto const command = row->m_make();
    for (Option const& option : command->listOptions()) {
      for (std::string_view const choice : option.m_value.m_choices) {
        std::string const word(choice);
        EXPECT_EQ(option.m_read({&word, 1}), "") << row->m_name << " " << option.m_names;
      }
    }
  }
}

TEST(CommandTable, NamesTheWordThatATypingErrorWasNearTo) {
  auto const migrate = migrateCommand.m_make();
  Options const options = migrate->listOptions();
  auto const format = std::ranges::find(options, "--format", &Option::m_names);
  ASSERT_NE(format, options.end());
  EXPECT_EQ(format->m_default, "svg");
  std::string const word = "pgn";
  EXPECT_EQ(format->m_read({&word, 1}), "'pgn' is none of svg, png, pdf; did you mean 'png'?");
}

TEST(CommandTable, NeedsOnlyOptionsThatTheCommandHas) {
  for (CommandRow const* const command : Commands) {
    Options const options = describeOptions(*command);
    for (Option const& option : options) {
      if (option.m_needs.empty()) continue;
      EXPECT_NE(std::ranges::find(options, option.m_needs, &Option::m_names), options.end())
          << command->m_name << " " << option.m_names;
    }
  }
}

}  // namespace

}  // namespace qvTest
