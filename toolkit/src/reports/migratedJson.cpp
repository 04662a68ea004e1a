#include "qvToolkit/reports/migratedJson.h"

#include <utility>

#include "annotationLegacy/version.h"
#include "qvToolkit/json/jsonWriter.h"
#include "qvToolkit/reports/fontReport.h"
#include "qvToolkit/reports/inspection.h"
#include "reports/cadJson.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationMigration;

/// Grows when a field changes its meaning or goes; new fields leave it as it is.
constexpr int SchemaVersion = 1;

void writeStrings(JsonWriter& json, char const* key, std::vector<std::string> const& texts) {
  json.key(key).beginArray();
  for (std::string const& text : texts) json.value(text);
  json.endArray();
}

void writeFontOptions(JsonWriter& json, FontOptions const& options) {
  writeStrings(json, "fontDirectories", options.m_directories);
  json.key("fontReplacements").beginArray();
  for (qv::text::FontReplacement const& each : options.m_replacements) {
    json.beginObject().member("family", each.m_family).member("replacement", each.m_replacement).endObject();
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

void writeView(JsonWriter& json, LoadedView const& loaded, MigratedView const& view,
               std::string const& page) {
  json.beginObject().member("address", Address::ofView(view.m_index).getText()).member("name", view.m_name);
  json.member("version", loaded.m_version.toString()).member("migrated", view.m_view != nullptr);
  if (view.m_sameAs) json.member("sameAs", Address::ofView(*view.m_sameAs).getText());
  json.key("page");
  if (page.empty()) {
    json.null();
  } else {
    json.value(page);
  }
  writeStrings(json, "readerMessages", loaded.m_messages);
  writeStrings(json, "log", view.m_log);
  if (view.m_view != nullptr) CadJson(json, view).writeViewMembers();
  json.endObject();
}

}  // namespace

bool writeMigratedDocument(OutputSink& sink, Document const& document, MigrationSession const& session,
                           std::vector<MigratedView> const& views, std::vector<std::string> const& pageNames,
                           Findings const& findings, OptionSpelling spelling) {
  JsonWriter json(sink);
  json.beginObject().member("format", "qvannot.migrated").member("formatVersion", SchemaVersion);
  json.member("libraryVersion", qvAnnotationLegacy::Version::GetDescStringMajorMinorRelease(false));
  json.member("input", document.m_path);
  writeOptions(json, session.getOptions());
  json.key("views").beginArray();
  for (std::size_t i = 0; i < views.size(); ++i) {
    writeView(json, document.m_views[i], views[i], pageNames[i]);
  }
  json.endArray();
  writeFontReport(json, reportFonts(views));
  writeFindings(json.key("findings"), findings, spelling);
  json.endObject();
  return json.finish();
}

std::string formatMigratedDocument(Document const& document, MigrationSession const& session,
                                   std::vector<MigratedView> const& views,
                                   std::vector<std::string> const& pageNames, Findings const& findings,
                                   OptionSpelling spelling) {
  TextSink sink;
  static_cast<void>(writeMigratedDocument(sink, document, session, views, pageNames, findings, spelling));
  return std::move(sink.m_text);
}

}  // namespace qvToolkit
