#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "findings/jsonPointer.h"
#include "model/variantLookup.h"
#include "qvToolkit/findings/address.h"
#include "qvToolkit/findings/finding.h"
#include "reading/passedOver.h"
#include "rules/fields.h"

namespace qvToolkit {

/// Messages of the readers that are about nulls where an absent value would give the same model, and how
/// often each came so: nothing is lost.
using HarmlessMessages = std::map<std::string_view, std::size_t>;

/// Text heights of a document of which less than a hundredth of an em was cut off.
struct CutHeights {
  std::size_t m_count = 0;
  std::string m_firstText;  ///< "12.345 as 12.34"
  std::string m_firstAddress;
};

/// Where the audit of a view stands in its map, and what it reports from there.
class AuditTrail {
 public:
  using Record = qvLegacy::rules::Record;
  using Field = qvLegacy::rules::Field;

  AuditTrail(qv::qvStreamVersion version, std::string pointer, Address address, CutHeights& heights,
             Findings& findings)
      : m_version(version),
        m_pointer(std::move(pointer)),
        m_address(std::move(address)),
        m_heights(heights),
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

  /// Calls `check(Field const&, qv::qvVariant const&)` for each key that the version's reader looks at, and
  /// notes all others.
  template <class Check>
  void checkFields(VariantMap const& map, Record const& record, Check const& check) {
    for (auto const& [key, value] : map) {
      Field const* const field = record.find(key);
      if (field == nullptr) {
        ignore({record, key});
      } else if (!field->isInVariants(m_version.GetPacked())) {
        ignoreAtVersion(record, *field, value);
      } else {
        check(*field, value);
      }
    }
  }

  /// Reports a value that does not come through exactly.
  void checkValue(Record const& record, Field const& field, qv::qvVariant const& value);
  /// The same for a value that is its record, and has no key.
  void checkLone(Record const& record, Field const& field, qv::qvVariant const& value);
  /// Reports that `taken` stands for the value.
  void reportValue(Record const& record, Field const& field, qv::qvVariant const& value,
                   std::string const& expected, std::string const& taken);
  /// A key of the current record that is not looked at.
  void ignore(IgnoredKey const& ignored);
  void reportLost(Severity severity, std::string text);

  /// What was gathered for the view at `address`.
  void finish(std::string const& address);
  HarmlessMessages const& getHarmlessMessages() const noexcept { return m_harmless; }

  qv::qvStreamVersion const m_version;
  std::string m_pointer;  ///< of the record at hand
  Address m_address;      ///< of the annotation at hand, or of the holder of a record that was lost

 private:
  /// How often values of one field of a kind of records were not read as they stand.
  struct ChangedField {
    Record const* m_record;
    Field const* m_field;
    std::size_t m_count = 0;
  };

  void ignoreAtVersion(Record const& record, Field const& field, qv::qvVariant const& value);
  void checkCut(qv::qvVariant const& value);
  bool isListed(Record const& record, Field const& field);
  void report(FindingCode code, Severity severity, std::string text);

  CutHeights& m_heights;
  Findings& m_findings;
  PassedOver m_passedOver;
  std::vector<ChangedField> m_changed;
  HarmlessMessages m_harmless;
};

}  // namespace qvToolkit
