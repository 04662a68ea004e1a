#include "limitOptions.h"

#include <CLI/CLI.hpp>
#include <string>

#include "optionNames.h"
#include "optionNumbers.h"

namespace qvannot {

namespace {

struct LimitOption {
  char const* m_name;
  Limit m_limit;
  bool m_isSize;
  CountRange m_range;
  char const* m_help;
};

constexpr std::uint64_t KiB = std::uint64_t{1} << 10;
constexpr std::uint64_t MiB = std::uint64_t{1} << 20;
constexpr std::uint64_t MostBytes = std::uint64_t{1} << 60;
constexpr std::uint64_t MostOfAnything = 1'000'000'000'000;

/// Least values are those with which some document can still be read or written.
constexpr LimitOption LimitOptions[] = {
    {option::MaxMemory,
     Limit::Memory,
     true,
     {MiB, MostBytes},
     "Memory (default 256M and 64 times the input, at most 4G)"},
    {option::MaxTime,
     Limit::Time,
     false,
     {1, 1'000'000'000},
     "Seconds of processor time for an input, and twice as many by the clock (default 60)"},
    {option::MaxInput, Limit::Input, true, {1, MostBytes}, "Size of an input (default 1G)"},
    {option::MaxFailedReads,
     Limit::FailedReads,
     false,
     {0, MostOfAnything},
     "Reads behind the end of an object stream (default 1000000)"},
    {option::MaxStack,
     Limit::Stack,
     true,
     {16 * KiB, MostBytes},
     "Stack for reading an object stream (default 1M, never more than a quarter of what there is)"},
    {option::MaxJsonDepth,
     Limit::JsonDepth,
     false,
     {1, Limits::MostContainers},
     "Objects and arrays within each other (default 1000)"},
    {option::MaxDepth,
     Limit::Depth,
     false,
     {0, MostOfAnything},
     "Levels of sub-annotations in what is written (default 200)"},
    {option::MaxNodes,
     Limit::Nodes,
     false,
     {1, MostOfAnything},
     "Annotations of a view in what is written (default 10000000)"},
    {option::MaxOutput,
     Limit::Output,
     true,
     {1, MostBytes},
     "All results together (default 64M and 64 times the input)"},
    {option::MaxOutputFile, Limit::OutputFile, true, {1, MostBytes}, "One result (default 2G)"},
    {option::MaxRaster, Limit::Raster, true, {1, MostBytes}, "File of an image (default 64M)"},
    {option::MaxViews,
     Limit::Views,
     false,
     {1, MostOfAnything},
     "Views of a document that are migrated (default 10000)"},
};

std::string refuseLimit(LimitOption const& option, std::string const& text) {
  auto const [least, most] = option.m_range;
  if (!option.m_isSize) return refuseNumber(text, "number", std::to_string(least), std::to_string(most));
  return refuseNumber(text, "size", formatSize(least), formatSize(most)) +
         "; write it like 1048576, 512K, 64M or 2G";
}

void addLimit(CLI::App& command, LimitOption const& option, Limits& limits) {
  command
      .add_option_function<std::string>(
          option.m_name,
          [&option, &limits](std::string const& text) {
            auto const value =
                option.m_isSize ? readSize(text, option.m_range) : readCount(text, option.m_range);
            if (!value.has_value()) throw CLI::ValidationError(option.m_name, refuseLimit(option, text));
            limits.set(option.m_limit, *value);
          },
          option.m_help)
      ->type_name(option.m_isSize ? "SIZE" : "N")
      ->group("Limits");
}

}  // namespace

void addLimits(CLI::App& command, Limits& limits) {
  for (LimitOption const& option : LimitOptions) addLimit(command, option, limits);
  command
      .add_option_function<std::string>(
          option::Limits,
          [&limits](std::string const& text) {
            if (text != "none") throw CLI::ValidationError(option::Limits, "'" + text + "' is not none");
            limits.lift();
          },
          "For trusted documents: no limit but those that options set, and no process of its own")
      ->type_name("none")
      ->group("Limits");
}

}  // namespace qvannot
