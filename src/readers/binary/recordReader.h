#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "annotationLegacy/platform.h"
#include "ports/stream.h"
#include "rules/fields.h"

namespace qvLegacy::readers {

/// Reads the fields of a record, in order, from an object stream.
///
/// A failing read sets the stream's error and the record goes on with its next field; nothing here throws but
/// allocations, and counts are believed as they stand. After a failure a number keeps the value that it had,
/// so what is read into a local starts at 0; a text has its announced length, and where nothing was read the
/// characters that it had, or zeros where it had none.
class RecordReader {
 public:
  explicit RecordReader(qv::qvBaseStream& stream) noexcept : m_stream(stream) {}

  /// Whether the stream's version has what `since` names.
  bool has(rules::Since since) const noexcept { return rules::reaches(ports::version(m_stream), since); }
  /// Whether the stream's version has the field.
  bool has(rules::Field const& field) const noexcept { return has(field.inStreams); }
  /// Marks the stream as failed.
  void fail();

  /// Reads `count` raw bytes and counts them as read; a short read is a failure and leaves in `destination`
  /// what came.
  void raw(void* destination, std::size_t count);
  /// Reads one raw byte; a failure leaves `value`.
  void byte(std::uint8_t& value) { raw(&value, 1); }
  /// Reads one raw byte; a failure gives 0.
  [[nodiscard]] std::uint8_t byte();

  /// Little-endian numbers; a failure leaves the destination.
  void number(std::uint16_t& value);
  void number(std::uint32_t& value);
  void vector(Wm4::Vector2<float>& value);
  void vector(Wm4::Vector3<float>& value);
  /// An unsigned 32-bit count; a failure gives 0.
  [[nodiscard]] std::uint32_t count();

  /// A signed 32-bit length and that many bytes in one raw read; a length below 1, or one that could not be
  /// read, empties the text.
  void text(std::string& value);
  /// A variant map in the platform's encoding.
  void metadata(qv::qvVariant::qvVariantMapImpl& map);

  /// Reads the fields of a record that the version has, in order, into the members that hold them.
  template <class Record, class... Members>
  void fields(Record& record, std::tuple<Members...> const& members) {
    std::apply([&](Members const&... member) { (field(record, member), ...); }, members);
  }

  /// Reads a count, resizes the sequence to it and lets each element load itself: elements that are there
  /// already are kept and overwritten.
  template <class Sequence>
  void records(Sequence& sequence) {
    sequence.resize(count());
    for (auto& element : sequence) element.load(m_stream);
  }

 private:
  template <class Record, class Member>
  void field(Record& record, Member const& member) {
    if (has(member.field)) read(record.*member.member);
  }
  void read(std::uint8_t& value) { byte(value); }
  void read(std::string& value) { text(value); }
  void read(Wm4::Vector2<float>& value) { vector(value); }
  void read(Wm4::Vector3<float>& value) { vector(value); }
  void read(Wm4::Vector3<unsigned char>& color) {
    for (std::size_t i = 0; i < 3; ++i) byte(color[i]);
  }
  template <class Element>
  void read(std::vector<Element>& elements) {
    records(elements);
  }

  qv::qvBaseStream& m_stream;
};

}  // namespace qvLegacy::readers
