#pragma once

#include <string>

#include "findings/findingList.h"
#include "qvSvg/text.h"

namespace qvToolkit {

/// Reports what is not as the document asks: another font, a face that is made up, characters that no font
/// has, that its font leaves blank, or that cannot be shown.
void reportSpan(qv::svg::TextSpan const& span, std::string const& address, FindingList& findings);

}  // namespace qvToolkit
