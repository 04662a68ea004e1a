#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "qvToolkit/outcome/request.h"
#include "reporter.h"

namespace qvannot {

/// What a command wants to be done with documents.
struct DocumentRun {
  explicit DocumentRun(qvToolkit::Action action) { m_request.m_action = action; }

  qvToolkit::Request m_request;
  std::vector<std::string> m_files;  ///< as they were given; "-" for standard input
  std::size_t m_jobs = 0;            ///< documents at a time; 0: as many as the machine can take
  std::string m_outputFolder;        ///< for the files that the work makes; empty: it makes none
  std::string m_outputName;  ///< of the only file, for a single document; empty: names follow from inputs
  bool m_force = false;      ///< files that exist are replaced
};

/// Does it: what is found goes to standard error, what is printed to standard output, both in the order of
/// the files. One that fails does not stop the others. The paths of files that were written are printed, too.
void runDocuments(DocumentRun const& run, Reporter& reporter);

}  // namespace qvannot
