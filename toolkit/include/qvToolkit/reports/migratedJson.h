#pragma once

#include <string>
#include <vector>

#include "qvToolkit/export.h"
#include "qvToolkit/files/outputSink.h"
#include "qvToolkit/migration/migrationSession.h"
#include "qvToolkit/model/document.h"

namespace qvToolkit {

/// The whole migrated model of a document as JSON: plane, annotations, leader segments, anchors, shapes and
/// SVG trees of each view, why a view was not migrated, and the findings. docs/migrated-json.md describes it
/// field by field. `pageNames` holds the file name of each view's page, empty where there is none. `findings`
/// are those of the whole document, opening included; their options stand there as `spelling` has them, if
/// any.
/// @code
/// Document const document = openDocument("bracket.json");
/// MigrationSession session(MigrationOptions{});
/// std::vector<MigratedView> const views = session.migrate(document);
/// std::vector<std::string> const noPages(views.size());
/// std::cout << formatMigratedDocument(document, session, views, noPages, document.m_findings);
/// @endcode
/// `session` is the one that migrated the views, which are those of the document, one for one.
///
/// Leaves in pieces, so that it takes no memory of its size. False when the sink has failed.
[[nodiscard]] QVT_EXPORT bool writeMigratedDocument(OutputSink& sink, Document const& document,
                                                    MigrationSession const& session,
                                                    std::vector<MigratedView> const& views,
                                                    std::vector<std::string> const& pageNames,
                                                    Findings const& findings,
                                                    OptionSpelling spelling = nullptr);

/// The same as text, held in memory as a whole.
QVT_EXPORT std::string formatMigratedDocument(Document const& document, MigrationSession const& session,
                                              std::vector<MigratedView> const& views,
                                              std::vector<std::string> const& pageNames,
                                              Findings const& findings, OptionSpelling spelling = nullptr);

}  // namespace qvToolkit
