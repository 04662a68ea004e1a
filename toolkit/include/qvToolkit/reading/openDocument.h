#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "qvToolkit/model/document.h"

namespace qvToolkit {

/// What the opening of a document may take. Each limit that is reached is a finding and `ExitLimit`.
struct OpenLimits {
  std::uint64_t m_maxInputBytes = std::uint64_t{1} << 30;
  std::size_t m_maxContainers = 1000;  ///< nesting of JSON containers
  /// Reads of an object stream behind the end of the data.
  std::uint64_t m_maxFailedReads = 1'000'000;
  /// Stack for reading; a quarter of what is left of it, where that is less. Of a JSON text, each level
  /// counts as 1 KiB.
  std::uint64_t m_maxStackBytes = std::uint64_t{1} << 20;
  std::uint64_t m_maxMilliseconds = 120'000;  ///< for reading an object stream
  /// Is told the size of the input, once it is in memory and before anything of it is read.
  std::function<void(std::uint64_t)> m_onInput = {};
};

/// Opens and reads a document; "-" is standard input. Never throws on bad content: what is wrong is in the
/// findings. The library must be initialised.
Document openDocument(std::string const& path, OpenLimits const& limits = {});

/// As `openDocument` for content that is in memory; `path` only names it.
Document readDocument(std::string content, std::string const& path, OpenLimits const& limits = {});

}  // namespace qvToolkit
