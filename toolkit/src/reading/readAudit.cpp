#include "reading/readAudit.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

#include "annotationLegacy/qvAnnotationText.h"
#include "findings/jsonPointer.h"
#include "qvToolkit/text/textEscape.h"
#include "reading/passedOver.h"
#include "reading/readRules.h"
#include "text/countText.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;
using Type = qvAnnotationInterface::Type;

constexpr std::size_t MaxRunLength = std::numeric_limits<std::uint16_t>::max();

class ViewAudit {
 public:
  ViewAudit(ReadView const& read, Findings& findings)
      : m_read(read), m_findings(findings), m_pointer(read.m_jsonPointer), m_address(read.m_address) {}

  void run();

 private:
  /// A list of annotation records and the annotations that were read from it.
  struct Level {
    VariantList const* m_records;
    std::vector<qvAnnotationInterface const*> m_kept;
    Type m_fixedType = Type::Unknown;  ///< of two-list documents; otherwise each record names its own
    char const* m_addressPart = "/annot/";
    std::size_t m_firstIndex = 0;  ///< of the kept annotations, in their address
    std::size_t m_next = 0;
    std::size_t m_nextKept = 0;
    std::size_t m_pointerLength = 0;
    std::size_t m_addressLength = 0;
  };

  /// Extends the JSON pointer while a value within the current record is looked at.
  class Inside {
   public:
    Inside(ViewAudit& audit, std::string_view key) : m_audit(audit), m_length(audit.m_pointer.size()) {
      appendPointerKey(audit.m_pointer, key);
    }
    Inside(ViewAudit& audit, std::size_t index) : m_audit(audit), m_length(audit.m_pointer.size()) {
      appendPointerIndex(audit.m_pointer, index);
    }
    Inside(Inside const&) = delete;
    Inside& operator=(Inside const&) = delete;
    ~Inside() { m_audit.m_pointer.resize(m_length); }

   private:
    ViewAudit& m_audit;
    std::size_t m_length;
  };

  void checkRefusedView();
  void checkView();
  void walkTopLists();
  void walk(Level top);
  bool alignsWithModel(Level const& level);
  void stepLevel();
  Type typeOf(Level const& level, qv::qvVariant const& record) const;
  void pushChildren(VariantMap const& record, qvAnnotationInterface const& annotation);

  void checkAnnotation(VariantMap const& record, qvAnnotationInterface const& annotation);
  void checkChildKeys(VariantMap const& record, RecordKind kind);
  void checkLeaders(VariantMap const& record, qvAnnotationInterface const& annotation);
  void checkList(VariantMap const& record, char const* key, std::size_t kept, RecordKind kind);
  void checkText(VariantMap const& record);
  void checkLines(VariantList const& lines);
  void checkPlainText(qv::qvVariant const& text);
  void checkRunLength(std::string_view text);
  void checkKeys(VariantMap const& map, RecordKind kind);
  void checkValue(RecordKind kind, std::string_view key, qv::qvVariant const& value);

  void ignore(RecordKind kind, std::string_view key, Severity severity, std::size_t records);
  void reportLost(Severity severity, std::string text);
  void reportRefused(qv::qvVariant const& record, std::string_view reason);

  ReadView const& m_read;
  Findings& m_findings;
  std::string m_pointer;  ///< of the record at hand
  std::string m_address;  ///< of the annotation at hand, or of the holder of a record that was lost
  std::vector<Level> m_levels;
  PassedOver m_passedOver;
};

void ViewAudit::run() {
  if (m_read.m_view == nullptr) {
    checkRefusedView();
    return;
  }
  checkView();
  walkTopLists();
  m_passedOver.report(m_read.m_version, m_read.m_address, m_findings);
}

void ViewAudit::checkRefusedView() {
  std::size_t count = 0;
  for (char const* const key : {"textannotations", "rasterannotations", "annotations"}) {
    if (VariantList const* const list = findList(m_read.m_map, key)) count += countRecords(*list);
  }
  std::string text = "the view '" + shortenText(findText(m_read.m_map, "name")) + "' was not read";
  if (count > 0) text += "; " + formatCount(count, "annotation record") + " went with it";
  reportLost(Severity::Error, std::move(text));
}

