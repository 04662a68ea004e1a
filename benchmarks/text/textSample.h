#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace textBenchmark {

/// Different short runs of about 13 characters, as notes and dimensions hold them. All in the letters of the
/// asked font, so that shaping alone sees the same characters.
std::vector<std::string> makePlainRuns(std::size_t count);

/// The same with signs that need a second font.
std::vector<std::string> makeRunsWithSigns(std::size_t count);

}  // namespace textBenchmark
