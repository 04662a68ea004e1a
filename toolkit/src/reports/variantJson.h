#pragma once

#include "annotationLegacy/platform.h"
#include "qvToolkit/json/jsonWriter.h"

namespace qvToolkit {

/// Writes a variant map as a JSON array of entries, {"key": ..., "kind": ..., "value": ...}, sorted by key as
/// bytes: an array, since keys may be invalid UTF-8 and would then collide. The kind tells an integer from a
/// real. A list's value is an array of such entries without keys, a map's value one with keys. A real has
/// its bits under "valueBits", null where it is finite.
///
/// Walks without recursion.
void writeVariantMap(JsonWriter& json, qv::qvVariant::qvVariantMapImpl const& map);

}  // namespace qvToolkit
