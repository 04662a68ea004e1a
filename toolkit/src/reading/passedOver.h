#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <tuple>

#include "qvToolkit/findings/finding.h"
#include "reading/readRules.h"

namespace qvToolkit {

/// Keys and values of a view that the readers passed over, gathered so that each is one finding however often
/// it occurs.
class PassedOver {
 public:
  /// A key at `pointer` that is not looked at; `records` annotation records are lost with it.
  void addKey(RecordKind kind, std::string_view key, Severity severity, std::size_t records,
              std::string const& pointer);
  /// A value at `pointer` that the reader does not know, so that it took the default.
  void addValue(RecordKind kind, std::string_view key, std::string const& value, std::string const& pointer);

  /// Appends one finding for each kind of record, key and reason.
  void report(qv::qvStreamVersion version, std::string const& address, Findings& findings) const;

 private:
  /// Record, key, severity, value; the value is empty for a key that is not looked at.
  using Reason = std::tuple<RecordKind, std::string, Severity, std::string>;
  struct Occurrences {
    std::size_t m_count = 0;
    std::size_t m_records = 0;
    std::string m_firstPointer;
  };

  void add(Reason reason, std::size_t records, std::string const& pointer);

  std::map<Reason, Occurrences> m_occurrences;
};

}  // namespace qvToolkit
