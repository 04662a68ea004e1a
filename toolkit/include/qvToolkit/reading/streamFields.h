#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "qvToolkit/export.h"

namespace qvToolkit {

/// One field of an object stream as it lies in the bytes.
struct StreamField {
  /// What stands at the field's place.
  enum class State : std::uint8_t {
    Present,  ///< the field that the format tells
    Absent,   ///< a gate is closed: the stream's version has no such field here
    Break,    ///< something else was expected; the object, or the document, is not walked further
    Rest,     ///< bytes that belong to no known field
  };

  std::uint64_t m_offset = 0;      ///< of its first byte in the document
  std::uint64_t m_size = 0;        ///< in bytes; 0 for absent fields
  std::string m_path;              ///< "object[1].text[0].leader[2].head"; safe for a terminal
  std::string m_value;             ///< safe for a terminal; of a break what was expected and what was found
  std::string m_gate;              ///< "since 6.22", "before 6.17"; empty where all versions are alike
  State m_state = State::Present;  ///< whether there is a value at all
};

/// Is called with each field; what it throws ends the walk and propagates.
using FieldVisitor = std::function<void(StreamField const&)>;

/// Visits every field of an object stream in the order of the bytes.
/// @code
/// std::string const bytes = encodeDocument(openDocument("bracket.json"), EncodingOptions{}).m_bytes;
/// std::uint64_t covered = 0;
/// walkObjectStream(bytes, [&covered](StreamField const& field) { covered += field.m_size; });
/// assert(covered == bytes.size());
/// @endcode
/// Together the fields cover each byte exactly once, however broken the document is; what is announced but
/// not there costs nothing. Never fails: a fault is a field of its own, `State::Break`. Time grows with the
/// bytes; one field at a time is held in memory.
///
/// It is a second reading of the format, of no use for loading: it shares the rows of the records with the
/// library's readers, and nothing else.
QVT_EXPORT void walkObjectStream(std::string_view bytes, FieldVisitor const& visit);

}  // namespace qvToolkit
