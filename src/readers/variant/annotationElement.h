#pragma once

#include "readers/newAnnotation.h"
#include "readers/variant/fieldReader.h"

/// Annotations as elements of a list in the map of their view or parent. Each takes the owner's version and
/// error list.
namespace qvLegacy::readers {

/// A new annotation of the given kind, read from `element`; null when it cannot be read, which its own reader
/// reported.
[[nodiscard]] AnnotationPointer readAnnotation(FieldReader const& owner, ports::VariantMap const& element,
                                               qvAnnotationInterface::Type type);

/// As above, of the kind that `element` names under "type". A name that is no kind is reported and gives
/// null.
[[nodiscard]] AnnotationPointer readTypedAnnotation(FieldReader& owner, ports::VariantMap const& element);

}  // namespace qvLegacy::readers
