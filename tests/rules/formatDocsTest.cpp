#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "rules/fields.h"
#include "rules/gates.h"
#include "rules/messages.h"
#include "rules/valueNames.h"

/// Holds the tables of docs/formats against the rows that the code reads.
namespace qvLegacy::rules {
namespace {

using Cells = std::vector<std::string>;

std::vector<std::string> readLines(std::string const& page) {
  std::ifstream file(std::string(QVA_SOURCE_DIR) + "/docs/formats/" + page);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  EXPECT_FALSE(lines.empty()) << page;
  return lines;
}

Cells split(std::string const& line) {
  Cells cells;
  std::istringstream stream(line.substr(1));
  for (std::string cell; std::getline(stream, cell, '|');) {
    auto const first = cell.find_first_not_of(' ');
    cells.push_back(first == std::string::npos ? ""
                                               : cell.substr(first, cell.find_last_not_of(' ') + 1 - first));
  }
  return cells;
}

/// The rows of the table whose header begins with these cells, `skip` such tables later.
std::vector<Cells> readTable(std::string const& page, std::string const& header, std::size_t skip = 0) {
  std::vector<Cells> rows;
  bool isInside = false;
  for (std::string const& line : readLines(page)) {
    if (isInside && (line.empty() || line[0] != '|')) return rows;
    if (isInside && line.find("|---") != 0) rows.push_back(split(line));
    if (!isInside && line.find(header) == 0 && skip-- == 0) isInside = true;
  }
  return rows;
}

std::set<std::string> quoted(std::string const& cell) {
  static std::regex const Quoted("`([^`]+)`");
  std::set<std::string> texts;
  for (std::sregex_iterator match(cell.begin(), cell.end(), Quoted), end; match != end; ++match)
    texts.insert((*match)[1]);
  return texts;
}

std::string textOf(std::uint32_t version) {
  return std::to_string(version >> 16U) + "." + std::to_string(version & 0xFFFFU);
}

TEST(FormatDocs, ListTheMessagesOfTheReadersAndWhatTheyCost) {
  std::map<Cost, std::string> const names{
      {Cost::Look, "look"}, {Cost::Content, "content"}, {Cost::View, "view"}};
  auto const rows = readTable("variant.md", "| message | when | costs |");
  ASSERT_EQ(rows.size(), readerMessages.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    std::string const text = readerMessages[i].text;
    EXPECT_EQ(rows[i][0], "`" + text + (text.back() == ' ' ? "VER`" : "`"));
    EXPECT_EQ(rows[i][2], names.at(readerMessages[i].cost)) << text;
  }
}

void expectNames(std::string const& key, ValueNames const& set) {
  static std::regex const Numbered("^([0-9]+) (.*)$");
  std::set<std::string> told;
  std::string const header = "| `" + key + "` | |";
  for (Cells const& row : readTable("variant.md", header)) {
    for (std::string const& cell : row) {
      std::smatch match;
      if (!std::regex_match(cell, match, Numbered)) continue;
      std::string const rest = match[2];
      for (std::string const& name : quoted(rest)) {
        EXPECT_EQ(set.valueOf(name), std::stoul(match[1])) << name;
        told.insert(name);
      }
    }
  }
  for (ValueName const& name : set.names) {
    bool const isTold = name.reads != set.otherwise || key == "frameshape";
    EXPECT_EQ(told.count(std::string(name.text)), isTold ? 1U : 0U) << key << ": " << name.text;
  }
}

TEST(FormatDocs, NameTheValuesOfTheClosedSets) {
  expectNames("frameshape", frameShapes);
  expectNames("head", leaderHeads);
  expectNames("arrowdir", arrowDirections);
  expectNames("anchorloc", anchors);
}

/// The keys of tables, with what is told of each.
std::map<std::string, std::string> keysOf(std::vector<Cells> const& rows) {
  std::map<std::string, std::string> keys;
  for (Cells const& row : rows) {
    for (std::string const& key : quoted(row[0])) keys[key] = row.size() > 2 ? row[2] : "";
  }
  return keys;
}

void expectFields(Rows fields, std::map<std::string, std::string> const& told, Since known) {
  std::set<std::string> keys;
  for (Field const* const field : fields) {
    // Told in a sentence below the table.
    if (field->key.empty() || field == &annotation::childs || field == &annotation::anchor) continue;
    std::string const key(field->key);
    keys.insert(key);
    ASSERT_EQ(told.count(key), 1U) << key;
    bool const isLater = gateOf(field->inVariants).version > gateOf(known).version;
    EXPECT_EQ(told.at(key).find("since " + textOf(gateOf(field->inVariants).version)) != std::string::npos,
              isLater)
        << key << ": " << told.at(key);
    std::string const until = field->outOfVariants ? textOf(gateOf(*field->outOfVariants).version) : "";
    EXPECT_EQ(told.at(key).find("before " + until) != std::string::npos, field->outOfVariants.has_value())
        << key;
  }
  for (auto const& [key, text] : told) EXPECT_EQ(keys.count(key), 1U) << key << " is no field";
}

TEST(FormatDocs, TellTheFieldsOfEachRecordAndSinceWhen) {
  std::string const header = "| key | kind | effect |";
  auto const tableAt = [&](std::size_t index) { return keysOf(readTable("variant.md", header, index)); };
  expectFields(view::fields, tableAt(0), Since::variantMaps);
  expectFields(annotation::fields, tableAt(1), Since::variantMaps);
  expectFields(leader::fields, tableAt(2), Since::heads);
  expectFields(measure::fields, tableAt(3), Since::variantMaps);
  expectFields(text::fields, tableAt(4), Since::variantMaps);
  std::vector<Field const*> run(run::fields.begin(), run::fields.end());
  run.insert(run.end(), properties::fields.begin(), properties::fields.end());
  expectFields(run, tableAt(5), Since::variantMaps);
  expectFields(raster::fields, tableAt(6), Since::variantMaps);
}

TEST(FormatDocs, TellWhatAKeyThatIsNotThereStandsFor) {
  auto const rows = readTable("variant.md", "| key | kind | effect |", 0);
  std::string all;
  for (Cells const& row : rows) all += row.back() + "\n";
  EXPECT_NE(all.find(std::string(view::origin.absent) + ", " + std::string(view::normal.absent) + ", " +
                     std::string(view::axis.absent)),
            std::string::npos);
}

void expectVersions(std::string const& page, Encodings encoding) {
  std::set<std::string> versions;
  for (Gate const& gate : gates) {
    if (gate.encodings == encoding || gate.encodings == Encodings::Both)
      versions.insert(textOf(gate.version));
  }
  std::set<std::string> told;
  for (Cells const& row : readTable(page, "| version | change |")) told.insert(row[0]);
  EXPECT_EQ(told, versions);
}

TEST(FormatDocs, TellEachVersionAtWhichAFormChanged) {
  expectVersions("variant.md", Encodings::Variants);
  expectVersions("object-stream.md", Encodings::Stream);
}

}  // namespace
}  // namespace qvLegacy::rules
