#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "annotationLegacy/platform.h"
#include "ports/variant.h"
#include "readers/since.h"
#include "readers/variant/values.h"

namespace qvLegacy::readers {

/// The fields of one persisted map, the document's version, and the list to which problems are reported.
class FieldReader {
 public:
  FieldReader(ports::VariantMap const& map, qv::qvStreamVersion const& version,
              std::vector<std::string>& errors) noexcept
      : m_map(map), m_version(version), m_errors(errors) {}

  /// Whether the document's version has what `gate` names.
  bool has(Since gate) const noexcept { return reaches(ports::packed(m_version), gate); }

  /// The value under `key`, null when the key is absent.
  ports::Variant const* find(std::string_view key) const { return ports::find(m_map, key); }
  /// The value under `key`, the null variant when the key is absent.
  ports::Variant const& at(std::string_view key) const { return ports::at(m_map, key); }
  /// Whether the key is there and true.
  bool isTrue(std::string_view key) const { return at(key).toBool(); }

  /// Appends `message` and yields false: `return fields.invalid(...)` stops the reading, without `return` it
  /// goes on.
  bool invalid(char const* message) {
    m_errors.emplace_back(message);
    return false;
  }
  /// Stores the vector under `key`; an absent key is no problem, a malformed value is reported with
  /// `message`.
  bool vector(std::string_view key, Wm4::Vector3<float>& vector, char const* message) {
    ports::Variant const* const value = find(key);
    return value == nullptr || readVector(value, vector) || invalid(message);
  }

  ports::VariantMap const& map() const noexcept { return m_map; }
  qv::qvStreamVersion const& version() const noexcept { return m_version; }
  std::vector<std::string>& errors() const noexcept { return m_errors; }

 private:
  ports::VariantMap const& m_map;
  qv::qvStreamVersion const& m_version;
  std::vector<std::string>& m_errors;
};

}  // namespace qvLegacy::readers
