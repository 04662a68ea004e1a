#pragma once

#include <string>

#include "qvAnnotation/fontOptions.h"
#include "qvToolkit/export.h"

namespace qvToolkit {

/// Folders of fonts, families to be drawn instead of others, and whether the system's fonts count. A
/// `Session` has the process use them.
using FontOptions = qv::text::FontOptions;

/// A font configuration, in fontconfig's own form, that lets another program find the same fonts; empty when
/// the system's own does.
/// @code
/// FontOptions fonts;
/// fonts.m_directories = {"fonts"};
/// fonts.m_replacements = {{"Isonorm", "Liberation Sans"}};
/// std::cout << formatFontConfiguration(fonts);
/// @endcode
/// Replacements are not part of it: pages name the fonts that they are drawn with.
QVT_EXPORT std::string formatFontConfiguration(FontOptions const& options);

}  // namespace qvToolkit
