#include <gtest/gtest.h>

#include "qvToolkit/findings/exitCode.h"
#include "tests/environment/decimalComma.h"
#include "toolRunner.h"

namespace qvTest {

namespace {

using namespace qvToolkit;

class MigrateCommand : public testing::Test {
 protected:
  Workplace m_place;
  std::string m_out = m_place.getPath("out");
  std::string m_plain = m_place.write("plain.json", makeDocument());
};

TEST_F(MigrateCommand, WritesAPagePerViewAndTheModel) {
  ToolRun const run = runTool({"migrate", m_plain, "-o", m_out});
  EXPECT_EQ(m_place.list("out"), (std::vector<std::string>{"plain.migrated.json", "plain.view-0000.svg"}));
  EXPECT_EQ(run.m_output, m_out + "/plain.view-0000.svg\n" + m_out + "/plain.migrated.json\n");
  EXPECT_NE(m_place.read("out/plain.view-0000.svg").find(">plain</tspan>"), std::string::npos);
}

TEST_F(MigrateCommand, ReadsStandardInput) {
  ToolSetting setting;
  setting.m_input = makeDocument();
  EXPECT_EQ(runTool({"migrate", "-", "-o", m_out}, setting).m_exitCode, ExitDone);
  EXPECT_EQ(m_place.list("out"), (std::vector<std::string>{"stdin.migrated.json", "stdin.view-0000.svg"}));
}

TEST_F(MigrateCommand, KeepsDocumentsOfOneNameApart) {
  std::string const first = m_place.write("a/part.json", makeDocument());
  std::string const second = m_place.write("b/part.json", makeDocument());
  EXPECT_EQ(runTool({"migrate", first, second, "-o", m_out}).m_exitCode, ExitDone);
  EXPECT_EQ(m_place.list("out"), (std::vector<std::string>{"part-2.migrated.json", "part-2.view-0000.svg",
                                                           "part.migrated.json", "part.view-0000.svg"}));
}

TEST_F(MigrateCommand, WritesTheSameBytesTwiceAndUnderAnotherLocale) {
  std::string const input =
      m_place.write("p.json", makeDocument(R"("leaders":[{"pos":[1.25,0.1,0],"head":"arrow"}],)"));
  static_cast<void>(runTool({"migrate", input, "-o", m_out}));
  std::string const page = m_place.read("out/p.view-0000.svg");
  std::string const model = m_place.read("out/p.migrated.json");
  ASSERT_FALSE(page.empty());
  ASSERT_FALSE(model.empty());
  if (!hasDecimalComma()) GTEST_SKIP() << NoDecimalComma;
  for (char const* locale : {"C", DecimalComma, "C.UTF-8"}) {
    ToolSetting setting;
    setting.m_environment = {{"LC_ALL", locale}, {"LANG", locale}};
    static_cast<void>(runTool({"migrate", input, "-o", m_out, "--force"}, setting));
    EXPECT_EQ(m_place.read("out/p.view-0000.svg"), page) << locale;
    EXPECT_EQ(m_place.read("out/p.migrated.json"), model) << locale;
  }
}

TEST_F(MigrateCommand, PassesTheHeadSizeOn) {
  std::string const input =
      m_place.write("p.json", makeDocument(R"("leaders":[{"pos":[21,2,0],"head":"circle"}],)"));
  static_cast<void>(runTool({"migrate", input, "-o", m_out}));
  EXPECT_NE(m_place.read("out/p.migrated.json").find("\"radii\":[1.5,1.5]"), std::string::npos);
  static_cast<void>(runTool({"migrate", input, "-o", m_out, "--head-size", "5", "--force"}));
  EXPECT_NE(m_place.read("out/p.migrated.json").find("\"radii\":[2.5,2.5]"), std::string::npos);
}

TEST_F(MigrateCommand, DrawsAPageWhateverTheHeadSize) {
  std::string const input =
      m_place.write("p.json", makeDocument(R"("leaders":[{"pos":[21,2,0],"head":"arrow"}],)"));
  for (char const* size : {"0.001", "1", "1000"}) {
    ToolRun const run = runTool({"migrate", input, "-o", m_out, "--head-size", size, "--force"});
    EXPECT_EQ(run.m_exitCode, ExitDone) << size << run.m_errors;
    std::string const page = m_place.read("out/p.view-0000.svg");
    EXPECT_NE(page.find(">plain</tspan>"), std::string::npos) << size;
    EXPECT_EQ(page.find("nan"), std::string::npos) << size;
  }
}

TEST_F(MigrateCommand, DropsMetadataAsItsOptionsSay) {
  std::string const input =
      m_place.write("p.json", makeDocument(R"("metadata":{"NOA":1,"odd":2},)", R"({"k":1})"));
  struct Case {
    std::vector<std::string> m_options;
    int m_exitCode;
  };
  for (Case const& each :
       {Case{{}, ExitFindings}, Case{{"--drop-view-metadata"}, ExitFindings},
        Case{{"--drop-known-metadata", "--drop-unknown-metadata"}, ExitFindings},
        Case{{"--drop-view-metadata", "--drop-known-metadata"}, ExitFindings},
        Case{{"--drop-view-metadata", "--drop-known-metadata", "--drop-unknown-metadata"}, ExitDone}}) {
    std::vector<std::string> arguments = {"migrate", input, "-o", m_out, "--force"};
    arguments.insert(arguments.end(), each.m_options.begin(), each.m_options.end());
    EXPECT_EQ(runTool(arguments).m_exitCode, each.m_exitCode) << each.m_options.size();
  }
}

TEST_F(MigrateCommand, TakesImagesFromTheFolderOnly) {
  std::string const document =
      R"({"ver":"6.27","name":"v","origin":[0,0,0],"normal":[0,0,1],"axis":[1,0,0],"metadata":{},"annotations":)"
      R"([{"name":"i","type":"raster","position":[0,0,0],"rastername":"NAME","sizeem":[2,1]}]})";
  static_cast<void>(m_place.write("secret.png", "secret"));
  static_cast<void>(m_place.write("images/logo.gif",
                                  "GIF89a\x02\x01"
                                  "\x02\x01rest"));
  auto const migrate = [&](std::string const& name) {
    std::string text = document;
    std::string const input = m_place.write("i.json", text.replace(text.find("NAME"), 4, name));
    return runTool({"migrate", input, "-o", m_out, "--rasters", m_place.getPath("images"), "--force"});
  };
  EXPECT_EQ(migrate("logo").m_exitCode, ExitDone);
  EXPECT_NE(m_place.read("out/i.view-0000.svg").find("data:image/gif;base64,"), std::string::npos);
  EXPECT_EQ(migrate("../secret.png").m_exitCode, ExitFindings);
  EXPECT_EQ(migrate(m_place.getPath("secret.png")).m_exitCode, ExitFindings);
}

TEST_F(MigrateCommand, NeverReplacesItsInput) {
  std::string const input = m_place.write("out/plain.migrated.json", makeDocument());
  static_cast<void>(m_place.write("x/plain.json", makeDocument()));
  ToolRun const run = runTool({"migrate", m_place.getPath("x/plain.json"), input, "-o", m_out, "--force"});
  EXPECT_EQ(run.m_exitCode, ExitOutputFailed);
  EXPECT_EQ(m_place.read("out/plain.migrated.json"), makeDocument());
}

TEST_F(MigrateCommand, SaysRepeatedInfosOnce) {
  std::string const arial = R"({"name":"a","type":"text","position":[0,0,0],"lines":[[{"text":"x"}]]})";
  std::string const input = m_place.write(
      "p.json",
      R"({"ver":"6.27","name":"v","origin":[0,0,0],"normal":[0,0,1],"axis":[1,0,0],"metadata":{},"annotations":[)" +
          arial + "," + arial + "," + arial + "]}");
  ToolRun const run = runTool({"migrate", input, "-o", m_out});
  EXPECT_NE(run.m_errors.find("at 3 places, first [font.metric-compatible, view/0/annot/0]"),
            std::string::npos)
      << run.m_errors;
}

}  // namespace

}  // namespace qvTest
