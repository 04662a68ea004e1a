#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace transformBenchmark {

/// Prints points per nanosecond and ratios from the medians of a run. A benchmark is named
/// "precision/points/kind/way"; the ways of the same precision, points and kind make one row.
class RatioReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(Context const& context) override;
  void ReportRuns(std::vector<Run> const& runs) override;
  void Finalize() override;

 private:
  using Row = std::map<std::string, double>;  ///< points per nanosecond by way

  /// The row's number for a way of its own, or for the row of copying of the same size.
  double speed(std::string const& row, std::string const& way) const;

  std::vector<std::string> m_order;
  std::map<std::string, Row> m_rows;
};

}  // namespace transformBenchmark
