#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "json/jsonReader.h"
#include "model/variantLookup.h"
#include "qvToolkit/reports/inspection.h"
#include "tests/support/corpus.h"
#include "tests/support/openTest.h"

namespace {

using namespace qvToolkit;

qv::qvVariant parse(std::string text) {
  JsonReading reading = readJson(text, 1000);
  EXPECT_FALSE(reading.m_isBroken) << text;
  return std::move(reading.m_value);
}

/// What the tool and the checker call the members of a view.
constexpr std::pair<char const*, char const*> Keys[] = {{"readerMessages", "messages"},
                                                        {"name", "name"},
                                                        {"readable", "ok"},
                                                        {"versionNumber", "version"},
                                                        {"index", "view"}};

void expectSame(VariantMap const& found, std::string const& key, VariantMap const& expected,
                std::string const& checkerKey) {
  ASSERT_NE(findValue(found, key), nullptr) << key;
  ASSERT_NE(findValue(expected, checkerKey), nullptr) << checkerKey;
  EXPECT_EQ(*findValue(found, key), *findValue(expected, checkerKey)) << key;
}

/// "text_bytes" as "textBytes".
std::string toCamelCase(std::string const& key) {
  std::string name = key.substr(0, key.find('_'));
  if (name.size() == key.size()) return key;
  std::string const last = key.substr(name.size() + 1);
  if (last == "props") return name + "Properties";
  name += static_cast<char>(last[0] - 'a' + 'A');
  return name + last.substr(1);
}

class CorpusTest : public OpenTest {
 protected:
  void SetUp() override {
    if (m_folder.empty()) GTEST_SKIP() << qvTest::NoCorpus;
    std::ifstream rows(m_folder / "expected.jsonl");
    for (std::string row; std::getline(rows, row);) m_rows.push_back(parse(row));
    ASSERT_FALSE(m_rows.empty()) << "no rows in " << m_folder / "expected.jsonl";
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

  std::filesystem::path const m_folder = qvTest::findCorpus();
  std::vector<qv::qvVariant> m_rows;
  std::map<std::string, qv::qvVariant> m_inspections;
};

TEST_F(CorpusTest, AgreesWithTheIndependentCheckerInEveryRow) {
  for (qv::qvVariant const& row : m_rows) {
    VariantMap const& expected = row.toMap();
    std::string const name = findText(expected, "file");
    VariantMap const& file = inspect(name);
    auto const index = static_cast<std::size_t>(findValue(expected, "view")->toInteger());
    VariantList const& views = *findList(file, "views");
    ASSERT_LT(index, views.size()) << name;
    VariantMap const& view = views[index].toMap();
    SCOPED_TRACE(name + ", view " + std::to_string(index));
    for (auto const& [key, checkerKey] : Keys) expectSame(view, key, expected, checkerKey);
    VariantMap const& counts = findValue(view, "counts")->toMap();
    for (auto const& [checkerKey, value] : findValue(expected, "counts")->toMap()) {
      expectSame(counts, toCamelCase(checkerKey), findValue(expected, "counts")->toMap(), checkerKey);
    }
  }
}

TEST_F(CorpusTest, HasARowForEveryViewAndNothingThatIsLost) {
  std::map<std::string, std::size_t> counts;
  for (qv::qvVariant const& row : m_rows) ++counts[findText(row.toMap(), "file")];
  for (auto const& [name, count] : counts) {
    Document const document = openDocument(m_folder / name);
    EXPECT_EQ(document.m_views.size(), count) << name;
    for (Finding const& finding : document.m_findings) {
      // Heights that are stated more finely than to a hundredth are kept as the rule has it.
      if (finding.m_code != FindingCode::ValueRounded) ADD_FAILURE() << formatFinding(name, finding);
    }
  }
}

}  // namespace
