#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "qvToolkit/findings/catalogue.h"
#include "toolRunner.h"

namespace qvTest {

namespace {

using namespace qvToolkit;

TEST(ExplainCommand, TellsAllOfOneCode) {
  ToolRun const run = runTool({"explain", "limit.views"});
  EXPECT_EQ(run.m_exitCode, ExitDone);
  EXPECT_EQ(run.m_errors, "");
  EXPECT_EQ(run.m_output,
            "limit.views: The document has too many views\n\n"
            "class     limit: a limit was hit, or a worker died\n"
            "severity  error, where the finding itself says no other\n"
            "option    --max-views\n\n"
            "Each view makes a file of its own; nothing is migrated.\n\n"
            "Raise the limit if that many files are wanted.\n");
}

TEST(ExplainCommand, ListsEveryCodeOnALineOfItsOwn) {
  ToolRun const run = runTool({"explain"});
  EXPECT_EQ(run.m_exitCode, ExitDone);
  for (CatalogueRow const& row : getCatalogue()) {
    EXPECT_NE(run.m_output.find("\n" + std::string(row.m_text) + " "), std::string::npos) << row.m_text;
    EXPECT_EQ(runTool({"explain", std::string(row.m_text)}).m_exitCode, ExitDone) << row.m_text;
  }
}

TEST(ExplainCommand, NamesTheCodesThatAreNearAnUnknownOne) {
  ToolRun const run = runTool({"explain", "font.sustituted"});
  EXPECT_EQ(run.m_exitCode, ExitUsage);
  EXPECT_NE(run.m_errors.find("there is no code 'font.sustituted'; near it are font.substituted, "),
            std::string::npos)
      << run.m_errors;
  EXPECT_EQ(run.m_output, "");
  for (std::string const& code : {std::string(), std::string("\x1B]0;x"), std::string(100000, 'x')}) {
    EXPECT_EQ(runTool({"explain", code}).m_exitCode, ExitUsage) << code.substr(0, 10);
  }
}

TEST(ExplainCommand, MakesThePageOfAllCodes) {
  std::ifstream file(QVA_FINDINGS_PAGE, std::ios::binary);
  std::string const page{std::istreambuf_iterator<char>(file), {}};
  EXPECT_EQ(runTool({"explain", "--markdown"}).m_output, page)
      << "docs/findings.md is made by: qvannot explain --markdown";
}

}  // namespace

}  // namespace qvTest
