#include "qvSystem/qvStreamReader.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "qvSystem/qvMemoryStream.h"

namespace qv {

namespace {

using Kind = qvStreamProblem::Kind;
using Severity = qvStreamProblem::Severity;

constexpr std::string_view magic = "qvStream";
constexpr std::int32_t maxTypeNameLength = 256;
constexpr std::size_t maxProblems = 1000;

std::string bytesText(std::uint64_t count) {
  return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

/// What stands in front of an object's payload.
struct ObjectHeader {
  std::uint32_t m_id = 0;
  std::string m_typeName;
  std::uint64_t m_size = 0;
  std::uint64_t m_offset = 0;  ///< of the header in the document
};

/// The list of problems, bounded: a hostile document must not cost more memory in problems than it has bytes.
class Problems {
 public:
  explicit Problems(std::vector<qvStreamProblem>& list) : m_list(list) {}

  void add(Kind kind, Severity severity, std::uint64_t offset, std::uint32_t id, std::string const& typeName,
           std::string text) {
    if (m_list.size() < maxProblems - 1) {
      m_list.push_back({severity, id, typeName, offset, std::move(text), kind});
    } else {
      ++m_dropped;
      m_worstDropped = std::max(m_worstDropped, severity);
    }
  }
  void addOfDocument(Kind kind, Severity severity, std::uint64_t offset, std::string text) {
    add(kind, severity, offset, 0, {}, std::move(text));
  }
  /// Says how many did not fit.
  void close(std::uint64_t offset) {
    if (m_dropped == 0) return;
    m_list.push_back(
        {m_worstDropped, 0, {}, offset, std::to_string(m_dropped) + " more problems", Kind::More});
  }

 private:
  std::vector<qvStreamProblem>& m_list;
  std::uint64_t m_dropped = 0;
  Severity m_worstDropped = Severity::Warning;
};

/// Loads one document: objects first, then links, then `PostLink`.
class Loader {
 public:
  Loader(std::span<std::byte const> bytes, qvStreamLimits const& limits)
      : m_bytes(bytes), m_governor(limits), m_problems(m_document.m_problems) {}

  qvLoadedDocument load() {
    if (!m_governor.admitBytes(m_bytes.size())) m_governor.Refuse(0);
    loadObjects();
    for (OwnedLink const& link : m_links) resolve(link);
    for (qvLoadedObject const& object : m_document.m_objects) object.m_object->PostLink();
    m_problems.close(m_bytes.size());
    return std::move(m_document);
  }

 private:
  struct OwnedLink {
    std::size_t m_owner;  ///< index of the object that holds the slot
    qvBaseStream::PendingLink m_link;
  };

  std::uint64_t bytesLeft() const { return m_bytes.size() - m_position; }
  template <class T>
  bool readNumber(T& number, char const* what);
  bool readTypeName(ObjectHeader& header);
  bool readHeader(ObjectHeader& header);

  void loadObjects();
  void loadObject(ObjectHeader const& header, std::span<std::byte const> payload);
  void createObject(ObjectHeader const& header, std::span<std::byte const> payload,
                    qvRttiInterface::FactoryFunction factory);
  qvRttiInterface* makeObject(qvMemoryStream& in, qvRttiInterface::FactoryFunction factory) const;
  void reportReading(ObjectHeader const& header, qvMemoryStream const& in);
  void resolve(OwnedLink const& owned);
  std::string describeMissing(std::uint32_t id) const;

  std::span<std::byte const> m_bytes;
  qvStreamGovernor m_governor;
  std::size_t m_position = 0;
  qvLoadedDocument m_document;
  Problems m_problems;
  std::unordered_map<std::uint32_t, std::size_t> m_byId;     ///< index into the document's objects
  std::unordered_map<std::uint32_t, std::string> m_skipped;  ///< type names of the objects without factory
  std::vector<OwnedLink> m_links;
};

/// False with a problem when the document ends within the number.
template <class T>
bool Loader::readNumber(T& number, char const* what) {
  if (bytesLeft() < sizeof(T)) {
    m_problems.addOfDocument(Kind::Broken, Severity::Error, m_position,
                             "expected " + std::string(what) + " of " + bytesText(sizeof(T)) + ", found " +
                                 bytesText(bytesLeft()) + " before the end of the document");
    return false;
  }
  std::memcpy(&number, m_bytes.data() + m_position, sizeof(T));
  m_position += sizeof(T);
  return true;
}

/// A type name too long, or cut off, leaves no way to find the next object.
bool Loader::readTypeName(ObjectHeader& header) {
  std::int32_t announced = 0;
  if (!readNumber(announced, "the length of a type name")) return false;
  if (announced < 1) return true;
  if (announced > maxTypeNameLength) {
    m_problems.addOfDocument(
        Kind::Broken, Severity::Error, m_position,
        "expected a type name of at most 256 bytes, found one of " + std::to_string(announced));
    return false;
  }
  auto const length = static_cast<std::size_t>(announced);
  if (length > bytesLeft()) {
    m_problems.addOfDocument(Kind::Broken, Severity::Error, m_position,
                             "expected a type name of " + bytesText(length) + ", found " +
                                 bytesText(bytesLeft()) + " before the end of the document");
    return false;
  }
  auto const name = m_bytes.subspan(m_position, length);
  header.m_typeName.assign(reinterpret_cast<char const*>(name.data()), name.size());
  m_position += length;
  return true;
}

bool Loader::readHeader(ObjectHeader& header) {
  header.m_offset = m_position;
  return readNumber(header.m_id, "an object's id") && readTypeName(header) &&
         readNumber(header.m_size, "the size of a payload");
}

void Loader::loadObjects() {
  if (!IsObjectStream(m_bytes)) {
    m_problems.addOfDocument(Kind::Broken, Severity::Error, 0,
                             "expected the 8 bytes 'qvStream' of an object stream");
    return;
  }
  m_position = magic.size();
  std::uint32_t count = 0;
  if (!readNumber(m_document.m_version, "the stream version") || !readNumber(count, "the object count"))
    return;
  for (std::uint32_t i = 0; i < count; ++i) {
    ObjectHeader header;
    if (!readHeader(header)) return;
    auto const held = std::min(header.m_size, bytesLeft());
    if (held < header.m_size) {
      m_problems.add(Kind::Broken, Severity::Error, m_position, header.m_id, header.m_typeName,
                     "expected a payload of " + bytesText(header.m_size) + ", found " + bytesText(held) +
                         " before the end of the document");
    }
    loadObject(header, m_bytes.subspan(m_position, held));
    m_position += held;
    if (held < header.m_size) return;
  }
  if (bytesLeft() > 0) {
    m_problems.addOfDocument(Kind::Trailing, Severity::Warning, m_position,
                             "expected the end of the document, found " + bytesText(bytesLeft()) + " more");
  }
}

void Loader::loadObject(ObjectHeader const& header, std::span<std::byte const> payload) {
  auto const report = [&](Kind kind, Severity severity, std::string text) {
    m_problems.add(kind, severity, header.m_offset, header.m_id, header.m_typeName, std::move(text));
  };
  if (m_byId.contains(header.m_id) || m_skipped.contains(header.m_id)) {
    return report(Kind::Id, Severity::Error,
                  "expected a new object id, found one that is taken; the first object keeps it");
  }
  if (header.m_id == 0)
    report(Kind::Id, Severity::Error, "expected an object id, found 0, which no link can name");
  auto const factory = qvRttiInterface::FindFactoryFunction(header.m_typeName);
  if (factory == nullptr) {
    if (header.m_id != 0) m_skipped.emplace(header.m_id, header.m_typeName);
    return report(Kind::UnknownType, Severity::Warning,
                  "unknown type; object of " + bytesText(payload.size()) + " skipped");
  }
  createObject(header, payload, factory);
}

void Loader::createObject(ObjectHeader const& header, std::span<std::byte const> payload,
                          qvRttiInterface::FactoryFunction factory) {
  qvMemoryStream in(payload, m_document.m_version);
  m_governor.SetOrigin(m_position);
  in.SetGovernor(&m_governor);
  qvRttiInterface* const object = makeObject(in, factory);
  if (object == nullptr) {
    m_problems.add(Kind::NoObject, Severity::Error, m_position, header.m_id, header.m_typeName,
                   "the type's factory made no object");
    return;
  }
  object->IncrementReferences();
  qvObjectHandle handle(object);
  auto const index = m_document.m_objects.size();
  if (header.m_id != 0) m_byId.emplace(header.m_id, index);
  for (auto const& link : in.TakePendingLinks()) m_links.push_back({index, link});
  m_document.m_objects.push_back(
      {header.m_id, header.m_typeName, m_position, payload.size(), std::move(handle)});
  reportReading(header, in);
}

/// Who counts memory does not know the document: what it refuses is told with the place of the reading.
qvRttiInterface* Loader::makeObject(qvMemoryStream& in, qvRttiInterface::FactoryFunction factory) const {
  try {
    return factory(in);
  } catch (qvResourceLimit const& limit) {
    if (limit.GetBudget() != qvBudget::Memory) throw;
    throw qvResourceLimit(qvBudget::Memory, limit.GetLimit(), m_position + in.GetPosition());
  }
}

/// The first thing that went wrong while an object read its payload.
void Loader::reportReading(ObjectHeader const& header, qvMemoryStream const& in) {
  auto const report = [&](Kind kind, Severity severity, std::uint64_t offset, std::string text) {
    m_problems.add(kind, severity, m_position + offset, header.m_id, header.m_typeName, std::move(text));
  };
  auto const& shortRead = in.GetShortRead();
  if (shortRead.m_wanted > 0) {
    report(Kind::OverRead, Severity::Error, shortRead.m_offset,
           "expected " + bytesText(shortRead.m_wanted) + ", found " + bytesText(shortRead.m_delivered) +
               " before the end of the payload");
  } else if (in.hasStreamError()) {
    report(Kind::Refused, Severity::Error, in.GetErrorOffset(),
           "expected a version and record kinds that the type's reader knows");
  } else if (in.GetBytesLeft() > 0) {
    report(Kind::UnderRead, Severity::Warning, in.GetPosition(),
           "expected the end of the payload, found " + bytesText(in.GetBytesLeft()) + " more");
  }
}

void Loader::resolve(OwnedLink const& owned) {
  qvBaseStream::PendingLink const& link = owned.m_link;
  qvLoadedObject const& owner = m_document.m_objects[owned.m_owner];
  auto const report = [&](std::string text) {
    m_problems.add(Kind::Link, Severity::Error, owner.m_offset + link.m_offset, owner.m_id, owner.m_typeName,
                   std::move(text));
  };
  auto const found = m_byId.find(link.m_id);
  if (found == m_byId.end()) return report(describeMissing(link.m_id));
  qvLoadedObject const& target = m_document.m_objects[found->second];
  void* const converted = link.m_converter(target.m_object.get());
  if (converted == nullptr) {
    return report("expected a link to an object of another type, found object " + std::to_string(link.m_id) +
                  " of type '" + target.m_typeName + "'");
  }
  // A counted pointer is laid out as a plain one; the reference that it is to hold is added here.
  if (link.m_counted) target.m_object->IncrementReferences();
  std::memcpy(link.m_slot, &converted, sizeof(converted));
}

std::string Loader::describeMissing(std::uint32_t id) const {
  auto const skipped = m_skipped.find(id);
  if (skipped == m_skipped.end())
    return "expected a link to an object, found id " + std::to_string(id) + " of none";
  return "expected a link to an object, found id " + std::to_string(id) + " of a skipped one of type '" +
         skipped->second + "'";
}

}  // namespace

bool IsObjectStream(std::span<std::byte const> bytes) noexcept {
  return bytes.size() >= magic.size() && std::memcmp(bytes.data(), magic.data(), magic.size()) == 0;
}

qvLoadedDocument LoadObjectStream(std::span<std::byte const> bytes, qvStreamLimits const& limits) {
  return Loader(bytes, limits).load();
}

}  // namespace qv
