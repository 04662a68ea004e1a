// Writes requests, outcomes and facts of runs as JSON, one a line behind the name of its schema: outcomes of
// the documents that are named, and random ones.
#include <cstdint>
#include <cstdio>
#include <iostream>
#include <memory>

#include "qvToolkit/outcome/outcomeJson.h"
#include "qvToolkit/work/memoryResults.h"
#include "qvToolkit/work/steps.h"
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

/// What becomes of a file by an action; nothing is left of its results.
Outcome perform(Action action, char const* path) {
  Request request;
  request.m_action = action;
  Session session(makeSessionOptions(request));
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> const file(std::fopen(path, "r"), &std::fclose);
  MemoryResults results;
  return performRequest(session, request, {path, path, "stem", file ? fileno(file.get()) : -1}, results);
}

}  // namespace

int main(int count, char** arguments) {
  for (int i = 1; i < count; ++i) {
    for (auto const action :
         {Action::Inspect, Action::Migrate, Action::Encode, Action::Dump, Action::Fonts}) {
      write("outcome", writeOutcome, perform(action, arguments[i]));
    }
  }
  for (std::uint64_t seed = 0; seed < RandomSamples; ++seed) {
    rc::Random const random(seed);
    write("outcome", writeOutcome, anyOutcome()(random, RandomSize).value());
    write("request", writeRequest, anyRequest()(random, RandomSize).value());
    write("run-facts", writeRunFacts, anyRunFacts()(random, RandomSize).value());
  }
}
