#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "qvSystem/export.h"
#include "qvSystem/qvRttiInterface.h"
#include "qvSystem/qvStreamGovernor.h"

namespace qv {

/// Releases the reference that a handle holds.
struct qvReleaseReference {
  void operator()(qvRttiInterface* object) const { object->DecrementReferences(); }
};

/// Holds one reference on a stream object. (`qvPointer` does the same for the scene graph's objects.)
using qvObjectHandle = std::unique_ptr<qvRttiInterface, qvReleaseReference>;

/// Something that is wrong with an object stream.
struct qvStreamProblem {
  enum class Severity : std::uint8_t { Warning, Error };
  enum class Kind : std::uint8_t {
    Broken,       ///< the document ends too early, or where its next object starts is not known
    Id,           ///< an object id is 0 or taken
    UnknownType,  ///< an object was skipped
    NoObject,     ///< a factory made nothing
    OverRead,     ///< an object asked for more than its payload holds
    Refused,      ///< an object's reader knows no such version or record kind
    UnderRead,    ///< an object left some of its payload
    Link,         ///< a link stays null
    Trailing,     ///< there is something behind the last object
    More,         ///< tells how many did not fit into the list
  };

  Severity m_severity;
  std::uint32_t m_objectId;  ///< 0 when it concerns the document
  std::string m_typeName;    ///< of the object; empty when it concerns the document
  std::uint64_t m_offset;    ///< byte offset in the document
  std::string m_text;        ///< what was expected and what was found, without id, type and offset
  Kind m_kind;
};

/// One object of a document.
struct qvLoadedObject {
  std::uint32_t m_id;
  std::string m_typeName;   ///< as the document spells it
  std::uint64_t m_offset;   ///< of the payload's first byte in the document
  std::uint64_t m_size;     ///< of the payload as far as the document holds it
  qvObjectHandle m_object;  ///< never null
};

/// What an object stream holds.
struct qvLoadedDocument {
  std::uint32_t m_version = 0;            ///< packed stream version
  std::vector<qvLoadedObject> m_objects;  ///< in document order
  std::vector<qvStreamProblem>
      m_problems;  ///< in the order met; of more than 1,000 the last one tells how many
};

/// True when the bytes begin as an object stream does.
[[nodiscard]] QV_EXPORT bool IsObjectStream(std::span<std::byte const> bytes) noexcept;

/// Loads every object of a document, resolves the links between them and runs `PostLink` on each in document
/// order.
///
/// The document, little-endian: the 8 bytes "qvStream", u32 stream version, u32 object count; then for each
/// object u32 id (not 0, unique), its type name (i32 length and that many bytes), u64 payload size, payload.
/// The payload is what the factory of that type name reads; past its end every read is short.
///
/// Bad content is never an exception but a problem in the result: what can be loaded is loaded. An object of
/// a type without factory is skipped; of objects with one id the first is taken. A link to no object or to
/// one of another type stays null. Exceptions of factories (memory) propagate; no object is left then, and no
/// link is written. So does `qvResourceLimit` when one of the limits is reached.
[[nodiscard]] QV_EXPORT qvLoadedDocument LoadObjectStream(std::span<std::byte const> bytes,
                                                          qvStreamLimits const& limits = {});

}  // namespace qv
