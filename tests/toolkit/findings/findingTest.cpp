#include "qvToolkit/findings/finding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

using namespace qvToolkit;

TEST(Finding, FormatsEverythingThatIsKnownOnOneLine) {
  Finding const finding{FindingCode::MetadataDropped, Severity::Warning,
                        "metadata was dropped",       "view/3/annot/7",
                        {12, 4, 5, "/views/3"},       "--drop-known-metadata"};
  EXPECT_EQ(formatFinding("a.json", finding),
            "a.json:4:5: warning: metadata was dropped [migration.metadata-dropped, view/3/annot/7, "
            "--drop-known-metadata]");
}

TEST(Finding, LeavesOutWhatIsNotKnown) {
  Finding const finding{FindingCode::NoViews, Severity::Info, "no view", {}, {}, {}};
  EXPECT_EQ(formatFinding("a.json", finding), "a.json: info: no view [document.no-views]");
  EXPECT_EQ(formatFinding("", finding), "info: no view [document.no-views]");
}

TEST(Finding, EscapesWhatCameFromADocument) {
  Finding const finding{FindingCode::RecordLost, Severity::Error, "name 'a\x1B]0;x\a\n'", {}, {}, {}};
  EXPECT_EQ(formatFinding("b\n.json", finding),
            "b\\x0a.json: error: name 'a\\x1b]0;x\\x07\\x0a' [reader.record-lost]");
}

TEST(Finding, IsShownInALineOfBoundedLength) {
  Finding finding;
  finding.m_text = std::string(3000, 'x');
  EXPECT_EQ(formatFinding("f", finding),
            "f: error: " + std::string(2000, 'x') + "... (3000 bytes) [reader.message]");
}

TEST(Finding, HasATextOfItsOwnForEveryCode) {
  std::set<std::string_view> texts;
  int const last = static_cast<int>(FindingCode::OutputFailed);
  for (int code = 0; code <= last; ++code) texts.insert(getCodeText(static_cast<FindingCode>(code)));
  EXPECT_EQ(texts.size(), static_cast<std::size_t>(last) + 1);
  EXPECT_FALSE(texts.contains(""));
  EXPECT_EQ(getCodeText(FindingCode::JsonDuplicateKey), "json.duplicate-key");
}

TEST(Finding, TellsTheHeaviestSeverityOfAList) {
  EXPECT_EQ(getHighestSeverity({}), std::nullopt);
  Finding info;
  info.m_severity = Severity::Info;
  Finding warning;
  warning.m_severity = Severity::Warning;
  EXPECT_EQ(getHighestSeverity({info}), Severity::Info);
  EXPECT_EQ(getHighestSeverity({info, warning, info}), Severity::Warning);
}

}  // namespace
