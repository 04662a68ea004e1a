#include "qvSystem/qvMemoryStream.h"

#include <algorithm>
#include <cstring>

namespace qv {

qvMemoryStream::qvMemoryStream(std::span<std::byte const> bytes, std::uint32_t version) noexcept
    : qvBaseStream(version), m_bytes(bytes) {
}

qvMemoryStream::~qvMemoryStream() = default;

std::size_t qvMemoryStream::ReadRaw(std::size_t count, void* destination) {
  auto const delivered = std::min(count, m_bytes.size() - m_position);
  if (m_governor != nullptr && !m_governor->admitRead(delivered < count)) refuse();
  if (delivered < count && m_shortRead.m_wanted == 0 && !hasStreamError())
    m_shortRead = {m_position, count, delivered};
  if (delivered > 0) std::memcpy(destination, m_bytes.data() + m_position, delivered);
  m_position += delivered;
  return delivered;
}

void qvMemoryStream::refuse() {
  setStreamError();
  m_governor->Refuse(m_position);
}

void qvMemoryStream::SetBytes(std::span<std::byte const> bytes) noexcept {
  m_bytes = bytes;
  m_position = 0;
  m_shortRead = {};
}

}  // namespace qv
