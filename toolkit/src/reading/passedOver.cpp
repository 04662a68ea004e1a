#include "reading/passedOver.h"

#include <utility>

#include "qvToolkit/text/textEscape.h"
#include "text/countText.h"

namespace qvToolkit {

void PassedOver::addKey(RecordKind kind, std::string_view key, Severity severity, std::size_t records,
                        std::string const& pointer) {
  add({kind, std::string(key), severity, {}}, records, pointer);
}

void PassedOver::addValue(RecordKind kind, std::string_view key, std::string const& value,
                          std::string const& pointer) {
  add({kind, std::string(key), Severity::Warning, value}, 0, pointer);
}

void PassedOver::add(Reason reason, std::size_t records, std::string const& pointer) {
  Occurrences& occurrences = m_occurrences[std::move(reason)];
  if (occurrences.m_count++ == 0) occurrences.m_firstPointer = pointer;
  occurrences.m_records += records;
}

void PassedOver::report(qv::qvStreamVersion version, std::string const& address, Findings& findings) const {
  for (auto const& [reason, occurrences] : m_occurrences) {
    auto const& [kind, key, severity, value] = reason;
    std::string const record(getRecordName(kind));
    std::string text;
    if (!value.empty()) {
      text = "the value '" + shortenText(value) + "' of '" + shortenText(key) + "' of " + record +
             " is not known; the default was taken";
    } else {
      text = "the key '" + shortenText(key) + "' of " + record + " is not read";
      if (isKnownKey(kind, key)) text += " here at version " + version.toString();
    }
    if (occurrences.m_records > 0) {
      text += "; " + formatCount(occurrences.m_records, "annotation record") + " went with it";
    }
    if (occurrences.m_count > 1) text += " (" + std::to_string(occurrences.m_count) + " times, first here)";
    FindingCode const code = value.empty() ? FindingCode::KeyIgnored : FindingCode::ValueUnknown;
    findings.push_back(
        {code, severity, std::move(text), address, {{}, {}, {}, occurrences.m_firstPointer}, {}});
  }
}

}  // namespace qvToolkit
