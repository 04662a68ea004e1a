#pragma once

#include "qvToolkit/export.h"

namespace qvToolkit {

/// The library is ready for documents of either encoding for as long as a session lives.
/// @code
/// LibrarySession const session;
/// Document const document = openDocument("bracket.json");  // gone before the session is
/// @endcode
/// Sessions may overlap; they are begun and ended on one thread. Documents, and what was made of them, must
/// be gone before the last one ends.
///
/// The library alone registers one of the two spellings of the metadata type's name. Documents carry either,
/// so a session registers the other one, too.
class QVT_EXPORT LibrarySession {
 public:
  /// Initialises the library. What the platform throws leaves everything as it was and propagates.
  LibrarySession();
  /// The last session to end terminates the library, unless the host initialised it, too.
  ~LibrarySession();
  LibrarySession(LibrarySession const&) = delete;
  LibrarySession& operator=(LibrarySession const&) = delete;
};

}  // namespace qvToolkit
