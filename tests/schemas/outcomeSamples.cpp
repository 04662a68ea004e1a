// Writes requests, outcomes and facts of runs as JSON, one a line behind the name of its schema: outcomes of
// the documents that are named, and random ones.
#include <cstdint>
#include <iostream>

#include "qvToolkit/outcome/outcomeJson.h"
#include "qvToolkit/reading/openDocument.h"
#include "qvToolkit/work/session.h"
#include "tests/toolkit/outcome/outcomeGenerator.h"

using namespace qvToolkit;

namespace {

constexpr int RandomSamples = 100;
constexpr int RandomSize = 50;

template <class Value>
void write(char const* schema, void (*writer)(JsonWriter&, Value const&), Value const& value) {
  JsonWriter json;
  writer(json, value);
  std::cout << schema << ' ' << json.takeText();
}

ViewOutcome describe(LoadedView const& view, std::size_t index) {
  ViewOutcome outcome;
  outcome.m_address = Address::ofView(index).getText();
  outcome.m_name = view.m_name;
  outcome.m_version = view.m_version.toString();
  outcome.m_isRead = view.m_view.get() != nullptr;
  if (outcome.m_isRead) outcome.m_counts = countView(*view.m_view);
  return outcome;
}

Outcome describe(Document const& document) {
  Outcome outcome;
  outcome.m_source = document.m_source;
  outcome.m_findings = document.m_findings;
  outcome.m_conclusion = conclude(getFailure(document), document.m_findings, Severity::Error);
  for (LoadedView const& view : document.m_views) {
    outcome.m_views.push_back(describe(view, outcome.m_views.size()));
  }
  return outcome;
}

}  // namespace

int main(int count, char** arguments) {
  Session const session;
  for (int i = 1; i < count; ++i) write("outcome", writeOutcome, describe(openDocument(arguments[i])));
  for (std::uint64_t seed = 0; seed < RandomSamples; ++seed) {
    rc::Random const random(seed);
    write("outcome", writeOutcome, anyOutcome()(random, RandomSize).value());
    write("request", writeRequest, anyRequest()(random, RandomSize).value());
    write("run-facts", writeRunFacts, anyRunFacts()(random, RandomSize).value());
  }
}
