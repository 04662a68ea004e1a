#pragma once

#include <string>

#include "qvAnnotation/fontOptions.h"
#include "qvToolkit/export.h"

namespace qvToolkit {

/// Folders of fonts, families to be drawn instead of others, and whether the system's fonts count.
using FontOptions = qv::text::FontOptions;

/// Sets which fonts the process may use; to be called before the first document is migrated.
/// @code
/// FontOptions fonts;
/// fonts.m_directories = {"fonts"};
/// fonts.m_replacements = {{"Isonorm", "Liberation Sans"}};
/// std::string const problem = findFontFolderProblem(fonts);
/// if (problem.empty()) applyFontOptions(fonts);
/// @endcode
/// Fonts that are not there are no failure here; texts that miss them are findings of the migration.
QVT_EXPORT void applyFontOptions(FontOptions const& options);

/// Looks for these fonts now instead of when the first text is laid out. What a process has found before it
/// forks, its children need not look for. Reads the font configuration and the files of the folders once;
/// later calls cost nothing until other options are applied.
QVT_EXPORT void findFonts();

/// Why one of the folders cannot be searched, such as "cannot use the folder of fonts 'x': ..."; empty when
/// all of them can.
QVT_EXPORT std::string findFontFolderProblem(FontOptions const& options);

/// A font configuration, in fontconfig's own form, that lets another program find the same fonts; empty when
/// the system's own does. Replacements are not part of it: pages name the fonts that they are drawn with.
QVT_EXPORT std::string formatFontConfiguration(FontOptions const& options);

}  // namespace qvToolkit
