#include "migration/fontMatchText.h"
#include "qvToolkit/reports/fontReport.h"
#include "qvToolkit/reports/inspection.h"
#include "reports/jsonParts.h"
#include "text/characterName.h"

namespace qvToolkit {

namespace {

void writeUse(JsonWriter& json, FontUse const& use) {
  json.beginObject();
  json.member("askedFamily", use.m_askedFamily).member("bold", use.m_bold).member("italic", use.m_italic);
  json.member("match", getMatchText(use.m_match)).member("family", use.m_family);
  json.member("file", use.m_file).member("faceIndex", use.m_faceIndex);
  json.member("boldMadeUp", use.m_synthesis.m_bold).member("italicMadeUp", use.m_synthesis.m_oblique);
  json.member("characters", use.m_characters);
  if (!use.m_package.empty()) json.member("package", use.m_package);
  json.endObject();
}

void writeMissing(JsonWriter& json, MissingCharacter const& missing) {
  json.beginObject().member("codePoint", formatCodePoint(missing.m_character));
  std::string const name = findCharacterName(missing.m_character);
  if (!name.empty()) json.member("name", name);
  if (!missing.m_package.empty()) json.member("package", missing.m_package);
  json.key("addresses").beginArray();
  for (std::string const& address : missing.m_addresses) json.value(address);
  json.endArray().endObject();
}

void writeFile(JsonWriter& json, Document const& document, FontReport const& report, Findings const& findings,
               OptionSpelling spelling) {
  json.beginObject();
  writeBytes(json, "file", document.m_path);
  json.member("readable", getFailure(document) == ExitDone);
  writeFontReport(json, report);
  json.key("packages").beginArray();
  for (std::string const& package : listPackages(report)) json.value(package);
  json.endArray();
  writeFindings(json.key("findings"), findings, spelling);
  json.endObject();
}

}  // namespace

void writeFontReport(JsonWriter& json, FontReport const& report) {
  json.key("fonts").beginArray();
  for (FontUse const& use : report.m_uses) writeUse(json, use);
  json.endArray().key("missingCharacters").beginArray();
  for (MissingCharacter const& missing : report.m_missing) writeMissing(json, missing);
  json.endArray();
}

std::string formatFontReportsJson(std::vector<Document> const& documents,
                                  std::vector<FontReport> const& reports,
                                  std::vector<Findings> const& findings, OptionSpelling spelling) {
  JsonWriter json;
  json.beginObject().key("files").beginArray();
  for (std::size_t i = 0; i < documents.size(); ++i) {
    writeFile(json, documents[i], reports[i], findings[i], spelling);
  }
  json.endArray().endObject();
  return json.takeText();
}

}  // namespace qvToolkit
