#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace qvToolkit {

/// One field of an object stream as it lies in the bytes.
struct StreamField {
  enum class State : std::uint8_t {
    Present,
    Absent,  ///< a gate is closed: the stream's version has no such field here
    Break,   ///< something else was expected; the object, or the document, is not walked further
    Rest,    ///< bytes that belong to no known field
  };

  std::uint64_t m_offset = 0;
  std::uint64_t m_size = 0;  ///< 0 for absent fields
  std::string m_path;        ///< "object[1].text[0].leader[2].head"; safe for a terminal
  std::string m_value;       ///< safe for a terminal; of a break what was expected and what was found
  std::string m_gate;        ///< "since 6.22", "before 6.17"; empty where all versions are alike
  State m_state = State::Present;
};

using FieldVisitor = std::function<void(StreamField const&)>;

/// Visits every field of an object stream in the order of the bytes. Together the fields cover each byte
/// exactly once, however broken the document is; what is announced but not there costs nothing.
///
/// It is a second reading of the format, of no use for loading: it shares the rows of the records with the
/// library's readers, and nothing else.
void walkObjectStream(std::string_view bytes, FieldVisitor const& visit);

}  // namespace qvToolkit
