#pragma once

/// What the readers ask of the object stream under names that differ between platforms.

#include <qvSceneGraph/qvInstanceMetaData.h>
#include <qvSystem/qvBaseStream.h>

#include <cstddef>
#include <cstdint>

namespace qvLegacy::ports {

/// The stream's packed version: 0x60016 is 6.22.
inline std::uint32_t version(qv::qvBaseStream const& stream) noexcept {
  return stream.GetVersion();
}

/// Raw read: delivers up to `count` bytes into `destination` and returns how many. Touches neither the error
/// state nor the read-byte counter.
inline std::size_t readRaw(qv::qvBaseStream& stream, std::size_t count, void* destination) {
  return stream.ReadRaw(count, destination);
}

/// Adds `count` to the stream's read-byte counter.
inline void countRead(qv::qvBaseStream& stream, std::size_t count) noexcept {
  stream.AddReadBytes(count);
}

}  // namespace qvLegacy::ports
