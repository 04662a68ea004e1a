#pragma once

#include <set>
#include <string>
#include <tuple>
#include <utility>

#include "qvToolkit/findings/finding.h"

namespace qvToolkit {

/// Collects findings in the order met; one that equals an earlier one in code, address and text is not
/// repeated.
class FindingList {
 public:
  void add(Finding finding) {
    if (!m_known.emplace(finding.m_code, finding.m_address, finding.m_text).second) return;
    m_findings.push_back(std::move(finding));
  }
  /// What `makeFinding` makes of the same.
  template <class... Parts>
  void add(FindingCode code, Parts&&... parts) {
    add(makeFinding(code, std::forward<Parts>(parts)...));
  }
  void append(Findings const& findings) {
    for (Finding const& finding : findings) add(finding);
  }

  Findings takeFindings() {
    m_known.clear();
    return std::exchange(m_findings, {});
  }

 private:
  Findings m_findings;
  std::set<std::tuple<FindingCode, std::string, std::string>> m_known;
};

}  // namespace qvToolkit
