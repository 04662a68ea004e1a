#include "qvToolkit/work/librarySession.h"

#include "annotationLegacy/library.h"
#include "annotationLegacy/qvAnnotationMetaData.h"

namespace qvToolkit {

namespace {

/// Registrations are not counted by the stream: the last session takes the name back.
int sessions = 0;

}  // namespace

LibrarySession::LibrarySession() {
  qv::initializeQvAnnotationLegacyLibrary();
  try {
    qvLegacy::qvAnnotationMetaData::RegisterFactory();
  } catch (...) {
    qv::terminateQvAnnotationLegacyLibrary();
    throw;
  }
  ++sessions;
}

LibrarySession::~LibrarySession() {
  if (--sessions == 0) qvLegacy::qvAnnotationMetaData::UnRegisterFactory();
  qv::terminateQvAnnotationLegacyLibrary();
}

}  // namespace qvToolkit
