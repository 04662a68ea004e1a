#pragma once

#include <string>
#include <vector>

#include "qvToolkit/export.h"

namespace qvToolkit {

/// A library of others that the toolkit works with.
struct LibraryVersion {
  std::string m_name;     ///< as its makers write it
  std::string m_version;  ///< "6.0.0"; of the one that is loaded, where it tells
};

/// All of them, those of the text layout first, since pages depend on them. For reports of faults, and for
/// whoever compares results of two machines.
/// @code
/// for (LibraryVersion const& library : listLibraryVersions())
///   std::cout << library.m_name << ' ' << library.m_version << '\n';
/// @endcode
QVT_EXPORT std::vector<LibraryVersion> listLibraryVersions();

}  // namespace qvToolkit
