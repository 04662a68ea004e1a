#include "qvannot/cli/nearestNames.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace qvannot {

namespace {

constexpr std::size_t MaxCompared = 100;

/// Of three characters one may be wrong, of six two: more is another word.
constexpr std::size_t CharactersPerSlip = 3;

/// The only name that begins with the text; empty for none or several.
std::string_view findOnlyBeginning(std::string_view text, std::span<std::string_view const> names) {
  auto const begins = [text](std::string_view name) { return name.starts_with(text); };
  return std::ranges::count_if(names, begins) == 1 ? *std::ranges::find_if(names, begins)
                                                   : std::string_view();
}

}  // namespace

std::size_t countSlips(std::string_view a, std::string_view b) {
  std::vector<std::size_t> twoAbove;
  std::vector<std::size_t> above(b.size() + 1);
  std::iota(above.begin(), above.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::vector<std::size_t> row = {i + 1};
    for (std::size_t j = 0; j < b.size(); ++j) {
      std::size_t const replaced = above[j] + (a[i] == b[j] ? 0U : 1U);
      row.push_back(std::min({replaced, above[j + 1] + 1, row.back() + 1}));
      bool const isSwapped = i > 0 && j > 0 && a[i] == b[j - 1] && a[i - 1] == b[j];
      if (isSwapped) row.back() = std::min(row.back(), twoAbove[j - 1] + 1);
    }
    twoAbove = std::exchange(above, std::move(row));
  }
  return above.back();
}

std::vector<std::string_view> sortByNearness(std::string_view text, std::span<std::string_view const> names) {
  std::vector<std::pair<std::size_t, std::string_view>> measured;
  for (std::string_view const name : names) {
    measured.emplace_back(countSlips(text.substr(0, MaxCompared), name), name);
  }
  std::ranges::stable_sort(measured, {}, &decltype(measured)::value_type::first);
  std::vector<std::string_view> sorted(names.size());
  std::ranges::transform(measured, sorted.begin(), &decltype(measured)::value_type::second);
  return sorted;
}

std::string suggestName(std::string_view text, std::span<std::string_view const> names) {
  if (names.empty() || text.size() > MaxCompared) return {};
  std::string_view const nearest = sortByNearness(text, names).front();
  std::size_t const allowed = std::max(text.size(), nearest.size()) / CharactersPerSlip;
  std::string_view const meant =
      countSlips(text, nearest) <= allowed ? nearest : findOnlyBeginning(text, names);
  return meant.empty() ? std::string() : "; did you mean '" + std::string(meant) + "'?";
}

}  // namespace qvannot
