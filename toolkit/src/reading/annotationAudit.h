#pragma once

#include "annotationLegacy/qvAnnotationInterface.h"
#include "reading/auditTrail.h"

namespace qvToolkit {

/// Compares the record at hand with the annotation that was read from it; its sub-annotations are left to the
/// caller.
void auditAnnotation(VariantMap const& record, qvLegacy::qvAnnotationInterface const& annotation,
                     AuditTrail& trail);

}  // namespace qvToolkit
