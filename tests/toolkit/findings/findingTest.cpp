#include "qvToolkit/findings/finding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

using namespace qvToolkit;

std::string_view spell(OptionKey key) {
  return key == OptionKey::DropKnownMetadata ? "--drop" : "--other";
}

TEST(Finding, FormatsEverythingThatIsKnownOnOneLine) {
  Finding const finding = withOptions(makeFinding(FindingCode::MetadataDropped, "metadata was dropped",
                                                  "view/3/annot/7", {12, 4, 5, "/views/3"}),
                                      {OptionKey::DropKnownMetadata, OptionKey::Force});
  EXPECT_EQ(formatFinding("a.json", finding, spell),
            "a.json:4:5: warning: metadata was dropped [migration.metadata-dropped, view/3/annot/7, "
            "--drop --other]");
  EXPECT_EQ(formatFinding("a.json", finding),
            "a.json:4:5: warning: metadata was dropped [migration.metadata-dropped, view/3/annot/7]");
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

TEST(Finding, HasSeverityAndOptionOfItsRowUnlessItKnowsBetter) {
  Finding const finding = makeFinding(FindingCode::LimitOutput, "much");
  EXPECT_EQ(finding.m_severity, Severity::Error);
  EXPECT_EQ(finding.m_options, std::vector{OptionKey::MaxOutput});
  EXPECT_EQ(makeFinding(FindingCode::KeyIgnored, Severity::Info, "k").m_severity, Severity::Info);
  EXPECT_TRUE(makeFinding(FindingCode::KeyIgnored, "k").m_options.empty());
}

TEST(Finding, CountsByItsWeightUnlessItsClassEndsTheWork) {
  auto const count = [](FindingCode code, Severity severity) {
    return getExitCode(makeFinding(code, severity, {}), Severity::Error);
  };
  EXPECT_EQ(count(FindingCode::RecordLost, Severity::Warning), ExitDone);
  EXPECT_EQ(count(FindingCode::RecordLost, Severity::Error), ExitFindings);
  EXPECT_EQ(count(FindingCode::TextLowContrast, Severity::Error), ExitFindings);
  EXPECT_EQ(count(FindingCode::StreamBroken, Severity::Error), ExitFindings) << "what stood before was read";
  EXPECT_EQ(count(FindingCode::StreamOffset, Severity::Error), ExitUsage);
  EXPECT_EQ(count(FindingCode::InputUnreadable, Severity::Error), ExitInputUnreadable);
  EXPECT_EQ(count(FindingCode::TransformOverflow, Severity::Error), ExitOutputFailed);
  EXPECT_EQ(count(FindingCode::LimitViews, Severity::Error), ExitLimit);
  EXPECT_EQ(getExitCode(makeFinding(FindingCode::KeyIgnored, {}), Severity::Warning), ExitFindings);
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
