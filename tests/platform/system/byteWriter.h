#pragma once

#include <cstdint>
#include <string_view>

#include "tests/support/byteBuilder.h"

namespace qvTest {

using ByteWriter = ByteBuilder;

/// Head of an object stream document.
inline ByteWriter document(std::uint32_t version, std::uint32_t objectCount) {
  ByteWriter out;
  out.raw("qvStream").u32(version).u32(objectCount);
  return out;
}

/// One object of a document.
inline ByteWriter object(std::uint32_t id, std::string_view typeName, ByteWriter const& payload) {
  ByteWriter out;
  out.u32(id).text(typeName).u64(payload.size()).append(payload);
  return out;
}

}  // namespace qvTest
