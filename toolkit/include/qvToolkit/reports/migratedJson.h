#pragma once

#include <string>
#include <vector>

#include "qvToolkit/files/outputSink.h"
#include "qvToolkit/migration/migrationSession.h"
#include "qvToolkit/model/document.h"

namespace qvToolkit {

/// The whole migrated model of a document as JSON: plane, annotations, leader segments, anchors, shapes and
/// SVG trees of each view, why a view was not migrated, and the findings. docs/migrated-json.md describes it
/// field by field. `pageNames` holds the file name of each view's page, empty where there is none. `findings`
/// are those of the whole document, opening included; their options stand there as `spelling` has them, if
/// any.
///
/// Leaves in pieces, so that it takes no memory of its size. False when the sink has failed.
[[nodiscard]] bool writeMigratedDocument(OutputSink& sink, Document const& document,
                                         MigrationSession const& session,
                                         std::vector<MigratedView> const& views,
                                         std::vector<std::string> const& pageNames, Findings const& findings,
                                         OptionSpelling spelling = nullptr);

/// The same as text.
std::string formatMigratedDocument(Document const& document, MigrationSession const& session,
                                   std::vector<MigratedView> const& views,
                                   std::vector<std::string> const& pageNames, Findings const& findings,
                                   OptionSpelling spelling = nullptr);

}  // namespace qvToolkit
