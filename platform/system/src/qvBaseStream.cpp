#include "qvSystem/qvBaseStream.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <limits>
#include <utility>

namespace qv {

static_assert(std::endian::native == std::endian::little, "elements are stored as they are read");

namespace {

constexpr std::size_t maxChunk = 65536;

bool isElementSize(int size) noexcept {
  return size == 1 || size == 2 || size == 4 || size == 8;
}

/// Reads exactly `size` bytes into `destination`, or up to the stream's end and nothing into it. The memory
/// that is needed on the way is bounded by what the stream delivers, not by what is asked for.
bool readInPieces(qvBaseStream& in, std::size_t size, void* destination) {
  std::vector<std::byte> bytes;
  while (bytes.size() < size) {
    auto const before = bytes.size();
    auto const wanted = std::min(size - before, maxChunk);
    bytes.resize(before + wanted);
    if (in.ReadRaw(wanted, bytes.data() + before) != wanted) return false;
  }
  if (size > 0) std::memcpy(destination, bytes.data(), size);
  return true;
}

bool readWhole(qvBaseStream& in, std::size_t size, void* destination) {
  std::array<std::byte, 64> bytes;
  if (size > bytes.size()) return readInPieces(in, size, destination);
  if (in.ReadRaw(size, bytes.data()) != size) return false;
  if (size > 0) std::memcpy(destination, bytes.data(), size);
  return true;
}

}  // namespace

qvBaseStream::~qvBaseStream() = default;

void qvBaseStream::readle(int elementSize, int elementCount, void* destination) {
  if (!isElementSize(elementSize) || elementCount < 0) return setStreamError();
  auto const size = static_cast<std::size_t>(elementSize) * static_cast<std::size_t>(elementCount);
  if (!readWhole(*this, size, destination)) return setStreamError();
  AddReadBytes(size);
}

std::uint64_t qvBaseStream::GetBytesLeft() const noexcept {
  return std::numeric_limits<std::uint64_t>::max();
}

void qvBaseStream::ReadObjectImpl(void* slot, bool counted, LinkConverter converter) {
  std::memset(slot, 0, sizeof(void*));
  auto const offset = m_readBytes;
  std::uint32_t id = 0;
  readle(4, 1, &id);
  if (id != 0) m_pendingLinks.push_back({slot, converter, offset, id, counted});
}

std::vector<qvBaseStream::PendingLink> qvBaseStream::TakePendingLinks() noexcept {
  return std::exchange(m_pendingLinks, {});
}

void qvBaseStream::setStreamError() noexcept {
  if (m_hasError) return;
  m_hasError = true;
  m_errorOffset = m_readBytes;
}

}  // namespace qv
