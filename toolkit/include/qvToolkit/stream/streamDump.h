#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "qvToolkit/findings/exitCode.h"
#include "qvToolkit/findings/finding.h"
#include "qvToolkit/reading/openDocument.h"
#include "qvToolkit/reading/streamFields.h"

namespace qvToolkit {

/// "0000000c  02 00 00 00 ...  objectCount = 2" on one line without its end; at most 12 bytes are shown.
/// `bytes` is the whole document that the field is of.
std::string formatField(StreamField const& field, std::string_view bytes);

/// What is to be said of a dump.
struct DumpResult {
  Findings m_findings;            ///< why there is no dump, or an error for each break; of many the first 100
  ExitCode m_failure = ExitDone;  ///< why there is no dump; breaks are none
};

/// Writes the fields of a binary document as text, one line each; "-" is standard input. With `at` only the
/// field that holds that byte and its neighbours, two on each side.
/// @code
/// auto const print = [](std::string_view line) { std::cout << line; };
/// DumpResult const result = dumpStreamFile("bracket.qvs", /*at*/ 12, print);
/// assert(result.m_failure == ExitDone);
/// @endcode
/// `write` takes one line with its end at a time. The library need not be initialised. Of `limits` only the
/// size of the input counts. Throws `std::bad_alloc`, and what `write` throws.
DumpResult dumpStreamFile(std::string const& path, std::optional<std::uint64_t> at,
                          std::function<void(std::string_view)> const& write, OpenLimits const& limits = {});

/// As `dumpStreamFile` for content that is in memory.
DumpResult dumpStream(std::string_view bytes, std::optional<std::uint64_t> at,
                      std::function<void(std::string_view)> const& write);

}  // namespace qvToolkit
