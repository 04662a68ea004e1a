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
  void add(FindingCode code, Severity severity, std::string const& address, std::string text,
           std::string option = {}) {
    if (!m_known.emplace(code, address, text).second) return;
    m_findings.push_back({code, severity, std::move(text), address, {}, std::move(option)});
  }
  void append(Findings const& findings) {
    for (Finding const& f : findings) add(f.m_code, f.m_severity, f.m_address, f.m_text, f.m_option);
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
