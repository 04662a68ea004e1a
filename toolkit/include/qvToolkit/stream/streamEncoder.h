#pragma once

#include <cstdint>
#include <string>

#include "qvToolkit/findings/finding.h"
#include "qvToolkit/model/document.h"

namespace qvToolkit {

/// Stream versions that can be written, packed: 6.13 is the first with views, 6.27 the newest layout.
constexpr std::uint32_t OldestWritableVersion = 0x6000D;
constexpr std::uint32_t NewestWritableVersion = 0x6001B;

struct EncodingOptions {
  std::uint32_t m_version = NewestWritableVersion;  ///< packed
  /// No metadata object: the document is its views, in order.
  bool m_viewsOnly = false;
};

/// A document as an object stream, and what it could not take along.
struct EncodedDocument {
  std::string m_bytes;  ///< empty when the version cannot be written
  Findings m_findings;
};

/// Writes the views of a document into an object stream: one metadata object that links them in their order,
/// then each distinct view object once. Equal documents and options give equal bytes.
///
/// Everything that the version cannot hold is a finding with the address of what lost it: an error where
/// content is gone (annotations, characters), a warning where only its look or its metadata is. Views that
/// the reader refused are left out with an error. The library must be initialised.
EncodedDocument encodeDocument(Document const& document, EncodingOptions const& options);

}  // namespace qvToolkit
