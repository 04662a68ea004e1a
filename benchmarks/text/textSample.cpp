#include "benchmarks/text/textSample.h"

#include <utility>

namespace textBenchmark {

namespace {

constexpr char const* PLAIN[] = {"R# TYP 4 PLACES", "#.5 \u00B1 0.2",       "M# x 1.5 - 6H",
                                 "SECTION #-#",     "Hole #, 2 x 45\u00B0", "Weld A#, AVWAT"};
constexpr char const* SIGNS[] = {"\u2300 # \u21A7 12", "\u2316 \u23000.# A B", "4x \u2300 #.5 THRU",
                                 "\u25A1 # \u2334 \u2300 18"};

template <std::size_t Count>
std::vector<std::string> fill(char const* const (&patterns)[Count], std::size_t count) {
  std::vector<std::string> runs;
  runs.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    std::string run = patterns[i % Count];
    for (std::size_t at = run.find('#'); at != std::string::npos; at = run.find('#')) {
      run.replace(at, 1, std::to_string(i));
    }
    runs.push_back(std::move(run));
  }
  return runs;
}

}  // namespace

std::vector<std::string> makePlainRuns(std::size_t count) {
  return fill(PLAIN, count);
}

std::vector<std::string> makeRunsWithSigns(std::size_t count) {
  return fill(SIGNS, count);
}

}  // namespace textBenchmark
