#include "readers/binary/recordReader.h"

namespace qvLegacy::readers {

void RecordReader::fail() {
  m_stream.setStreamError();
}

void RecordReader::raw(void* destination, std::size_t count) {
  if (ports::readRaw(m_stream, count, destination) == count) {
    ports::countRead(m_stream, count);
  } else {
    fail();
  }
}

std::uint8_t RecordReader::byte() {
  std::uint8_t value = 0;
  byte(value);
  return value;
}

void RecordReader::number(std::uint16_t& value) {
  m_stream.readle(2, 1, &value);
}

void RecordReader::number(std::uint32_t& value) {
  m_stream.readle(4, 1, &value);
}

void RecordReader::vector(Wm4::Vector2<float>& value) {
  m_stream.readle(4, 2, &value[0]);
}

void RecordReader::vector(Wm4::Vector3<float>& value) {
  m_stream.readle(4, 3, &value[0]);
}

std::uint32_t RecordReader::count() {
  std::uint32_t value = 0;
  number(value);
  return value;
}

void RecordReader::text(std::string& value) {
  std::int32_t length = 0;
  m_stream.readle(4, 1, &length);
  // KEEP: resized, not cleared, and not read in pieces: where a short read delivers nothing the characters
  // stay that were there before, such as those of a default, and where the text grew there are zeros.
  value.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
  if (!value.empty()) raw(value.data(), value.size());
}

void RecordReader::metadata(qv::qvVariant::qvVariantMapImpl& map) {
  qv::qvInstanceMetaData::LoadVariantMap(m_stream, map);
}

}  // namespace qvLegacy::readers
