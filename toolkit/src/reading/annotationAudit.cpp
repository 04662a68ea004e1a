#include "reading/annotationAudit.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

#include "text/colorText.h"
#include "text/countText.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;
using Inside = AuditTrail::Inside;

constexpr std::size_t MaxRunLength = std::numeric_limits<std::uint16_t>::max();

void checkRunLength(std::string_view text, AuditTrail& trail) {
  if (text.size() <= MaxRunLength) return;
  trail.reportLost(Severity::Error, "a text of " + std::to_string(text.size()) + " bytes was cut at " +
                                        std::to_string(MaxRunLength));
}

/// Each line of a plain text becomes one run.
void checkPlainText(qv::qvVariant const& text, AuditTrail& trail) {
  Inside const inside(trail, "text");
  if (text.isMap() || text.isList()) trail.reportLost(Severity::Error, "'text' is no text, so none was read");
  std::string const whole = text.toString();
  std::string_view rest = whole;
  while (!rest.empty()) {
    std::size_t const length = std::min(rest.find_first_of("\r\n"), rest.size());
    checkRunLength(rest.substr(0, length), trail);
    rest.remove_prefix(std::min(length + 1, rest.size()));
  }
}

void checkRun(VariantMap const& run, AuditTrail& trail) {
  trail.checkKeys(run, RecordKind::Run);
  qv::qvVariant const* const text = findValue(run, "text");
  if (text == nullptr) return;
  if (text->isMap() || text->isList())
    trail.reportLost(Severity::Error, "'text' is no text, so none was read");
  checkRunLength(text->getString(), trail);
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

void checkLines(VariantList const& lines, AuditTrail& trail) {
  WrongElements wrongLines;
  WrongElements wrongRuns;
  Inside const inside(trail, "lines");
  for (std::size_t i = 0; i < lines.size(); ++i) {
    Inside const inLine(trail, i);
    if (!lines[i].isList()) wrongLines.add(trail);
    VariantList const& runs = lines[i].toList();
    for (std::size_t j = 0; j < runs.size(); ++j) {
      Inside const inRun(trail, j);
      if (runs[j].isMap()) {
        checkRun(runs[j].toMap(), trail);
      } else {
        wrongRuns.add(trail);
      }
    }
  }
  wrongLines.report("line", "list", trail);
  wrongRuns.report("run", "map", trail);
}

void checkText(VariantMap const& record, AuditTrail& trail) {
  if (qv::qvVariant const* const properties = findValue(record, "defaulttextprop")) {
    Inside const inside(trail, "defaulttextprop");
    if (!properties->isMap())
      trail.reportLost(Severity::Warning,
                       "'defaulttextprop' is no map; the default text properties were taken");
    trail.checkKeys(properties->toMap(), RecordKind::TextProperties);
  }
  qv::qvVariant const* const lines = findValue(record, "lines");
  qv::qvVariant const* const text = findValue(record, "text");
  if (lines != nullptr && lines->isList()) {
    checkLines(lines->toList(), trail);
    if (text != nullptr) trail.ignore(RecordKind::TextAnnotation, "text", Severity::Info, 0);
    return;
  }
  if (lines != nullptr) {
    Inside const inside(trail, "lines");
    trail.reportLost(Severity::Error, "'lines' is no list; the text was taken from 'text'");
  }
  if (text != nullptr) checkPlainText(*text, trail);
}

void checkLeaderEnd(qv::qvVariant const* position, AuditTrail& trail) {
  if (position == nullptr) {
    trail.reportLost(Severity::Warning, "the leader has no 'pos'; it runs to the origin");
  } else if (!isNumberList(*position, 3)) {
    trail.reportLost(Severity::Error,
                     "the leader's 'pos' is no list of three numbers; it runs to the origin");
  }
}

void checkList(VariantMap const& record, char const* key, std::size_t kept, RecordKind kind,
               AuditTrail& trail) {
  qv::qvVariant const* const value = findValue(record, key);
  if (value == nullptr) return;
  Inside const inside(trail, key);
  VariantList const* const list = value->isList() ? &value->toList() : nullptr;
  if (list == nullptr)
    return trail.reportLost(Severity::Error,
                            "'" + std::string(key) + "' is no list, so none of them was read");
  if (kept < list->size()) {
    std::string const counts = std::to_string(list->size() - kept) + " of " + std::to_string(list->size());
    trail.reportLost(Severity::Error, counts + " " + std::string(getRecordName(kind)) + " were not read");
  }
  for (std::size_t i = 0; i < std::min(kept, list->size()); ++i) {
    qv::qvVariant const& element = (*list)[i];
    if (!element.isMap()) continue;
    Inside const at(trail, i);
    trail.checkKeys(element.toMap(), kind);
    if (trail.m_version < gates::OneList && findValue(element.toMap(), "arrowdir") != nullptr) {
      trail.ignore(kind, "arrowdir", Severity::Warning, 0);
    }
    if (kind == RecordKind::Leader) checkLeaderEnd(findValue(element.toMap(), "pos"), trail);
  }
}

void checkLeaders(VariantMap const& record, qvAnnotationInterface const& annotation, AuditTrail& trail) {
  checkList(record, "leaders", annotation.m_leaders.size(), RecordKind::Leader, trail);
  checkList(record, "measures", annotation.m_measures.size(), RecordKind::MeasureLeader, trail);
}

/// The reader ends the number at the first character that is no digit, and refuses one that is 0 then.
void checkColor(VariantMap const& record, qvAnnotationInterface const& annotation, AuditTrail& trail) {
  constexpr std::string_view Digits = "0123456789ABCDEFabcdef";
  constexpr std::size_t Length = 6;
  qv::qvVariant const* const value = findValue(record, "color");
  if (value == nullptr) return;
  std::string const text = value->toString();
  if (text.size() == Length && text.find_first_not_of(Digits) == std::string::npos) return;
  Inside const inside(trail, "color");
  trail.reportLost(Severity::Warning, "the color is not six hexadecimal digits; it is taken for " +
                                          formatColor(annotation.m_color));
}

/// Children and metadata that stand where the reader does not look.
void checkChildKeys(VariantMap const& record, RecordKind kind, AuditTrail& trail) {
  bool const isRead = trail.m_version >= gates::OneList;
  bool const hasNewerKey = findValue(record, "children") != nullptr;
  for (char const* const key : {"children", "childs"}) {
    qv::qvVariant const* const value = findValue(record, key);
    if (value == nullptr) continue;
    bool const isTheKey = isRead && (std::string_view(key) == "children" || !hasNewerKey);
    if (isTheKey && value->isList()) continue;
    if (isTheKey) {
      Inside const inside(trail, key);
      trail.reportLost(Severity::Error,
                       "'" + std::string(key) + "' is no list, so no sub-annotation was read");
      continue;
    }
    std::size_t const count = countRecords(value->toList());
    trail.ignore(kind, key, count > 0 ? Severity::Error : Severity::Info, count);
  }
  qv::qvVariant const* const metadata = findValue(record, "metadata");
  if (metadata == nullptr) return;
  if (!isRead)
    trail.ignore(kind, "metadata", metadata->toMap().empty() ? Severity::Info : Severity::Warning, 0);
  if (isRead && !metadata->isMap()) {
    Inside const inside(trail, "metadata");
    trail.reportLost(Severity::Warning, "'metadata' is no map, so no metadata was read");
  }
}

}  // namespace

void auditAnnotation(VariantMap const& record, qvAnnotationInterface const& annotation, AuditTrail& trail) {
  bool const isText = annotation.m_type == qvAnnotationInterface::Text;
  RecordKind const kind = isText ? RecordKind::TextAnnotation : RecordKind::RasterAnnotation;
  trail.checkKeys(record, kind);
  checkChildKeys(record, kind, trail);
  checkLeaders(record, annotation, trail);
  checkColor(record, annotation, trail);
  if (isText) checkText(record, trail);
}

}  // namespace qvToolkit
