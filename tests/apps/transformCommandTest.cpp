#include <gtest/gtest.h>

#include "toolRunner.h"
#include "toolkit/exitCode.h"

namespace qvTest {

namespace {

using namespace qvToolkit;

class TransformCommand : public testing::Test {
 protected:
  ToolRun transform(std::vector<std::string> const& words) const {
    std::vector<std::string> arguments = {"transform", m_json, "-o", m_output, "--force"};
    arguments.insert(arguments.end(), words.begin(), words.end());
    return runTool(arguments);
  }

  Workplace m_place;
  std::string m_json = m_place.write("plain.json", makeDocument());
  std::string m_output = m_place.getPath("moved.qvs");
};

TEST_F(TransformCommand, MovesThePageOfADocument) {
  ToolRun const run = transform({"--translate", "-5", "7", "0"});
  EXPECT_EQ(run.m_exitCode, ExitDone) << run.m_errors;
  EXPECT_EQ(run.m_output, m_output + "\n");
  EXPECT_EQ(runTool({"migrate", m_output, "-o", m_place.getPath("out")}).m_exitCode, ExitDone);
  std::string const page = m_place.read("out/moved.view-0000.svg");
  EXPECT_NE(page.find(R"x(transform="translate(-4 -9)")x"), std::string::npos) << page;
}

TEST_F(TransformCommand, UndoesATurnByTheOppositeOne) {
  EXPECT_EQ(runTool({"encode", m_json, "-o", m_output, "--stream-version", "6.27"}).m_exitCode, ExitDone);
  std::string const original = m_place.read("moved.qvs");
  EXPECT_EQ(transform({"--rotate", "z", "90"}).m_exitCode, ExitDone);
  EXPECT_NE(m_place.read("moved.qvs"), original);
  std::string const back = m_place.getPath("back.qvs");
  EXPECT_EQ(runTool({"transform", m_output, "-o", back, "--rotate", "z", "-90"}).m_exitCode, ExitDone);
  EXPECT_EQ(m_place.read("back.qvs"), original);
}

TEST_F(TransformCommand, TakesExactlyOneTransformation) {
  for (std::vector<std::string> const& words : {std::vector<std::string>{},
                                                {"--scale", "2", "--translate", "1", "2", "3"},
                                                {"--scale", "two"},
                                                {"--rotate", "q", "90"},
                                                {"--translate", "1"},
                                                {"--matrix", "1", "0"}}) {
    ToolRun const run = transform(words);
    EXPECT_EQ(run.m_exitCode, ExitUsage);
    EXPECT_NE(run.m_errors.find("qvannot transform --help"), std::string::npos) << run.m_errors;
  }
}

TEST_F(TransformCommand, RefusesAnEmptyWordInFrontOfAnUnknownOption) {
  ToolRun const run = transform({"--scale", "2", "--strict", "", "--bogus"});
  EXPECT_EQ(run.m_exitCode, ExitUsage);
  EXPECT_NE(run.m_errors.find("--bogus"), std::string::npos) << run.m_errors;
}

TEST_F(TransformCommand, IsToldApartFromAnUnknownCommand) {
  ToolRun const run = runTool({"turn", m_json});
  EXPECT_EQ(run.m_exitCode, ExitUsage);
  EXPECT_NE(run.m_errors.find("there is no command 'turn'"), std::string::npos) << run.m_errors;
}

}  // namespace

}  // namespace qvTest
