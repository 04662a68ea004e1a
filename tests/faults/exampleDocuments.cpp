#include "exampleDocuments.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace qvFaults {

namespace {

std::string readFile(std::filesystem::path const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool isDocument(std::filesystem::path const& path) {
  return path.extension() == ".json" || path.extension() == ".qvs";
}

}  // namespace

std::vector<Example> readExamples(std::string_view ending) {
  std::vector<Example> examples;
  for (char const* const folder : {QVA_EXAMPLES, QVA_EXAMPLES "/binary"}) {
    for (auto const& entry : std::filesystem::directory_iterator(folder)) {
      std::string name = entry.path().filename().string();
      if (isDocument(entry.path()) && name.ends_with(ending)) {
        examples.push_back({std::move(name), readFile(entry.path())});
      }
    }
  }
  EXPECT_FALSE(examples.empty()) << "no example ends in '" << ending << "'";
  std::ranges::sort(examples, {}, &Example::m_name);
  return examples;
}

std::uint32_t getSampleStep() {
  constexpr std::uint32_t SampleStep = 16;
  return std::getenv("QVA_ALL_FAULTS") != nullptr ? 1 : SampleStep;
}

std::string getRasterFolder() {
  return QVA_EXAMPLES "/rasters";
}

}  // namespace qvFaults
