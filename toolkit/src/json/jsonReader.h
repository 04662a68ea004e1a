#pragma once

#include <cstddef>
#include <string>

#include "annotationLegacy/platform.h"
#include "files/inputFile.h"
#include "qvToolkit/findings/finding.h"

namespace qvToolkit {

/// What became of a JSON text.
struct JsonReading {
  qv::qvVariant m_value;    ///< null when the text is broken or a lone scalar
  Findings m_findings;      ///< with line, column and, where known, JSON pointer
  std::size_t m_depth = 0;  ///< the most objects and arrays within each other
  bool m_isBroken = false;  ///< the only finding says why
};

/// Room behind a text that the parser may read. A string with this much spare capacity is parsed where it is.
constexpr std::size_t JsonPadding = RoomBehindInput;

/// Reads a JSON text into a variant. Integers without fraction and exponent are of the integer kind, others
/// real; one beyond 64 bits becomes a real, of equal keys the last wins, a byte-order mark is skipped, an
/// escaped half of a surrogate pair becomes U+FFFD, each with a warning. A number that no double holds,
/// invalid UTF-8 and more than `maxContainers` nested objects and arrays are faults.
///
/// `text` is given spare capacity; its content stays. Throws `std::bad_alloc` only.
JsonReading readJson(std::string& text, std::size_t maxContainers);

}  // namespace qvToolkit
