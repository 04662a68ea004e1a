#include <gtest/gtest.h>

#include "qvToolkit/findings/exitCode.h"
#include "toolRunner.h"

namespace qvTest {

namespace {

using namespace qvToolkit;

class StreamCommands : public testing::Test {
 protected:
  ToolRun encode(std::string const& version, std::vector<std::string> const& more = {}) const {
    std::vector<std::string> arguments = {"encode", m_json, "-o", m_output, "--stream-version", version};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return runTool(arguments);
  }

  Workplace m_place;
  std::string m_json = m_place.write("plain.json", makeDocument());
  std::string m_output = m_place.getPath("plain.qvs");
};

TEST_F(StreamCommands, EncodeWritesADocumentThatInspectAndMigrateReadByItsContent) {
  ToolRun const run = encode("6.27");
  EXPECT_EQ(run.m_exitCode, ExitDone);
  EXPECT_EQ(run.m_output, m_output + "\n");
  EXPECT_EQ(run.m_errors, "");
  std::string const misnamed = m_place.write("binary.json", m_place.read("plain.qvs"));
  ToolRun const inspected = runTool({"inspect", misnamed});
  EXPECT_EQ(inspected.m_exitCode, ExitDone) << inspected.m_errors;
  EXPECT_NE(inspected.m_output.find("version 6.27"), std::string::npos);

  std::string const fromJson = m_place.getPath("fromJson");
  std::string const fromStream = m_place.getPath("fromStream");
  EXPECT_EQ(runTool({"migrate", m_json, "-o", fromJson}).m_exitCode, ExitDone);
  EXPECT_EQ(runTool({"migrate", m_output, "-o", fromStream}).m_exitCode, ExitDone);
  std::string const page = m_place.read("fromJson/plain.view-0000.svg");
  EXPECT_FALSE(page.empty());
  EXPECT_EQ(page, m_place.read("fromStream/plain.view-0000.svg"));
}

TEST_F(StreamCommands, EncodeTakesAnObjectStreamToo) {
  EXPECT_EQ(encode("6.27").m_exitCode, ExitDone);
  std::string const again = m_place.getPath("again.qvs");
  EXPECT_EQ(runTool({"encode", m_output, "-o", again, "--stream-version", "6.27"}).m_exitCode, ExitDone);
  EXPECT_EQ(m_place.read("again.qvs"), m_place.read("plain.qvs"));
}

TEST_F(StreamCommands, EncodeWritesViewsOnlyWhenAsked) {
  EXPECT_EQ(encode("6.22", {"--views-only"}).m_exitCode, ExitDone);
  EXPECT_EQ(m_place.read("plain.qvs").find("qvAnnotationMetadata"), std::string::npos);
  EXPECT_EQ(runTool({"inspect", m_output}).m_exitCode, ExitDone);
}

TEST_F(StreamCommands, EncodeReplacesAResultOnlyByForceAndAnInputNever) {
  EXPECT_EQ(encode("6.22").m_exitCode, ExitDone);
  std::string const before = m_place.read("plain.qvs");
  ToolRun const run = encode("6.27");
  EXPECT_EQ(run.m_exitCode, ExitOutputFailed);
  EXPECT_NE(run.m_errors.find("--force"), std::string::npos);
  EXPECT_EQ(m_place.read("plain.qvs"), before);
  EXPECT_EQ(encode("6.27", {"--force"}).m_exitCode, ExitDone);
  EXPECT_NE(m_place.read("plain.qvs"), before);
  EXPECT_EQ(runTool({"encode", m_json, "-o", m_json, "--stream-version", "6.22", "--force"}).m_exitCode,
            ExitOutputFailed);
}

TEST_F(StreamCommands, EncodeNamesWhatAVersionCannotHold) {
  std::string const input = m_place.write("rich.json", makeDocument(R"("children":[{"type":"text"}],)"));
  ToolRun const run = runTool({"encode", input, "-o", m_output, "--stream-version", "6.21"});
  EXPECT_EQ(run.m_exitCode, ExitFindings);
  EXPECT_NE(run.m_errors.find("[encoding.loss, view/0/annot/0]"), std::string::npos) << run.m_errors;
  EXPECT_FALSE(m_place.read("plain.qvs").empty());
}

TEST_F(StreamCommands, RefuseABadCommandLine) {
  for (std::string const version : {"6.12", "6.28", "7.0", "6", "6.22x", ""}) {
    ToolRun const run = encode(version);
    EXPECT_EQ(run.m_exitCode, ExitUsage) << version;
    EXPECT_NE(run.m_errors.find("6.13 to 6.27"), std::string::npos) << run.m_errors;
  }
  EXPECT_EQ(runTool({"encode", m_json, "-o", m_output}).m_exitCode, ExitUsage);
  EXPECT_EQ(runTool({"encode", m_json, "--stream-version", "6.22"}).m_exitCode, ExitUsage);
  EXPECT_EQ(runTool({"encode", m_json, "-o", m_place.getPath("out/"), "--stream-version", "6.22"}).m_exitCode,
            ExitUsage);
  for (std::string const offset : {"x", "-1", "0x", "12 ", ""}) {
    EXPECT_EQ(runTool({"dump", m_json, "--at", offset}).m_exitCode, ExitUsage) << offset;
  }
}

TEST_F(StreamCommands, DumpShowsEveryFieldOrTheOnesAtAnOffset) {
  EXPECT_EQ(encode("6.22").m_exitCode, ExitDone);
  ToolRun const all = runTool({"dump", m_output});
  EXPECT_EQ(all.m_exitCode, ExitDone);
  EXPECT_EQ(all.m_errors, "");
  EXPECT_TRUE(all.m_output.starts_with("00000000  71 76 53 74 72 65 61 6d ")) << all.m_output;
  ToolRun const some = runTool({"dump", m_output, "--at", "0x8"});
  EXPECT_EQ(some.m_output, runTool({"dump", m_output, "--at", "11"}).m_output);
  EXPECT_TRUE(all.m_output.starts_with(some.m_output));
  EXPECT_NE(some.m_output.find("version = 0x60016 (6.22)"), std::string::npos);
}

TEST_F(StreamCommands, DumpGoesUpToTheBreakOfABrokenFile) {
  EXPECT_EQ(encode("6.22").m_exitCode, ExitDone);
  std::string const cut = m_place.write("cut.qvs", m_place.read("plain.qvs").substr(0, 130));
  ToolRun const run = runTool({"dump", cut});
  EXPECT_EQ(run.m_exitCode, ExitFindings);
  EXPECT_NE(run.m_output.find("BREAK: expected "), std::string::npos) << run.m_output;
  EXPECT_NE(run.m_errors.find("[stream.broken]"), std::string::npos) << run.m_errors;
}

TEST_F(StreamCommands, DumpSaysWhyThereIsNothingToDump) {
  EXPECT_EQ(runTool({"dump", m_json}).m_exitCode, ExitInputBroken);
  EXPECT_EQ(runTool({"dump", m_place.getPath("none.qvs")}).m_exitCode, ExitInputUnreadable);
  EXPECT_EQ(encode("6.22").m_exitCode, ExitDone);
  ToolRun const run = runTool({"dump", m_output, "--at", "100000"});
  EXPECT_EQ(run.m_exitCode, ExitUsage);
  EXPECT_EQ(run.m_output, "");
}

}  // namespace

}  // namespace qvTest
