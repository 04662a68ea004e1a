#include <gtest/gtest.h>

#include <map>

#include "qvToolkit/findings/exitCode.h"
#include "toolRunner.h"

/// Several documents at a time: the same is told and written, in the same order.
namespace qvTest {

namespace {

using namespace qvToolkit;

class Jobs : public testing::Test {
 protected:
  Jobs() {
    for (int i = 0; i < 9; ++i)
      m_inputs.push_back(m_place.write("d" + std::to_string(i) + ".json",
                                       makeDocument({}, i % 3 == 0 ? R"({"k":1})" : "{}")));
    m_inputs.push_back(m_place.write("broken.json", "{"));
    m_inputs.push_back(m_place.getPath("none.json"));
    m_setting.m_input = makeDocument();
  }
  ToolRun run(std::vector<std::string> arguments) const {
    arguments.insert(arguments.end(), m_inputs.begin(), m_inputs.end());
    return runTool(arguments, m_setting);
  }
  std::map<std::string, std::string> takeFiles() const {
    std::map<std::string, std::string> files;
    for (std::string const& name : m_place.list("out")) files[name] = m_place.read("out/" + name);
    std::filesystem::remove_all(m_place.getPath("out"));
    return files;
  }
  static void expectSame(ToolRun const& run, ToolRun const& expected) {
    EXPECT_EQ(run.m_exitCode, expected.m_exitCode);
    EXPECT_EQ(run.m_output, expected.m_output);
    EXPECT_EQ(run.m_errors, expected.m_errors);
  }

  Workplace m_place;
  std::vector<std::string> m_inputs;
  ToolSetting m_setting;
};

TEST_F(Jobs, WriteTheSameHoweverManyThereAre) {
  m_inputs.insert(m_inputs.begin() + 4, "-");
  std::vector<std::string> const arguments{"migrate", "-o", m_place.getPath("out"), "-j"};
  auto const runWith = [&](std::vector<std::string> const& more) {
    std::vector<std::string> all = arguments;
    all.insert(all.end(), more.begin(), more.end());
    return run(all);
  };
  ToolRun const one = runWith({"1"});
  auto const files = takeFiles();
  EXPECT_EQ(files.size(), 17U) << one.m_errors;
  EXPECT_EQ(one.m_exitCode, ExitInputBroken) << one.m_errors;
  EXPECT_LT(one.m_output.find("/d2.view-0000.svg"), one.m_output.find("/stdin.view-0000.svg"));
  EXPECT_LT(one.m_output.find("/stdin.view-0000.svg"), one.m_output.find("/d4.view-0000.svg"));
  for (auto const& more :
       std::vector<std::vector<std::string>>{{"2"}, {"7"}, {"1024"}, {"3", "--limits=none"}}) {
    expectSame(runWith(more), one);
    EXPECT_EQ(takeFiles(), files) << more[0];
  }
}

TEST_F(Jobs, PrintTheSameHoweverManyThereAre) {
  for (std::string const command : {"inspect", "fonts"}) {
    ToolRun const one = run({command, "--json", "-j", "1"});
    EXPECT_FALSE(one.m_output.empty());
    expectSame(run({command, "--json", "-j", "7"}), one);
    expectSame(run({command, "--json"}), one);
  }
}

TEST_F(Jobs, MayBeMoreThanThereAreDocuments) {
  ToolRun const run = runTool({"inspect", "-j", "3", m_inputs[1]});
  EXPECT_EQ(run.m_exitCode, ExitDone) << run.m_errors;
  EXPECT_EQ(run.m_output, runTool({"inspect", m_inputs[1]}).m_output);
}

TEST_F(Jobs, AreBetweenOneAndSoMany) {
  for (std::string const number : {"0", "1025", "-1", "two", "", "1.5"}) {
    ToolRun const run = runTool({"inspect", "--jobs=" + number, m_inputs[1]});
    EXPECT_EQ(run.m_exitCode, ExitUsage) << number;
    EXPECT_NE(run.m_errors.find("--jobs"), std::string::npos) << run.m_errors;
    EXPECT_TRUE(number.empty() || run.m_errors.find("1024") != std::string::npos) << run.m_errors;
    EXPECT_EQ(run.m_output, "");
  }
}

TEST_F(Jobs, OfAnotherProgramNeedASocket) {
  for (std::string const input : {"", "/dev/null"}) {
    ToolSetting setting;
    setting.m_input = "no frame";
    setting.m_standardInput = input;
    ToolRun const run = runTool({"worker"}, setting);
    EXPECT_EQ(run.m_exitCode, ExitUsage);
    EXPECT_EQ(run.m_errors,
              "qvannot: standard input is no connected local socket; another program starts this command, "
              "with one end of a pair of sockets\n");
  }
  ToolSetting setting;
  setting.m_closedStreams = {0};
  EXPECT_EQ(runTool({"worker"}, setting).m_exitCode, ExitUsage);
}

}  // namespace

}  // namespace qvTest
