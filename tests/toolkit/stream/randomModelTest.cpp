#include "tests/support/modelComparison.h"
#include "tests/support/modelGenerator.h"
#include "tests/support/modelReduction.h"
#include "tests/support/streamTest.h"

namespace qvStreamTest {

namespace {

class RandomModel : public StreamTest {
 protected:
  /// Writes a model and holds what is read against what the version can hold of it.
  static void check(std::uint64_t seed, Document const& model, std::uint32_t version) {
    EncodedDocument const encoded = encode(model, version);
    Document const back = read(encoded.m_bytes);
    ASSERT_TRUE(back.m_findings.empty()) << describeFindings(back).front();
    Document const expected = generateDocument(seed);
    ASSERT_EQ(back.m_views.size(), expected.m_views.size());
    bool isReduced = false;
    for (std::size_t i = 0; i < back.m_views.size(); ++i) {
      isReduced |= reduceTo(*expected.m_views[i].m_view, version);
      ASSERT_EQ(back.m_views[i].m_version.GetPacked(), version);
      ASSERT_EQ(findDifference(*back.m_views[i].m_view, *expected.m_views[i].m_view), "");
    }
    ASSERT_EQ(countLosses(encoded.m_findings) > 0, isReduced);
    EncodedDocument const reduced = encode(expected, version);
    ASSERT_TRUE(reduced.m_findings.empty()) << formatFinding("f", reduced.m_findings.front());
    ASSERT_EQ(reduced.m_bytes, encoded.m_bytes);
  }
};

TEST_F(RandomModel, SurvivesEncodingAndReadingAtEveryVersionAndLossesAreNamed) {
  for (std::uint64_t seed = 0; seed < 1000; ++seed) {
    Document const model = generateDocument(seed);
    for (std::uint32_t const version : getVersions()) {
      SCOPED_TRACE("seed " + std::to_string(seed) + ", version " + std::to_string(version & 0xFFFF));
      check(seed, model, version);
      if (HasFatalFailure()) return;
    }
  }
}

TEST_F(RandomModel, GivesEqualBytesEachTime) {
  for (std::uint64_t seed = 0; seed < 20; ++seed) {
    EXPECT_EQ(encode(generateDocument(seed), 0x6001B).m_bytes,
              encode(generateDocument(seed), 0x6001B).m_bytes);
  }
}

}  // namespace

}  // namespace qvStreamTest
