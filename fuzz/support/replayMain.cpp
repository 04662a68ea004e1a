/// Runs a target over files and folders of inputs, without a fuzzer.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* bytes, std::size_t size);

namespace {

std::vector<std::filesystem::path> listInputs(std::filesystem::path const& path) {
  if (!std::filesystem::is_directory(path)) return {path};
  std::vector<std::filesystem::path> files;
  for (auto const& entry : std::filesystem::directory_iterator(path)) files.push_back(entry.path());
  std::ranges::sort(files);
  return files;
}

bool replay(std::filesystem::path const& path) {
  std::ifstream file(path, std::ios::binary);
  std::vector<char> const bytes{std::istreambuf_iterator<char>(file), {}};
  if (!file.good() && !file.eof()) {
    std::fprintf(stderr, "cannot read '%s'\n", path.c_str());
    return false;
  }
  // Told before the run, since a broken one ends the process.
  std::printf("%s\n", path.c_str());
  std::fflush(stdout);
  LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const*>(bytes.data()), bytes.size());
  return true;
}

}  // namespace

int main(int count, char** arguments) {
  std::size_t replayed = 0;
  for (int i = 1; i < count; ++i) {
    for (auto const& path : listInputs(arguments[i])) {
      if (!replay(path)) return 1;
      ++replayed;
    }
  }
  std::printf("%zu inputs\n", replayed);
  return replayed > 0 ? 0 : 1;
}
