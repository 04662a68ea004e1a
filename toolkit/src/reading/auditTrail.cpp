#include "reading/auditTrail.h"

#include <utility>

#include "rules/values.h"

namespace qvToolkit {

void AuditTrail::checkKeys(VariantMap const& map, RecordKind kind) {
  for (auto const& [key, value] : map) {
    if (!isKnownKey(kind, key)) {
      ignore(kind, key, Severity::Info, 0);
    } else if (key == "heightem") {
      checkHeight(value);
    } else {
      checkValue(kind, key, value);
    }
  }
}

/// What is too small shows in the migration.
void AuditTrail::checkHeight(qv::qvVariant const& value) {
  if (!(static_cast<float>(value.toReal()) > qvLegacy::rules::largestHeight)) return;
  Inside const inside(*this, "heightem");
  reportLost(Severity::Warning, "the text height " + value.toString() + " was cut at 655.34");
}

/// Texts that stand for a number: those that the reader does not know are taken for the default without a
/// message.
void AuditTrail::checkValue(RecordKind kind, std::string_view key, qv::qvVariant const& value) {
  qvLegacy::rules::ValueNames const* const names = findValueNames(kind, key);
  bool const isFreeText = key == "name" || key == "font";
  if ((isFreeText || names != nullptr) && (value.isMap() || value.isList())) {
    Inside const inside(*this, key);
    reportLost(key == "name" ? Severity::Error : Severity::Warning,
               "'" + std::string(key) + "' is no text; it was read as an empty one");
  }
  if (names == nullptr) return;
  std::string const text = value.toString();
  if (text.empty() || names->has(text)) return;
  Inside const inside(*this, key);
  m_passedOver.addValue(kind, key, text, m_pointer);
}

void AuditTrail::ignore(RecordKind kind, std::string_view key, Severity severity, std::size_t records) {
  Inside const inside(*this, key);
  m_passedOver.addKey(kind, key, severity, records, m_pointer);
}

void AuditTrail::reportLost(Severity severity, std::string text) {
  m_findings.push_back(
      {FindingCode::RecordLost, severity, std::move(text), m_address, {{}, {}, {}, m_pointer}, {}});
}

}  // namespace qvToolkit
