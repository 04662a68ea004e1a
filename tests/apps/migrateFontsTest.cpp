#include <gtest/gtest.h>

#include "qvToolkit/findings/exitCode.h"
#include "toolRunner.h"

namespace qvTest {

namespace {

using namespace qvToolkit;

constexpr char const* Dejavu = QVA_TEST_FONTS "/dejavu";

class MigrateFonts : public testing::Test {
 protected:
  ToolRun migrate(std::vector<std::string> const& options) const {
    std::vector<std::string> arguments = {"migrate", m_plain, "-o", m_out, "--force"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return runTool(arguments);
  }
  std::string readPage() const { return m_place.read("out/plain.view-0000.svg"); }

  Workplace m_place;
  std::string m_out = m_place.getPath("out");
  std::string m_plain = m_place.write("plain.json", makeDocument());
};

TEST_F(MigrateFonts, AreOnlyThoseOfTheFoldersWithoutSystemFonts) {
  ToolRun const run = migrate({"--no-system-fonts", "--font-dir", Dejavu});
  EXPECT_EQ(run.m_exitCode, ExitDone) << run.m_errors;
  EXPECT_NE(
      run.m_errors.find("text in font 'Liberation Sans' is drawn with 'DejaVu Sans' (" + std::string(Dejavu)),
      std::string::npos)
      << run.m_errors;
  EXPECT_NE(readPage().find("DejaVu Sans"), std::string::npos);
  EXPECT_NE(m_place.read("out/plain.migrated.json").find("\"systemFonts\":false"), std::string::npos);
}

TEST_F(MigrateFonts, AreReplacedByTheUsersWish) {
  ToolRun const run = migrate({"--font-map", "Other=Nothing", "--font-map", "liberation sans=DejaVu Sans"});
  EXPECT_EQ(run.m_exitCode, ExitDone) << run.m_errors;
  EXPECT_NE(run.m_errors.find(", as was asked for [font.replaced, view/0/annot/0, --font-map]"),
            std::string::npos)
      << run.m_errors;
  EXPECT_NE(readPage().find("DejaVu Sans"), std::string::npos);
}

TEST_F(MigrateFonts, AreNotReplacedByOnesThatAreNotThere) {
  ToolRun const run = migrate({"--font-map", "Liberation Sans=Nowhere"});
  EXPECT_EQ(run.m_exitCode, ExitDone) << run.m_errors;
  EXPECT_NE(run.m_errors.find(", since the font 'Nowhere' that is named instead is not there "
                              "[font.substituted, view/0/annot/0, --font-map]"),
            std::string::npos)
      << run.m_errors;
  EXPECT_EQ(migrate({"--font-map", "Liberation Sans=Nowhere", "--strict"}).m_exitCode, ExitFindings);
  EXPECT_EQ(migrate({"--font-map", "Other=Nowhere", "--strict"}).m_exitCode, ExitDone);
}

TEST_F(MigrateFonts, ComeFromFoldersThatCanBeUsed) {
  ToolRun const run = migrate({"--font-dir", m_place.getPath("none")});
  EXPECT_EQ(run.m_exitCode, ExitInputUnreadable);
  EXPECT_NE(run.m_errors.find("; correct --font-dir"), std::string::npos) << run.m_errors;
  EXPECT_TRUE(m_place.list("out").empty());
}

TEST_F(MigrateFonts, TakePairsOfFamilies) {
  for (char const* const pair : {"Arial", "=Arial", "Arial=", ""}) {
    EXPECT_EQ(migrate({"--font-map", pair}).m_exitCode, ExitUsage) << pair;
  }
}

TEST_F(MigrateFonts, MakeNoPageWithoutAnyFont) {
  ToolRun const run = migrate({"--no-system-fonts"});
  EXPECT_EQ(run.m_exitCode, ExitFindings) << run.m_errors;
  EXPECT_NE(run.m_errors.find("migration.view-not-migrated"), std::string::npos) << run.m_errors;
  EXPECT_NE(run.m_errors.find("error: there is no font to draw text with; install the package "
                              "fonts-liberation2, or name a folder that has fonts [font.none, view/0, "
                              "--font-dir]"),
            std::string::npos)
      << run.m_errors;
}

TEST_F(MigrateFonts, DrawTextInTheAskedMode) {
  EXPECT_EQ(migrate({"--text", "outline"}).m_exitCode, ExitDone);
  std::string const outline = readPage();
  EXPECT_NE(outline.find("<use "), std::string::npos);
  EXPECT_EQ(outline.find("<text"), std::string::npos);
  EXPECT_EQ(migrate({"--text", "both"}).m_exitCode, ExitDone);
  EXPECT_NE(readPage().find("<use "), std::string::npos);
  EXPECT_NE(readPage().find(">plain</tspan>"), std::string::npos);
  EXPECT_EQ(migrate({"--text", "live"}).m_exitCode, ExitDone);
  std::string const live = readPage();
  EXPECT_EQ(migrate({}).m_exitCode, ExitDone);
  EXPECT_EQ(readPage(), live);
  EXPECT_EQ(migrate({"--text", "dead"}).m_exitCode, ExitUsage);
}

TEST_F(MigrateFonts, DrawHalfASurrogatePairAsAReplacementSign) {
  std::string document = makeDocument();
  static_cast<void>(m_place.write("plain.json", document.replace(document.find("plain"), 5, R"(a\ud800b)")));
  ToolRun const run = migrate({});
  EXPECT_EQ(run.m_exitCode, ExitDone) << run.m_errors;
  EXPECT_NE(run.m_errors.find("found half of a surrogate pair"), std::string::npos) << run.m_errors;
  EXPECT_NE(readPage().find("\uFFFD"), std::string::npos);
}

}  // namespace

}  // namespace qvTest
