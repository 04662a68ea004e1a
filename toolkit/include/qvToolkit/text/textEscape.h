#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "qvToolkit/export.h"

namespace qvToolkit {

/// Valid UTF-8 without what XML 1.0 forbids: each maximal invalid sequence, each control character but TAB,
/// LF and CR, each surrogate, U+FFFE and U+FFFF becomes U+FFFD. `repaired`, when not null, tells whether
/// anything changed. Like the others here it takes any bytes, never fails, and costs time in proportion to
/// them.
/// @code
/// assert(repairUtf8("\xFF A") == "\uFFFD A");
/// assert(escapeXml("5 < 6") == "5 &lt; 6");
/// assert(quoteJson("5 \"") == R"("5 \"")");
/// assert(escapeTerminal("\x1b[2J") == R"(\x1b[2J)");
/// @endcode
QVT_EXPORT std::string repairUtf8(std::string_view bytes, bool* repaired = nullptr);

/// Repaired text for XML content and double-quoted attributes: & < > " ' as references, TAB, LF and CR as
/// numeric references.
QVT_EXPORT std::string escapeXml(std::string_view bytes);

/// Text between double quotes, for JSON. Nothing is lost but invalid UTF-8, which becomes U+FFFD as in
/// `repairUtf8`: control characters, line separators and bidirectional controls are escaped, so that the
/// result is one harmless line for a terminal, too.
QVT_EXPORT std::string quoteJson(std::string_view bytes);

/// Appends the same; true when the bytes were valid UTF-8 throughout, so that nothing is lost.
QVT_EXPORT bool appendJson(std::string& text, std::string_view bytes);

/// One line for a terminal: control characters, bidirectional controls and invalid bytes as `\x1b`, `\u202e`
/// and the like, backslashes doubled.
QVT_EXPORT std::string escapeTerminal(std::string_view bytes);

/// A text of a document for within a sentence: whole when it has at most `maxBytes`, or else its beginning,
/// cut at the end of a character, and its size: "Liberat... (4194304 bytes)".
QVT_EXPORT std::string shortenText(std::string_view bytes, std::size_t maxBytes = 200);

}  // namespace qvToolkit
