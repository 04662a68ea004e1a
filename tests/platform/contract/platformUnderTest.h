#pragma once

/// What the contract tests need of a platform beyond what the library itself needs: documents to read, and
/// ways to look at what was stored. On another platform SDK this file and `src/ports/` change, the tests do
/// not.

#include <qvSystem/qvMemoryStream.h>
#include <qvSystem/qvStreamReader.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <vector>

#include "annotationLegacy/platform.h"

namespace qvContract {

/// A stream over bytes in memory, which must outlive it.
using MemoryStream = qv::qvMemoryStream;

/// Bytes of a document, as the platform's writer would put them down.
class Bytes {
 public:
  template <class T>
  Bytes& number(T value) {
    std::byte bytes[sizeof(T)];
    std::memcpy(bytes, &value, sizeof(T));
    m_bytes.insert(m_bytes.end(), bytes, bytes + sizeof(T));
    return *this;
  }
  Bytes& u32(std::uint32_t value) { return number(value); }
  Bytes& text(std::string const& characters) {
    for (char const c : characters) number(c);
    return *this;
  }
  /// The string that a `qvObject` reads first.
  Bytes& countedString(std::string const& characters) {
    return number(static_cast<std::int32_t>(characters.size())).text(characters);
  }
  /// A reference to the object with this number; 0 for none.
  Bytes& reference(std::uint32_t id) { return u32(id); }
  /// A variant map of one text.
  Bytes& variantMap(std::string const& key, std::string const& value) {
    return u32(1).countedString(key).number(std::uint8_t{3}).countedString(value);
  }

  std::span<std::byte const> get() const { return m_bytes; }

 private:
  std::vector<std::byte> m_bytes;
};

/// An object of a document.
struct Object {
  std::uint32_t m_id;
  std::string m_typeName;
  Bytes m_payload;
};

/// Loads a document of these objects, as the platform's document reader does, and gives those that were made.
inline qv::qvLoadedDocument load(std::uint32_t version, std::vector<Object> const& objects) {
  Bytes document;
  document.text("qvStream").u32(version).u32(static_cast<std::uint32_t>(objects.size()));
  for (Object const& object : objects) {
    auto const payload = object.m_payload.get();
    document.u32(object.m_id).countedString(object.m_typeName).number(std::uint64_t{payload.size()});
    for (std::byte const byte : payload) document.number(byte);
  }
  return qv::LoadObjectStream(document.get());
}

}  // namespace qvContract
