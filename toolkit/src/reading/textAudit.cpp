#include "reading/textAudit.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "rules/values.h"
#include "text/countText.h"

namespace qvToolkit {

namespace {

namespace rules = qvLegacy::rules;
using Inside = AuditTrail::Inside;
using Properties = qvLegacy::qvAnnotationText::TextProperties;

void checkRunLength(std::string_view text, AuditTrail& trail) {
  if (text.size() <= rules::longestRun) return;
  trail.reportLost(Severity::Error, "a text of " + std::to_string(text.size()) + " bytes was cut at " +
                                        std::to_string(rules::longestRun));
}

/// Whether null, which is read as the neutral value, gives what an absent key gives: the value of `base`.
bool isAsAbsent(rules::Field const& field, Properties const& base) {
  if (&field == &rules::properties::font) return base.m_fontName.empty();
  if (&field == &rules::properties::height) return base.m_height == 0;
  if (&field == &rules::properties::bold) return (base.m_styleFlags & Properties::Bold) == 0;
  return &field != &rules::properties::italic || (base.m_styleFlags & Properties::Italic) == 0;
}

std::string describeNeutral(rules::Field const& field) {
  if (field.form == rules::Form::Text) return "an empty one";
  return field.form == rules::Form::Height ? "0" : "false";
}

/// A property, or another part of a run: absent properties are those of `base`.
void checkProperty(rules::Record const& record, rules::Field const& field, qv::qvVariant const& value,
                   Properties const& base, AuditTrail& trail) {
  if (!value.isNull() || isAsAbsent(field, base)) return trail.checkValue(record, field, value);
  Inside const inside(trail, field.key);
  trail.reportValue(record, field, value, "another kind of value, or no such key", describeNeutral(field));
}

void checkRun(VariantMap const& run, Properties const& base, AuditTrail& trail) {
  trail.checkFields(run, rules::records::runs, [&](rules::Field const& field, qv::qvVariant const& value) {
    checkProperty(rules::records::runs, field, value, base, trail);
    if (&field != &rules::run::text || value.getString().size() <= rules::longestRun) return;
    Inside const inside(trail, field.key);
    checkRunLength(value.getString(), trail);
  });
}

/// Elements of a text that the reader passes over; there may be millions.
class WrongElements {
 public:
  void add(AuditTrail const& trail) {
    if (m_count++ == 0) m_firstPointer = trail.m_pointer;
  }
  void report(std::string const& noun, std::string const& kind, AuditTrail& trail) const {
    if (m_count == 0) return;
    std::string const pointer = std::exchange(trail.m_pointer, m_firstPointer);
    trail.reportLost(Severity::Error, formatCount(m_count, noun) + " not read, since no " + kind +
                                          (m_count > 1 ? " (first here)" : ""));
    trail.m_pointer = pointer;
  }

 private:
  std::size_t m_count = 0;
  std::string m_firstPointer;
};

}  // namespace

void auditDefaultProperties(VariantMap const& properties, AuditTrail& trail) {
  static Properties const base;
  Inside const inside(trail, rules::text::defaultProperties.key);
  trail.checkFields(properties, rules::records::properties,
                    [&](rules::Field const& field, qv::qvVariant const& value) {
                      checkProperty(rules::records::properties, field, value, base, trail);
                    });
}

void auditLines(qv::qvVariant const& value, qvLegacy::qvAnnotationText const& text, AuditTrail& trail) {
  if (value.isNull()) return;
  Inside const inside(trail, rules::text::lines.key);
  if (!value.isList())
    return trail.reportLost(Severity::Error, "'lines' is no list; the text was taken from 'text'");
  WrongElements wrongLines;
  WrongElements wrongRuns;
  VariantList const& lines = value.toList();
  for (std::size_t i = 0; i < lines.size(); ++i) {
    Inside const inLine(trail, i);
    if (!lines[i].isList()) wrongLines.add(trail);
    VariantList const& runs = lines[i].toList();
    for (std::size_t j = 0; j < runs.size(); ++j) {
      Inside const inRun(trail, j);
      if (runs[j].isMap()) {
        checkRun(runs[j].toMap(), text.m_defaultTextProperties, trail);
      } else {
        wrongRuns.add(trail);
      }
    }
  }
  wrongLines.report("line", "list", trail);
  wrongRuns.report("run", "map", trail);
}

/// Each line of a plain text becomes one run.
void auditPlainText(VariantMap const& record, qv::qvVariant const& text, AuditTrail& trail) {
  rules::Field const& field = rules::text::plain;
  if (findList(record, rules::text::lines.key) != nullptr)
    return trail.ignore({rules::records::texts, field.key, Severity::Info, 0, "beside 'lines'"});
  trail.checkValue(rules::records::texts, field, text);
  Inside const inside(trail, field.key);
  std::string_view rest = text.getString();
  while (!rest.empty()) {
    std::size_t const length = std::min(rest.find_first_of("\r\n"), rest.size());
    checkRunLength(rest.substr(0, length), trail);
    rest.remove_prefix(std::min(length + 1, rest.size()));
  }
}

}  // namespace qvToolkit
