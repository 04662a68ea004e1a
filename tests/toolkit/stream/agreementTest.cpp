#include <algorithm>
#include <filesystem>

#include "qvToolkit/migration/migrationSession.h"
#include "qvToolkit/pages/svgPage.h"
#include "tests/support/corpus.h"
#include "tests/support/modelComparison.h"
#include "tests/support/modelReduction.h"
#include "tests/support/streamTest.h"
#include "tests/support/stringSink.h"

namespace qvStreamTest {

namespace {

using std::filesystem::path;

/// The pages of a document, one after the other, and what the migration logged.
std::string migrate(Document const& document) {
  MigrationOptions options;
  options.m_dropped = -1;
  MigrationSession session(options);
  qvTest::StringSink sink;
  for (MigratedView const& view : session.migrate(document)) {
    sink.m_text += "view " + view.m_name + '\n';
    for (std::string const& record : view.m_log) sink.m_text += record + '\n';
    if (view.m_view != nullptr) writeSvgPage(view, sink);
  }
  return sink.m_text;
}

std::vector<path> findDocuments(path const& folder) {
  std::vector<path> documents;
  if (!std::filesystem::exists(folder)) return documents;
  for (auto const& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ".json") documents.push_back(entry.path());
  }
  std::sort(documents.begin(), documents.end());
  return documents;
}

class Agreement : public StreamTest {
 protected:
  /// Holds the document that was read from JSON against the one that went through an object stream.
  static void check(path const& file, std::uint32_t version, std::string const& pages) {
    Document const json = openDocument(file);
    EncodedDocument const encoded = encode(json, version);
    Document const back = read(encoded.m_bytes);
    EXPECT_EQ(back.m_format, Format::ObjectStream);
    EXPECT_TRUE(back.m_findings.empty());
    ASSERT_EQ(back.m_views.size(), json.m_views.size());
    if (encoded.m_findings.empty()) {
      EXPECT_EQ(migrate(back), pages);
    }
    bool isReduced = false;
    for (std::size_t i = 0; i < back.m_views.size(); ++i) {
      isReduced |= reduceTo(*json.m_views[i].m_view, version);
      EXPECT_EQ(back.m_views[i].m_name, json.m_views[i].m_name);
      EXPECT_EQ(findDifference(*back.m_views[i].m_view, *json.m_views[i].m_view), "");
    }
    EXPECT_EQ(countLosses(encoded.m_findings) > 0, isReduced);
  }

  static void checkAll(path const& folder) {
    std::vector<path> const documents = findDocuments(folder);
    ASSERT_FALSE(documents.empty()) << "no documents in " << folder;
    for (path const& file : documents) {
      std::string const pages = migrate(openDocument(file));
      for (std::uint32_t const version : getVersions()) {
        SCOPED_TRACE(file.filename().string() + " at 6." + std::to_string(version & 0xFFFF));
        check(file, version, pages);
        if (HasFatalFailure()) return;
      }
    }
  }
};

TEST_F(Agreement, HoldsForEveryExample) {
  checkAll(QVA_EXAMPLES);
}

TEST_F(Agreement, HoldsForEveryDocumentOfTheCorpus) {
  if (qvTest::findCorpus().empty()) GTEST_SKIP() << qvTest::NoCorpus;
  checkAll(qvTest::findCorpus());
}

TEST_F(Agreement, OfTheSameContentAtItsOwnVersionIsComplete) {
  ASSERT_FALSE(findDocuments(QVA_EXAMPLES).empty());
  for (path const& file : findDocuments(QVA_EXAMPLES)) {
    Document const json = openDocument(file);
    EncodedDocument const encoded = encode(json, json.m_views.at(0).m_version.GetPacked());
    EXPECT_EQ(countLosses(encoded.m_findings), 0U) << file;
  }
}

/// "bracket_6.22" of "examples/binary/bracket_6.22.qvs".
Document openSource(path const& binary) {
  std::string const stem = binary.stem();
  auto const split = stem.rfind('_');
  std::uint32_t const version = qv::qvStreamVersion(stem.substr(split + 1)).GetPacked();
  char const* source = "6.17";
  for (char const* const candidate : {"6.21", "6.22", "6.27"}) {
    if (qv::qvStreamVersion(std::string(candidate)).GetPacked() <= version) source = candidate;
  }
  return openDocument(path(QVA_EXAMPLES) / (stem.substr(0, split) + "_" + source + ".json"));
}

TEST_F(Agreement, OfTheBinaryExamplesWithTheirSourcesIsByteForByte) {
  std::size_t count = 0;
  for (auto const& entry : std::filesystem::directory_iterator(path(QVA_EXAMPLES) / "binary")) {
    std::string const stem = entry.path().stem();
    std::uint32_t const version = qv::qvStreamVersion(stem.substr(stem.rfind('_') + 1)).GetPacked();
    EXPECT_EQ(readFile(entry.path()), encode(openSource(entry.path()), version).m_bytes)
        << entry.path() << "; scripts/examples writes them anew";
    EXPECT_TRUE(openDocument(entry.path()).m_findings.empty()) << entry.path();
    ++count;
  }
  EXPECT_EQ(count, 17U);
}

}  // namespace

}  // namespace qvStreamTest
