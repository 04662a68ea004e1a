#pragma once

#include "reading/fieldCursor.h"

namespace qvToolkit {

/// Walk the payloads of the objects that are known. All of them leave the cursor where the record ends, or
/// broken.
void walkMetadataRecord(FieldCursor& in);
void walkViewRecord(FieldCursor& in);

/// Walks a variant map under the given name.
void walkVariantMap(FieldCursor& in, std::string const& name);

}  // namespace qvToolkit
