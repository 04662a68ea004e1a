#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace transformBenchmark {

/// Prints points per nanosecond of processor time and ratios from the medians of a run. A benchmark is named
/// "precision/points/kind/way"; the ways of the same precision, points and kind make one row.
class RatioReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(Context const& context) override;
  void ReportRuns(std::vector<Run> const& runs) override;
  void Finalize() override;

 private:
  using Row = std::map<std::string, double>;  ///< points per nanosecond by way

  /// By precision, then by number of points, then by kind.
  struct BySize {
    bool operator()(std::string const& a, std::string const& b) const;
  };

  /// Points per nanosecond of one way; for memcpy those of the copy of the same size. 0 for none.
  double speed(std::string const& row, std::string const& way) const;

  std::map<std::string, Row, BySize> m_rows;
};

}  // namespace transformBenchmark