/// Keys of the other form of a view are known, but not looked at.
void ViewAudit::checkView() {
  checkKeys(m_read.m_map, RecordKind::View);
  bool const hasOneList = m_read.m_version >= gates::OneList;
  for (char const* const key : {"annotations", "textannotations", "rasterannotations"}) {
    qv::qvVariant const* const value = findValue(m_read.m_map, key);
    bool const isRead = hasOneList == (std::string_view(key) == "annotations");
    if (value == nullptr || isRead) continue;
    std::size_t const count = countRecords(value->toList());
    ignore(RecordKind::View, key, count > 0 ? Severity::Error : Severity::Info, count);
  }
  qv::qvVariant const* const metadata = findValue(m_read.m_map, "metadata");
  if (metadata == nullptr || m_read.m_version >= gates::ViewMetadata) return;
  ignore(RecordKind::View, "metadata", metadata->toMap().empty() ? Severity::Info : Severity::Warning, 0);
}

void ViewAudit::walkTopLists() {
  auto const& annotations = m_read.m_view->m_annotations;
  auto const isRaster = [](auto const& a) { return a != nullptr && a->m_type == Type::Raster; };
  auto const firstRaster = std::find_if(annotations.begin(), annotations.end(), isRaster);
  auto const walkList = [&](char const* key, Type type, auto begin, auto end) {
    VariantList const* const records = findList(m_read.m_map, key);
    if (records == nullptr) return;
    Inside const list(*this, key);
    Level level{records, {}, type};
    level.m_firstIndex = static_cast<std::size_t>(begin - annotations.begin());
    for (; begin != end; ++begin) level.m_kept.push_back(begin->get());
    walk(std::move(level));
  };
  if (m_read.m_version >= gates::OneList) {
    walkList("annotations", Type::Unknown, annotations.begin(), annotations.end());
    return;
  }
  walkList("textannotations", Type::Text, annotations.begin(), firstRaster);
  walkList("rasterannotations", Type::Raster, firstRaster, annotations.end());
}

void ViewAudit::walk(Level top) {
  top.m_pointerLength = m_pointer.size();
  top.m_addressLength = m_address.size();
  m_levels.push_back(std::move(top));
  while (!m_levels.empty()) stepLevel();
}

/// Takes the next record of the deepest list.
void ViewAudit::stepLevel() {
  Level& level = m_levels.back();
  m_pointer.resize(level.m_pointerLength);
  m_address.resize(level.m_addressLength);
  if (level.m_next == level.m_records->size() || (level.m_next == 0 && !alignsWithModel(level))) {
    m_levels.pop_back();
    return;
  }
  qv::qvVariant const& record = (*level.m_records)[level.m_next];
  appendPointerIndex(m_pointer, level.m_next++);
  std::string_view const refusal = findRefusal(record, typeOf(level, record), m_read.m_version);
  if (!refusal.empty()) {
    reportRefused(record, refusal);
    return;
  }
  qvAnnotationInterface const* const annotation = level.m_kept[level.m_nextKept];
  m_address += level.m_addressPart + std::to_string(level.m_firstIndex + level.m_nextKept++);
  if (annotation == nullptr) return;
  checkAnnotation(record.toMap(), *annotation);
  pushChildren(record.toMap(), *annotation);
}

/// The records that can be read should be the annotations that are there. If they are not, pairing them would
/// report nonsense, so only the numbers are.
bool ViewAudit::alignsWithModel(Level const& level) {
  auto const isReadable = [&](qv::qvVariant const& record) {
    return findRefusal(record, typeOf(level, record), m_read.m_version).empty();
  };
  auto const readable = std::count_if(level.m_records->begin(), level.m_records->end(), isReadable);
  if (static_cast<std::size_t>(readable) == level.m_kept.size()) return true;
  reportLost(Severity::Error, "of " + formatCount(level.m_records->size(), "annotation record") + " " +
                                  std::to_string(level.m_kept.size()) + " were read");
  return false;
}

Type ViewAudit::typeOf(Level const& level, qv::qvVariant const& record) const {
  return level.m_fixedType != Type::Unknown ? level.m_fixedType : getNamedType(record.toMap());
}

