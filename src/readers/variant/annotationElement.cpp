#include "readers/variant/annotationElement.h"

namespace qvLegacy::readers {

AnnotationPointer readAnnotation(FieldReader const& owner, ports::VariantMap const& element,
                                 qvAnnotationInterface::Type type) {
  AnnotationPointer annotation = newAnnotation(type);
  if (!annotation->loadFromVariant(element, owner.version(), owner.errors())) return nullptr;
  return annotation;
}

AnnotationPointer readTypedAnnotation(FieldReader& owner, ports::VariantMap const& element) {
  TextForm const name(ports::at(element, rules::annotation::type.key));
  auto const type = static_cast<qvAnnotationInterface::Type>(rules::annotationTypes.valueOf(name.text()));
  if (type == qvAnnotationInterface::Unknown) {
    owner.invalid(rules::messages::invalidType);
    return nullptr;
  }
  return readAnnotation(owner, element, type);
}

}  // namespace qvLegacy::readers
