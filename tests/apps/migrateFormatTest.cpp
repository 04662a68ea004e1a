#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>

#include "qvToolkit/findings/exitCode.h"
#include "text/sha256.h"
#include "toolRunner.h"

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

  /// A process that ended is none, even while its exit code waits to be fetched.
  static bool isAlive(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string number;
    std::string name;
    std::string state;
    file >> number >> name >> state;
    return !state.empty() && state != "Z";
  }

  Workplace m_place;
  std::string m_out = m_place.getPath("out");
  std::string m_plain = m_place.write("plain.json", makeDocument());
};

TEST_F(MigrateFormat, MakesPngOrPdfPagesInsteadOfSvg) {
  EXPECT_EQ(migrate({"--format", "png"}).m_output,
            m_out + "/plain.view-0000.png\n" + m_out + "/plain.migrated.json\n");
  EXPECT_TRUE(m_place.read("out/plain.view-0000.png").starts_with("\x89PNG"));
  EXPECT_NE(m_place.read("out/plain.migrated.json").find("\"page\":\"plain.view-0000.png\""),
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
  std::vector<std::string> const options = {"--no-system-fonts", "--font-dir", QVA_TEST_FONTS "/dejavu",
                                            "--format",          "png",        "--force"};
  EXPECT_EQ(migrate(options).m_exitCode, ExitDone);
  std::string const live = m_place.read("out/plain.view-0000.png");
  ToolRun const run = migrate(
      options, replaceProgram("while read line; do case $line in *'<dir>" QVA_TEST_FONTS "/dejavu<'*) "
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

TEST_F(MigrateFormat, TellsWhichLimitTheProgramRanInto) {
  struct Case {
    char const* m_script;
    char const* m_text;
  };
  for (Case const& end : {
           Case{"kill -XCPU $$",
                "rsvg-convert took more than the limit of 60 seconds of processor time [limit.time, "
                "--max-time]"},
           Case{"kill -XFSZ $$",
                "rsvg-convert writes more than the limit of 2147483648 bytes [limit.output, "
                "--max-output-file]"},
           Case{"echo 'memory allocation of 8 bytes failed' >&2; kill -ABRT $$",
                "rsvg-convert needs more memory than is left of the limit of "},
           Case{"echo 'rsvg-convert: cairo: out of memory' >&2; exit 1",
                " bytes [limit.memory, --max-memory]"},
           Case{"kill -SEGV $$", "rsvg-convert was ended by signal 11 (Segmentation fault) [worker.crashed]"},
       }) {
    ToolRun const run = migrate({"--format", "pdf"}, replaceProgram(end.m_script));
    EXPECT_EQ(run.m_exitCode, ExitLimit) << run.m_errors;
    EXPECT_NE(run.m_errors.find(end.m_text), std::string::npos) << run.m_errors;
    EXPECT_TRUE(m_place.list("out").empty());
  }
}

TEST_F(MigrateFormat, GivesTheProgramTheMemoryThatIsLeft) {
  // It is limited when it runs already.
  std::string const script =
      "until [ $(ulimit -d) -lt 102400 ]; do :; done; ulimit -d >'" + m_place.getPath("kib") + "'; echo page";
  ToolRun const run = migrate({"--format", "pdf", "--max-memory", "100M"}, replaceProgram(script));
  EXPECT_EQ(run.m_exitCode, ExitDone) << run.m_errors;
  EXPECT_GT(std::stoi(m_place.read("kib")), 50 << 10);
}

TEST_F(MigrateFormat, LeavesNothingOfAKilledProcessNorOfWhatItStarted) {
  std::string const shell = m_place.getPath("shell");
  ToolSetting setting =
      replaceProgram("echo $$ >'" + shell + "'; kill -KILL $PPID; while :; do read line; done </dev/zero");
  setting.m_environment["TMPDIR"] = m_place.getPath("tmp");
  std::filesystem::create_directories(m_place.getPath("tmp"));
  for (bool const isStandardInput : {false, true}) {
    setting.m_input = makeDocument();
    std::vector<std::string> const arguments = {
        "migrate",    isStandardInput ? "-" : m_plain, "-o",       m_out,
        "--font-dir", QVA_TEST_FONTS "/dejavu",        "--format", "png"};
    ToolRun const run = runTool(arguments, setting);
    EXPECT_EQ(run.m_exitCode, ExitLimit);
    EXPECT_NE(run.m_errors.find("[worker.killed]"), std::string::npos) << run.m_errors;
    EXPECT_TRUE(m_place.list("tmp").empty());
    EXPECT_TRUE(m_place.list("out").empty());
    pid_t const program = std::stoi(m_place.read("shell"));
    // Nobody may have waited for it yet.
    for (int i = 0; i < 100 && isAlive(program); ++i) usleep(20000);
    EXPECT_FALSE(isAlive(program));
  }
}

TEST_F(MigrateFormat, TellsWhatTheInputWasThatAProcessDiedOf) {
  std::string const input = m_place.write("known.json", makeDocument("\"x\":1,"));
  ToolRun const run =
      runTool({"migrate", input, "-o", m_out, "--format", "png"}, replaceProgram("kill -ABRT $PPID"));
  std::string const content = m_place.read("known.json");
  EXPECT_NE(run.m_errors.find("; the input has " + std::to_string(content.size()) + " bytes of SHA-256 " +
                              qvToolkit::hashSha256(content) + " [worker.crashed]"),
            std::string::npos)
      << run.m_errors;
}

TEST_F(MigrateFormat, HasALimitWhereTheProgramDies) {
  ToolRun const run = migrate({"--format", "png"}, replaceProgram("kill -KILL $$"));
  EXPECT_EQ(run.m_exitCode, ExitLimit);
  EXPECT_NE(run.m_errors.find("rsvg-convert was ended by signal 9"), std::string::npos) << run.m_errors;
  EXPECT_TRUE(m_place.list("out").empty());
}

}  // namespace

}  // namespace qvTest