void ViewAudit::pushChildren(VariantMap const& record, qvAnnotationInterface const& annotation) {
  VariantList const* const children = findChildren(record, m_read.m_version);
  if (children == nullptr) return;
  appendPointerKey(m_pointer, findValue(record, "children") != nullptr ? "children" : "childs");
  Level level{children, {}, Type::Unknown, "/sub/"};
  for (auto const& node : annotation.getSubAnnots()) level.m_kept.push_back(node.m_annot.get());
  level.m_pointerLength = m_pointer.size();
  level.m_addressLength = m_address.size();
  m_levels.push_back(std::move(level));
}

void ViewAudit::checkAnnotation(VariantMap const& record, qvAnnotationInterface const& annotation) {
  bool const isText = annotation.m_type == Type::Text;
  RecordKind const kind = isText ? RecordKind::TextAnnotation : RecordKind::RasterAnnotation;
  checkKeys(record, kind);
  checkChildKeys(record, kind);
  checkLeaders(record, annotation);
  if (isText) checkText(record);
}

/// Children and metadata that stand where the reader does not look.
void ViewAudit::checkChildKeys(VariantMap const& record, RecordKind kind) {
  bool const isRead = m_read.m_version >= gates::OneList;
  bool const hasNewerKey = findValue(record, "children") != nullptr;
  for (char const* const key : {"children", "childs"}) {
    qv::qvVariant const* const value = findValue(record, key);
    if (value == nullptr) continue;
    bool const isTheKey = isRead && (std::string_view(key) == "children" || !hasNewerKey);
    if (isTheKey && value->isList()) continue;
    if (isTheKey) {
      Inside const inside(*this, key);
      reportLost(Severity::Error, "'" + std::string(key) + "' is no list, so no sub-annotation was read");
      continue;
    }
    std::size_t const count = countRecords(value->toList());
    ignore(kind, key, count > 0 ? Severity::Error : Severity::Info, count);
  }
  qv::qvVariant const* const metadata = findValue(record, "metadata");
  if (metadata == nullptr) return;
  if (!isRead) ignore(kind, "metadata", metadata->toMap().empty() ? Severity::Info : Severity::Warning, 0);
  if (isRead && !metadata->isMap()) {
    Inside const inside(*this, "metadata");
    reportLost(Severity::Warning, "'metadata' is no map, so no metadata was read");
  }
}

void ViewAudit::checkLeaders(VariantMap const& record, qvAnnotationInterface const& annotation) {
  checkList(record, "leaders", annotation.m_leaders.size(), RecordKind::Leader);
  checkList(record, "measures", annotation.m_measures.size(), RecordKind::MeasureLeader);
}

void ViewAudit::checkList(VariantMap const& record, char const* key, std::size_t kept, RecordKind kind) {
  VariantList const* const list = findList(record, key);
  if (list == nullptr) return;
  Inside const inside(*this, key);
  if (kept < list->size()) {
    std::string const counts = std::to_string(list->size() - kept) + " of " + std::to_string(list->size());
    reportLost(Severity::Warning, counts + " " + std::string(getRecordName(kind)) + " were not read");
  }
  for (std::size_t i = 0; i < std::min(kept, list->size()); ++i) {
    qv::qvVariant const& element = (*list)[i];
    if (!element.isMap()) continue;
    Inside const at(*this, i);
    checkKeys(element.toMap(), kind);
    if (m_read.m_version < gates::OneList && findValue(element.toMap(), "arrowdir") != nullptr) {
      ignore(kind, "arrowdir", Severity::Warning, 0);
    }
    qv::qvVariant const* const position = findValue(element.toMap(), "pos");
    if (kind == RecordKind::Leader && (position == nullptr || !isNumberList(*position, 3))) {
      reportLost(Severity::Warning, "the leader's 'pos' is no list of three numbers; it runs to the origin");
    }
  }
}

