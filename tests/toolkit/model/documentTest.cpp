#include "qvToolkit/model/document.h"

#include <gtest/gtest.h>

namespace {

using namespace qvToolkit;

class DocumentFailure : public testing::Test {
 protected:
  void find(FindingCode code) { m_document.m_findings.push_back(makeFinding(code, "found")); }

  Document m_document;
};

TEST_F(DocumentFailure, IsThatOfTheClassThatEndsMost) {
  EXPECT_EQ(getFailure(m_document), ExitDone);
  find(FindingCode::InputUnreadable);
  EXPECT_EQ(getFailure(m_document), ExitInputUnreadable);
  find(FindingCode::JsonBroken);
  EXPECT_EQ(getFailure(m_document), ExitInputBroken);
  find(FindingCode::LimitMemory);
  find(FindingCode::JsonBroken);
  EXPECT_EQ(getFailure(m_document), ExitLimit);
}

TEST_F(DocumentFailure, IsABrokenDocumentWhereErrorsLeftNothingOfIt) {
  find(FindingCode::JsonByteOrderMark);
  EXPECT_EQ(getFailure(m_document), ExitDone) << "a warning costs no view";
  find(FindingCode::StreamObjectId);
  EXPECT_EQ(getFailure(m_document), ExitInputBroken);
}

TEST_F(DocumentFailure, IsNoneWhereAnythingWasRead) {
  find(FindingCode::StreamBroken);
  m_document.m_views.emplace_back();
  EXPECT_EQ(getFailure(m_document), ExitDone);
}

TEST_F(DocumentFailure, IsNoneOfADocumentThatIsKnownToHoldNoView) {
  m_document.m_findings.push_back(makeFinding(FindingCode::JsonDuplicateKey, Severity::Error, "'views'"));
  find(FindingCode::NoViews);
  EXPECT_EQ(getFailure(m_document), ExitDone);
}

}  // namespace
