#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "qvToolkit/export.h"
#include "qvToolkit/model/document.h"
#include "qvToolkit/outcome/limits.h"

namespace qvToolkit {

/// What the opening of a document may take. Each limit that is reached is a finding and `ExitLimit`.
struct OpenLimits {
  std::uint64_t m_maxInputBytes = std::uint64_t{1} << 30;  ///< of `openDocument`; 1 GiB
  std::size_t m_maxContainers = 1000;                      ///< nesting of JSON containers
  /// Reads of an object stream behind the end of the data.
  std::uint64_t m_maxFailedReads = 1'000'000;
  /// Stack for reading; a quarter of what is left of it, where that is less. Of a JSON text, each level
  /// counts as 1 KiB.
  std::uint64_t m_maxStackBytes = std::uint64_t{1} << 20;
  std::uint64_t m_maxMilliseconds = 120'000;  ///< for reading an object stream
  /// Is told the size of the input, once it is in memory and before anything of it is read.
  std::function<void(std::uint64_t)> m_onInput = {};
};

/// Those of the limits of the work that opening has to keep.
QVT_EXPORT OpenLimits makeOpenLimits(Limits const& limits);

/// Opens and reads a document of either encoding; "-" is standard input.
/// @code
/// Session const session;
/// Document const document = openDocument("bracket.json");
/// for (Finding const& finding : document.m_findings)
///   std::cerr << formatFinding(document.m_path, finding) << '\n';
/// if (getFailure(document) != ExitDone) return;  // there are no views
/// @endcode
/// Never throws on bad content, nor for want of memory: what is wrong is in the findings, and where nothing
/// could be read `getFailure` says of what kind the failure was. A view that is refused costs the others
/// nothing. The library must be initialised, for as long as the document lives.
QVT_EXPORT Document openDocument(std::string const& path, OpenLimits const& limits = {});

/// As `openDocument` for content that is in memory, however large; `path` only names it.
QVT_EXPORT Document readDocument(std::string content, std::string const& path, OpenLimits const& limits = {});

}  // namespace qvToolkit
