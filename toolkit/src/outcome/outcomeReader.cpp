#include "outcome/formatWords.h"
#include "outcome/jsonDocument.h"
#include "qvToolkit/findings/address.h"
#include "qvToolkit/outcome/outcomeJson.h"

namespace qvToolkit {

namespace {

constexpr std::size_t Sha256Digits = 64;

std::optional<std::string> findSha256(std::string_view text) {
  bool const isOne =
      text.size() == Sha256Digits && text.find_first_not_of("0123456789abcdef") == std::string_view::npos;
  return isOne ? std::optional(std::string(text)) : std::nullopt;
}

void readSha256(JsonFields& fields, std::string& target) {
  if (fields.isNull("sha256")) return target.clear();
  fields.readWord("sha256", target, "null or 64 lower-case hexadecimal digits", findSha256);
}

void readSource(JsonFields& fields, Source& source) {
  fields.readBytes("path", source.m_path);
  fields.read("size", source.m_size);
  readSha256(fields, source.m_sha256);
  if (fields.isNull("encoding")) return;
  Format format{};
  fields.readWord("encoding", format, "null or the word for an encoding",
                  [](std::string_view text) { return findValue(EncodingWords, text); });
  source.m_format = format;
}

/// "view/3/annot/7" and the like, or null for none.
void readAddress(JsonFields& fields, std::string_view key, std::string& target) {
  fields.readTextOrNull(key, target);
  if (!target.empty() && !Address::parse(target)) fields.fail(key, "an address such as \"view/3/annot/7\"");
}

void readFinding(JsonFields& fields, Finding& finding) {
  fields.readWord("code", finding.m_code, "the code of a finding", findCode);
  fields.readWord("severity", finding.m_severity, "\"info\", \"warning\" or \"error\"", findSeverity);
  fields.readBytes("text", finding.m_text);
  readAddress(fields, "address", finding.m_address);
  fields.read("byteOffset", finding.m_place.m_byteOffset);
  fields.read("line", finding.m_place.m_line);
  fields.read("column", finding.m_place.m_column);
  fields.readBytesOrNull("jsonPointer", finding.m_place.m_jsonPointer);
  fields.readWords("options", finding.m_options, "the key of an option", findOption);
}

void readView(JsonFields& fields, ViewOutcome& view) {
  readAddress(fields, "address", view.m_address);
  if (view.m_address.empty()) fields.fail("address", "the address of a view");
  fields.readBytes("name", view.m_name);
  fields.readTextOrNull("version", view.m_version);
  fields.read("readable", view.m_isRead);
  fields.read("migrated", view.m_isMigrated);
  readAddress(fields, "sameAs", view.m_sameAs);
  fields.readBytesOrNull("page", view.m_page);
  fields.readObject("counts", [&view](JsonFields& counts) {
    for (CountWord const& word : CountWords) counts.read(word.m_key.getText(), view.m_counts.*word.m_count);
  });
}

void readOutput(JsonFields& fields, OutputFile& output) {
  fields.readBytes("name", output.m_name);
  fields.read("size", output.m_size);
  readSha256(fields, output.m_sha256);
}

void readFont(JsonFields& fields, FontIdentity& font) {
  fields.readBytes("family", font.m_family);
  fields.readBytes("version", font.m_version);
  readSha256(fields, font.m_sha256);
  fields.read("faceIndex", font.m_faceIndex);
}

void readMembers(JsonFields& fields, Outcome& outcome) {
  readHead(fields, OutcomeFormat);
  fields.readObject("source", [&](JsonFields& source) { readSource(source, outcome.m_source); });
  fields.readWord("conclusion", outcome.m_conclusion, "the word for a conclusion", findConclusion);
  fields.readList("findings", outcome.m_findings, readFinding);
  fields.readList("views", outcome.m_views, readView);
  fields.readList("outputs", outcome.m_outputs, readOutput);
  fields.readList("fonts", outcome.m_fonts, readFont);
}

void readFacts(JsonFields& fields, RunFacts& facts) {
  fields.readBytes("givenPath", facts.m_givenPath);
  fields.read("started", facts.m_started);
  fields.read("ended", facts.m_ended);
  fields.read("processorSeconds", facts.m_processorSeconds);
  fields.read("wallSeconds", facts.m_wallSeconds);
  fields.read("peakMemory", facts.m_peakMemory);
  fields.readBytes("host", facts.m_host);
  fields.read("process", facts.m_process);
}

}  // namespace

std::string readOutcome(std::string json, Outcome& outcome) {
  return readDocumentInto(json, outcome, readMembers);
}

std::string readRunFacts(std::string json, RunFacts& facts) {
  return readDocumentInto(json, facts, readFacts);
}

}  // namespace qvToolkit
