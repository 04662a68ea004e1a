#pragma once

#include <functional>
#include <string>
#include <vector>

#include "job.h"
#include "qvToolkit/reports/reportList.h"

namespace qvannot {

/// A command whose result is one list with an entry for each input.
struct JsonFiles {
  qvToolkit::ReportList m_list;  ///< without entries
  std::vector<std::string> const& m_files;
  qvToolkit::Limits const& m_limits;
  /// Writes the entry of one input, reporting what it finds.
  std::function<void(qvToolkit::JsonWriter&, std::string const& path)> m_writeEntry;
  /// The same for an input that could not be read to its end; it has findings and no views.
  std::function<void(qvToolkit::JsonWriter&, qvToolkit::Document const&)> m_writeFailedEntry;
};

void runJson(JsonFiles const& files, Reporter& reporter);

}  // namespace qvannot
