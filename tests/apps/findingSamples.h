#pragma once

#include <string>
#include <vector>

#include "qvToolkit/findings/catalogue.h"

namespace qvTest {

/// A document and a command that tell of one finding.
struct FindingSample {
  qvToolkit::FindingCode m_code;
  std::string m_command;
  std::string m_content;
  std::vector<std::string> m_options;  ///< "HERE" stands for the folder of the document
};

/// At most one of each code.
std::vector<FindingSample> getFindingSamples();

}  // namespace qvTest
