#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "annotationLegacy/platform.h"
#include "ports/variant.h"
#include "readers/variant/values.h"
#include "rules/fields.h"
#include "rules/messages.h"

namespace qvLegacy::readers {

/// The fields of one persisted map, the document's version, and the list to which problems are reported.
class FieldReader {
 public:
  FieldReader(ports::VariantMap const& map, qv::qvStreamVersion const& version,
              std::vector<std::string>& errors) noexcept
      : m_map(map), m_version(version), m_errors(errors) {}

  /// Whether the document's version has what `since` names.
  bool has(rules::Since since) const noexcept { return rules::reaches(ports::packed(m_version), since); }
  /// Whether the document's version has the field.
  bool has(rules::Field const& field) const noexcept { return has(field.inVariants); }

  /// The value of the field, null when its key is absent.
  ports::Variant const* find(rules::Field const& field) const { return ports::find(m_map, field.key); }
  /// The value of the field, the null variant when its key is absent.
  ports::Variant const& at(rules::Field const& field) const { return ports::at(m_map, field.key); }
  /// Whether the field is there and true.
  bool isTrue(rules::Field const& field) const { return at(field).toBool(); }

  /// Appends `message` and yields false: `return fields.invalid(...)` stops the reading, without `return` it
  /// goes on.
  bool invalid(rules::Message const& message) {
    m_errors.emplace_back(message.text);
    return false;
  }
  /// Stores the vector of the field; an absent key is no problem, a malformed value is reported with
  /// `message`.
  bool vector(rules::Field const& field, Wm4::Vector3<float>& vector, rules::Message const& message) {
    ports::Variant const* const value = find(field);
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
