#include "qvAnnotation/qvAnnotationLibrary.h"

#include "fontCatalog.h"
#include "qvSystem/libInitCounter.h"

namespace qv {

namespace {

impl::LibInitCounter& initCounter() {
  static impl::LibInitCounter counter("qvAnnotation", true);
  return counter;
}

}  // namespace

void initializeQvAnnotationLibrary(bool loadFonts) {
  // The fonts first: when reading them throws, nothing has been counted.
  if (loadFonts) text::FontCatalog::shared();
  initCounter().incrementInitCounter();
}

void terminateQvAnnotationLibrary() {
  if (initCounter().decrementInitCounter()) text::FontCatalog::releaseShared();
}

}  // namespace qv
