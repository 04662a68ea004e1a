#pragma once

#include "qvSvg/boundingBox.h"
#include "qvSvg/itemInterface.h"
#include "qvSystem/export.h"

namespace qv::svg {

/// Extends `box` by the extent of `item` and of everything under it, in the coordinates in which the item's
/// own transform ends (after `matrix`, where one is given). Items that `filter` answers false for are left
/// out with all that they hold; a null filter takes all. Stroke widths are not counted. Coordinates that are
/// not finite make the box invalid.
QV_EXPORT void ComputeEstimatedBoundingBox(ItemInterface const& item, BoundingBox& box,
                                           bool (*filter)(ItemInterface const*),
                                           Wm4::Matrix3<float> const* matrix);

}  // namespace qv::svg
