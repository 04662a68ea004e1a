#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <string>

#include "jsonReader.h"
#include "openTest.h"
#include "toolkit/inspection.h"
#include "variantLookup.h"

namespace {

using namespace qvToolkit;

std::filesystem::path findCorpus() {
  char const* const folder = std::getenv("QVA_CORPUS");
  return std::filesystem::path(folder != nullptr ? folder : QVA_CORPUS_DEFAULT) / "nist";
}

qv::qvVariant parse(std::string text) {
  JsonReading reading = readJson(text, 1000);
  EXPECT_FALSE(reading.m_isBroken) << text;
  return std::move(reading.m_value);
}

class CorpusTest : public OpenTest {
 protected:
  void SetUp() override {
    if (std::filesystem::exists(m_folder / "expected.jsonl")) return;
    std::cout << "note: no documents in " << m_folder << "; set QVA_CORPUS to their folder\n";
  }

  /// What the tool prints for a document, parsed; each document is read once.
  VariantMap const& inspect(std::string const& file) {
    auto const [entry, isNew] = m_inspections.try_emplace(file);
    if (isNew) {
      Document const document = openDocument(m_folder / file);
      entry->second = parse(formatInspectionsJson({inspectDocument(document)}));
    }
    return findList(entry->second.toMap(), "files")->at(0).toMap();
  }

  std::filesystem::path const m_folder = findCorpus();
  std::map<std::string, qv::qvVariant> m_inspections;
};

TEST_F(CorpusTest, AgreesWithTheIndependentCheckerInEveryRow) {
  std::ifstream rows(m_folder / "expected.jsonl");
  for (std::string row; std::getline(rows, row);) {
    qv::qvVariant const expectedRow = parse(row);
    VariantMap const& expected = expectedRow.toMap();
    VariantMap const& file = inspect(findText(expected, "file"));
    auto const index = static_cast<std::size_t>(findValue(expected, "view")->toInteger());
    VariantList const& views = *findList(file, "views");
    ASSERT_LT(index, views.size()) << row;
    VariantMap const& view = views[index].toMap();
    for (char const* const key : {"counts", "messages", "name", "ok", "version", "view"}) {
      ASSERT_NE(findValue(view, key), nullptr) << key;
      EXPECT_EQ(*findValue(view, key), *findValue(expected, key)) << key << ": " << row;
    }
  }
}

TEST_F(CorpusTest, HasARowForEveryViewAndNothingThatIsLost) {
  std::ifstream rows(m_folder / "expected.jsonl");
  std::map<std::string, std::size_t> counts;
  for (std::string row; std::getline(rows, row);) ++counts[findText(parse(row).toMap(), "file")];
  for (auto const& [name, count] : counts) {
    Document const document = openDocument(m_folder / name);
    EXPECT_EQ(document.m_views.size(), count) << name;
    for (Finding const& finding : document.m_findings) ADD_FAILURE() << formatFinding(name, finding);
  }
}

}  // namespace
