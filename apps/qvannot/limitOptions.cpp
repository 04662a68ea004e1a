#include "limitOptions.h"

#include "optionNames.h"

namespace qvannot {

namespace {

using qvToolkit::Limit;
using qvToolkit::Limits;

constexpr char const* Count = "N";
constexpr char const* Size = "SIZE";

constexpr std::uint64_t KiB = std::uint64_t{1} << 10;
constexpr std::uint64_t MiB = std::uint64_t{1} << 20;
constexpr std::uint64_t MostBytes = std::uint64_t{1} << 60;
constexpr std::uint64_t MostOfAnything = 1'000'000'000'000;

/// Least values are those with which some document can still be read or written.
constexpr LimitOption LimitOptions[] = {
    {option::MaxMemory,
     Limit::Memory,
     Size,
     {MiB, MostBytes},
     "Memory",
     "256M and 64 times the input, at most 4G"},
    {option::MaxTime,
     Limit::Time,
     Count,
     {1, 1'000'000'000},
     "Seconds of processor time for an input, and twice as many by the clock",
     "60"},
    {option::MaxInput, Limit::Input, Size, {1, MostBytes}, "Size of an input", "1G"},
    {option::MaxFailedReads,
     Limit::FailedReads,
     Count,
     {0, MostOfAnything},
     "Reads behind the end of an object stream",
     "1000000"},
    {option::MaxStack,
     Limit::Stack,
     Size,
     {16 * KiB, MostBytes},
     "Stack for reading an object stream",
     "1M, never more than a quarter of what there is"},
    {option::MaxJsonDepth,
     Limit::JsonDepth,
     Count,
     {1, Limits::MostContainers},
     "Objects and arrays within each other",
     "1000"},
    {option::MaxDepth,
     Limit::Depth,
     Count,
     {0, MostOfAnything},
     "Levels of sub-annotations in what is written",
     "200"},
    {option::MaxNodes,
     Limit::Nodes,
     Count,
     {1, MostOfAnything},
     "Annotations of a view in what is written",
     "10000000"},
    {option::MaxOutput,
     Limit::Output,
     Size,
     {1, MostBytes},
     "All results together",
     "64M and 64 times the input"},
    {option::MaxOutputFile, Limit::OutputFile, Size, {1, MostBytes}, "One result", "2G"},
    {option::MaxRaster, Limit::Raster, Size, {1, MostBytes}, "File of an image", "64M"},
    {option::MaxViews,
     Limit::Views,
     Count,
     {1, MostOfAnything},
     "Views of a document that are migrated",
     "10000"},
    {option::Limits,
     std::nullopt,
     "none",
     {},
     "For trusted documents: no limit but those that options set, and no process of its own",
     ""},
};

bool isSize(LimitOption const& option) {
  return option.m_word == Size;
}

std::string refuseLimit(LimitOption const& option, std::string const& text) {
  auto const [least, most] = option.m_range;
  if (!isSize(option)) return refuseNumber(text, "number", std::to_string(least), std::to_string(most));
  return refuseNumber(text, "size", formatSize(least), formatSize(most)) +
         "; write it like 1048576, 512K, 64M or 2G";
}

}  // namespace

std::span<LimitOption const> listLimitOptions() {
  return LimitOptions;
}

std::string setLimit(LimitOption const& option, std::string const& text, qvToolkit::Limits& limits) {
  if (!option.m_limit.has_value()) {
    if (text != option.m_word) return "'" + text + "' is not " + option.m_word;
    limits.lift();
    return {};
  }
  auto const value = isSize(option) ? readSize(text, option.m_range) : readCount(text, option.m_range);
  if (!value.has_value()) return refuseLimit(option, text);
  limits.set(*option.m_limit, *value);
  return {};
}

}  // namespace qvannot
