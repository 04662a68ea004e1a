#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "qvToolkit/export.h"
#include "qvToolkit/findings/finding.h"
#include "qvToolkit/reading/openDocument.h"
#include "qvToolkit/reading/streamFields.h"

namespace qvToolkit {

/// "0000000c  02 00 00 00 ...  objectCount = 2" on one line without its end; at most 12 bytes are shown.
/// `bytes` is the whole document that the field is of.
QVT_EXPORT std::string formatField(StreamField const& field, std::string_view bytes);

/// Writes the fields of a binary document as text, one line each; "-" is standard input. With `at` only the
/// field that holds that byte and its neighbours, two on each side.
/// @code
/// auto const print = [](std::string_view line) { std::cout << line; };
/// Findings const findings = dumpStreamFile("bracket.qvs", /*at*/ 12, print);
/// assert(findings.empty());
/// @endcode
/// Gives why there is no dump, or an error for each break; of many the first 100.
/// `write` takes one line with its end at a time. The library need not be initialised. Of `limits` only the
/// size of the input counts. Throws `std::bad_alloc`, and what `write` throws.
QVT_EXPORT Findings dumpStreamFile(std::string const& path, std::optional<std::uint64_t> at,
                                   std::function<void(std::string_view)> const& write,
                                   OpenLimits const& limits = {});

/// As `dumpStreamFile` for content that is in memory.
QVT_EXPORT Findings dumpStream(std::string_view bytes, std::optional<std::uint64_t> at,
                               std::function<void(std::string_view)> const& write);

}  // namespace qvToolkit
