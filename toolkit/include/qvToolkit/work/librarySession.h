#pragma once

namespace qvToolkit {

/// The library is ready for documents of either encoding for as long as a session lives. Sessions may
/// overlap; they are begun and ended on one thread.
///
/// The library alone registers one of the two spellings of the metadata type's name. Documents carry either,
/// so a session registers the other one, too.
class LibrarySession {
 public:
  LibrarySession();
  ~LibrarySession();
  LibrarySession(LibrarySession const&) = delete;
  LibrarySession& operator=(LibrarySession const&) = delete;
};

}  // namespace qvToolkit