void ViewAudit::checkText(VariantMap const& record) {
  if (qv::qvVariant const* const properties = findValue(record, "defaulttextprop")) {
    Inside const inside(*this, "defaulttextprop");
    checkKeys(properties->toMap(), RecordKind::TextProperties);
  }
  qv::qvVariant const* const lines = findValue(record, "lines");
  qv::qvVariant const* const text = findValue(record, "text");
  if (lines != nullptr && lines->isList()) {
    checkLines(lines->toList());
    if (text != nullptr) ignore(RecordKind::TextAnnotation, "text", Severity::Info, 0);
    return;
  }
  if (lines != nullptr) {
    Inside const inside(*this, "lines");
    reportLost(Severity::Error, "'lines' is no list; the text was taken from 'text'");
  }
  if (text != nullptr) checkPlainText(*text);
}

/// Each line of a plain text becomes one run.
void ViewAudit::checkPlainText(qv::qvVariant const& text) {
  Inside const inside(*this, "text");
  if (text.isMap() || text.isList()) reportLost(Severity::Error, "'text' is no text, so none was read");
  std::string const whole = text.toString();
  std::string_view rest = whole;
  while (!rest.empty()) {
    std::size_t const length = std::min(rest.find_first_of("\r\n"), rest.size());
    checkRunLength(rest.substr(0, length));
    rest.remove_prefix(std::min(length + 1, rest.size()));
  }
}

void ViewAudit::checkLines(VariantList const& lines) {
  Inside const inside(*this, "lines");
  for (std::size_t i = 0; i < lines.size(); ++i) {
    Inside const inLine(*this, i);
    VariantList const& runs = lines[i].toList();
    for (std::size_t j = 0; j < runs.size(); ++j) {
      Inside const inRun(*this, j);
      VariantMap const& run = runs[j].toMap();
      checkKeys(run, RecordKind::Run);
      qv::qvVariant const* const text = findValue(run, "text");
      if (text == nullptr) continue;
      if (text->isMap() || text->isList()) reportLost(Severity::Error, "'text' is no text, so none was read");
      checkRunLength(text->getString());
    }
  }
}

void ViewAudit::checkRunLength(std::string_view text) {
  if (text.size() <= MaxRunLength) return;
  reportLost(Severity::Error, "a text of " + std::to_string(text.size()) + " bytes was cut at " +
                                  std::to_string(MaxRunLength));
}

void ViewAudit::checkKeys(VariantMap const& map, RecordKind kind) {
  for (auto const& [key, value] : map) {
    if (!isKnownKey(kind, key)) {
      ignore(kind, key, Severity::Info, 0);
    } else {
      checkValue(kind, key, value);
    }
  }
}

/// Texts that stand for a number: those that the reader does not know are taken for the default without a
/// message.
void ViewAudit::checkValue(RecordKind kind, std::string_view key, qv::qvVariant const& value) {
  qvLegacy::rules::ValueNames const* const names = findValueNames(kind, key);
  if (names == nullptr) return;
  std::string const text = value.toString();
  if (text.empty() || names->has(text)) return;
  Inside const inside(*this, key);
  m_passedOver.addValue(kind, key, text, m_pointer);
}

void ViewAudit::ignore(RecordKind kind, std::string_view key, Severity severity, std::size_t records) {
  Inside const inside(*this, key);
  m_passedOver.addKey(kind, key, severity, records, m_pointer);
}

void ViewAudit::reportLost(Severity severity, std::string text) {
  m_findings.push_back(
      {FindingCode::RecordLost, severity, std::move(text), m_address, {{}, {}, {}, m_pointer}, {}});
}

void ViewAudit::reportRefused(qv::qvVariant const& record, std::string_view reason) {
  std::string const name = findText(record.toMap(), "name");
  std::string text =
      "the annotation " + (name.empty() ? "without name" : "'" + shortenText(name) + "'") + " was not read: ";
  text += reason;
  std::size_t const descendants = m_read.m_version < gates::OneList ? 0 : countDescendants(record.toMap());
  if (descendants > 0) text += "; " + formatCount(descendants, "sub-annotation record") + " went with it";
  reportLost(Severity::Error, std::move(text));
}

}  // namespace

void auditView(ReadView const& read, Findings& findings) {
  ViewAudit(read, findings).run();
}

}  // namespace qvToolkit
