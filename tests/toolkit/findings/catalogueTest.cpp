#include "qvToolkit/findings/catalogue.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

namespace {

using namespace qvToolkit;

TEST(Catalogue, HasATextOfItsOwnForEveryCode) {
  std::set<std::string_view> texts;
  for (CatalogueRow const& row : getCatalogue()) {
    texts.insert(row.m_text);
    EXPECT_EQ(getCodeText(row.m_code), row.m_text);
    EXPECT_EQ(row.m_text.find_first_not_of("abcdefghijklmnopqrstuvwxyz.-"), std::string_view::npos);
  }
  EXPECT_EQ(texts.size(), static_cast<std::size_t>(FindingCode::OutputFailed) + 1);
  EXPECT_EQ(getCodeText(FindingCode::JsonDuplicateKey), "json.duplicate-key");
}

TEST(Catalogue, FindsWhatATextStandsFor) {
  for (CatalogueRow const& row : getCatalogue()) EXPECT_EQ(findCode(row.m_text), row.m_code);
  for (Severity const severity : {Severity::Info, Severity::Warning, Severity::Error}) {
    EXPECT_EQ(findSeverity(getSeverityText(severity)), severity);
  }
  for (int key = 1; key <= static_cast<int>(OptionKey::MaxViews); ++key) {
    EXPECT_EQ(findOption(getOptionText(static_cast<OptionKey>(key))), static_cast<OptionKey>(key));
  }
  EXPECT_EQ(getOptionText(OptionKey::DropViewMetadata), "dropViewMetadata");
  EXPECT_EQ(findCode("json"), std::nullopt);
  EXPECT_EQ(findSeverity("Info"), std::nullopt);
  EXPECT_EQ(findOption("--force"), std::nullopt);
}

TEST(Catalogue, SaysWhatItIsWhyItComesAndWhatToDo) {
  std::set<std::string_view> titles;
  for (CatalogueRow const& row : getCatalogue()) {
    EXPECT_TRUE(titles.insert(row.m_title).second) << row.m_title;
    EXPECT_FALSE(row.m_title.ends_with('.')) << row.m_title;
    EXPECT_TRUE(row.m_explanation.ends_with('.')) << row.m_text;
    EXPECT_TRUE(row.m_remedy.ends_with('.')) << row.m_text;
    for (auto const text : {row.m_title, row.m_explanation, row.m_remedy}) {
      EXPECT_EQ(text.find("--"), std::string_view::npos) << "an option is spelled by who offers it: " << text;
    }
  }
}

TEST(Catalogue, HoldsSeverityAndClassTogether) {
  for (CatalogueRow const& row : getCatalogue()) {
    bool const endsWork = row.m_class > FindingClass::Lost;
    EXPECT_TRUE(!endsWork || row.m_severity == Severity::Error) << row.m_text;
    EXPECT_TRUE(row.m_severity != Severity::Info || row.m_class <= FindingClass::Look) << row.m_text;
  }
}

TEST(Catalogue, CountsDeadWorkersAndBudgetsAsLimits) {
  EXPECT_TRUE(isLimit(FindingCode::InputTooLarge));
  EXPECT_TRUE(isLimit(FindingCode::WorkerCrashed));
  EXPECT_FALSE(isLimit(FindingCode::OutputFailed));
  for (CatalogueRow const& row : getCatalogue()) {
    bool const isBudget = row.m_text.starts_with("limit.") || row.m_text.starts_with("worker.") ||
                          row.m_code == FindingCode::InputTooLarge || row.m_code == FindingCode::JsonTooDeep;
    EXPECT_EQ(isLimit(row.m_code), isBudget) << row.m_text;
  }
}

TEST(Catalogue, KnowsTheExitCodeOfEachClass) {
  EXPECT_EQ(getExitCode(FindingCode::NoViews), ExitDone);
  EXPECT_EQ(getExitCode(FindingCode::FontSubstituted), ExitDone);
  EXPECT_EQ(getExitCode(FindingCode::LeaderLost), ExitFindings);
  EXPECT_EQ(getExitCode(FindingCode::StreamOffset), ExitUsage);
  EXPECT_EQ(getExitCode(FindingCode::InputUnreadable), ExitInputUnreadable);
  EXPECT_EQ(getExitCode(FindingCode::FormatUnknown), ExitInputBroken);
  EXPECT_EQ(getExitCode(FindingCode::OutputExists), ExitOutputFailed);
  EXPECT_EQ(getExitCode(FindingCode::LimitTime), ExitLimit);
  for (ClassRow const& row : getClasses()) EXPECT_EQ(&getRow(row.m_class), &row);
}

}  // namespace
