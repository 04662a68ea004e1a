#include "reading/passedOver.h"

#include "qvToolkit/text/textEscape.h"
#include "text/countText.h"

namespace qvToolkit {

void PassedOver::add(IgnoredKey const& ignored, std::string const& pointer) {
  Occurrences& occurrences = m_occurrences[{&ignored.m_record, std::string(ignored.m_key), ignored.m_severity,
                                            std::string(ignored.m_reason)}];
  if (occurrences.m_count++ == 0) occurrences.m_firstPointer = pointer;
  occurrences.m_records += ignored.m_records;
}

void PassedOver::report(std::string const& address, Findings& findings) const {
  for (auto const& [row, occurrences] : m_occurrences) {
    auto const& [record, key, severity, reason] = row;
    std::string text = "the key '" + shortenText(key) + "' of " + std::string(record->name) + " is not read";
    if (!reason.empty()) text += " " + reason;
    if (occurrences.m_records > 0) {
      text += "; " + formatCount(occurrences.m_records, "annotation record") + " went with it";
    }
    if (occurrences.m_count > 1) text += " (" + std::to_string(occurrences.m_count) + " times, first here)";
    findings.push_back(makeFinding(FindingCode::KeyIgnored, severity, std::move(text), address,
                                   {{}, {}, {}, occurrences.m_firstPointer}));
  }
}

}  // namespace qvToolkit
