#include "readers/variant/annotationElement.h"

#include "readers/variant/nameTables.h"

namespace qvLegacy::readers {

AnnotationPointer readAnnotation(FieldReader const& owner, ports::VariantMap const& element,
                                 qvAnnotationInterface::Type type) {
  AnnotationPointer annotation = newAnnotation(type);
  if (!annotation->loadFromVariant(element, owner.version(), owner.errors())) return nullptr;
  return annotation;
}

AnnotationPointer readTypedAnnotation(FieldReader& owner, ports::VariantMap const& element) {
  TextForm const name(ports::at(element, "type"));
  auto const type = valueOf(annotationTypes, name.text(), qvAnnotationInterface::Unknown);
  if (type == qvAnnotationInterface::Unknown) {
    owner.invalid("invalid annotation type");
    return nullptr;
  }
  return readAnnotation(owner, element, type);
}

}  // namespace qvLegacy::readers
