#include "stream/streamLosses.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "qvToolkit/model/annotationWalk.h"
#include "reading/streamContainer.h"
#include "rules/fields.h"
#include "stream/annotationRecord.h"
#include "stream/variantMapWriter.h"
#include "text/countText.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationRaster;
using qvLegacy::qvAnnotationText;
using qvLegacy::rules::Since;

namespace members = qvLegacy::rules::members;

/// The runs of a text that meet a condition.
template <class Condition>
std::size_t countRuns(qvAnnotationText const& text, Condition condition) {
  std::size_t count = 0;
  for (qvAnnotationText::Line const& line : text.m_lines) {
    count += static_cast<std::size_t>(std::count_if(line.begin(), line.end(), condition));
  }
  return count;
}

/// Compares what a view holds with what a version has room for.
class LossFinder {
 public:
  LossFinder(std::uint32_t version, Findings& findings) : m_version(version), m_findings(findings) {}

  void checkView(qvLegacy::qvAnnotationView const& view, Address const& address);

 private:
  bool has(Since since) const { return qvLegacy::rules::reaches(m_version, since); }
  void checkAnnotation(WalkedAnnotation const& walked);
  void checkWhole(WalkedAnnotation const& walked);
  void checkShared(qvAnnotationInterface const& annotation);
  void checkLeaders(qvAnnotationInterface const& annotation);
  /// Counts the values of fields that the version does not have.
  template <class Record, class... Members>
  void checkFields(std::vector<Record> const& records, std::tuple<Members...> const& members) {
    std::apply([&](Members const&... member) { (checkField(records, member), ...); }, members);
  }
  template <class Record, class Value>
  void checkField(std::vector<Record> const& records, members::Member<Record, Value> const& member);
  void checkRuns(qvAnnotationText const& text);
  void checkMetadata(VariantMap const& metadata, Since since);
  /// Reports what has to go because of a gate that is closed; nothing when `what` is empty.
  void lose(Severity severity, std::string const& what, Since since);
  void report(FindingCode code, Severity severity, std::string text);

  std::uint32_t m_version;
  Findings& m_findings;
  std::string m_address;
};

void LossFinder::report(FindingCode code, Severity severity, std::string text) {
  m_findings.push_back(makeFinding(code, severity, std::move(text), m_address));
}

void LossFinder::lose(Severity severity, std::string const& what, Since since) {
  qvLegacy::rules::Gate const& gate = qvLegacy::rules::gateOf(since);
  report(FindingCode::EncodingLoss, severity,
         what + ": stream version " + qv::qvStreamVersion(m_version).toString() + " has no " +
             std::string(gate.brought) + ", they came with " + qv::qvStreamVersion(gate.version).toString());
}

void LossFinder::checkView(qvLegacy::qvAnnotationView const& view, Address const& address) {
  m_address = address.getText();
  checkMetadata(view.m_metadata, Since::viewMetadata);
  auto const isRaster = [](auto const& annotation) {
    return getRecordKind(annotation.get()) == qvAnnotationInterface::Raster;
  };
  auto const isText = [](auto const& annotation) {
    return getRecordKind(annotation.get()) == qvAnnotationInterface::Text;
  };
  auto const& annotations = view.m_annotations;
  auto const firstRaster = std::find_if(annotations.begin(), annotations.end(), isRaster);
  if (has(Since::rasters) && std::any_of(firstRaster, annotations.end(), isText)) {
    report(FindingCode::EncodingOrder, Severity::Info,
           "an object stream lists the texts of a view before its rasters; the order of its annotations "
           "changes");
  }
  walkAnnotations(view, address, [this](WalkedAnnotation const& walked) { checkAnnotation(walked); });
}

void LossFinder::checkAnnotation(WalkedAnnotation const& walked) {
  // What went with its parent is counted there.
  if (walked.m_depth > 0 && !has(Since::children)) return;
  m_address = walked.m_address.getText();
  std::uint8_t const kind = getRecordKind(walked.m_annotation);
  if (kind == qvAnnotationInterface::Raster && !has(Since::rasters)) {
    lose(Severity::Error, "the raster is left out, with everything below", Since::rasters);
  } else if (kind == qvAnnotationInterface::Unknown) {
    checkWhole(walked);
  } else {
    checkShared(*walked.m_annotation);
    checkLeaders(*walked.m_annotation);
    auto const* const text = dynamic_cast<qvAnnotationText const*>(walked.m_annotation);
    if (text != nullptr && !has(Since::segmentTypes)) checkRuns(*text);
  }
  if (walked.m_anchor.value_or(0) != getAnchorByte(walked.m_anchor.value_or(0))) {
    report(FindingCode::EncodingLoss, Severity::Warning,
           "the anchor " + std::to_string(*walked.m_anchor) + " does not fit into its byte; 0 is written");
  }
}

