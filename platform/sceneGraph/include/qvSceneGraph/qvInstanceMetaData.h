#pragma once

#include "qvSystem/export.h"
#include "qvSystem/qvVariant.h"

namespace qv {

class qvBaseStream;

/// User metadata of a model's instances.
class QV_EXPORT qvInstanceMetaData {
 public:
  /// Replaces `map` by the variant map at the stream's position: u32 count, then for each entry a counted
  /// string key and a value (a kind byte and its content). The outermost map is level 1; a map or list at
  /// level 65, an unknown kind, or a count that the bytes left cannot hold sets the stream error and ends the
  /// map there; what was read stays.
  static void LoadVariantMap(qvBaseStream& stream, qvVariant::qvVariantMapImpl& map);
};

}  // namespace qv
