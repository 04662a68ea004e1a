#pragma once

#include <string>
#include <vector>

#include "qvToolkit/export.h"
#include "qvToolkit/files/outputSink.h"
#include "qvToolkit/json/jsonWriter.h"
#include "qvToolkit/migration/migrationSession.h"
#include "qvToolkit/model/document.h"
#include "qvToolkit/reports/fontReport.h"

namespace qvToolkit {

/// Writes the whole migrated model of a document as JSON: plane, annotations, leader segments, anchors,
/// shapes and SVG trees of each view, why a view was not migrated, fonts and findings. docs/migrated-json.md
/// describes it field by field.
/// @code
/// Document const document = openDocument("bracket.json");
/// MigrationSession session(MigrationOptions{});
/// FontHashes hashes;
/// FontCollector fonts(hashes);
/// TextSink sink;
/// MigratedJson json(sink);
/// json.begin(document, session.getOptions());
/// for (MigratedView const& view : session.migrate(document)) {
///   json.addView(document.m_views[view.m_index], view, "");
///   fonts.add(view);
/// }
/// assert(json.finish(fonts.makeReport(), document.m_findings));
/// @endcode
/// Leaves in pieces, view by view, so that neither the text nor all views need be in memory at one time. To
/// be used once: `begin`, then `addView` for each view of the document in order, then `finish`.
class QVT_EXPORT MigratedJson {
 public:
  /// The sink must outlive the writer.
  explicit MigratedJson(OutputSink& sink, JsonStyle style = JsonStyle::Compact) : m_json(sink, style) {}

  /// What is known before any view is: source and options.
  void begin(Document const& document, MigrationOptions const& options);
  /// One view, migrated or not. `pageName` is the file name of its page, empty where there is none.
  void addView(LoadedView const& loaded, MigratedView const& view, std::string const& pageName);
  /// What is known behind the last view. `findings` are those of the whole document, opening included; the
  /// options that tolerate them stand there as `spelling` has them, if any. False when the sink has failed.
  [[nodiscard]] bool finish(FontReport const& fonts, Findings const& findings,
                            OptionSpelling spelling = nullptr);

 private:
  JsonWriter m_json;
};

/// The same of views that are all there, as text. `session` is the one that migrated the views, which are
/// those of the document, one for one, and so are the names of their pages.
QVT_EXPORT std::string formatMigratedDocument(Document const& document, MigrationSession const& session,
                                              std::vector<MigratedView> const& views,
                                              std::vector<std::string> const& pageNames,
                                              Findings const& findings, OptionSpelling spelling = nullptr,
                                              JsonStyle style = JsonStyle::Compact);

}  // namespace qvToolkit
