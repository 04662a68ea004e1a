#include "benchmarks/transform/ratioReporter.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <tuple>

namespace transformBenchmark {

namespace {

/// The ways in the order of the table's columns.
constexpr char const* ways[] = {"array", "sse2", "point", "plain", "eigen", "eigenPoints", "glm", "memcpy"};

std::string firstParts(std::string const& name, int parts) {
  std::size_t end = 0;
  for (int i = 0; i < parts && end != std::string::npos; ++i) end = name.find('/', end + (i > 0 ? 1 : 0));
  return name.substr(0, end);
}

/// The number of points in a benchmark's name.
double pointsOf(std::string const& name) {
  return std::strtod(name.c_str() + name.find('/') + 1, nullptr);
}

void printCell(double value) {
  if (value > 0) {
    std::printf(" %11.3f", value);
  } else {
    std::printf(" %11s", "-");
  }
}

}  // namespace

bool RatioReporter::BySize::operator()(std::string const& a, std::string const& b) const {
  auto const key = [](std::string const& name) {
    return std::tuple(firstParts(name, 1), pointsOf(name), name);
  };
  return key(a) < key(b);
}

bool RatioReporter::ReportContext(Context const& context) {
  PrintBasicContext(&GetErrorStream(), context);
  return true;
}

void RatioReporter::ReportRuns(std::vector<Run> const& runs) {
  for (Run const& run : runs) {
    if (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median") continue;
    std::string const& name = run.run_name.function_name;
    std::string const row = firstParts(name, 3);
    m_rows[row][name.substr(row.size() + 1)] = pointsOf(name) / run.GetAdjustedCPUTime();
  }
}

double RatioReporter::speed(std::string const& row, std::string const& way) const {
  auto const cells = m_rows.find(way == "memcpy" ? firstParts(row, 2) + "/copy" : row);
  if (cells == m_rows.end()) return 0;
  auto const cell = cells->second.find(way);
  return cell == cells->second.end() ? 0 : cell->second;
}

void RatioReporter::Finalize() {
  if (m_rows.empty()) return;
  std::printf("points per nanosecond\n%-40s", "");
  for (char const* way : ways) std::printf(" %11s", way);
  std::printf("   array/point  sse2/point array/plain   array/peer memcpy time\n");
  for (auto const& [row, cells] : m_rows) {
    double const array = speed(row, "array");
    if (array == 0) continue;
    std::printf("%-40s", row.c_str());
    for (char const* way : ways) printCell(speed(row, way));
    auto const ratio = [](double a, double b) { return b > 0 ? a / b : 0.0; };
    std::printf("  ");
    printCell(ratio(array, speed(row, "point")));
    printCell(ratio(speed(row, "sse2"), speed(row, "point")));
    printCell(ratio(array, speed(row, "plain")));
    printCell(ratio(array, std::max({speed(row, "eigen"), speed(row, "eigenPoints"), speed(row, "glm")})));
    printCell(ratio(speed(row, "memcpy"), array));
    std::printf("\n");
  }
  std::fflush(stdout);
}

}  // namespace transformBenchmark
