#pragma once

namespace qvToolkit {

/// Keeps the library initialised; several may overlap.
///
/// The library alone registers one of the two spellings of the metadata type's name. Documents carry either,
/// so the other one is registered, too.
class LibraryLifetime {
 public:
  /// What the platform throws leaves everything as it was and propagates.
  LibraryLifetime();
  ~LibraryLifetime();
  LibraryLifetime(LibraryLifetime const&) = delete;
  LibraryLifetime& operator=(LibraryLifetime const&) = delete;
};

}  // namespace qvToolkit
