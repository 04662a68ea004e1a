#include "limitOptions.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>

namespace qvannot {

namespace {

struct LimitOption {
  char const* m_name;
  Limit m_limit;
  bool m_isSize;
  char const* m_help;
};

constexpr LimitOption LimitOptions[] = {
    {"--max-memory", Limit::Memory, true, "Memory (default 256M and 64 times the input, at most 4G)"},
    {"--max-time", Limit::Time, false,
     "Seconds of processor time for an input, and twice as many by the clock (default 60)"},
    {"--max-input", Limit::Input, true, "Size of an input (default 1G)"},
    {"--max-failed-reads", Limit::FailedReads, false,
     "Reads behind the end of an object stream (default 1000000)"},
    {"--max-stack", Limit::Stack, true,
     "Stack for reading an object stream (default 1M, never more than a quarter of what there is)"},
    {"--max-json-depth", Limit::JsonDepth, false, "Objects and arrays within each other (default 1000)"},
    {"--max-depth", Limit::Depth, false, "Levels of sub-annotations in what is written (default 200)"},
    {"--max-nodes", Limit::Nodes, false, "Annotations of a view in what is written (default 10000000)"},
    {"--max-output", Limit::Output, true, "All results together (default 64M and 64 times the input)"},
    {"--max-output-file", Limit::OutputFile, true, "One result (default 2G)"},
    {"--max-raster", Limit::Raster, true, "File of an image (default 64M)"},
    {"--max-views", Limit::Views, false, "Views of a document that are migrated (default 10000)"},
};

/// The power of two that a letter behind a size stands for; none for another letter.
std::optional<unsigned> findShift(char letter) {
  constexpr std::string_view Letters = "KMGT";
  std::size_t const index = Letters.find(letter);
  if (index == std::string_view::npos) return std::nullopt;
  return static_cast<unsigned>(10 * (index + 1));
}

/// Digits, for a size also with K, M, G or T behind them.
std::optional<std::uint64_t> readLimit(std::string_view text, bool isSize) {
  unsigned shift = 0;
  if (isSize && !text.empty()) {
    if (auto const letter = findShift(text.back())) {
      shift = *letter;
      text.remove_suffix(1);
    }
  }
  std::uint64_t number = 0;
  auto const result = std::from_chars(text.data(), text.data() + text.size(), number);
  bool const isNumber = result.ec == std::errc() && result.ptr == text.data() + text.size();
  if (!isNumber || number > Limits::Unlimited >> shift) return std::nullopt;
  return number << shift;
}

void addLimit(CLI::App& command, LimitOption const& option, Limits& limits) {
  command
      .add_option_function<std::string>(
          option.m_name,
          [&option, &limits](std::string const& text) {
            auto const value = readLimit(text, option.m_isSize);
            if (!value.has_value()) {
              throw CLI::ValidationError(option.m_name,
                                         "'" + text + "' is no " +
                                             (option.m_isSize ? "size; write it like 1048576, 512K, 64M or 2G"
                                                              : "number; write it like 1000"));
            }
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
          "--limits",
          [&limits](std::string const& text) {
            if (text != "none") throw CLI::ValidationError("--limits", "'" + text + "' is not none");
            limits.lift();
          },
          "For trusted documents: no limit but those that options set, and no process of its own")
      ->type_name("none")
      ->group("Limits");
}

}  // namespace qvannot
