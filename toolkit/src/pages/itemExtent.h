#pragma once

#include <optional>

#include "pages/affine.h"
#include "qvSvg/itemInterface.h"

namespace qvToolkit {

/// What an item covers in its own coordinates; empty for a group and for a text without characters. Nothing
/// when one of the item's numbers, stroke width and text size among them, is not drawable.
std::optional<Extent> measureOwnExtent(qv::svg::ItemInterface const& item);

}  // namespace qvToolkit
