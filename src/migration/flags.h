#pragma once

#include <cstdint>

namespace qvLegacy::migration {

/// The flags of a CAD annotation that had `flags` and takes over the legacy style byte `style`.
[[nodiscard]] constexpr std::uint8_t migratedFlags(std::uint8_t flags, std::uint8_t style) {
  unsigned const ignoreZTest = style & 0x20U;
  unsigned const scale = (style & 0x40U) != 0 ? 0x40U : 0x10U;
  unsigned const freeFrame = (style & 0x80U) != 0 ? 0U : 0x80U;
  return static_cast<std::uint8_t>((flags & ~0x20U) | ignoreZTest | scale | freeFrame);
}

}  // namespace qvLegacy::migration
