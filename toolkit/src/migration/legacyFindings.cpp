#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <utility>

#include "annotationLegacy/qvAnnotationMigration.h"
#include "annotationLegacy/qvAnnotationRaster.h"
#include "migration/migrationFindings.h"
#include "qvToolkit/model/annotationWalk.h"
#include "qvToolkit/text/textEscape.h"
#include "rules/frames.h"
#include "rules/knownMetadata.h"
#include "rules/valueNames.h"
#include "wm4/math.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationMigration;
using qvLegacy::qvAnnotationRaster;

namespace rules = qvLegacy::rules;

struct DropOption {
  int m_bit;
  OptionKey m_key;
};

constexpr std::array<DropOption, 3> DropOptions = {{
    {qvAnnotationMigration::DropViewMetadata, OptionKey::DropViewMetadata},
    {qvAnnotationMigration::DropKnownMetadata, OptionKey::DropKnownMetadata},
    {qvAnnotationMigration::DropUnknownMetadata, OptionKey::DropUnknownMetadata},
}};

std::string listKeys(qv::qvVariant::qvVariantMapImpl const& metadata) {
  constexpr std::size_t MaxListed = 10;
  std::string list;
  std::size_t listed = 0;
  for (auto const& [key, value] : metadata) {
    if (listed == MaxListed) return list + ", and " + std::to_string(metadata.size() - listed) + " more";
    list += (listed++ == 0 ? "'" : ", '") + shortenText(key) + "'";
  }
  return list;
}

void addDroppedMetadata(qv::qvVariant::qvVariantMapImpl const& metadata, std::string const& address,
                        FindingList& findings) {
  if (metadata.empty()) return;
  findings.add(FindingCode::MetadataDropped, "metadata is not carried over: " + listKeys(metadata), address);
}

void reportShape(AnnotationPair const& pair, FindingList& findings) {
  int const shape = pair.m_legacy->m_style & qvAnnotationInterface::FrameShapeMask;
  rules::FrameRule const* const rule = rules::findFrameRule(shape);
  if (rule == nullptr || !rule->standIn) return;
  std::string const name(rules::frameShapes.nameOf(static_cast<std::uint32_t>(shape)));
  findings.add(FindingCode::ShapeAsRectangle, "frame shape '" + name + "' is drawn as a rectangle",
               pair.m_address);
}

bool isFinite(Wm4::Vector3<float> const& v) {
  return std::isfinite(v.X()) && std::isfinite(v.Y()) && std::isfinite(v.Z());
}

void reportPlane(qvLegacy::qvAnnotationView const& view, std::string const& address, FindingList& findings) {
  auto const& normal = view.m_planeNormal;
  auto const& axis = view.m_planeXAxis;
  if (!isFinite(view.m_planeOrigin) || !isFinite(normal) || !isFinite(axis)) {
    findings.add(FindingCode::NumberNotFinite,
                 "the view's plane is lost: not all numbers of its origin, normal and axis are finite; the "
                 "migrated model holds null for those that are not",
                 address);
    return;
  }
  float const area = normal.Cross(axis).Length();
  if (area > Wm4::Math<float>::ZERO_TOLERANCE * normal.Length() * axis.Length()) return;
  findings.add(FindingCode::PlaneDegenerate,
               "the view's normal and axis are parallel or zero, so that they span no plane", address);
}

/// The depth of a sub-annotation's own position counts for nothing.
void reportDepth(AnnotationPair const& pair, FindingList& findings) {
  if (pair.m_depth > 0 || !lacksDepth(pair.m_legacy->m_position)) return;
  findings.add(FindingCode::NumberNotFinite,
               "the depth of its position is lost: it is not finite; the migrated model holds null",
               pair.m_address);
}

void reportRaster(qvAnnotationRaster const& raster, std::string const& address,
                  DocumentRasters const& rasters, FindingList& findings) {
  Raster const* const refusal = rasters.findRefusal(raster.m_rasterName);
  if (refusal == nullptr) return;
  std::string text =
      "image '" + shortenText(raster.m_rasterName) + "' is not available: " + refusal->m_problem;
  if (!rasters.hasSource()) text += "; name the folder that holds it";
  findings.add(refusal->m_isTooLarge ? FindingCode::LimitRaster : FindingCode::RasterUnavailable,
               std::move(text), address);
}

}  // namespace

int getNeededOptions(qv::qvVariant::qvVariantMapImpl const& metadata) {
  int needed = 0;
  for (auto const& [key, value] : metadata) {
    needed |= rules::isKnownMetadataKey(key) ? qvAnnotationMigration::DropKnownMetadata
                                             : qvAnnotationMigration::DropUnknownMetadata;
  }
  return needed;
}

void reportRepair(std::string_view bytes, std::string_view what, std::string const& address,
                  FindingList& findings) {
  bool isRepaired = false;
  static_cast<void>(repairUtf8(bytes, &isRepaired));
  if (!isRepaired) return;
  findings.add(
      FindingCode::TextRepaired,
      "the " + std::string(what) + " holds control characters or invalid UTF-8; each is shown as U+FFFD",
      address);
}

bool lacksDepth(Wm4::Vector3<float> const& point) {
  return std::isfinite(point.X()) && std::isfinite(point.Y()) && !std::isfinite(point.Z());
}

std::vector<OptionKey> findMissingOptions(qvLegacy::qvAnnotationView const& view, int dropped) {
  int needed = view.m_metadata.empty() ? 0 : static_cast<int>(qvAnnotationMigration::DropViewMetadata);
  walkAnnotations(view, {}, [&needed](WalkedAnnotation const& walked) {
    if (walked.m_annotation != nullptr) needed |= getNeededOptions(walked.m_annotation->m_metadata);
  });
  std::vector<OptionKey> options;
  for (DropOption const& option : DropOptions) {
    if ((needed & ~dropped & option.m_bit) != 0) options.push_back(option.m_key);
  }
  return options;
}

void reportView(qvLegacy::qvAnnotationView const& view, std::string const& viewAddress,
                FindingList& findings) {
  addDroppedMetadata(view.m_metadata, viewAddress, findings);
  reportPlane(view, viewAddress, findings);
  reportRepair(view.m_name, "name", viewAddress, findings);
}

void reportAnnotation(AnnotationPair const& pair, FindingList& findings) {
  addDroppedMetadata(pair.m_legacy->m_metadata, pair.m_address, findings);
  reportShape(pair, findings);
  reportDepth(pair, findings);
  reportRepair(pair.m_legacy->m_name, "name", pair.m_address, findings);
}

void reportRasters(qvLegacy::qvAnnotationView const& view, Address const& viewAddress,
                   DocumentRasters const& rasters, FindingList& findings) {
  walkAnnotations(view, viewAddress, [&](WalkedAnnotation const& walked) {
    auto const* const raster = dynamic_cast<qvAnnotationRaster const*>(walked.m_annotation);
    if (raster != nullptr) reportRaster(*raster, walked.m_address.getText(), rasters, findings);
  });
}

}  // namespace qvToolkit
