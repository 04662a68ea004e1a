#include "toolkit/migratedJson.h"

#include "annotationLegacy/version.h"
#include "cadJson.h"
#include "toolkit/inspection.h"
#include "toolkit/jsonWriter.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationMigration;

/// Grows when a field changes its meaning or goes; new fields leave it as it is.
constexpr int SchemaVersion = 1;

void writeOptions(JsonWriter& json, MigrationOptions const& options) {
  auto const isSet = [&options](int bit) { return (options.m_dropped & bit) != 0; };
  json.key("options").beginObject();
  json.member("dropViewMetadata", isSet(qvAnnotationMigration::DropViewMetadata));
  json.member("dropKnownMetadata", isSet(qvAnnotationMigration::DropKnownMetadata));
  json.member("dropUnknownMetadata", isSet(qvAnnotationMigration::DropUnknownMetadata));
  json.member("headSize", options.m_headSize).endObject();
}

void writeStrings(JsonWriter& json, char const* key, std::vector<std::string> const& texts) {
  json.key(key).beginArray();
  for (std::string const& text : texts) json.value(text);
  json.endArray();
}

void writeView(JsonWriter& json, LoadedView const& loaded, MigratedView const& view, std::string const& page,
               RasterFolder const& rasters) {
  json.beginObject().member("address", getViewAddress(view.m_index)).member("name", view.m_name);
  json.member("version", loaded.m_version.toString()).member("migrated", view.m_view != nullptr);
  if (view.m_sameAs) json.member("sameAs", getViewAddress(*view.m_sameAs));
  json.key("page");
  if (page.empty()) {
    json.null();
  } else {
    json.value(page);
  }
  writeStrings(json, "readerMessages", loaded.m_messages);
  writeStrings(json, "log", view.m_log);
  if (view.m_view != nullptr) CadJson(json, view.m_marks, rasters).writeViewMembers(*view.m_view);
  json.endObject();
}

}  // namespace

std::string formatMigratedDocument(Document const& document, MigrationSession const& session,
                                   std::vector<MigratedView> const& views,
                                   std::vector<std::string> const& pageNames, Findings const& findings) {
  JsonWriter json;
  json.beginObject().member("format", "qvannot.migrated").member("formatVersion", SchemaVersion);
  json.member("libraryVersion", qvAnnotationLegacy::Version::GetDescStringMajorMinorRelease(false));
  json.member("input", document.m_path);
  writeOptions(json, session.getOptions());
  json.key("views").beginArray();
  for (std::size_t i = 0; i < views.size(); ++i) {
    writeView(json, document.m_views[i], views[i], pageNames[i], session.getRasters());
  }
  json.endArray().key("findings");
  writeFindings(json, findings);
  json.endObject();
  return json.takeText();
}

}  // namespace qvToolkit
