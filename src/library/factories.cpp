#include <memory>

#include "annotationLegacy/qvAnnotationMetaData.h"
#include "annotationLegacy/qvAnnotationView.h"

namespace qvLegacy {

namespace {

/// A new object, loaded from the stream. It is returned as it stands when the stream reports an error: the
/// stream's caller looks at that.
template <class Object>
qv::qvRttiInterface* createAndLoad(qv::qvBaseStream& stream) {
  auto object = std::make_unique<Object>();
  object->Load(stream);
  return object.release();
}

}  // namespace

qv::qvRttiInterface* qvAnnotationView::Factory(qv::qvBaseStream& stream) {
  return createAndLoad<qvAnnotationView>(stream);
}

void qvAnnotationView::RegisterFactory() {
  qv::qvRttiInterface::RegisterFactoryFunction(TYPE.GetName(), &qvAnnotationView::Factory);
}

void qvAnnotationView::UnRegisterFactory() {
  qv::qvRttiInterface::UnregisterFactoryFunction(TYPE.GetName());
}

qv::qvRttiInterface* qvAnnotationMetaData::Factory(qv::qvBaseStream& stream) {
  return createAndLoad<qvAnnotationMetaData>(stream);
}

void qvAnnotationMetaData::RegisterFactory() {
  qv::qvRttiInterface::RegisterFactoryFunction(TYPE.GetName(), &qvAnnotationMetaData::Factory);
}

void qvAnnotationMetaData::UnRegisterFactory() {
  qv::qvRttiInterface::UnregisterFactoryFunction(TYPE.GetName());
}

}  // namespace qvLegacy
