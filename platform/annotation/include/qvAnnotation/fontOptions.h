#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "qvSystem/export.h"

namespace qv::text {

/// A family to be drawn wherever a document names another one. Names are compared without case and blanks.
struct FontReplacement {
  std::string m_family;       ///< named by documents
  std::string m_replacement;  ///< drawn instead, also when `m_family` is installed
};

/// Which fonts a process may use.
struct FontOptions {
  /// Searched with all folders below them, before the installed fonts. A folder that cannot be read holds no
  /// fonts.
  std::vector<std::string> m_directories;
  /// The first one that fits a family counts. One whose replacement is not there changes nothing.
  std::vector<FontReplacement> m_replacements;
  /// False: only the fonts in `m_directories` are used, and no font configuration is read.
  bool m_useSystemFonts = true;
};

/// Sets the options for the whole process, to be called before the first text is laid out: a converter that
/// has laid out text goes on with the options of that time.
QV_EXPORT void setFontOptions(FontOptions const& options);
QV_EXPORT FontOptions getFontOptions();

/// True when a font of the family is there. Looks for fonts if no text was laid out before.
QV_EXPORT bool hasFontFamily(std::string_view family);
/// True when text was to be laid out and there was no font at all. Does not look for fonts itself.
QV_EXPORT bool hasMissedEveryFont();

/// The Debian package that has a font with the character, to be installed when no font has it; empty when no
/// package is known, as for private characters.
QV_EXPORT std::string_view findPackageWithCharacter(char32_t character) noexcept;
/// The Debian package that has the family or one with the same advance widths, to be installed when the
/// family is substituted; empty when none is known.
QV_EXPORT std::string_view findPackageWithFamily(std::string_view family);

}  // namespace qv::text
