#include <gtest/gtest.h>

#include <iostream>
#include <new>

#include "documentSteps.h"
#include "exampleDocuments.h"
#include "fuzz/support/memoryFaults.h"
#include "qvSceneGraph/qvObject.h"
#include "qvToolkit/reading/openDocument.h"
#include "qvToolkit/work/session.h"
#include "tests/hostile/hostileDocuments.h"
#include "tests/support/modelComparison.h"

/// Documents that are cut, and documents with one wrong byte: each ends in what it holds or in a finding, and
/// in the same twice.
namespace qvFaults {

namespace {

using qvToolkit::Document;
using qvToolkit::Finding;

/// What is announced may ask for more memory than a test may take.
constexpr std::size_t MaxBytes = std::size_t{256} << 10;
/// Most changes end alike: each of these is looked at more closely. Both are prime to the four changes.
constexpr std::uint64_t RepeatEvery = 5;
constexpr std::uint64_t MigrateEvery = 13;

/// The small documents, which hold one of everything, and the example for the newest version are taken apart
/// at each byte; of the others, which differ from them in little, a sample is.
std::size_t getStep(Example const& example) {
  for (char const* const name : {"small", "image_sheet_6.27", "bracket_6.27.qvs"}) {
    if (example.m_name.starts_with(name)) return 1;
  }
  return getSampleStep();
}

std::vector<Example> listDocuments() {
  std::vector<Example> documents = readExamples();
  for (std::uint32_t const version : {qvHostile::v6_16, qvHostile::v6_22, qvHostile::v6_27}) {
    documents.push_back({"small.qvs", qvHostile::makeCountedDocument(version).m_bytes});
  }
  return documents;
}

/// What a user is told of the document.
std::string tell(Document const& document) {
  std::string text = std::to_string(qvToolkit::getFailure(document)) + '\n';
  for (Finding const& finding : document.m_findings) text += formatFinding("document", finding) + '\n';
  for (auto const& loaded : document.m_views) text += loaded.m_name + '\n';
  return text;
}

bool hasError(Document const& document) {
  return qvToolkit::getFailure(document) != qvToolkit::ExitDone ||
         getHighestSeverity(document.m_findings) == qvToolkit::Severity::Error;
}

std::string tellMigration(Document const& document) {
  constexpr std::size_t MaxBytesOfMigration = 64 * MaxBytes;
  qvFuzz::MemoryFaults const cap({}, MaxBytesOfMigration);
  try {
    return migrate(document, getRasterFolder()).m_text;
  } catch (std::bad_alloc const&) {
    return "not enough memory";
  }
}

std::string findDifference(Document const& a, Document const& b) {
  if (tell(a) != tell(b) || a.m_views.size() != b.m_views.size()) return "what is told";
  for (std::size_t i = 0; i < a.m_views.size(); ++i) {
    auto const& first = a.m_views[i].m_view;
    auto const& second = b.m_views[i].m_view;
    if ((first == nullptr) != (second == nullptr)) return "a refused view";
    if (first == nullptr) continue;
    std::string difference = qvStreamTest::findDifference(*first, *second);
    if (!difference.empty()) return difference;
  }
  return {};
}

class BrokenBytes : public testing::Test {
 protected:
  void TearDown() override {
    EXPECT_EQ(qv::qvObject::GetLiveObjects(), m_objectsBefore);
    std::cout << m_opened << " opened, " << m_migrated << " migrated\n";
  }

  Document open(std::string const& bytes) {
    ++m_opened;
    qvFuzz::MemoryFaults const cap({}, MaxBytes);
    Document document = qvToolkit::readDocument(bytes, "document");
    bool const isEmpty = qvToolkit::getFailure(document) == qvToolkit::ExitDone || document.m_views.empty();
    EXPECT_TRUE(isEmpty) << "a document that cannot be opened has views";
    return document;
  }

  void expectSame(Document const& document, std::string const& bytes) {
    EXPECT_EQ(findDifference(document, open(bytes)), "");
  }

  void migrateTwice(Document const& document) {
    ++m_migrated;
    EXPECT_EQ(tellMigration(document), tellMigration(document));
  }

  void changeDocuments(std::string_view ending) {
    std::size_t index = 0;
    for (Example const& example : listDocuments()) {
      if (!example.m_name.ends_with(ending)) continue;
      SCOPED_TRACE(example.m_name);
      std::size_t const step = getStep(example);
      for (std::size_t i = index++ % step; i < example.m_bytes.size() && !HasFailure(); i += step) {
        changeByte(example.m_bytes, i);
      }
    }
  }

  void changeByte(std::string const& bytes, std::size_t index) {
    for (int const byte : {bytes[index] + 1, bytes[index] - 1, 0, 0xFF}) {
      SCOPED_TRACE("byte " + std::to_string(index) + " is " + std::to_string(byte & 0xFF));
      std::string changed = bytes;
      changed[index] = static_cast<char>(byte);
      Document const document = open(changed);
      if (m_opened % RepeatEvery == 0) expectSame(document, changed);
      if (m_opened % MigrateEvery == 0 && !document.m_views.empty()) migrateTwice(document);
    }
  }

  qvToolkit::Session const m_session;
  std::size_t m_objectsBefore = qv::qvObject::GetLiveObjects();
  std::uint64_t m_opened = 0;
  std::uint64_t m_migrated = 0;
};

TEST_F(BrokenBytes, ADocumentThatIsCutEndsInAnError) {
  for (Example const& example : listDocuments()) {
    std::size_t const step = getStep(example);
    std::size_t const whole = example.m_bytes.find_last_not_of(" \n") + 1;
    for (std::size_t size = 0; size < whole; size += step) {
      Document const document = open(example.m_bytes.substr(0, size));
      EXPECT_TRUE(hasError(document)) << example.m_name << " of " << size << " bytes";
    }
    EXPECT_FALSE(hasError(open(example.m_bytes))) << example.m_name;
  }
}

TEST_F(BrokenBytes, ABinaryDocumentWithAWrongByteEndsTheSameTwice) {
  changeDocuments(".qvs");
}

TEST_F(BrokenBytes, AJsonDocumentWithAWrongByteEndsTheSameTwice) {
  changeDocuments(".json");
}

}  // namespace

}  // namespace qvFaults
