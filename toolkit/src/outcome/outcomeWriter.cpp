#include "outcome/jsonDocument.h"
#include "qvToolkit/outcome/outcomeJson.h"

namespace qvToolkit {

namespace {

void writePlace(JsonWriter& json, SourcePlace const& place) {
  writeCount(json, "byteOffset", place.m_byteOffset);
  writeCount(json, "line", place.m_line);
  writeCount(json, "column", place.m_column);
  writeBytesOrNull(json, "jsonPointer", place.m_jsonPointer);
}

void writeFinding(JsonWriter& json, Finding const& finding) {
  json.beginObject();
  json.member("code", getCodeText(finding.m_code)).member("severity", getSeverityText(finding.m_severity));
  json.bytes("text", finding.m_text).textOrNull("address", finding.m_address);
  writePlace(json, finding.m_place);
  json.key("options").beginArray();
  for (OptionKey const option : finding.m_options) json.value(getOptionText(option));
  json.endArray().endObject();
}

void writeView(JsonWriter& json, ViewOutcome const& view) {
  json.beginObject();
  json.member("address", view.m_address).bytes("name", view.m_name);
  json.textOrNull("version", view.m_version);
  json.member("readable", view.m_isRead).member("migrated", view.m_isMigrated);
  json.textOrNull("sameAs", view.m_sameAs);
  writeBytesOrNull(json, "page", view.m_page);
  writeCounts(json, view.m_counts);
  json.endObject();
}

void writeOutput(JsonWriter& json, OutputFile const& output) {
  json.beginObject().bytes("name", output.m_name);
  writeCount(json, "size", output.m_size);
  json.textOrNull("sha256", output.m_sha256).endObject();
}

void writeFont(JsonWriter& json, FontIdentity const& font) {
  json.beginObject().bytes("family", font.m_family).bytes("version", font.m_version);
  json.textOrNull("sha256", font.m_sha256).member("faceIndex", font.m_faceIndex).endObject();
}

template <class Item>
void writeList(JsonWriter& json, JsonKey key, std::vector<Item> const& items,
               void (*write)(JsonWriter&, Item const&)) {
  json.key(key).beginArray();
  for (Item const& item : items) write(json, item);
  json.endArray();
}

}  // namespace

void writeOutcome(JsonWriter& json, Outcome const& outcome) {
  writeHead(json.beginObject(), OutcomeFormat, OutcomeFormatVersion);
  writeSource(json, outcome.m_source);
  json.member("conclusion", getConclusionText(outcome.m_conclusion));
  writeList(json, "findings", outcome.m_findings, writeFinding);
  writeList(json, "views", outcome.m_views, writeView);
  writeList(json, "outputs", outcome.m_outputs, writeOutput);
  writeList(json, "fonts", outcome.m_fonts, writeFont);
  json.endObject();
}

void writeRunFacts(JsonWriter& json, RunFacts const& facts) {
  json.beginObject().bytes("givenPath", facts.m_givenPath);
  json.member("started", facts.m_started).member("ended", facts.m_ended);
  json.member("processorSeconds", facts.m_processorSeconds).member("wallSeconds", facts.m_wallSeconds);
  writeCount(json, "peakMemory", facts.m_peakMemory);
  json.bytes("host", facts.m_host).member("process", facts.m_process).endObject();
}

}  // namespace qvToolkit
