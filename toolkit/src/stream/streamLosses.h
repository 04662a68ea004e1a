#pragma once

#include <cstdint>

#include "annotationLegacy/qvAnnotationView.h"
#include "qvToolkit/findings/address.h"
#include "qvToolkit/findings/finding.h"

namespace qvToolkit {

/// Names what a stream of that version cannot hold of a view, each with the address of what loses it.
void findStreamLosses(qvLegacy::qvAnnotationView const& view, Address const& address, std::uint32_t version,
                      Findings& findings);

}  // namespace qvToolkit
