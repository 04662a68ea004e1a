#include <algorithm>
#include <set>

#include "toolkit/outputSet.h"

namespace qvToolkit {

namespace {

constexpr std::size_t MaxStemBytes = 150;

bool isPlain(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '.' || c == '_' ||
         c == '-';
}

std::string foldCase(std::string text) {
  for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return text;
}

}  // namespace

std::string makeStem(std::string const& inputPath) {
  if (inputPath == "-") return "stdin";
  std::size_t const last = inputPath.find_last_not_of('/');
  std::string stem = inputPath.substr(0, last == std::string::npos ? 0 : last + 1);
  stem.erase(0, stem.rfind('/') + 1);
  std::size_t const dot = stem.rfind('.');
  if (dot != std::string::npos && dot > 0) stem.resize(dot);
  stem.resize(std::min(stem.size(), MaxStemBytes));
  for (char& c : stem) c = isPlain(c) ? c : '_';
  if (stem.empty()) return "document";
  if (stem.front() == '.' || stem.front() == '-') stem.front() = '_';
  return stem;
}

std::vector<std::string> makeStems(std::vector<std::string> const& inputPaths) {
  std::vector<std::string> stems;
  std::set<std::string> used;
  for (std::string const& path : inputPaths) {
    std::string const base = makeStem(path);
    std::string stem = base;
    for (std::size_t number = 2; !used.insert(foldCase(stem)).second; ++number) {
      stem = base + "-" + std::to_string(number);
    }
    stems.push_back(std::move(stem));
  }
  return stems;
}

std::string getPageName(std::string const& stem, std::size_t viewIndex, std::string_view extension) {
  std::string const number = std::to_string(viewIndex);
  return stem + ".view-" + std::string(number.size() < 4 ? 4 - number.size() : 0, '0') + number + '.' +
         std::string(extension);
}

std::string getModelName(std::string const& stem) {
  return stem + ".migrated.json";
}

}  // namespace qvToolkit
