#include "qvSceneGraph/qvInstanceMetaData.h"

#include <cstdint>
#include <string>
#include <utility>

#include "countedString.h"
#include "qvSystem/qvBaseStream.h"

namespace qv {

namespace {

constexpr int maxLevel = 64;

/// Reads one variant map. Its own state tells whether to go on, since the stream may have been in error
/// before.
class VariantMapReader {
 public:
  explicit VariantMapReader(qvBaseStream& in) : m_in(in) {}

  /// False when the reading ended early; what was read stays in `map`.
  bool readMap(qvVariant::qvVariantMapImpl& map, int level);

 private:
  bool readList(qvVariant::qvVariantListImpl& list, int level);
  bool readValue(qvVariant& value, int level);
  bool readContainer(qvVariant::Kind kind, qvVariant& value, int level);
  bool readString(std::string& text);
  bool readCount(std::uint64_t smallestElement, std::uint32_t& count);
  template <class T>
  bool readNumber(T& number);
  template <class T>
  bool readNumberValue(qvVariant& value);
  bool fail();

  qvBaseStream& m_in;
};

bool VariantMapReader::fail() {
  m_in.setStreamError();
  return false;
}

template <class T>
bool VariantMapReader::readNumber(T& number) {
  return impl::readBytes(m_in, sizeof(number), &number);
}

template <class T>
bool VariantMapReader::readNumberValue(qvVariant& value) {
  T number{};
  if (!readNumber(number)) return false;
  value = number;
  return true;
}

/// A count that the bytes left cannot hold is an error, before anything is made for it.
bool VariantMapReader::readCount(std::uint64_t smallestElement, std::uint32_t& count) {
  if (!readNumber(count)) return false;
  return count * smallestElement <= m_in.GetBytesLeft() || fail();
}

bool VariantMapReader::readString(std::string& text) {
  std::int32_t length = 0;
  if (!readNumber(length)) return false;
  if (length < 1) return true;
  auto const size = static_cast<std::uint32_t>(length);
  if (size > m_in.GetBytesLeft()) return fail();
  text.resize(size);
  return impl::readBytes(m_in, size, text.data());
}

bool VariantMapReader::readContainer(qvVariant::Kind kind, qvVariant& value, int level) {
  if (level > maxLevel) return fail();
  return kind == qvVariant::Kind::Map ? readMap(value.editMap(), level) : readList(value.editList(), level);
}

bool VariantMapReader::readValue(qvVariant& value, int level) {
  using Kind = qvVariant::Kind;
  std::uint8_t kind = 0;
  if (!readNumber(kind)) return false;
  switch (static_cast<Kind>(kind)) {
    case Kind::Null:
      return true;
    case Kind::Integer:
      return readNumberValue<std::int64_t>(value);
    case Kind::Real:
      return readNumberValue<double>(value);
    case Kind::String: {
      std::string text;
      if (!readString(text)) return false;
      value = std::move(text);
      return true;
    }
    case Kind::Bool: {
      std::uint8_t truth = 0;
      if (!readNumber(truth)) return false;
      value = truth != 0;
      return true;
    }
    case Kind::Map:
    case Kind::List:
      return readContainer(static_cast<Kind>(kind), value, level + 1);
  }
  return fail();
}

bool VariantMapReader::readMap(qvVariant::qvVariantMapImpl& map, int level) {
  constexpr std::uint64_t smallestEntry = 5;  // an empty key and the kind null
  std::uint32_t count = 0;
  if (!readCount(smallestEntry, count)) return false;
  for (std::uint32_t i = 0; i < count; ++i) {
    std::string key;
    if (!readString(key)) return false;
    qvVariant value;
    bool const complete = readValue(value, level);
    // A part of a container stays; of a value that could not be read nothing is there to stay.
    if (complete || value.isMap() || value.isList()) map.insert_or_assign(std::move(key), std::move(value));
    if (!complete) return false;
  }
  return true;
}

bool VariantMapReader::readList(qvVariant::qvVariantListImpl& list, int level) {
  constexpr std::uint64_t smallestValue = 1;  // the kind null
  std::uint32_t count = 0;
  if (!readCount(smallestValue, count)) return false;
  for (std::uint32_t i = 0; i < count; ++i) {
    qvVariant value;
    bool const complete = readValue(value, level);
    if (complete || value.isMap() || value.isList()) list.push_back(std::move(value));
    if (!complete) return false;
  }
  return true;
}

}  // namespace

void qvInstanceMetaData::LoadVariantMap(qvBaseStream& stream, qvVariant::qvVariantMapImpl& map) {
  map.clear();
  VariantMapReader(stream).readMap(map, 1);
}

}  // namespace qv
