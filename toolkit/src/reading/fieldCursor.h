#pragma once

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "qvToolkit/reading/streamFields.h"
#include "rules/fields.h"

namespace qvToolkit {

/// Where a field lies in the structure, as text. Of deep structures only the first and the last parts are
/// spelled out.
class FieldPath {
 public:
  void push(std::string part) { m_parts.push_back(std::move(part)); }
  void pop() { m_parts.pop_back(); }
  std::string join(std::string_view name) const;

 private:
  std::vector<std::string> m_parts;
};

/// Takes fields off the bytes of a document and shows each to a visitor.
///
/// After a break nothing is taken or shown any more until `endPayload`, and numbers are 0: what walks a
/// record only has to look at `isBroken` where it repeats something.
class FieldCursor {
 public:
  FieldCursor(std::string_view bytes, FieldVisitor const& visit)
      : m_bytes(bytes), m_limit(bytes.size()), m_visit(visit) {}

  std::uint32_t getVersion() const { return m_version; }
  void setVersion(std::uint32_t version) { m_version = version; }
  std::uint64_t getLeft() const { return m_limit - m_offset; }
  bool isBroken() const { return m_isBroken; }

  /// Bounds what may be taken until `endPayload`, which shows what is left and mends a break.
  void beginPayload(std::uint64_t size);
  void endPayload(std::string_view expected);

  /// A part of the path for as long as it lives.
  class Inside {
   public:
    Inside(FieldCursor& cursor, std::string part) : m_path(cursor.m_path) { m_path.push(std::move(part)); }
    Inside(FieldCursor& cursor, std::string_view part, std::uint64_t index)
        : Inside(cursor, std::string(part) + "[" + std::to_string(index) + "]") {}
    ~Inside() { m_path.pop(); }
    Inside(Inside const&) = delete;
    Inside& operator=(Inside const&) = delete;

   private:
    FieldPath& m_path;
  };
  FieldPath& editPath() { return m_path; }

  /// Whether the version has what `since` names; the next field bears the gate, unless it is as old as views.
  /// A closed gate shows `name`, unless it is empty, as a field that is not there.
  bool has(qvLegacy::rules::Since since, std::string_view name);

  /// Takes bytes for one field, to be shown next; fewer than asked for are a break. Empty then.
  std::string_view take(std::string_view name, std::uint64_t size);
  /// Shows the field that was taken last.
  void show(std::string_view name, std::string value);
  /// Shows the field that was taken last, or nothing yet, as the place where the walk ends.
  void breakHere(std::string_view name, std::string expected);

  /// A little-endian number that is not shown yet.
  template <std::unsigned_integral Number>
  Number takeNumber(std::string_view name) {
    std::uint64_t number = 0;
    std::string_view const bytes = take(name, sizeof(Number));
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      number |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
    }
    return static_cast<Number>(number);
  }
  /// A number, shown in decimal.
  template <std::unsigned_integral Number>
  Number number(std::string_view name) {
    auto const value = takeNumber<Number>(name);
    show(name, std::to_string(value));
    return value;
  }
  /// A byte with the name that belongs to it, if any.
  template <class GetName>
  std::uint8_t named(std::string_view name, GetName getName) {
    auto const value = takeNumber<std::uint8_t>(name);
    std::string const meaning(getName(value));
    show(name, std::to_string(value) + (meaning.empty() ? "" : " (" + meaning + ")"));
    return value;
  }
  /// `count` single-precision numbers as one field.
  void floats(std::string_view name, std::size_t count);
  /// A signed 32-bit length, shown under the name + ".length", and that many bytes.
  std::string_view text(std::string_view name);
  /// A text whose length is known.
  std::string_view text(std::string_view name, std::uint64_t length);

 private:
  void emit(StreamField::State state, std::string_view name, std::uint64_t size, std::string value);

  std::string_view m_bytes;
  std::uint64_t m_offset = 0;  ///< behind what was taken
  std::uint64_t m_taken = 0;   ///< size of what was taken and not shown yet
  std::uint64_t m_limit;
  std::string_view m_limitName = "document";
  FieldVisitor const& m_visit;
  FieldPath m_path;
  std::string m_gate;
  std::uint32_t m_version = 0;
  bool m_isBroken = false;
};

}  // namespace qvToolkit
