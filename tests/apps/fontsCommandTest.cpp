#include <gtest/gtest.h>

#include "qvToolkit/findings/exitCode.h"
#include "toolRunner.h"

namespace qvTest {

namespace {

using namespace qvToolkit;

std::string makeTextDocument(std::string const& font, std::string const& text,
                             std::string const& metadata = "{}") {
  return R"({"ver":"6.27","name":"v","origin":[0,0,0],"normal":[0,0,1],"axis":[1,0,0],"metadata":)" +
         metadata +
         R"(,"annotations":[{"name":"a","type":"text","position":[0,0,0],"defaulttextprop":{"font":")" +
         font + R"(","heightem":1},"lines":[[{"text":")" + text + R"("}]]}]})";
}

class FontsCommand : public testing::Test {
 protected:
  ToolRun run(std::string const& document, std::vector<std::string> const& options = {}) const {
    std::vector<std::string> arguments = {"fonts", m_place.write("p.json", document)};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return runTool(arguments);
  }

  Workplace m_place;
};

TEST_F(FontsCommand, ListsWhatIsAskedForAndWhatIsDrawn) {
  ToolRun const result = run(makeTextDocument("Arial", "R12"));
  EXPECT_EQ(result.m_exitCode, ExitDone) << result.m_errors;
  EXPECT_TRUE(result.m_output.starts_with(m_place.getPath("p.json") + ": 1 font family asked for\n"))
      << result.m_output;
  EXPECT_NE(result.m_output.find("Arial  regular  Liberation Sans  metric-compatible  3"), std::string::npos)
      << result.m_output;
  EXPECT_NE(result.m_output.find("LiberationSans-Regular.ttf\n"), std::string::npos);
}

TEST_F(FontsCommand, ListsCharactersThatNoFontHas) {
  ToolRun const missing = run(makeTextDocument("Liberation Sans", "a\U0010FFFD"));
  EXPECT_EQ(missing.m_exitCode, ExitFindings);
  EXPECT_NE(missing.m_output.find("U+10FFFD   -        view/0/annot/0\n"), std::string::npos)
      << missing.m_output;
  EXPECT_NE(missing.m_errors.find("[font.glyph-missing, view/0/annot/0]"), std::string::npos);
}

TEST_F(FontsCommand, NamesThePackagesToInstall) {
  ToolRun const bare =
      run(makeTextDocument("Arial", "\u2316"), {"--no-system-fonts", "--font-dir", QVA_TEST_FONTS "/dejavu"});
  EXPECT_NE(bare.m_output.find("U+2316 POSITION INDICATOR"), std::string::npos) << bare.m_output;
  EXPECT_NE(bare.m_output.find("  to install: "), std::string::npos) << bare.m_output;
  EXPECT_NE(bare.m_output.find("fonts-noto-core"), std::string::npos) << bare.m_output;
  EXPECT_NE(bare.m_output.find("fonts-liberation2"), std::string::npos) << bare.m_output;
}

TEST_F(FontsCommand, LooksIntoViewsThatMetadataKeepsFromBeingMigrated) {
  ToolRun const result = run(makeTextDocument("Liberation Mono", "x", R"({"k":1})"));
  EXPECT_EQ(result.m_exitCode, ExitDone) << result.m_errors;
  EXPECT_NE(result.m_output.find("Liberation Mono  regular"), std::string::npos) << result.m_output;
  EXPECT_EQ(result.m_errors, "");
}

TEST_F(FontsCommand, WritesJsonForScripts) {
  ToolRun const result = run(makeTextDocument("Arial", "\u2300"), {"--json"});
  EXPECT_EQ(result.m_exitCode, ExitDone);
  EXPECT_TRUE(result.m_output.starts_with("{\"format\":\"qvannot.fonts\",\"formatVersion\":2,"))
      << result.m_output;
  for (char const* const part :
       {"\"askedFamily\":\"Arial\"", "\"family\":\"DejaVu Sans\"", "\"match\":\"substitute\"",
        "\"missingCharacters\":[]", "\"code\":\"font.substituted\""}) {
    EXPECT_NE(result.m_output.find(part), std::string::npos) << part << result.m_output;
  }
}

TEST_F(FontsCommand, CountsWarningsWhenStrict) {
  EXPECT_EQ(run(makeTextDocument("No Such Family", "x")).m_exitCode, ExitDone);
  EXPECT_EQ(run(makeTextDocument("No Such Family", "x"), {"--strict"}).m_exitCode, ExitFindings);
}

TEST_F(FontsCommand, GoesOnBehindADocumentThatCannotBeRead) {
  std::string const broken = m_place.write("broken.json", "{");
  std::string const good = m_place.write("good.json", makeTextDocument("Arial", "x"));
  ToolRun const result = runTool({"fonts", broken, good});
  EXPECT_EQ(result.m_exitCode, ExitInputBroken);
  EXPECT_NE(result.m_output.find("good.json: 1 font family"), std::string::npos);
  EXPECT_EQ(runTool({"fonts"}).m_exitCode, ExitNothingToDo);
}

}  // namespace

}  // namespace qvTest
