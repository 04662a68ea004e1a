#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <tuple>

#include "qvToolkit/findings/finding.h"
#include "rules/fields.h"

namespace qvToolkit {

/// A key that a reader does not look at.
struct IgnoredKey {
  qvLegacy::rules::Record const& m_record;
  std::string_view m_key;
  Severity m_severity = Severity::Info;
  std::size_t m_records = 0;    ///< annotation records that are lost with it
  std::string_view m_reason{};  ///< why, as the end of a sentence; none for a key that no version knows
};

/// Keys of a view that the readers passed over, gathered so that each is one finding however often it occurs.
class PassedOver {
 public:
  void add(IgnoredKey const& ignored, std::string const& pointer);

  /// Appends one finding for each kind of record, key and reason.
  void report(std::string const& address, Findings& findings) const;

 private:
  /// Record, key, severity, reason. Records stand in one array.
  using Reason = std::tuple<qvLegacy::rules::Record const*, std::string, Severity, std::string>;
  struct Occurrences {
    std::size_t m_count = 0;
    std::size_t m_records = 0;
    std::string m_firstPointer;
  };

  std::map<Reason, Occurrences> m_occurrences;
};

}  // namespace qvToolkit
