#pragma once

#include "annotationLegacy/qvAnnotationText.h"
#include "reading/auditTrail.h"

namespace qvToolkit {

/// Parts of a text annotation's record; the trail stands at the record.

/// What is under "defaulttextprop", where that is a map.
void auditDefaultProperties(VariantMap const& properties, AuditTrail& trail);

/// What is under "lines".
void auditLines(qv::qvVariant const& lines, qvLegacy::qvAnnotationText const& text, AuditTrail& trail);

/// What is under "text", where it is looked at: beside lines it is not.
void auditPlainText(VariantMap const& record, qv::qvVariant const& text, AuditTrail& trail);

}  // namespace qvToolkit
