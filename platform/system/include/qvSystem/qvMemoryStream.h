#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "qvSystem/export.h"
#include "qvSystem/qvBaseStream.h"
#include "qvSystem/qvStreamGovernor.h"

namespace qv {

/// An object stream over bytes in memory, which must outlive it.
class QV_EXPORT qvMemoryStream : public qvBaseStream {
 public:
  /// A raw read that got less than it asked for.
  struct ShortRead {
    std::uint64_t m_offset = 0;  ///< position at which it began
    std::uint64_t m_wanted = 0;  ///< 0 when no read was short
    std::uint64_t m_delivered = 0;
  };

  qvMemoryStream(std::span<std::byte const> bytes, std::uint32_t version) noexcept;
  ~qvMemoryStream() override;

  /// With a governor, a read that finds a budget used up sets the stream error and throws `qvResourceLimit`.
  std::size_t ReadRaw(std::size_t count, void* destination) override;
  std::uint64_t GetBytesLeft() const noexcept override { return m_bytes.size() - m_position; }

  /// Puts the reads under a governor, which must outlive them; null, as at first, limits nothing.
  void SetGovernor(qvStreamGovernor* governor) noexcept { m_governor = governor; }

  /// Number of bytes delivered, whether they were counted as read or not.
  std::uint64_t GetPosition() const noexcept { return m_position; }
  /// The first short read, unless the stream was in error before it.
  ShortRead const& GetShortRead() const noexcept { return m_shortRead; }

 protected:
  /// Starts again over other bytes.
  void SetBytes(std::span<std::byte const> bytes) noexcept;

 private:
  [[noreturn]] void refuse();

  std::span<std::byte const> m_bytes;
  std::size_t m_position = 0;
  ShortRead m_shortRead;
  qvStreamGovernor* m_governor = nullptr;
};

}  // namespace qv
