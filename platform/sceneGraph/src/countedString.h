#pragma once

#include <cstdint>
#include <string>

#include "qvSystem/qvBaseStream.h"

namespace qv::impl {

/// Raw read of exactly `count` bytes: counted when full, else a stream error. True when full.
inline bool readBytes(qvBaseStream& in, std::size_t count, void* destination) {
  if (in.ReadRaw(count, destination) == count) {
    in.AddReadBytes(count);
    return true;
  }
  in.setStreamError();
  return false;
}

/// Reads a counted string: i32 length and that many bytes; a length below 1 gives the empty string. A string
/// shorter than announced keeps its announced size, the rest zero: it is made anew, so nothing of an older
/// one shows.
inline std::string readCountedString(qvBaseStream& in) {
  std::int32_t length = 0;
  in.readle(4, 1, &length);
  std::string text;
  if (length < 1) return text;
  text.resize(static_cast<std::size_t>(length));
  readBytes(in, text.size(), text.data());
  return text;
}

}  // namespace qv::impl
