#pragma once

#include <cstdint>
#include <string>

#include "qvToolkit/export.h"
#include "qvToolkit/findings/finding.h"
#include "qvToolkit/model/document.h"
#include "qvToolkit/outcome/request.h"

namespace qvToolkit {

/// How a document is to be encoded.
struct EncodingOptions {
  /// Packed: the major number times 65536 plus the minor.
  std::uint32_t m_version = getNewestWritableVersion();
  /// No metadata object: the document is its views, in order.
  bool m_viewsOnly = false;
};

/// A document as an object stream, and what it could not take along.
struct EncodedDocument {
  std::string m_bytes;  ///< empty when the version cannot be written
  Findings m_findings;  ///< what the version cannot hold
};

/// Writes the views of a document into an object stream: one metadata object that links them in their order,
/// then each distinct view object once. Equal documents and options give equal bytes.
/// @code
/// EncodingOptions options;
/// options.m_version = qv::qvStreamVersion(6, 17).GetPacked();
/// EncodedDocument const old = encodeDocument(openDocument("bracket.json"), options);
/// for (Finding const& loss : old.m_findings) std::cerr << loss.m_address << ": " << loss.m_text << '\n';
/// @endcode
/// An annotation that several share is written at each of its places; `checkTrees` tells beforehand whether
/// that is too much. The bytes are in memory as a whole.
///
/// Everything that the version cannot hold is a finding with the address of what lost it: an error where
/// content is gone (annotations, characters), a warning where only its look or its metadata is. Views that
/// the reader refused are left out with an error. The library must be initialised.
QVT_EXPORT EncodedDocument encodeDocument(Document const& document, EncodingOptions const& options);

}  // namespace qvToolkit
