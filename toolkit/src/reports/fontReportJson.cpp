#include "migration/fontMatchText.h"
#include "outcome/jsonDocument.h"
#include "qvToolkit/reports/findingJson.h"
#include "qvToolkit/reports/fontReport.h"
#include "reports/jsonParts.h"
#include "text/characterName.h"

namespace qvToolkit {

namespace {

void writeUse(JsonWriter& json, FontUse const& use) {
  json.beginObject().bytes("askedFamily", use.m_askedFamily);
  json.member("bold", use.m_bold).member("italic", use.m_italic);
  json.member("match", getMatchText(use.m_match));
  json.textOrNull("family", use.m_family).textOrNull("version", use.m_version);
  json.textOrNull("sha256", use.m_sha256).member("faceIndex", use.m_faceIndex);
  json.member("boldMadeUp", use.m_synthesis.m_bold).member("italicMadeUp", use.m_synthesis.m_oblique);
  json.member("characters", use.m_characters).textOrNull("package", use.m_package).endObject();
}

void writeMissing(JsonWriter& json, MissingCharacter const& missing) {
  json.beginObject().member("codePoint", formatCodePoint(missing.m_character));
  json.textOrNull("name", findCharacterName(missing.m_character));
  json.textOrNull("package", missing.m_package);
  writeTexts(json, "addresses", missing.m_addresses);
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

void writeDocumentFonts(JsonWriter& json, Document const& document, FontReport const& report,
                        Findings const& findings, OptionSpelling spelling) {
  json.beginObject();
  writeSource(json, document.m_source);
  json.member("readable", getFailure(document) == ExitDone);
  writeFontReport(json, report);
  writeTexts(json, "packages", listPackages(report));
  writeFindings(json.key("findings"), findings, spelling);
  json.endObject();
}

}  // namespace qvToolkit
