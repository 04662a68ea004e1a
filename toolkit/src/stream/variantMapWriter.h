#pragma once

#include <cstddef>

#include "model/variantLookup.h"
#include "stream/streamBytes.h"

namespace qvToolkit {

/// Writes a variant map in the object stream's encoding. A map or list that is nested deeper than the
/// encoding allows is written as null.
void writeVariantMap(StreamBytes& out, VariantMap const& map);

/// The number of maps and lists that `writeVariantMap` writes as null.
std::size_t countTooDeep(VariantMap const& map);

}  // namespace qvToolkit
