#include "qvToolkit/reports/findingJson.h"

namespace qvToolkit {

namespace {

void writeFinding(JsonWriter& json, Finding const& finding, OptionSpelling spelling) {
  SourcePlace const& place = finding.m_place;
  json.beginObject();
  json.member("code", getCodeText(finding.m_code));
  json.member("severity", getSeverityText(finding.m_severity));
  json.bytes("text", finding.m_text);
  json.textOrNull("address", finding.m_address);
  json.member("byteOffset", place.m_byteOffset).member("line", place.m_line).member("column", place.m_column);
  if (place.m_jsonPointer.empty()) {
    json.noBytes("jsonPointer");
  } else {
    json.bytes("jsonPointer", place.m_jsonPointer);
  }
  json.textOrNull("option", spellOptions(finding, spelling));
  json.endObject();
}

}  // namespace

void writeFindings(JsonWriter& json, Findings const& findings, OptionSpelling spelling) {
  json.beginArray();
  for (Finding const& finding : findings) writeFinding(json, finding, spelling);
  json.endArray();
}

}  // namespace qvToolkit
