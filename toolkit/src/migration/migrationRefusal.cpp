#include "migration/migrationRefusal.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "annotationLegacy/qvAnnotationMigration.h"
#include "annotationLegacy/qvAnnotationRaster.h"
#include "migration/migrationFindings.h"
#include "qvAnnotation/fontOptions.h"
#include "qvToolkit/model/annotationWalk.h"
#include "rules/anchors.h"
#include "rules/frames.h"
#include "rules/migrationMessages.h"
#include "rules/units.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationRaster;

namespace rules = qvLegacy::rules;
namespace messages = rules::migrationMessages;
using SubAnnot = qvAnnotationInterface::SubAnnot;

/// What makes an annotation fail. The kinds from `Metadata` to `EarlierLeaders` leave a record.
enum class Cause : std::uint8_t {
  ViewMetadata,
  Measure,
  Metadata,
  Raster,
  EmptyFrame,
  EarlierLeaders,
  Silent,
};

struct CauseRecord {
  rules::Message const& m_message;
  Cause m_cause;
};

/// Records that end the migration of their annotation at once. All others are of what was tolerated.
constexpr auto CauseRecords = std::to_array<CauseRecord>({
    {messages::knownMetadata, Cause::Metadata},
    {messages::unknownMetadata, Cause::Metadata},
    {messages::missingRaster, Cause::Raster},
    {messages::emptyFrame, Cause::EmptyFrame},
    {messages::earlierLeaders, Cause::EarlierLeaders},
});

/// Where a log says that the view failed.
struct FailedStep {
  Cause m_cause = Cause::Silent;
  std::string_view m_record;  ///< empty for a silent cause
  std::size_t m_depth = 0;    ///< of the annotation that failed; 0 for the view's own
};

Cause findCause(std::string_view record) {
  auto const known = std::ranges::find_if(CauseRecords, [record](CauseRecord const& each) {
    return messages::isMessage(record, each.m_message);
  });
  return known == CauseRecords.end() ? Cause::Silent : known->m_cause;
}

/// Reads a log from its end: the view's own record, one for each parent, and before them the cause.
FailedStep readLog(std::vector<std::string> const& log) {
  auto record = log.rbegin();
  if (record == log.rend()) return {};
  if (messages::isMessage(*record, messages::viewMetadata)) return {Cause::ViewMetadata, *record};
  bool const isMeasure = messages::isMessage(*record, messages::measures);
  FailedStep step;
  for (++record; record != log.rend() && messages::isMessage(*record, messages::subAnnotation); ++record)
    ++step.m_depth;
  if (record == log.rend()) return step;
  step.m_cause = isMeasure ? Cause::Measure : findCause(*record);
  if (step.m_cause != Cause::Silent) step.m_record = *record;
  return step;
}

std::string describeAnnotation(qvAnnotationInterface const& annotation, Address const& address) {
  std::string const& name = annotation.GetName();
  return "annotation " + (name.empty() ? std::string("without name") : "'" + name + "'") + " (" +
         address.getText() + ")";
}

bool hasFiniteSize(qvAnnotationRaster const& raster) {
  return std::isfinite(raster.m_size.X() * rules::svgUnitsPerLegacyUnit) &&
         std::isfinite(raster.m_size.Y() * rules::svgUnitsPerLegacyUnit);
}

/// True when the migration draws leaders of the sub-annotation.
bool drawsLeaders(SubAnnot const& child) {
  if (child.m_annot == nullptr) return false;
  bool const hasMeasure = !child.m_annot->m_measures.empty() && findFailedMeasure(*child.m_annot) != 0;
  return hasMeasure || !child.m_annot->m_leaders.empty();
}

/// True when a sub-annotation stands behind one whose leaders are drawn.
bool hasEarlierLeaders(qvAnnotationInterface const& annotation) {
  auto const& children = annotation.getSubAnnots();
  auto const first = std::ranges::find_if(children, drawsLeaders);
  return first != children.end() && std::any_of(std::next(first), children.end(), [](SubAnnot const& child) {
           return child.m_annot != nullptr;
         });
}

/// Looks for the annotation that failed. Among those of its depth it is the first, in document order, that
/// has the cause: the migration would have failed at an earlier one.
class FailureSearch {
 public:
  FailureSearch(RefusedMigration const& refused, FailedStep const& step) : m_refused(refused), m_step(step) {
    m_refusal.m_reason = step.m_record;
    m_refusal.m_isMetadata = step.m_cause == Cause::Metadata;
  }

