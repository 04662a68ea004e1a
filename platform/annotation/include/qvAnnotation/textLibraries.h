#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "qvSystem/export.h"

namespace qv::text {

/// A library that texts are laid out with.
struct TextLibrary {
  std::string_view m_name;  ///< as its makers write it
  std::string m_version;    ///< of the one that is loaded, "6.0.0"
};

/// All of them: with other versions the same text may get other glyphs, places and fonts.
QV_EXPORT std::vector<TextLibrary> listTextLibraries();

}  // namespace qv::text
