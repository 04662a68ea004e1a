#include "reading/annotationAudit.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "annotationLegacy/qvAnnotationText.h"
#include "reading/annotationRules.h"
#include "reading/textAudit.h"
#include "text/countText.h"

namespace qvToolkit {

namespace {

namespace rules = qvLegacy::rules;
using qvLegacy::qvAnnotationInterface;
using rules::Form;
using Inside = AuditTrail::Inside;

/// Audits one record in the order of its keys.
class AnnotationAudit {
 public:
  AnnotationAudit(VariantMap const& record, qvAnnotationInterface const& annotation, bool isOfView,
                  AuditTrail& trail)
      : m_record(record),
        m_annotation(annotation),
        m_text(dynamic_cast<qvLegacy::qvAnnotationText const*>(&annotation)),
        m_kind(m_text != nullptr ? rules::records::texts : rules::records::rasters),
        m_isOfView(isOfView),
        m_trail(trail) {}

  void run() {
    m_trail.checkFields(m_record, m_kind, [this](rules::Field const& field, qv::qvVariant const& value) {
      check(field, value);
    });
  }

 private:
  void check(rules::Field const& field, qv::qvVariant const& value);
  void checkChildren(rules::Field const& field, qv::qvVariant const& value);
  void checkLeaders(qv::qvVariant const& value);
  void checkMeasures(qv::qvVariant const& value);
  VariantList const* openList(rules::Field const& field, rules::Record const& kind, std::size_t kept,
                              qv::qvVariant const& value);

  VariantMap const& m_record;
  qvAnnotationInterface const& m_annotation;
  qvLegacy::qvAnnotationText const* m_text;
  rules::Record const& m_kind;
  bool m_isOfView;
  AuditTrail& m_trail;
};

void AnnotationAudit::check(rules::Field const& field, qv::qvVariant const& value) {
  if (&field == &rules::annotation::type) return;  // a record of another kind is refused
  if (&field == &rules::annotation::anchor && m_isOfView) {
    return m_trail.ignore({m_kind, field.key, Severity::Info, 0, "of annotations without a parent"});
  }
  switch (field.form) {
    case Form::Annotations:
      return checkChildren(field, value);
    case Form::Leaders:
      return checkLeaders(value);
    case Form::Measures:
      return checkMeasures(value);
    case Form::Properties:
      m_trail.checkValue(m_kind, field, value);
      return auditDefaultProperties(value.toMap(), m_trail);
    case Form::Lines:
      return auditLines(value, *m_text, m_trail);
    default:
      break;
  }
  if (&field == &rules::text::plain) return auditPlainText(m_record, value, m_trail);
  m_trail.checkValue(m_kind, field, value);
}

/// The older key counts only where the newer one is absent.
void AnnotationAudit::checkChildren(rules::Field const& field, qv::qvVariant const& value) {
  std::string_view const newer = rules::annotation::children.key;
  if (field.key != newer && findValue(m_record, newer) != nullptr) {
    std::size_t const count = countRecords(value.toList());
    return m_trail.ignore(
        {m_kind, field.key, count > 0 ? Severity::Error : Severity::Info, count, "beside 'children'"});
  }
  if (value.isList() || value.isNull()) return;
  Inside const inside(m_trail, field.key);
  m_trail.reportLost(Severity::Error,
                     "'" + std::string(field.key) + "' is no list, so no sub-annotation was read");
}

/// The list of a field, of which the first `kept` elements were read; null where it is none.
VariantList const* AnnotationAudit::openList(rules::Field const& field, rules::Record const& kind,
                                             std::size_t kept, qv::qvVariant const& value) {
  if (value.isNull()) {
    m_trail.checkValue(m_kind, field, value);
    return nullptr;
  }
  Inside const inside(m_trail, field.key);
  if (!value.isList()) {
    m_trail.reportLost(Severity::Error,
                       "'" + std::string(field.key) + "' is no list, so none of them was read");
    return nullptr;
  }
  VariantList const& list = value.toList();
  if (kept < list.size()) {
    Inside const atFirst(m_trail, kept);
    m_trail.reportLost(Severity::Error, std::to_string(list.size() - kept) + " of " +
                                            std::to_string(list.size()) + " " + std::string(kind.name) +
                                            " were not read, since this one cannot be");
  }
  return &list;
}

/// Before heads a leader is its position alone.
void AnnotationAudit::checkLeaders(qv::qvVariant const& value) {
  std::size_t const kept = m_annotation.m_leaders.size();
  VariantList const* const list = openList(rules::annotation::leaders, rules::records::leaders, kept, value);
  if (list == nullptr) return;
  Inside const inside(m_trail, rules::annotation::leaders.key);
  rules::Field const& position = rules::leader::position;
  for (std::size_t i = 0; i < std::min(kept, list->size()); ++i) {
    Inside const at(m_trail, i);
    qv::qvVariant const& leader = (*list)[i];
    if (!position.isInVariants(m_trail.m_version.GetPacked())) {
      m_trail.checkLone(rules::records::leaders, position, leader);
      continue;
    }
    m_trail.checkFields(leader.toMap(), rules::records::leaders,
                        [this](rules::Field const& field, qv::qvVariant const& part) {
                          m_trail.checkValue(rules::records::leaders, field, part);
                        });
    qv::qvVariant const* const end = findValue(leader.toMap(), position.key);
    if (end == nullptr || end->isNull())
      m_trail.reportLost(Severity::Warning, "the leader has no 'pos'; it runs to the origin");
  }
}

void AnnotationAudit::checkMeasures(qv::qvVariant const& value) {
  std::size_t const kept = m_annotation.m_measures.size();
  VariantList const* const list =
      openList(rules::annotation::measures, rules::records::measures, kept, value);
  if (list == nullptr) return;
  Inside const inside(m_trail, rules::annotation::measures.key);
  for (std::size_t i = 0; i < std::min(kept, list->size()); ++i) {
    Inside const at(m_trail, i);
    m_trail.checkFields((*list)[i].toMap(), rules::records::measures,
                        [this](rules::Field const& field, qv::qvVariant const& part) {
                          m_trail.checkValue(rules::records::measures, field, part);
                        });
  }
}

}  // namespace

void auditAnnotation(VariantMap const& record, qvAnnotationInterface const& annotation, bool isOfView,
                     AuditTrail& trail) {
  AnnotationAudit(record, annotation, isOfView, trail).run();
}

}  // namespace qvToolkit
