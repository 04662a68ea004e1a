#include "reading/readAudit.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "qvToolkit/text/textEscape.h"
#include "reading/annotationAudit.h"
#include "reading/annotationRules.h"
#include "reading/auditTrail.h"
#include "text/countText.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;
using Type = qvAnnotationInterface::Type;

namespace rules = qvLegacy::rules;

constexpr std::array AnnotationLists = {&rules::view::texts, &rules::view::rasters,
                                        &rules::view::annotations};

class ViewAudit {
 public:
  ViewAudit(ReadView const& read, CutHeights& heights, Findings& findings)
      : m_read(read), m_trail(read.m_version, read.m_jsonPointer, read.m_address, heights, findings) {}

  HarmlessMessages run();

 private:
  /// A list of annotation records and the annotations that were read from it.
  struct Level {
    VariantList const* m_records;
    std::vector<qvAnnotationInterface const*> m_kept;
    Type m_fixedType = Type::Unknown;  ///< of two-list documents; otherwise each record names its own
    std::size_t m_firstIndex = 0;      ///< of the kept annotations, in their address
    std::size_t m_next = 0;
    std::size_t m_nextKept = 0;
    std::size_t m_pointerLength = 0;
    Address m_holder = {};  ///< where the list belongs
  };

  void checkRefusedView();
  void checkView();
  void walkTopLists();
  void walk(Level top);
  bool alignsWithModel(Level const& level);
  void stepLevel();
  Type typeOf(Level const& level, qv::qvVariant const& record) const;
  void pushChildren(VariantMap const& record, qvAnnotationInterface const& annotation);

  void reportRefused(qv::qvVariant const& record, std::string_view reason);

  ReadView const& m_read;
  AuditTrail m_trail;
  std::vector<Level> m_levels;
};

HarmlessMessages ViewAudit::run() {
  if (m_read.m_view == nullptr) {
    checkRefusedView();
    return {};
  }
  checkView();
  walkTopLists();
  m_trail.finish(m_read.m_address.getText());
  return m_trail.getHarmlessMessages();
}

void ViewAudit::checkRefusedView() {
  std::size_t count = 0;
  for (rules::Field const* const field : AnnotationLists) {
    if (VariantList const* const list = findList(m_read.m_map, field->key)) count += countRecords(*list);
  }
  std::string text =
      "the view '" + shortenText(findText(m_read.m_map, rules::view::name.key)) + "' was not read";
  if (count > 0) text += "; " + formatCount(count, "annotation record") + " went with it";
  m_trail.reportLost(Severity::Error, std::move(text));
}

/// The annotations are left to the walk.
void ViewAudit::checkView() {
  m_trail.checkFields(m_read.m_map, rules::records::views,
                      [this](rules::Field const& field, qv::qvVariant const& value) {
                        m_trail.checkValue(rules::records::views, field, value);
                      });
}

void ViewAudit::walkTopLists() {
  auto const& annotations = m_read.m_view->m_annotations;
  auto const isRaster = [](auto const& a) { return a != nullptr && a->m_type == Type::Raster; };
  auto const firstRaster = std::find_if(annotations.begin(), annotations.end(), isRaster);
  auto const walkList = [&](rules::Field const& field, Type type, auto begin, auto end) {
    VariantList const* const records = findList(m_read.m_map, field.key);
    if (records == nullptr) return;
    AuditTrail::Inside const list(m_trail, field.key);
    Level level{records, {}, type};
    level.m_firstIndex = static_cast<std::size_t>(begin - annotations.begin());
    for (; begin != end; ++begin) level.m_kept.push_back(begin->get());
    walk(std::move(level));
  };
  if (rules::view::annotations.isInVariants(m_read.m_version.GetPacked())) {
    walkList(rules::view::annotations, Type::Unknown, annotations.begin(), annotations.end());
    return;
  }
  walkList(rules::view::texts, Type::Text, annotations.begin(), firstRaster);
  walkList(rules::view::rasters, Type::Raster, firstRaster, annotations.end());
}

