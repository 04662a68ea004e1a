#pragma once

#include "annotationLegacy/export.h"

namespace qv {

/// Makes the library ready for use: initialises the platform libraries, creates the shared empty child list
/// and registers the stream factories of the view and of the metadata object. Calls are counted; only the
/// first one does anything. Hosts initialise and terminate from one thread.
///
/// An exception of the platform undoes what was done, gives the count back and propagates.
QVA_EXPORT void initializeQvAnnotationLegacyLibrary();

/// Undoes one initialisation; the last one unregisters the factories and terminates the platform libraries.
/// Without a matching initialisation nothing happens. No annotation may be in use after the last one.
QVA_EXPORT void terminateQvAnnotationLegacyLibrary();

}  // namespace qv
