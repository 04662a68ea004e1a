#include "annotationLegacy/library.h"

#include <string>

#include "annotationLegacy/qvAnnotationMetaData.h"
#include "annotationLegacy/qvAnnotationView.h"
#include "library/onFailure.h"
#include "ports/lifecycle.h"
#include "rules/typeNames.h"

// The library's static objects stand in this one file because their order of construction is fixed: the
// counter, then the type records of the metadata object and of the view.

namespace {

qv::impl::LibInitCounter initCounter("annotationLegacy", true);

}  // namespace

namespace qvLegacy {

qv::qvRtti const qvAnnotationMetaData::TYPE(rules::metadataTypeNameOfRecord, &qv::qvMetadataInterface::TYPE);
qv::qvRtti const qvAnnotationView::TYPE(rules::viewTypeName, &qv::qvObject::TYPE);

namespace {

/// The persisted type names that the library itself registers.
struct FactoryNames {
  std::string m_view = rules::viewTypeName;
  // KEEP: not the name of the type record, which answers only after qvAnnotationMetaData::RegisterFactory().
  std::string m_metadata = rules::metadataTypeName;
};

void beginLibrary(FactoryNames const& names) {
  qv::initializeQvSystem(ports::SYSTEM_INIT_TYPE, false);
  OnFailure const endSystem(&qv::terminateQvSystem);
  qv::initializeQvSceneGraph();
  OnFailure const endSceneGraph(&qv::terminateQvSceneGraph);
  qv::initializeQvAnnotationLibrary(false);
  OnFailure const endAnnotation(&qv::terminateQvAnnotationLibrary);
  qvAnnotationInterface::InitDummySubAnnots();
  OnFailure const endChildren(&qvAnnotationInterface::ClearDummySubAnnots);
  qv::qvRttiInterface::RegisterFactoryFunction(names.m_view, &qvAnnotationView::Factory);
  OnFailure const endView([&names] { qv::qvRttiInterface::UnregisterFactoryFunction(names.m_view); });
  qv::qvRttiInterface::RegisterFactoryFunction(names.m_metadata, &qvAnnotationMetaData::Factory);
}

void endLibrary(FactoryNames const& names) {
  qv::qvRttiInterface::UnregisterFactoryFunction(names.m_view);
  qv::qvRttiInterface::UnregisterFactoryFunction(names.m_metadata);
  qv::terminateQvAnnotationLibrary();
  qv::terminateQvSceneGraph();
  qv::terminateQvSystem();
  // KEEP: last, after the platform, although it was created before the factories were registered.
  qvAnnotationInterface::ClearDummySubAnnots();
}

}  // namespace

}  // namespace qvLegacy

// The names are made before the count changes: from there on nothing in this file allocates, so an exhausted
// heap leaves the library either ready or untouched.

void qv::initializeQvAnnotationLegacyLibrary() {
  qvLegacy::FactoryNames const names;
  if (!initCounter.incrementInitCounter()) return;
  qvLegacy::OnFailure const giveCountBack([] { initCounter.decrementInitCounter(); });
  qvLegacy::beginLibrary(names);
}

void qv::terminateQvAnnotationLegacyLibrary() {
  qvLegacy::FactoryNames const names;
  if (initCounter.decrementInitCounter()) qvLegacy::endLibrary(names);
}
