#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>

#include "qvToolkit/export.h"
#include "qvToolkit/findings/catalogue.h"
#include "qvToolkit/model/treeLimits.h"

namespace qvToolkit {

/// What the work on one input may take or make.
enum class Limit : std::uint8_t {
  Memory,       ///< bytes
  Time,         ///< seconds of processor time, and twice as many by the clock
  Input,        ///< bytes
  FailedReads,  ///< reads behind the end of an object stream
  Stack,        ///< bytes, for reading
  JsonDepth,    ///< objects and arrays within each other
  Depth,        ///< levels of sub-annotations in what is written
  Nodes,        ///< annotations of a view in what is written
  Output,       ///< bytes of all results together
  OutputFile,   ///< bytes of one result
  Raster,       ///< bytes of one image file
  Views,        ///< views of a document that are migrated
};
constexpr std::size_t LimitCount = 12;  ///< of the enumeration

/// The key of the option that sets a limit, which names it in JSON, too.
QVT_EXPORT OptionKey getOptionKey(Limit limit) noexcept;

/// The limits of the work on one input: the defaults, what somebody set, or none.
/// @code
/// Limits limits;
/// limits.set(Limit::Input, 1 << 20);
/// Document const document = openDocument("bracket.json", makeOpenLimits(limits));
/// assert(!checkTrees(document, makeTreeLimits(limits)));
/// @endcode
class QVT_EXPORT Limits {
 public:
  /// Of what has no limit.
  static constexpr std::uint64_t Unlimited = std::numeric_limits<std::uint64_t>::max();
  /// The parser keeps one entry per level of JSON, so even a trusted document has some end.
  static constexpr std::uint64_t MostContainers = 1'000'000;

  /// To be counted from here on instead of the default, also where the limits are lifted.
  void set(Limit limit, std::uint64_t value) { m_set[static_cast<std::size_t>(limit)] = value; }
  /// No limit but those that are set, for trusted documents.
  void lift() noexcept { m_areLifted = true; }
  bool areLifted() const noexcept { return m_areLifted; }  ///< `lift` was called

  /// What was set; nothing where the default counts.
  std::optional<std::uint64_t> findSet(Limit limit) const { return m_set[static_cast<std::size_t>(limit)]; }
  /// What was set, or the default, or `Unlimited`. Of memory and output the most that the defaults allow.
  std::uint64_t get(Limit limit) const;
  /// Memory for a document of that size: by default 256 MiB and 64 times its size, at most 4 GiB.
  std::uint64_t getMemory(std::uint64_t inputBytes) const;
  /// All results of a document of that size together: by default 64 MiB and 64 times its size.
  std::uint64_t getOutput(std::uint64_t inputBytes) const;

  bool operator==(Limits const&) const = default;  ///< the same is set

 private:
  std::uint64_t getOr(Limit limit, std::uint64_t byDefault) const;

  std::array<std::optional<std::uint64_t>, LimitCount> m_set;
  bool m_areLifted = false;
};

/// Those of them that trees of annotations have to keep.
QVT_EXPORT TreeLimits makeTreeLimits(Limits const& limits);

}  // namespace qvToolkit
