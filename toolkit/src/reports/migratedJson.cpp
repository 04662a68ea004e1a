#include "qvToolkit/reports/migratedJson.h"

#include <utility>

#include "outcome/jsonDocument.h"
#include "qvToolkit/reports/findingJson.h"
#include "reports/cadJson.h"
#include "reports/jsonParts.h"
#include "reports/reportHead.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationMigration;

/// Folders of fonts are not named: which fonts were found in them the report of fonts tells.
void writeFontOptions(JsonWriter& json, FontOptions const& options) {
  json.key("fontReplacements").beginArray();
  for (qv::text::FontReplacement const& each : options.m_replacements) {
    json.beginObject().bytes("family", each.m_family).bytes("replacement", each.m_replacement).endObject();
  }
  json.endArray().member("systemFonts", options.m_useSystemFonts);
}

void writeOptions(JsonWriter& json, MigrationOptions const& options) {
  auto const isSet = [&options](int bit) { return (options.m_dropped & bit) != 0; };
  json.key("options").beginObject();
  json.member("dropViewMetadata", isSet(qvAnnotationMigration::DropViewMetadata));
  json.member("dropKnownMetadata", isSet(qvAnnotationMigration::DropKnownMetadata));
  json.member("dropUnknownMetadata", isSet(qvAnnotationMigration::DropUnknownMetadata));
  json.member("headSize", options.m_headSize);
  writeFontOptions(json, options.m_fonts);
  json.endObject();
}

}  // namespace

void MigratedJson::begin(Document const& document, MigrationOptions const& options) {
  writeHead(m_json.beginObject(), ReportFormat::Migrated);
  writeSource(m_json, document.m_source);
  writeOptions(m_json, options);
  m_json.key("views").beginArray();
}

void MigratedJson::addView(LoadedView const& loaded, MigratedView const& view, std::string const& pageName) {
  m_json.beginObject().member("address", Address::ofView(view.m_index).getText());
  m_json.bytes("name", view.m_name);
  writeVersion(m_json, loaded.m_version);
  m_json.member("migrated", view.m_view != nullptr);
  m_json.textOrNull("sameAs", view.m_sameAs ? Address::ofView(*view.m_sameAs).getText() : std::string());
  m_json.textOrNull("page", pageName);
  writeTexts(m_json, "readerMessages", loaded.m_messages);
  writeTexts(m_json, "log", view.m_log);
  if (view.m_view != nullptr) {
    CadJson(m_json, view).writeViewMembers();
  } else {
    m_json.key("plane").null().key("annotations").null();
  }
  m_json.endObject();
}

bool MigratedJson::finish(FontReport const& fonts, Findings const& findings, OptionSpelling spelling) {
  m_json.endArray();
  writeFontReport(m_json, fonts);
  writeFindings(m_json.key("findings"), findings, spelling);
  m_json.endObject();
  return m_json.finish();
}

std::string formatMigratedDocument(Document const& document, MigrationSession const& session,
                                   std::vector<MigratedView> const& views,
                                   std::vector<std::string> const& pageNames, Findings const& findings,
                                   OptionSpelling spelling, JsonStyle style) {
  TextSink sink;
  MigratedJson json(sink, style);
  json.begin(document, session.getOptions());
  for (std::size_t i = 0; i < views.size(); ++i) {
    json.addView(document.m_views[i], views[i], pageNames[i]);
  }
  static_cast<void>(json.finish(reportFonts(views), findings, spelling));
  return std::move(sink.m_text);
}

}  // namespace qvToolkit
