#pragma once

#include <string>

#include "annotationLegacy/platform.h"
#include "ports/variant.h"

namespace qvLegacy::readers {

/// The text of a value of any kind: a string's own text without a copy, the platform's string form of every
/// other kind. Lives no longer than the value.
class TextForm {
 public:
  explicit TextForm(ports::Variant const& value)
      : m_converted(ports::isString(value) ? std::string() : value.toString()),
        m_text(ports::isString(value) ? ports::ownText(value) : m_converted) {}
  TextForm(TextForm const&) = delete;
  TextForm& operator=(TextForm const&) = delete;

  std::string const& text() const noexcept { return m_text; }

 private:
  std::string m_converted;
  std::string const& m_text;
};

/// Stores a list of exactly three numbers into `vector`, in single precision. Every other value gives false
/// and leaves `vector`; false as well for null, an absent value.
[[nodiscard]] bool readVector(ports::Variant const* value, Wm4::Vector3<float>& vector);

}  // namespace qvLegacy::readers
