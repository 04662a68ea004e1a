#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>

#include "qvToolkit/model/treeLimits.h"
#include "qvToolkit/reading/openDocument.h"

namespace qvannot {

/// What options limit; docs/limits.md tells what each is good for.
enum class Limit : std::uint8_t {
  Memory,
  Time,
  Input,
  FailedReads,
  Stack,
  JsonDepth,
  Depth,
  Nodes,
  Output,
  OutputFile,
  Raster,
  Views,
};
constexpr std::size_t LimitCount = 12;

/// The limits of one run of the tool: the defaults, what options set, or none.
class Limits {
 public:
  static constexpr std::uint64_t Unlimited = std::numeric_limits<std::uint64_t>::max();
  /// The parser keeps one entry per level of JSON, so even a trusted document has some end.
  static constexpr std::uint64_t MostContainers = 1'000'000;

  void set(Limit limit, std::uint64_t value) { m_set[static_cast<std::size_t>(limit)] = value; }
  /// No limit but those that options set; documents are worked on in the tool's own process.
  void lift() noexcept { m_areLifted = true; }
  bool areLifted() const noexcept { return m_areLifted; }

  std::uint64_t get(Limit limit) const;
  /// Memory for a document of that size: 256 MiB and 64 times its size, at most 4 GiB.
  std::uint64_t getMemory(std::uint64_t inputBytes) const;
  /// All results of a document of that size together: 64 MiB and 64 times its size.
  std::uint64_t getOutput(std::uint64_t inputBytes) const;

  qvToolkit::OpenLimits getOpenLimits() const;
  qvToolkit::TreeLimits getTreeLimits() const;

 private:
  std::uint64_t getSet(Limit limit, std::uint64_t byDefault) const;

  std::array<std::optional<std::uint64_t>, LimitCount> m_set;
  bool m_areLifted = false;
};

}  // namespace qvannot
