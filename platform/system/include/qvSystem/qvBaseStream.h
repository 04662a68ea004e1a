#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "qvSystem/export.h"

namespace qv {

class qvRttiInterface;

/// Reading side of the object stream, abstract over where the bytes come from.
///
/// A stream has a version (major in the upper 16 bits, minor in the lower 16), a sticky error state and a
/// count of the bytes that were consumed. Numbers in it are little-endian. No read throws on bad content: a
/// failing read sets the error state and the caller goes on or stops as it likes.
class QV_EXPORT qvBaseStream {
 public:
  /// Turns a linked object into what the linking entry stores; null when the object is of another type.
  using LinkConverter = void* (*)(qvRttiInterface*);

  /// A reference that was read and waits until all objects of the document are loaded.
  struct PendingLink {
    void* m_slot;
    LinkConverter m_converter;
    std::uint64_t m_offset;  ///< read-byte count in front of the reference
    std::uint32_t m_id;      ///< of the object that is referred to; not 0
    bool m_counted;
  };

  explicit qvBaseStream(std::uint32_t version) noexcept : m_version(version) {}
  virtual ~qvBaseStream();
  qvBaseStream(qvBaseStream const&) = delete;
  qvBaseStream& operator=(qvBaseStream const&) = delete;

  /// Packed stream version: 0x60016 is 6.22.
  std::uint32_t GetVersion() const noexcept { return m_version; }
  void SetVersion(std::uint32_t version) noexcept { m_version = version; }

  /// Raw read: delivers up to `count` bytes into `destination` and returns how many. Fewer than `count` means
  /// that the stream is at its end. Neither the error state nor the read-byte counter is touched: both are
  /// the caller's business.
  virtual std::size_t ReadRaw(std::size_t count, void* destination) = 0;

  /// Reads `elementCount` little-endian elements of `elementSize` bytes (1, 2, 4 or 8) and counts them as
  /// read. A short read leaves `destination` untouched, sets the error state and consumes the rest of the
  /// stream. Another element size or a negative count sets the error state and reads nothing.
  void readle(int elementSize, int elementCount, void* destination);

  /// Number of bytes that raw reads can still deliver, as far as the stream knows; the largest number when it
  /// does not. Announced counts are held against it.
  virtual std::uint64_t GetBytesLeft() const noexcept;

  /// Reads a reference to another object: its u32 id, 0 for none. What `converter` makes of that object is
  /// stored into the pointer at `slot` when all objects of the document are loaded; until then the slot is
  /// null and must stay where it is. With `counted` the slot is a counted pointer, laid out as a plain one:
  /// it must hold no reference before and receives one then.
  void ReadObjectImpl(void* slot, bool counted, LinkConverter converter);
  /// Hands over the references read so far; who loads the document resolves them. Those that are never handed
  /// over are dropped with the stream, and their slots stay null.
  std::vector<PendingLink> TakePendingLinks() noexcept;

  /// The link converter for objects of class T: null for null and for an object that is no T.
  template <class T>
  static void* GetLinkPointer(qvRttiInterface* object) {
    return object == nullptr ? nullptr : static_cast<void*>(dynamic_cast<T*>(object));
  }

  /// Sticky error state; no operation clears it.
  void setStreamError() noexcept;
  bool hasStreamError() const noexcept { return m_hasError; }
  /// Read-byte count at the first error: where the field that failed begins, as long as every read is
  /// counted. 0 without an error.
  std::uint64_t GetErrorOffset() const noexcept { return m_errorOffset; }

  /// Number of bytes that full reads have consumed.
  std::uint64_t GetReadBytes() const noexcept { return m_readBytes; }
  void AddReadBytes(std::size_t count) noexcept { m_readBytes += count; }

 private:
  std::vector<PendingLink> m_pendingLinks;
  std::uint64_t m_readBytes = 0;
  std::uint64_t m_errorOffset = 0;
  std::uint32_t m_version;
  bool m_hasError = false;
};

}  // namespace qv
