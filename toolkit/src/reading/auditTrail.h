#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "findings/jsonPointer.h"
#include "qvToolkit/findings/finding.h"
#include "reading/passedOver.h"
#include "reading/readRules.h"

namespace qvToolkit {

/// Where the audit of a view stands in its map, and what it reports from there.
class AuditTrail {
 public:
  AuditTrail(qv::qvStreamVersion version, std::string pointer, std::string address, Findings& findings)
      : m_version(version),
        m_pointer(std::move(pointer)),
        m_address(std::move(address)),
        m_findings(findings) {}

  /// Extends the JSON pointer while a value within the current record is looked at.
  class Inside {
   public:
    Inside(AuditTrail& trail, std::string_view key) : m_pointer(trail.m_pointer), m_length(m_pointer.size()) {
      appendPointerKey(m_pointer, key);
    }
    Inside(AuditTrail& trail, std::size_t index) : m_pointer(trail.m_pointer), m_length(m_pointer.size()) {
      appendPointerIndex(m_pointer, index);
    }
    Inside(Inside const&) = delete;
    Inside& operator=(Inside const&) = delete;
    ~Inside() { m_pointer.resize(m_length); }

   private:
    std::string& m_pointer;
    std::size_t m_length;
  };

  /// Looks for keys that are not read, and for values that the reader does not know.
  void checkKeys(VariantMap const& map, RecordKind kind);
  /// A key of the current record that is not looked at; `records` annotation records are lost with it.
  void ignore(RecordKind kind, std::string_view key, Severity severity, std::size_t records);
  void reportLost(Severity severity, std::string text);
  /// The keys and values that were passed over, each once for the view at `address`.
  void reportPassedOver(std::string const& address) const {
    m_passedOver.report(m_version, address, m_findings);
  }

  qv::qvStreamVersion const m_version;
  std::string m_pointer;  ///< of the record at hand
  std::string m_address;  ///< of the annotation at hand, or of the holder of a record that was lost

 private:
  void checkHeight(qv::qvVariant const& value);
  void checkValue(RecordKind kind, std::string_view key, qv::qvVariant const& value);

  Findings& m_findings;
  PassedOver m_passedOver;
};

}  // namespace qvToolkit
