#pragma once

#include <functional>
#include <string>
#include <vector>

#include "job.h"

namespace qvannot {

/// A command whose result is one JSON document, {"files": [...]}, with an entry for each input.
struct JsonFiles {
  std::vector<std::string> const& m_files;
  qvToolkit::Limits const& m_limits;
  /// Makes {"files": [...]} of one input, reporting what it finds.
  std::function<std::string(std::string const& path)> m_makeEntry;
  /// The same for an input that could not be read to its end; it has findings and no views.
  std::function<std::string(qvToolkit::Document const&)> m_makeFailedEntry;
};

void runJson(JsonFiles const& files, Reporter& reporter);

}  // namespace qvannot
