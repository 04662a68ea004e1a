#include "qvToolkit/outcome/outcome.h"

#include <gtest/gtest.h>

#include "qvToolkit/outcome/request.h"

using namespace qvToolkit;

TEST(Conclusions, HaveAWordForEachExitCode) {
  for (ExitCode const code : {ExitDone, ExitFindings, ExitUsage, ExitInputUnreadable, ExitInputBroken,
                              ExitOutputFailed, ExitLimit, ExitNothingToDo, ExitBug}) {
    EXPECT_EQ(findConclusion(getConclusionText(code)), code);
  }
  EXPECT_EQ(getConclusionText(ExitOutputFailed), "outputFailed");
  EXPECT_EQ(findConclusion("Done"), std::nullopt);
  EXPECT_EQ(findConclusion(""), std::nullopt);
}

TEST(Conclusions, AreTheGravestOfWhatWasReachedAndFound) {
  Findings const findings = {makeFinding(FindingCode::JsonDuplicateKey, Severity::Warning, "twice"),
                             makeFinding(FindingCode::LimitViews, "too many")};
  EXPECT_EQ(conclude(ExitDone, {}, Severity::Error), ExitDone);
  EXPECT_EQ(conclude(ExitDone, {findings[0]}, Severity::Error), ExitDone);
  EXPECT_EQ(conclude(ExitDone, {findings[0]}, Severity::Warning), ExitFindings);
  EXPECT_EQ(conclude(ExitInputBroken, {findings[0]}, Severity::Warning), ExitInputBroken);
  EXPECT_EQ(conclude(ExitDone, findings, Severity::Error), ExitLimit);
}

TEST(Requests, NameWhatIsToBeDone) {
  EXPECT_EQ(getActionText(Action::Inspect), "inspect");
  EXPECT_EQ(getActionText(Action::Fonts), "fonts");
  EXPECT_EQ(getTextModeText(TextMode::Outline), "outline");
  EXPECT_EQ(getFormatText(PageFormat::Pdf), "pdf");
}