/// Entries for which there is no record at all. An empty node among sub-annotations has one.
void LossFinder::checkWhole(WalkedAnnotation const& walked) {
  if (walked.m_annotation != nullptr) {
    report(FindingCode::EncodingLoss, Severity::Error,
           "the annotation is left out, with everything below: it is neither a text nor a raster");
  } else if (walked.m_depth == 0) {
    report(FindingCode::EncodingLoss, Severity::Warning,
           "the empty entry is left out: an object stream has none among the annotations of a view");
  }
}

void LossFinder::checkShared(qvAnnotationInterface const& annotation) {
  if (!has(Since::annotationNames) && !annotation.m_name.empty()) {
    lose(Severity::Warning, "the name is lost", Since::annotationNames);
  }
  if (!has(Since::frameShapes) && annotation.m_style > qvAnnotationInterface::Rectangle) {
    bool const hasFrame = (annotation.m_style & qvAnnotationInterface::FrameShapeMask) != 0;
    lose(Severity::Warning,
         hasFrame ? "the frame becomes a plain rectangle" : "the flags of the frame are lost",
         Since::frameShapes);
  }
  if (!has(Since::children) && annotation.getSubAnnotsCount() > 0) {
    lose(Severity::Error,
         formatCount(annotation.getSubAnnotsCount(), "sub-annotation") + " left out, with everything below",
         Since::children);
  }
  checkMetadata(annotation.m_metadata, Since::annotationMetadata);
}

void LossFinder::checkLeaders(qvAnnotationInterface const& annotation) {
  checkFields(annotation.m_leaders, members::leader<qvAnnotationInterface::Leader>);
  auto const& measures = annotation.m_measures;
  if (!has(Since::measures) && !measures.empty()) {
    return lose(Severity::Error, formatCount(measures.size(), "measure leader") + " left out",
                Since::measures);
  }
  checkFields(measures, members::measure<qvAnnotationInterface::MeasureLeader>);
}

template <class Record, class Value>
void LossFinder::checkField(std::vector<Record> const& records,
                            members::Member<Record, Value> const& member) {
  Since const since = member.field.inStreams;
  if (has(since)) return;
  auto const isSet = [&](Record const& record) { return record.*member.member != Value{}; };
  auto const count = static_cast<std::size_t>(std::ranges::count_if(records, isSet));
  if (count > 0) lose(Severity::Warning, formatCount(count, member.field.noun) + " lost", since);
}

void LossFinder::checkRuns(qvAnnotationText const& text) {
  using Run = qvAnnotationText::TextSegment;
  std::size_t const typed = countRuns(text, [](Run const& run) { return run.m_type != Run::Normal; });
  if (typed > 0) {
    lose(Severity::Warning, formatCount(typed, "run") + " lowered or raised no more", Since::segmentTypes);
  }
  std::size_t const cut = countRuns(text, [](Run const& run) {
    return std::string_view(run.getText(), run.m_length).find('\0') != std::string_view::npos;
  });
  if (cut > 0) {
    lose(Severity::Error, formatCount(cut, "run") + " cut at the first zero character", Since::segmentTypes);
  }
}

void LossFinder::checkMetadata(VariantMap const& metadata, Since since) {
  if (!has(since)) {
    if (!metadata.empty()) lose(Severity::Warning, "the metadata is lost", since);
    return;
  }
  std::size_t const tooDeep = countTooDeep(metadata);
  if (tooDeep == 0) return;
  report(FindingCode::EncodingLoss, Severity::Warning,
         formatCount(tooDeep, "map or list") +
             " of the metadata written as null: an object stream nests them " +
             std::to_string(MaxVariantLevel) + " deep");
}

}  // namespace

void findStreamLosses(qvLegacy::qvAnnotationView const& view, Address const& address, std::uint32_t version,
                      Findings& findings) {
  LossFinder(version, findings).checkView(view, address);
}

}  // namespace qvToolkit
