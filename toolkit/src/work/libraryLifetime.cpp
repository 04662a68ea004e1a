#include "work/libraryLifetime.h"

#include "annotationLegacy/library.h"
#include "annotationLegacy/qvAnnotationMetaData.h"

namespace qvToolkit {

namespace {

/// Registrations are not counted by the stream: the last lifetime takes the name back.
int lifetimes = 0;

}  // namespace

LibraryLifetime::LibraryLifetime() {
  qv::initializeQvAnnotationLegacyLibrary();
  try {
    qvLegacy::qvAnnotationMetaData::RegisterFactory();
  } catch (...) {
    qv::terminateQvAnnotationLegacyLibrary();
    throw;
  }
  ++lifetimes;
}

LibraryLifetime::~LibraryLifetime() {
  if (--lifetimes == 0) qvLegacy::qvAnnotationMetaData::UnRegisterFactory();
  qv::terminateQvAnnotationLegacyLibrary();
}

}  // namespace qvToolkit