  Refusal find() {
    walkAnnotations(m_refused.m_view, m_refused.m_viewAddress, [this](WalkedAnnotation const& walked) {
      bool const isCandidate = walked.m_annotation != nullptr && walked.m_depth == m_step.m_depth;
      if (isCandidate && m_refusal.m_place.empty()) check(*walked.m_annotation, walked.m_address);
    });
    auto const& log = m_refused.m_log;
    if (m_refusal.m_reason.empty())
      m_refusal.m_reason = log.empty() ? "the migration gave no reason" : log.back();
    return m_refusal;
  }

 private:
  void check(qvAnnotationInterface const& annotation, Address const& address);
  void checkSilent(qvAnnotationInterface const& annotation, Address const& address);
  void checkAnchors(qvAnnotationInterface const& annotation, Address const& address);
  void fail(qvAnnotationInterface const& annotation, Address const& address, std::string const& detail) {
    m_refusal.m_reason += detail;
    m_refusal.m_place = describeAnnotation(annotation, address);
  }

  RefusedMigration const& m_refused;
  FailedStep const& m_step;
  Refusal m_refusal;
};

void FailureSearch::check(qvAnnotationInterface const& annotation, Address const& address) {
  auto const* const raster = dynamic_cast<qvAnnotationRaster const*>(&annotation);
  switch (m_step.m_cause) {
    case Cause::ViewMetadata:
      return;
    case Cause::Measure:
      if (std::size_t const measure = findFailedMeasure(annotation); measure < annotation.m_measures.size())
        fail(annotation, address, ": measure leader " + std::to_string(measure) + " has no direction");
      return;
    case Cause::Metadata:
      if ((getNeededOptions(annotation.m_metadata) & ~m_refused.m_dropped) != 0)
        fail(annotation, address, {});
      return;
    case Cause::Raster:
      if (raster != nullptr && m_refused.m_rasters.findRefusal(raster->m_rasterName) != nullptr)
        fail(annotation, address, {});
      return;
    case Cause::EmptyFrame:
      if (raster != nullptr && !hasFiniteSize(*raster))
        fail(annotation, address, ": the size of its image is not finite");
      return;
    case Cause::EarlierLeaders:
      if (hasEarlierLeaders(annotation))
        fail(annotation, address, ": only the last of its sub-annotations may have leaders");
      return;
    case Cause::Silent:
      return checkSilent(annotation, address);
  }
}

void FailureSearch::checkSilent(qvAnnotationInterface const& annotation, Address const& address) {
  int const shape = annotation.m_style & qvAnnotationInterface::FrameShapeMask;
  bool const isText = annotation.m_type == qvAnnotationInterface::Text;
  if (!isText && annotation.m_type != qvAnnotationInterface::Raster)
    return fail(annotation, address, "its kind is neither text nor raster");
  if (isText && qv::text::hasMissedEveryFont())
    return fail(annotation, address, "there is no font to draw text with");
  if (rules::findFrameRule(shape) == nullptr)
    return fail(annotation, address,
                "frame shape " + std::to_string(shape) + " is unknown, expected 0 to " +
                    std::to_string(rules::frameRules.size() - 1));
  checkAnchors(annotation, address);
}

/// An anchor fails the parent, but belongs to the sub-annotation.
void FailureSearch::checkAnchors(qvAnnotationInterface const& annotation, Address const& address) {
  std::size_t index = 0;
  for (SubAnnot const& child : annotation.getSubAnnots()) {
    Address const childAddress = address.getChild(index++);
    if (child.m_annot == nullptr || rules::isKnownAnchor(child.m_anchor)) continue;
    return fail(*child.m_annot, childAddress,
                "anchor " + std::to_string(child.m_anchor) + " is unknown, expected 0 to " +
                    std::to_string(rules::anchorRules.size()));
  }
}

}  // namespace

Refusal explainRefusal(RefusedMigration const& refused) {
  FailedStep const step = readLog(refused.m_log);
  if (step.m_cause == Cause::ViewMetadata) return {std::string(step.m_record), {}, true};
  return FailureSearch(refused, step).find();
}

}  // namespace qvToolkit
