#pragma once

#include <string>

#include "annotationLegacy/qvAnnotationView.h"

namespace qvStreamTest {

/// Compares two views field by field, numbers by their bits. The first difference, such as
/// "annot/3/sub/0/leader/1/head"; empty when there is none.
std::string findDifference(qvLegacy::qvAnnotationView const& a, qvLegacy::qvAnnotationView const& b);

}  // namespace qvStreamTest
