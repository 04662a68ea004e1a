#include "qvSystem/qvBaseStream.h"
#include "qvSystem/qvResourceLimit.h"
#include "tests/hostile/hostileDocuments.h"
#include "tests/onStack.h"
#include "tests/support/streamTest.h"

namespace qvStreamTest {

namespace {

/// Bounds the work, not only the result: a document that asks for more is refused before it gets it.
class HostileStream : public StreamTest {
 protected:
  static Document readWith(std::string const& content, OpenLimits const& limits) {
    return readDocument(content, "f", limits);
  }
  static void expectLimit(Document const& document, FindingCode code, OptionKey option) {
    EXPECT_EQ(getFailure(document), ExitLimit);
    EXPECT_TRUE(document.m_views.empty()) << "no part of it looks whole";
    ASSERT_EQ(document.m_findings.size(), 1U);
    EXPECT_EQ(document.m_findings[0].m_code, code);
    EXPECT_EQ(document.m_findings[0].m_options, std::vector{option});
  }
};

TEST_F(HostileStream, FiftyThousandAnnotationsBehindTheEndAreAllMade) {
  Document const document = read(qvHostile::makePhantoms(50000, 0));
  ASSERT_EQ(document.m_views.size(), 1U);
  EXPECT_EQ(document.m_views[0].m_view->m_annotations.size(), 50000U);
}

TEST_F(HostileStream, MillionsOfAnnotationsBehindTheEndEndByALimit) {
  Document const document = read(qvHostile::makePhantoms(5000000, 0));
  expectLimit(document, FindingCode::LimitFailedReads, OptionKey::MaxFailedReads);
  EXPECT_EQ(describeFindings(document)[0],
            "f: error: byte 103: the document announces more than it holds; more than the limit of 1000000 "
            "reads failed [limit.failed-reads]");
}

TEST_F(HostileStream, AFailedReadLimitCanBeAnyNumber) {
  OpenLimits limits;
  limits.m_maxFailedReads = 20;
  EXPECT_EQ(getFailure(readWith(qvHostile::makePhantoms(1, 0), limits)), ExitDone);
  expectLimit(readWith(qvHostile::makePhantoms(2, 0), limits), FindingCode::LimitFailedReads,
              OptionKey::MaxFailedReads);
}

TEST_F(HostileStream, NestingThatTakesTooMuchStackEndsByALimit) {
  for (std::size_t const levels : {10000U, 100000U, 1000000U}) {
    Document const document = read(qvHostile::makeNestedStream(levels));
    expectLimit(document, FindingCode::LimitStack, OptionKey::MaxStack);
    EXPECT_GT(document.m_findings[0].m_place.m_byteOffset.value_or(0), 1000U);
  }
}

TEST_F(HostileStream, AThousandLevelsAreRead) {
  OpenLimits limits;
  limits.m_maxStackBytes = std::uint64_t{2} << 20;
  qvTest::runOnStack(qvTest::OrdinaryStack, [&limits] {
    Document const document = readWith(qvHostile::makeNestedStream(1000), limits);
    EXPECT_EQ(getFailure(document), ExitDone);
    EXPECT_TRUE(document.m_findings.empty());
  });
}

TEST_F(HostileStream, ReadingEndsInTime) {
  OpenLimits limits;
  limits.m_maxMilliseconds = 0;
  limits.m_maxFailedReads = 1000000000;
  expectLimit(readWith(qvHostile::makePhantoms(3000000, 0), limits), FindingCode::LimitTime,
              OptionKey::MaxTime);
}

TEST_F(HostileStream, OneViewLinkedAHundredThousandTimesIsShownOnce) {
  Document const document = read(qvHostile::makeLinks(100000));
  EXPECT_EQ(document.m_views.size(), 1U);
  ASSERT_EQ(document.m_findings.size(), 1U);
  EXPECT_EQ(document.m_findings[0].m_severity, Severity::Info);
}

TEST_F(HostileStream, ARowOfMetadataObjectsCostsNoStack) {
  Document const document = read(qvHostile::makeMetadataChain(100000));
  EXPECT_EQ(getFailure(document), ExitInputBroken) << "links to metadata are no views";
  EXPECT_LE(document.m_findings.size(), 1001U);
}

TEST_F(HostileStream, TheSizeOfAnInputIsToldBeforeItIsRead) {
  OpenLimits limits;
  std::uint64_t told = 0;
  limits.m_onInput = [&told](std::uint64_t bytes) { told = bytes; };
  std::string const content = qvHostile::makePhantoms(1, 0);
  static_cast<void>(readWith(content, limits));
  EXPECT_EQ(told, content.size());

  limits.m_onInput = [](std::uint64_t) { throw qv::qvResourceLimit(qv::qvBudget::Memory, 7, 0); };
  Document const document = readWith(content, limits);
  expectLimit(document, FindingCode::LimitMemory, OptionKey::MaxMemory);
  EXPECT_EQ(document.m_findings[0].m_text, "the document needs more memory than the limit of 7 bytes");
}

TEST_F(HostileStream, MemoryThatIsRefusedIsToldWithItsPlace) {
  auto const refuse = [](qv::qvBaseStream& in) -> qv::qvRttiInterface* {
    std::uint32_t number = 0;
    in.readle(4, 1, &number);
    throw qv::qvResourceLimit(qv::qvBudget::Memory, 7, 0);
  };
  qv::qvRttiInterface::RegisterFactoryFunction("test.Refusing", refuse);
  Document const document =
      read(beginDocument(qvHostile::v6_22, 1).get() + makeObject(1, "test.Refusing", "12345"));
  qv::qvRttiInterface::UnregisterFactoryFunction("test.Refusing");
  expectLimit(document, FindingCode::LimitMemory, OptionKey::MaxMemory);
  std::uint64_t const offset = 16 + getHeaderSize("test.Refusing") + 4;
  EXPECT_EQ(document.m_findings[0].m_place.m_byteOffset, offset);
}

TEST_F(HostileStream, ADocumentOfOneOfEverythingIsReadWithoutComplaint) {
  for (std::uint32_t const version : {qvHostile::v6_16, qvHostile::v6_22, qvHostile::v6_27}) {
    Document const document = read(qvHostile::makeCountedDocument(version).m_bytes);
    EXPECT_EQ(describeFindings(document), std::vector<std::string>()) << version;
    EXPECT_EQ(document.m_views.size(), 1U);
  }
}

}  // namespace

}  // namespace qvStreamTest
