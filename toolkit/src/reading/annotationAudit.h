#pragma once

#include "annotationLegacy/qvAnnotationInterface.h"
#include "reading/auditTrail.h"

namespace qvToolkit {

/// Compares the record at hand with the annotation that was read from it; its sub-annotations are left to the
/// caller. The view's own annotations, which are on no parent, are told apart by `isOfView`.
void auditAnnotation(VariantMap const& record, qvLegacy::qvAnnotationInterface const& annotation,
                     bool isOfView, AuditTrail& trail);

}  // namespace qvToolkit
