#pragma once

#include "qvSystem/export.h"

namespace qv {

/// Run-time type record: a name and the record of the parent class.
///
/// One record exists per class, as a static object; records are compared by identity. The name is not copied
/// and must outlive the record; it may be null for a class that is never persisted.
class QV_EXPORT qvRtti {
 public:
  qvRtti(char const* name, qvRtti const* parent) noexcept;
  ~qvRtti();
  qvRtti(qvRtti const&) = delete;
  qvRtti& operator=(qvRtti const&) = delete;

  /// The persisted type name, or null.
  char const* GetName() const noexcept { return m_name; }
  /// The parent class's record, or null for a root class.
  qvRtti const* GetParent() const noexcept { return m_parent; }

  /// True when this record is `other`.
  bool IsExactly(qvRtti const& other) const noexcept { return this == &other; }
  /// True when this record is `other` or descends from it.
  bool IsDerived(qvRtti const& other) const noexcept;

 private:
  char const* m_name;
  qvRtti const* m_parent;
};

}  // namespace qv
