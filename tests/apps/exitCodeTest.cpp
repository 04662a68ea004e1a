#include <gtest/gtest.h>

#include "qvToolkit/findings/exitCode.h"
#include "toolRunner.h"

namespace qvTest {

namespace {

using namespace qvToolkit;

class ExitCodes : public testing::Test {
 protected:
  ToolRun migrate(std::string const& input, std::vector<std::string> const& more = {}) const {
    std::vector<std::string> arguments = {"migrate", input, "-o", m_place.getPath("out")};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return runTool(arguments);
  }
  Workplace m_place;
  std::string m_plain = m_place.write("plain.json", makeDocument());
};

TEST_F(ExitCodes, Are0WhenAllIsDone) {
  ToolRun const run = migrate(m_plain);
  EXPECT_EQ(run.m_exitCode, ExitDone);
  EXPECT_EQ(run.m_errors, "");
  EXPECT_EQ(runTool({"inspect", m_plain}).m_exitCode, ExitDone);
}

TEST_F(ExitCodes, Are1WhenAViewIsNotMigrated) {
  std::string const input = m_place.write("meta.json", makeDocument({}, R"({"k":1})"));
  ToolRun const run = migrate(input);
  EXPECT_EQ(run.m_exitCode, ExitFindings);
  EXPECT_NE(run.m_errors.find("--drop-view-metadata"), std::string::npos);
  EXPECT_EQ(m_place.list("out"), std::vector<std::string>{"meta.migrated.json"});
}

TEST_F(ExitCodes, LetWarningsCountWhenStrict) {
  std::string const input = m_place.write("meta.json", makeDocument({}, R"({"k":1})"));
  EXPECT_EQ(migrate(input, {"--drop-view-metadata"}).m_exitCode, ExitDone);
  EXPECT_EQ(migrate(input, {"--drop-view-metadata", "--force", "--strict"}).m_exitCode, ExitFindings);
}

TEST_F(ExitCodes, Are1WhenSomethingIsLostThoughAllIsMigrated) {
  for (std::string const lost : {
           R"("leaders":[{"pos":[9,9,0]},{"pos":[9,8,0]},5],)",
           R"("children":[{"type":"text","lines":[[{"text":"a","heightem":0}]]}],)",
           R"("children":[{"type":"text","position":[1e300,0,0]}],)",
           R"("children":[{"type":"text","children":[{"type":"text","leaders":[{"pos":[9,9,0]}]}]}],)",
       }) {
    ToolRun const run = migrate(m_place.write("lost.json", makeDocument(lost)), {"--force"});
    EXPECT_EQ(run.m_exitCode, ExitFindings) << lost;
    EXPECT_NE(run.m_errors.find("error: "), std::string::npos) << run.m_errors;
    EXPECT_EQ(m_place.list("out").size(), 2U) << "the page is there all the same";
  }
}

TEST_F(ExitCodes, Are0ForAnotherFrameShapeUnlessStrict) {
  std::string const input = m_place.write("shape.json", makeDocument(R"("frameshape":"circle",)"));
  EXPECT_EQ(migrate(input).m_exitCode, ExitDone);
  EXPECT_EQ(migrate(input, {"--force", "--strict"}).m_exitCode, ExitFindings);
}

TEST_F(ExitCodes, Are2ForABadCommandLine) {
  std::string const out = m_place.getPath("out");
  for (std::vector<std::string> const& arguments :
       std::vector<std::vector<std::string>>{{},
                                             {"melt", m_plain},
                                             {"migrate", m_plain},
                                             {"migrate", m_plain, "-o", out, "--shiny"},
                                             {"migrate", m_plain, "-o", out, "--head-size", "three"},
                                             {"migrate", m_plain, "-o", out, "--head-size", "1e999"},
                                             {"migrate", m_plain, "-o", ""},
                                             {"migrate", m_plain, "-o", out, "--rasters", ""},
                                             {"migrate", m_plain, "-o", out, "--font-dir", ""},
                                             {"inspect", m_plain, ""},
                                             {"dump", ""},
                                             {"inspect", m_plain, "--full"},
                                             {"inspect", m_plain, "--pretty"},
                                             {"inspect", m_plain, "--\x1b[31m"}}) {
    ToolRun const run = runTool(arguments);
    EXPECT_EQ(run.m_exitCode, ExitUsage);
    EXPECT_TRUE(run.m_errors.starts_with("qvannot: ")) << run.m_errors;
    EXPECT_NE(run.m_errors.find("--help"), std::string::npos);
    EXPECT_EQ(run.m_errors.find('\x1b'), std::string::npos);
    EXPECT_EQ(run.m_output, "");
  }
  EXPECT_TRUE(m_place.list("out").empty());
}

TEST_F(ExitCodes, Are3WhenAnInputCannotBeOpened) {
  EXPECT_EQ(migrate(m_place.getPath("none.json")).m_exitCode, ExitInputUnreadable);
  EXPECT_EQ(runTool({"inspect", m_place.getPath("none.json")}).m_exitCode, ExitInputUnreadable);
  EXPECT_EQ(migrate(m_plain, {"--rasters", m_place.getPath("nowhere")}).m_exitCode, ExitInputUnreadable);
  EXPECT_TRUE(m_place.list("out").empty());
}

TEST_F(ExitCodes, Are4ForAnInputThatIsBroken) {
  for (char const* content : {"", "{", "hello", "{\"views\":[{]}", "\xFF\xFE"}) {
    ToolRun const run = migrate(m_place.write("bad.json", content));
    EXPECT_EQ(run.m_exitCode, ExitInputBroken) << content;
    EXPECT_FALSE(run.m_errors.empty());
  }
  EXPECT_TRUE(m_place.list("out").empty());
}

TEST_F(ExitCodes, Are5WhenAnOutputCannotBeWritten) {
  static_cast<void>(m_place.write("file", "x"));
  EXPECT_EQ(runTool({"migrate", m_plain, "-o", m_place.getPath("file")}).m_exitCode, ExitOutputFailed);
  EXPECT_EQ(runTool({"migrate", m_plain, "-o", m_place.getPath("file/sub")}).m_exitCode, ExitOutputFailed);
  EXPECT_EQ(runTool({"migrate", m_plain, "-o", "/proc/none"}).m_exitCode, ExitOutputFailed);
  EXPECT_EQ(migrate(m_plain).m_exitCode, ExitDone);
  ToolRun const again = migrate(m_plain);
  EXPECT_EQ(again.m_exitCode, ExitOutputFailed);
  EXPECT_NE(again.m_errors.find("--force"), std::string::npos);
  EXPECT_EQ(again.m_output, "");
  EXPECT_EQ(migrate(m_plain, {"--force"}).m_exitCode, ExitDone);
}

TEST_F(ExitCodes, Are5WhenStandardOutputIsFull) {
  ToolSetting setting;
  setting.m_standardOutput = "/dev/full";
  EXPECT_EQ(runTool({"inspect", "--json", m_plain}, setting).m_exitCode, ExitOutputFailed);
  EXPECT_EQ(runTool({"--help"}, setting).m_exitCode, ExitOutputFailed);
}

TEST_F(ExitCodes, Are6WhenMemoryRunsOut) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "the sanitizer needs its address space";
#endif
  std::string list;
  for (int i = 0; i < 3000000; ++i) list += "[[],[]],";
  std::string const input = m_place.write("large.json", "{\"views\":[" + list + "[]]}");
  ToolSetting setting;
  setting.m_maxMemoryMiB = 300;
  ToolRun const run = runTool({"inspect", input, m_plain}, setting);
  EXPECT_EQ(run.m_exitCode, ExitLimit) << run.m_errors.substr(0, 500);
  EXPECT_NE(run.m_output.find("front"), std::string::npos) << "the other file is shown";
}

TEST_F(ExitCodes, Are7WhenThereIsNothingToDo) {
  ToolRun const none = runTool({"migrate", "-o", m_place.getPath("out")});
  EXPECT_EQ(none.m_exitCode, ExitNothingToDo);
  EXPECT_NE(none.m_errors.find("no input"), std::string::npos);
  EXPECT_EQ(migrate(m_place.write("empty.json", R"({"views":[]})")).m_exitCode, ExitNothingToDo);
  EXPECT_TRUE(m_place.list("out").empty());
}

TEST_F(ExitCodes, AreTheHighestThatHappened) {
  std::string const out = m_place.getPath("out");
  std::string const broken = m_place.write("broken.json", "{");
  ToolRun const run = runTool({"migrate", broken, m_place.getPath("none"), m_plain, "-o", out});
  EXPECT_EQ(run.m_exitCode, ExitInputBroken);
  EXPECT_EQ(m_place.list("out").size(), 2U) << "the good document is migrated";
}

}  // namespace

}  // namespace qvTest
