#pragma once

#include <string_view>

#include "qvToolkit/reports/reportList.h"
#include "reporter.h"
#include "spool.h"

namespace qvannot {

/// Prints a list whose entries are made one by one, each by a worker of its own.
class JsonList {
 public:
  JsonList(qvToolkit::ReportList list, Reporter& reporter) : m_list(list), m_reporter(reporter) {}

  void add(std::string_view entry);
  /// False when the worker left no entry; nothing of it is taken then.
  [[nodiscard]] bool add(Spool const& entry);
  /// Prints the end; to be called once.
  void finish() { m_reporter.print(m_list.end()); }

 private:
  qvToolkit::ReportList m_list;
  Reporter& m_reporter;
};

}  // namespace qvannot
