#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

#include "json/jsonReader.h"
#include "model/variantLookup.h"
#include "outcome/formatWords.h"
#include "outcome/requestWords.h"
#include "qvToolkit/outcome/outcome.h"
#include "qvannot/schemas.h"
#include "rules/valueNames.h"

namespace {

using namespace qvToolkit;
using Words = std::set<std::string>;

/// The words that a schema allows for a member or a definition, null left out; none where it names none.
Words listWords(qv::qvVariant const& schema) {
  Words words;
  VariantList const* const list = findList(schema.toMap(), "enum");
  if (list == nullptr) return words;
  for (qv::qvVariant const& word : *list) {
    if (word.isString()) words.insert(word.getString());
  }
  return words;
}

qv::qvVariant parse(std::string_view text) {
  std::string copy(text);
  JsonReading reading = readJson(copy, 100);
  EXPECT_TRUE(reading.m_findings.empty());
  return reading.m_value;
}

/// Calls `visit(key, schema)` for each member of each object.
template <class Visit>
void visitMembers(qv::qvVariant const& value, Visit const& visit) {
  for (auto const& [key, member] : value.toMap()) {
    visit(key, member);
    visitMembers(member, visit);
  }
  for (qv::qvVariant const& element : value.toList()) visitMembers(element, visit);
}

/// Every set of words that stands under the key in any of the schemas is this one, and there is one.
void expectWords(std::string_view wanted, Words const& expected, std::size_t most = 0) {
  std::size_t found = 0;
  for (qvannot::Schema const& schema : qvannot::listSchemas()) {
    visitMembers(parse(schema.m_text), [&](std::string const& key, qv::qvVariant const& member) {
      if (key != wanted || findList(member.toMap(), "enum") == nullptr) return;
      ++found;
      EXPECT_EQ(listWords(member), expected) << schema.m_name << ", " << key;
    });
  }
  EXPECT_GE(found, most == 0 ? 1 : most) << wanted;
}

Words listNames(qvLegacy::rules::ValueNames const& names) {
  Words words;
  for (auto const& name : names.names) words.emplace(name.text);
  return words;
}

template <class Value, std::size_t Count>
Words listTexts(WordTable<Value, Count> const& table) {
  Words words;
  for (Word<Value> const& word : table) words.emplace(word.m_text);
  return words;
}

TEST(SchemaWords, AreTheCatalogues) {
  Words codes;
  for (CatalogueRow const& row : getCatalogue()) codes.emplace(row.m_text);
  constexpr std::size_t SchemasWithFindings = 5;
  expectWords("code", codes, SchemasWithFindings);
  expectWords("severity", {"info", "warning", "error"}, SchemasWithFindings);
  Words options;
  for (int key = 1; key <= static_cast<int>(OptionKey::MaxViews); ++key) {
    options.emplace(getOptionText(static_cast<OptionKey>(key)));
  }
  expectWords("option", options);
}

TEST(SchemaWords, AreThoseOfRequestsAndOutcomes) {
  expectWords("action", listTexts(ActionWords));
  expectWords("textMode", listTexts(TextModeWords));
  expectWords("pageFormat", listTexts(PageFormatWords));
  expectWords("encoding", listTexts(EncodingWords), 5);
  Words conclusions;
  for (int code = 0; code <= ExitBug; ++code) {
    if (code > ExitNothingToDo && code < ExitBug) continue;
    conclusions.emplace(getConclusionText(static_cast<ExitCode>(code)));
  }
  expectWords("conclusion", conclusions);
}

TEST(SchemaWords, AreThoseOfTheRecords) {
  namespace rules = qvLegacy::rules;
  expectWords("anchor", listNames(rules::anchors), 2);
  expectWords("frameShape", listNames(rules::frameShapes), 2);
  expectWords("head", listNames(rules::leaderHeads));
  expectWords("arrowDirection", listNames(rules::arrowDirections));
}

TEST(SchemaWords, OfLimitsAreTheirOptions) {
  for (qvannot::Schema const& schema : qvannot::listSchemas()) {
    if (schema.m_name != "request") continue;
    qv::qvVariant const json = parse(schema.m_text);
    auto const& limits = json.toMap().at("$defs").toMap().at("limits").toMap().at("properties").toMap();
    EXPECT_EQ(limits.size(), LimitCount + 1);
    for (std::size_t i = 0; i < LimitCount; ++i) {
      EXPECT_EQ(limits.count(getOptionText(getOptionKey(static_cast<Limit>(i)))), 1U);
    }
  }
}

}  // namespace