void ViewAudit::walk(Level top) {
  top.m_pointerLength = m_trail.m_pointer.size();
  top.m_holder = m_trail.m_address;
  m_levels.push_back(std::move(top));
  while (!m_levels.empty()) stepLevel();
}

/// Takes the next record of the deepest list.
void ViewAudit::stepLevel() {
  Level& level = m_levels.back();
  m_trail.m_pointer.resize(level.m_pointerLength);
  m_trail.m_address = level.m_holder;
  if (level.m_next == level.m_records->size() || (level.m_next == 0 && !alignsWithModel(level))) {
    m_levels.pop_back();
    return;
  }
  qv::qvVariant const& record = (*level.m_records)[level.m_next];
  appendPointerIndex(m_trail.m_pointer, level.m_next++);
  std::string_view const refusal = findRefusal(record, typeOf(level, record), m_read.m_version);
  if (!refusal.empty()) {
    reportRefused(record, refusal);
    return;
  }
  qvAnnotationInterface const* const annotation = level.m_kept[level.m_nextKept];
  m_trail.m_address.enter(level.m_firstIndex + level.m_nextKept++);
  if (annotation == nullptr) return;
  auditAnnotation(record.toMap(), *annotation, m_levels.size() == 1, m_trail);
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
  m_trail.reportLost(Severity::Error, "of " + formatCount(level.m_records->size(), "annotation record") +
                                          " " + std::to_string(level.m_kept.size()) + " were read");
  return false;
}

Type ViewAudit::typeOf(Level const& level, qv::qvVariant const& record) const {
  return level.m_fixedType != Type::Unknown ? level.m_fixedType : getNamedType(record.toMap());
}

void ViewAudit::pushChildren(VariantMap const& record, qvAnnotationInterface const& annotation) {
  VariantList const* const children = findChildren(record, m_read.m_version);
  if (children == nullptr) return;
  bool const isNewer = findValue(record, rules::annotation::children.key) != nullptr;
  appendPointerKey(m_trail.m_pointer,
                   (isNewer ? rules::annotation::children : rules::annotation::childs).key);
  Level level{children, {}, Type::Unknown};
  for (auto const& node : annotation.getSubAnnots()) level.m_kept.push_back(node.m_annot.get());
  level.m_pointerLength = m_trail.m_pointer.size();
  level.m_holder = m_trail.m_address;
  m_levels.push_back(std::move(level));
}

void ViewAudit::reportRefused(qv::qvVariant const& record, std::string_view reason) {
  std::string const name = findText(record.toMap(), rules::annotation::name.key);
  std::string text =
      "the annotation " + (name.empty() ? "without name" : "'" + shortenText(name) + "'") + " was not read: ";
  text += reason;
  bool const hasChildren = rules::annotation::children.isInVariants(m_read.m_version.GetPacked());
  std::size_t const descendants = hasChildren ? countDescendants(record.toMap()) : 0;
  if (descendants > 0) text += "; " + formatCount(descendants, "sub-annotation record") + " went with it";
  m_trail.reportLost(Severity::Error, std::move(text));
}

}  // namespace

HarmlessMessages ReadAudit::audit(ReadView const& read, Findings& findings) {
  return ViewAudit(read, m_heights, findings).run();
}

/// Without a place in the text, which would have to be looked for in nearly every document.
void ReadAudit::finish(Findings& findings) const {
  if (m_heights.m_count == 0) return;
  std::string const text = formatCount(m_heights.m_count, "text height") + " cut to hundredths of an em, ";
  findings.push_back(makeFinding(FindingCode::ValueRounded,
                                 text + (m_heights.m_count > 1 ? "first " : "") + m_heights.m_firstText,
                                 m_heights.m_firstAddress));
}

}  // namespace qvToolkit
