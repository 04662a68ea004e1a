#pragma once

#include <string>

#include "annotationLegacy/qvAnnotationView.h"

namespace qvToolkit {

/// The view in the variant form of the version, every key written whether it is needed or not: "text" stands
/// beside "lines", and each run has all its properties. Metadata are copied.
qv::qvVariant writeVariant(qvLegacy::qvAnnotationView const& view, qv::qvStreamVersion version);

/// A variant as JSON text.
std::string writeJsonText(qv::qvVariant const& value);

}  // namespace qvToolkit
