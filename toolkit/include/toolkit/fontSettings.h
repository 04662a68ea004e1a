#pragma once

#include <string>

#include "qvAnnotation/fontOptions.h"

namespace qvToolkit {

using FontOptions = qv::text::FontOptions;

/// Sets which fonts the process may use; to be called before the first document is migrated.
void applyFontOptions(FontOptions const& options);

/// Why one of the folders cannot be searched, such as "cannot use the folder of fonts 'x': ..."; empty when
/// all of them can.
std::string findFontFolderProblem(FontOptions const& options);

/// A font configuration, in fontconfig's own form, that lets another program find the same fonts; empty when
/// the system's own does.
std::string formatFontConfiguration(FontOptions const& options);

}  // namespace qvToolkit
