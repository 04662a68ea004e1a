#include <gtest/gtest.h>
#include <sys/stat.h>

#include "toolRunner.h"
#include "toolkit/exitCode.h"

namespace qvTest {

namespace {

using namespace qvToolkit;

class MigrateFormat : public testing::Test {
 protected:
  ToolRun migrate(std::vector<std::string> const& options, ToolSetting const& setting = {}) const {
    std::vector<std::string> arguments = {"migrate", m_plain, "-o", m_out};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return runTool(arguments, setting);
  }
  /// A setting in which "rsvg-convert" is the given script, and nothing else is found.
  ToolSetting replaceProgram(std::string const& script) const {
    std::string const program = m_place.write("bin/rsvg-convert", "#!/bin/sh\n" + script + "\n");
    chmod(program.c_str(), 0755);
    ToolSetting setting;
    setting.m_environment = {{"PATH", m_place.getPath("bin")}};
    return setting;
  }

  Workplace m_place;
  std::string m_out = m_place.getPath("out");
  std::string m_plain = m_place.write("plain.json", makeDocument());
};

TEST_F(MigrateFormat, MakesPngOrPdfPagesInsteadOfSvg) {
  EXPECT_EQ(migrate({"--format", "png"}).m_output,
            m_out + "/plain.view-0000.png\n" + m_out + "/plain.migrated.json\n");
  EXPECT_TRUE(m_place.read("out/plain.view-0000.png").starts_with("\x89PNG"));
  EXPECT_NE(m_place.read("out/plain.migrated.json").find("\"page\": \"plain.view-0000.png\""),
            std::string::npos);
  EXPECT_EQ(migrate({"--format", "pdf", "--force"}).m_exitCode, ExitDone);
  EXPECT_TRUE(m_place.read("out/plain.view-0000.pdf").starts_with("%PDF-"));
}

TEST_F(MigrateFormat, DrawsMorePixelsAtAHigherResolution) {
  EXPECT_EQ(migrate({"--format", "png", "--dpi", "75"}).m_exitCode, ExitDone);
  std::string const coarse = m_place.read("out/plain.view-0000.png");
  EXPECT_EQ(migrate({"--format", "png", "--dpi", "600", "--force"}).m_exitCode, ExitDone);
  EXPECT_GT(m_place.read("out/plain.view-0000.png").size(), coarse.size());
  for (char const* const number : {"9", "2401", "-1", "x", ""}) {
    EXPECT_EQ(migrate({"--format", "png", "--dpi", number}).m_exitCode, ExitUsage) << number;
  }
  EXPECT_EQ(migrate({"--format", "jpeg"}).m_exitCode, ExitUsage);
}

TEST_F(MigrateFormat, GivesTheProgramTheFontsOfTheCommandLine) {
  std::vector<std::string> const options = {
      "--no-system-fonts", "--font-dir", "/usr/share/fonts/truetype/dejavu", "--format", "png", "--force"};
  EXPECT_EQ(migrate(options).m_exitCode, ExitDone);
  std::string const live = m_place.read("out/plain.view-0000.png");
  ToolRun const run = migrate(
      options, replaceProgram("while read line; do case $line in *'<dir>/usr/share/fonts/truetype/dejavu<'*) "
                              "printf found;; esac; done <\"$FONTCONFIG_FILE\""));
  EXPECT_EQ(run.m_exitCode, ExitDone) << run.m_errors;
  EXPECT_EQ(m_place.read("out/plain.view-0000.png"), "found");
  EXPECT_NE(live, "found");
}

TEST_F(MigrateFormat, SaysThatTheProgramIsNotThere) {
  ToolSetting setting;
  setting.m_environment = {{"PATH", m_place.getPath("empty")}};
  ToolRun const run = migrate({"--format", "pdf"}, setting);
  EXPECT_EQ(run.m_exitCode, ExitOutputFailed);
  EXPECT_NE(run.m_errors.find("cannot write pdf: the program rsvg-convert is not there; install the package "
                              "librsvg2-bin, or write SVG"),
            std::string::npos)
      << run.m_errors;
  EXPECT_TRUE(m_place.list("out").empty());
  EXPECT_EQ(run.m_output, "");
}

TEST_F(MigrateFormat, SaysWhatTheProgramSaysAndLeavesNothingWhenItFails) {
  ToolRun const run = migrate({"--format", "png"}, replaceProgram("echo half; echo 'it broke' >&2; exit 1"));
  EXPECT_EQ(run.m_exitCode, ExitOutputFailed);
  EXPECT_NE(run.m_errors.find("rsvg-convert failed: it broke [output.failed]"), std::string::npos)
      << run.m_errors;
  EXPECT_TRUE(m_place.list("out").empty());
}

TEST_F(MigrateFormat, HasALimitWhereTheProgramDies) {
  ToolRun const run = migrate({"--format", "png"}, replaceProgram("kill -KILL $$"));
  EXPECT_EQ(run.m_exitCode, ExitLimit);
  EXPECT_NE(run.m_errors.find("rsvg-convert was ended by signal 9"), std::string::npos) << run.m_errors;
  EXPECT_TRUE(m_place.list("out").empty());
}

}  // namespace

}  // namespace qvTest
