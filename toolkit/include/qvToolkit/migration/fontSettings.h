#pragma once

#include <string>

#include "qvAnnotation/fontOptions.h"

namespace qvToolkit {

using FontOptions = qv::text::FontOptions;

/// Sets which fonts the process may use; to be called before the first document is migrated.
void applyFontOptions(FontOptions const& options);

/// Looks for these fonts now instead of when the first text is laid out. What a process has found before it
/// forks, its children need not look for.
void findFonts();

/// Why one of the folders cannot be searched, such as "cannot use the folder of fonts 'x': ..."; empty when
/// all of them can.
std::string findFontFolderProblem(FontOptions const& options);

/// A font configuration, in fontconfig's own form, that lets another program find the same fonts; empty when
/// the system's own does.
std::string formatFontConfiguration(FontOptions const& options);

}  // namespace qvToolkit
