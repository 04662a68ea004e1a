#pragma once

#include <cstdint>
#include <string>

#include "qvSystem/export.h"

namespace qv {

/// Version of a persisted document: major in the upper 16 bits, minor in the lower 16 bits of one number.
class QV_EXPORT qvStreamVersion {
 public:
  constexpr qvStreamVersion() noexcept = default;
  explicit constexpr qvStreamVersion(std::uint32_t packed) noexcept : m_packed(packed) {}
  constexpr qvStreamVersion(std::uint16_t major, std::uint16_t minor) noexcept
      : m_packed((static_cast<std::uint32_t>(major) << 16) | minor) {}
  /// Parses "MAJOR.MINOR", two decimal numbers of at most 65535 each; any other text packs to 0.
  explicit qvStreamVersion(std::string const& text);

  /// The packed number that version gates compare: 6.22 is 0x60016.
  constexpr std::uint32_t GetPacked() const noexcept { return m_packed; }
  constexpr std::uint16_t GetMajor() const noexcept { return static_cast<std::uint16_t>(m_packed >> 16); }
  constexpr std::uint16_t GetMinor() const noexcept { return static_cast<std::uint16_t>(m_packed & 0xFFFFU); }
  /// "MAJOR.MINOR" in decimal.
  std::string toString() const;

  friend constexpr auto operator<=>(qvStreamVersion, qvStreamVersion) noexcept = default;

 private:
  std::uint32_t m_packed = 0;
};

}  // namespace qv
