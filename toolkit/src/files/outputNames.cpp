#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "qvToolkit/files/outputSet.h"

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
  std::unordered_set<std::string> used;
  // Of each stem that was asked for again: the numbers below are taken, and are not tried once more.
  std::unordered_map<std::string, std::size_t> nextNumbers;
  for (std::string const& path : inputPaths) {
    std::string stem = makeStem(path);
    if (std::string const folded = foldCase(stem); !used.insert(folded).second) {
      std::size_t& number = nextNumbers.try_emplace(folded, 2).first->second;
      while (!used.insert(folded + "-" + std::to_string(number)).second) ++number;
      stem.append(1, '-').append(std::to_string(number++));
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
