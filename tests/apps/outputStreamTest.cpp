#include <gtest/gtest.h>

#include <regex>

#include "qvToolkit/findings/exitCode.h"
#include "toolRunner.h"

namespace qvTest {

namespace {

/// Bytes that a terminal would act on.
bool hasControlCharacter(std::string const& text) {
  for (char const c : text) {
    auto const byte = static_cast<unsigned char>(c);
    if ((byte < 0x20 && c != '\n') || byte == 0x7F) return true;
  }
  return false;
}

TEST(OutputStreams, KeepTheMigrationsRecordsOffStandardOutput) {
  Workplace const place;
  std::string const input = place.write("meta.json", makeDocument(R"("metadata":{"odd":1},)"));
  ToolRun const run = runTool({"migrate", input, "-o", place.getPath("out")});
  EXPECT_EQ(run.m_output, place.getPath("out") + "/meta.migrated.json\n");
  EXPECT_NE(run.m_errors.find("Found unexpected metadata odd in annotation"), std::string::npos);
}

TEST(OutputStreams, CarryNoControlCharacterOfADocument) {
  Workplace const place;
  std::string text = makeDocument(R"("metadata":{"\u001b]0;x\u0007":1},)");
  text.replace(text.find("note"), 4, R"(\u001b[31m\r\nforged: error)");
  std::string const input = place.write("evil\x1b[2J.json", text);
  for (std::vector<std::string> const& arguments :
       std::vector<std::vector<std::string>>{{"inspect", input},
                                             {"inspect", "--json", input},
                                             {"migrate", input, "-o", place.getPath("out")}}) {
    ToolRun const run = runTool(arguments);
    EXPECT_FALSE(hasControlCharacter(run.m_output)) << run.m_output;
    EXPECT_FALSE(hasControlCharacter(run.m_errors)) << run.m_errors;
    EXPECT_EQ(run.m_errors.find("\nforged"), std::string::npos);
  }
}

TEST(OutputStreams, ShowHelpWithWorkedExamplesFirst) {
  ToolRun const run = runTool({"--help"});
  EXPECT_EQ(run.m_exitCode, qvToolkit::ExitDone);
  EXPECT_EQ(run.m_errors, "");
  EXPECT_TRUE(run.m_output.starts_with("Examples:\n  qvannot inspect ")) << run.m_output;
  std::size_t const usage = run.m_output.find("Usage:");
  std::size_t examples = 0;
  for (std::size_t at = run.m_output.find("\n  qvannot "); at < usage; ++examples) {
    at = run.m_output.find("\n  qvannot ", at + 1);
  }
  EXPECT_GE(examples, 3U);
}

TEST(OutputStreams, ShowTheHelpOfEachCommand) {
  ToolRun const run = runTool({"migrate", "--help"});
  EXPECT_EQ(run.m_exitCode, qvToolkit::ExitDone);
  for (char const* option : {"--drop-view-metadata", "--drop-known-metadata", "--drop-unknown-metadata",
                             "--head-size", "--rasters", "--force", "--strict", "--output"}) {
    EXPECT_NE(run.m_output.find(option), std::string::npos) << option;
  }
}

TEST(OutputStreams, ShowTheVersion) {
  ToolRun const run = runTool({"--version"});
  EXPECT_EQ(run.m_exitCode, qvToolkit::ExitDone);
  EXPECT_TRUE(std::regex_match(run.m_output, std::regex("qvannot 3\\.0\\.0\n"
                                                        "commit ([0-9a-f]{12}(-dirty)?|unknown)\n"
                                                        "with HarfBuzz [0-9.]+, .*, CLI11 [0-9.]+\n")))
      << run.m_output;
}

TEST(OutputStreams, ShowNoProgressOffATerminal) {
  Workplace const place;
  std::string const first = place.write("a.json", makeDocument());
  std::string const second = place.write("b.json", makeDocument());
  EXPECT_EQ(runTool({"migrate", first, second, "-o", place.getPath("out")}).m_errors, "");
}

}  // namespace

}  // namespace qvTest
