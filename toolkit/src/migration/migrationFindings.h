#pragma once

#include "annotationLegacy/qvAnnotationView.h"
#include "findings/findingList.h"
#include "migration/annotationPairs.h"
#include "qvToolkit/images/rasterFolder.h"
#include "qvToolkit/migration/migrationSession.h"

namespace qvToolkit {

/// The options, separated by blanks, that a migration with the option bits `dropped` lacks to tolerate the
/// view's metadata; empty when it lacks none.
std::string findMissingOptions(qvLegacy::qvAnnotationView const& view, int dropped);

/// Reports metadata that the migrated view no longer carries, and a repaired name.
void reportView(qvLegacy::qvAnnotationView const& view, std::string const& viewAddress,
                FindingList& findings);

/// Reports what one annotation loses or changes by design: its metadata, skipped blank lines, a frame shape
/// that is drawn as a rectangle, repaired texts.
void reportAnnotation(AnnotationPair const& pair, FindingList& findings);

/// Reports leader heads that are not drawn and leaders that do not reach the CAD annotation. `headSize` is
/// that of the migration.
void reportLeaders(AnnotationPair const& pair, FindingList& findings);

/// Reports fonts and characters of the annotation's text items and images that cannot be shown. What
/// belongs to another annotation of `marks` is left to that one.
void reportContent(AnnotationPair const& pair, AnnotationMarks const& marks, RasterFolder const& rasters,
                   FindingList& findings);

/// Reports the rasters of a view, whether it was migrated or not, that the folder could not deliver.
void reportRasters(qvLegacy::qvAnnotationView const& view, std::string const& viewAddress, bool hasFolder,
                   RasterFolder const& rasters, FindingList& findings);

}  // namespace qvToolkit
