#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qvFaults {

/// One of the example documents.
struct Example {
  std::string m_name;  ///< "bracket_6.27.json"
  std::string m_bytes;
};

/// All example documents whose names end so, sorted by name.
std::vector<Example> readExamples(std::string_view ending = {});

/// Where everything would take too long, each of these is done: 16, or 1 when QVA_ALL_FAULTS is set.
std::uint32_t getSampleStep();

/// The folder of the images that examples name.
std::string getRasterFolder();

}  // namespace qvFaults
