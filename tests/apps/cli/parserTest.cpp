#include "qvannot/cli/parser.h"

#include <gtest/gtest.h>

#include <sstream>

#include "qvannot/cli/helpText.h"
#include "qvannot/cli/toolText.h"
#include "qvannot/commandList.h"

namespace qvTest {

namespace {

using namespace qvannot;

std::variant<Answer, std::unique_ptr<Command>> parse(std::vector<char const*> arguments) {
  arguments.insert(arguments.begin(), "qvannot");
  return parseCommandLine(Commands, static_cast<int>(arguments.size()), arguments.data());
}

Answer answer(std::vector<char const*> const& arguments) {
  auto parsed = parse(arguments);
  Answer* const found = std::get_if<Answer>(&parsed);
  return found == nullptr ? Answer{"a command", qvToolkit::ExitBug} : *found;
}

bool isCommand(std::vector<char const*> const& arguments) {
  return std::holds_alternative<std::unique_ptr<Command>>(parse(arguments));
}

TEST(Parser, AnswersHelpAndVersionInEverySpelling) {
  EXPECT_EQ(answer({"--help"}).m_text, formatToolHelp(Commands));
  EXPECT_EQ(answer({"-h"}).m_text, formatToolHelp(Commands));
  EXPECT_EQ(answer({"-V"}).m_text, formatVersion());
  EXPECT_EQ(answer({"--version"}).m_text, formatVersion());
  for (CommandRow const* const command : Commands) {
    Answer const help = answer({command->m_name.data(), "--help"});
    EXPECT_EQ(help.m_text, formatCommandHelp(*command));
    EXPECT_EQ(help.m_exitCode, qvToolkit::ExitDone);
    EXPECT_EQ(answer({command->m_name.data(), "-h"}).m_text, help.m_text);
  }
}

/// The words of an example as a shell hands them over, but for its patterns and redirections.
std::vector<std::string> splitExample(std::string_view line) {
  std::vector<std::string> words;
  std::istringstream stream{std::string(line)};
  for (std::string word; stream >> word && word != ">";) words.push_back(word);
  return words;
}

TEST(Parser, TakesEveryExampleOfTheHelp) {
  for (CommandRow const* const command : Commands) {
    for (Example const& example : command->m_examples) {
      if (!example.m_line.starts_with("qvannot ")) continue;
      std::vector<std::string> const words = splitExample(example.m_line);
      std::vector<char const*> arguments;
      for (std::string const& word : words) arguments.push_back(word.c_str());
      auto const parsed = parseCommandLine(Commands, static_cast<int>(arguments.size()), arguments.data());
      EXPECT_TRUE(std::holds_alternative<std::unique_ptr<Command>>(parsed)) << example.m_line;
    }
  }
}

TEST(Parser, NamesTheCommandThatATypingErrorWasNearTo) {
  EXPECT_EQ(answer({"inpect", "a.json"}).m_text,
            "qvannot: there is no command 'inpect'; did you mean 'inspect'?\n"
            "Run 'qvannot --help' to see what it takes.\n");
  EXPECT_TRUE(answer({"melt"}).m_text.starts_with("qvannot: there is no command 'melt'\n"));
  EXPECT_TRUE(answer({"help", "fnts"})
                  .m_text.starts_with("qvannot: there is no command 'fnts'; did you mean 'fonts'?\n"));
}

TEST(Parser, NamesTheOptionThatATypingErrorWasNearTo) {
  EXPECT_EQ(answer({"migrate", "a.json", "--forse", "-o", "out"}).m_text,
            "qvannot: there is no option '--forse'; did you mean '--force'?\n"
            "Run 'qvannot migrate --help' to see what it takes.\n");
  EXPECT_TRUE(answer({"migrate", "a.json", "--frmat=png", "-o", "out"})
                  .m_text.starts_with("qvannot: there is no option '--frmat'; did you mean '--format'?\n"));
  EXPECT_TRUE(answer({"--verson"})
                  .m_text.starts_with("qvannot: there is no option '--verson'; did you mean '--version'?\n"));
  EXPECT_TRUE(
      answer({"inspect", "a.json", "--shiny"}).m_text.starts_with("qvannot: there is no option '--shiny'\n"));
}

TEST(Parser, SaysWhatIsWrongWithAWordBehindTheNameOfItsOption) {
  EXPECT_TRUE(answer({"migrate", "a.json", "-o", "out", "--text", "lives"})
                  .m_text.starts_with(
                      "qvannot: --text: 'lives' is none of live, outline, both; did you mean 'live'?\n"));
  EXPECT_TRUE(answer({"inspect", ""}).m_text.starts_with("qvannot: '' is no name of a file or folder\n"));
}

TEST(Parser, WantsExactlyOneOptionOfAGroup) {
  constexpr char const* Problem =
      "qvannot: exactly one of --matrix, --translate, --scale, --rotate is required\n";
  EXPECT_TRUE(answer({"transform", "a.json", "-o", "b.qvs"}).m_text.starts_with(Problem));
  EXPECT_TRUE(answer({"transform", "a.json", "-o", "b.qvs", "--scale", "2", "--rotate", "z", "90"})
                  .m_text.starts_with(Problem));
  EXPECT_TRUE(isCommand({"transform", "a.json", "-o", "b.qvs", "--scale", "2"}));
}

TEST(Parser, TakesNoInputForNothingToDo) {
  EXPECT_EQ(answer({"inspect"}).m_exitCode, qvToolkit::ExitNothingToDo);
  EXPECT_EQ(answer({"migrate", "-o", "out"}).m_exitCode, qvToolkit::ExitNothingToDo);
  EXPECT_EQ(answer({"dump"}).m_exitCode, qvToolkit::ExitUsage) << "it reads one document";
}

TEST(Parser, TakesOptionsInEveryForm) {
  EXPECT_TRUE(isCommand({"migrate", "a.json", "-oout", "--text=both", "--limits=none"}));
  EXPECT_TRUE(isCommand({"migrate", "-o", "out", "--font-dir", "a", "--font-dir", "b", "-"}));
  EXPECT_TRUE(isCommand({"inspect", "--", "--strange-name"}));
  EXPECT_EQ(answer({"migrate", "a.json", "-o", "out", "-o", "other"}).m_exitCode, qvToolkit::ExitUsage);
}

TEST(Parser, FillsTheSettingsOfTheCommandThatIsNamed) {
  auto strict = parse({"inspect", "a.json", "--strict"});
  EXPECT_TRUE(std::get<std::unique_ptr<Command>>(strict)->isStrict());
  auto plain = parse({"inspect", "a.json"});
  EXPECT_FALSE(std::get<std::unique_ptr<Command>>(plain)->isStrict());
}

}  // namespace

}  // namespace qvTest
