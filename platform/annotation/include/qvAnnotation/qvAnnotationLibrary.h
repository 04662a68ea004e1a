#pragma once

#include "qvSystem/export.h"

namespace qv {

/// Counted initialisation of the annotation library; system and scene graph must be initialised. With
/// `loadFonts` the font configuration is read at once instead of with the first text.
QV_EXPORT void initializeQvAnnotationLibrary(bool loadFonts);
QV_EXPORT void terminateQvAnnotationLibrary();

}  // namespace qv
