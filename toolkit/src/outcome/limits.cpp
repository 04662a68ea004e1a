#include "qvToolkit/outcome/limits.h"

#include <algorithm>

namespace qvToolkit {

namespace {

constexpr std::uint64_t MiB = std::uint64_t{1} << 20;
constexpr std::uint64_t GiB = std::uint64_t{1} << 30;

/// The densest honest document takes 24 times its size in memory as a model, and some more as a page.
constexpr std::uint64_t GrowthFactor = 64;

/// In the order of the enumeration. Memory and output follow from the input's size and are the most here.
constexpr std::array<std::uint64_t, LimitCount> Defaults = {
    4 * GiB,            // memory
    60,                 // seconds
    1 * GiB,            // input
    1'000'000,          // failed reads
    1 * MiB,            // stack
    1000,               // JSON depth
    200,                // depth of sub-annotations
    10'000'000,         // annotations
    Limits::Unlimited,  // output
    2 * GiB,            // one output file
    64 * MiB,           // image file
    10'000,             // views that are written as pages
};

constexpr std::array<OptionKey, LimitCount> Keys = {
    OptionKey::MaxMemory, OptionKey::MaxTime,       OptionKey::MaxInput,  OptionKey::MaxFailedReads,
    OptionKey::MaxStack,  OptionKey::MaxJsonDepth,  OptionKey::MaxDepth,  OptionKey::MaxNodes,
    OptionKey::MaxOutput, OptionKey::MaxOutputFile, OptionKey::MaxRaster, OptionKey::MaxViews,
};

std::uint64_t multiply(std::uint64_t a, std::uint64_t b) {
  return a > Limits::Unlimited / b ? Limits::Unlimited : a * b;
}

std::uint64_t growBy(std::uint64_t base, std::uint64_t inputBytes) {
  std::uint64_t const growth = multiply(inputBytes, GrowthFactor);
  return growth > Limits::Unlimited - base ? Limits::Unlimited : base + growth;
}

}  // namespace

OptionKey getOptionKey(Limit limit) noexcept {
  return Keys[static_cast<std::size_t>(limit)];
}

std::uint64_t Limits::getOr(Limit limit, std::uint64_t byDefault) const {
  return findSet(limit).value_or(m_areLifted ? Unlimited : byDefault);
}

std::uint64_t Limits::get(Limit limit) const {
  return getOr(limit, Defaults[static_cast<std::size_t>(limit)]);
}

std::uint64_t Limits::getMemory(std::uint64_t inputBytes) const {
  return getOr(Limit::Memory, std::min(growBy(256 * MiB, inputBytes), 4 * GiB));
}

std::uint64_t Limits::getOutput(std::uint64_t inputBytes) const {
  return getOr(Limit::Output, growBy(64 * MiB, inputBytes));
}

TreeLimits makeTreeLimits(Limits const& limits) {
  return {limits.get(Limit::Depth), limits.get(Limit::Nodes)};
}

}  // namespace qvToolkit
