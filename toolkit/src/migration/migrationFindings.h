#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "annotationLegacy/qvAnnotationView.h"
#include "findings/findingList.h"
#include "images/documentRasters.h"
#include "migration/annotationPairs.h"
#include "qvToolkit/findings/address.h"
#include "qvToolkit/migration/migratedView.h"

namespace qvToolkit {

/// The options that a migration with the option bits `dropped` lacks to tolerate the
/// view's metadata; empty when it lacks none.
std::vector<OptionKey> findMissingOptions(qvLegacy::qvAnnotationView const& view, int dropped);

/// The option bits without which the migration refuses an annotation with such metadata of its own.
int getNeededOptions(qv::qvVariant::qvVariantMapImpl const& metadata);

/// The first measure leader without direction, at which the migration of the annotation's measure leaders
/// ends; their number when all have one.
std::size_t findFailedMeasure(qvLegacy::qvAnnotationInterface const& annotation);

/// Reports metadata that the migrated view no longer carries, a repaired name, and a plane that is none.
void reportView(qvLegacy::qvAnnotationView const& view, std::string const& viewAddress,
                FindingList& findings);

/// Reports what one annotation loses or changes by design: its metadata, a frame shape that is drawn as a
/// rectangle, a repaired name, a position without depth.
void reportAnnotation(AnnotationPair const& pair, FindingList& findings);

/// Reports what the text of an annotation loses or changes: blank lines and runs that are skipped, repaired
/// font names, text without height, types of runs that do not exist, a background that hardly
/// lets it see.
void reportText(AnnotationPair const& pair, FindingList& findings);

/// Reports leader heads that are not drawn and leaders that do not reach the CAD annotation whole.
void reportLeaders(AnnotationPair const& pair, FindingList& findings);

/// Reports fonts and characters of the annotation's text items, and images that cannot be shown or
/// have no size. What belongs to another annotation of the view is left to that one.
void reportContent(AnnotationPair const& pair, MigratedView const& view, FindingList& findings);

/// Reports control characters and invalid UTF-8 in `bytes`; `what` is "name" or "font name".
void reportRepair(std::string_view bytes, std::string_view what, std::string const& address,
                  FindingList& findings);

/// True for a point whose place in the view plane is there, but whose distance from it is not: the page shows
/// it, and the migrated model holds null.
bool lacksDepth(Wm4::Vector3<float> const& point);

/// Reports the rasters of a view, whether it was migrated or not, that there is no image for.
void reportRasters(qvLegacy::qvAnnotationView const& view, Address const& viewAddress,
                   DocumentRasters const& rasters, FindingList& findings);

}  // namespace qvToolkit
