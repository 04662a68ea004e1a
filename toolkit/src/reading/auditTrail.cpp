#include "reading/auditTrail.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "reading/annotationRules.h"
#include "reading/valueLoss.h"
#include "text/countText.h"

namespace qvToolkit {

namespace {

namespace rules = qvLegacy::rules;
using rules::Form;

/// Values of one field that are listed for a view; there may be millions.
constexpr std::size_t MaxListed = 100;

Severity getSeverity(rules::Cost cost) {
  return cost == rules::Cost::Look ? Severity::Warning : Severity::Error;
}

/// What goes with a field that no reader of the version looks at, beside records.
Severity getSeverityOfIgnored(rules::Field const& field, qv::qvVariant const& value) {
  if (field.form == Form::Metadata) return value.toMap().empty() ? Severity::Info : Severity::Warning;
  return field.isMissed ? Severity::Warning : Severity::Info;
}

}  // namespace

void AuditTrail::checkValue(Record const& record, Field const& field, qv::qvVariant const& value) {
  if (value.isNull()) {
    if (field.message != nullptr) ++m_harmless[field.message->text];
    return;
  }
  std::optional<ValueLoss> const loss = findValueLoss(field, value);
  if (!loss) {
    if (field.form == Form::Height) checkCut(value);
    return;
  }
  Inside const inside(*this, field.key);
  reportValue(record, field, value, loss->m_expected, loss->m_taken);
}

void AuditTrail::checkLone(Record const& record, Field const& field, qv::qvVariant const& value) {
  if (std::optional<ValueLoss> const loss = findValueLoss(field, value))
    reportValue(record, field, value, loss->m_expected, loss->m_taken);
}

void AuditTrail::reportValue(Record const& record, Field const& field, qv::qvVariant const& value,
                             std::string const& expected, std::string const& taken) {
  if (!isListed(record, field)) return;
  report(field.names != nullptr ? FindingCode::ValueUnknown : FindingCode::ValueInexact,
         getSeverity(field.cost),
         "'" + std::string(field.key) + "' of " + std::string(record.name) + " is " + describeValue(value) +
             ", expected " + expected + "; " + taken + " was taken");
}

/// Told once for the whole document.
void AuditTrail::checkCut(qv::qvVariant const& value) {
  std::optional<std::uint16_t> const cut = findCutHeight(value);
  if (!cut || m_heights.m_count++ > 0) return;
  m_heights.m_firstText = value.toString() + " as " + formatHundredths(*cut);
  m_heights.m_firstAddress = m_address.getText();
}

bool AuditTrail::isListed(Record const& record, Field const& field) {
  auto const known = std::ranges::find_if(m_changed, [&](ChangedField const& changed) {
    return changed.m_record == &record && changed.m_field == &field;
  });
  ChangedField& changed =
      known != m_changed.end() ? *known : m_changed.emplace_back(ChangedField{&record, &field});
  return ++changed.m_count <= MaxListed;
}

void AuditTrail::ignoreAtVersion(Record const& record, Field const& field, qv::qvVariant const& value) {
  std::size_t const records = countRecords(value.toList());
  Severity const severity = records > 0 ? Severity::Error : getSeverityOfIgnored(field, value);
  ignore({record, field.key, severity, records, "here at version " + m_version.toString()});
}

void AuditTrail::ignore(IgnoredKey const& ignored) {
  Inside const inside(*this, ignored.m_key);
  m_passedOver.add(ignored, m_pointer);
}

void AuditTrail::reportLost(Severity severity, std::string text) {
  report(FindingCode::RecordLost, severity, std::move(text));
}

void AuditTrail::report(FindingCode code, Severity severity, std::string text) {
  m_findings.push_back(
      makeFinding(code, severity, std::move(text), m_address.getText(), {{}, {}, {}, m_pointer}));
}

void AuditTrail::finish(std::string const& address) {
  for (ChangedField const& changed : m_changed) {
    if (changed.m_count <= MaxListed) continue;
    std::string text = formatCount(changed.m_count - MaxListed, "more value") + " of '" +
                       std::string(changed.m_field->key) + "' of " + std::string(changed.m_record->name) +
                       " not read as they stand";
    m_findings.push_back(
        makeFinding(FindingCode::ValueInexact, getSeverity(changed.m_field->cost), std::move(text), address));
  }
  m_passedOver.report(address, m_findings);
}

}  // namespace qvToolkit
