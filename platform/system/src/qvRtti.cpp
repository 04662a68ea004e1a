#include "qvSystem/qvRtti.h"

namespace qv {

// A record only keeps the two addresses, so records may be constructed in any order across libraries: the
// parent need not be constructed yet.
qvRtti::qvRtti(char const* name, qvRtti const* parent) noexcept : m_name(name), m_parent(parent) {
}

qvRtti::~qvRtti() = default;

bool qvRtti::IsDerived(qvRtti const& other) const noexcept {
  for (qvRtti const* record = this; record != nullptr; record = record->m_parent) {
    if (record == &other) return true;
  }
  return false;
}

}  // namespace qv
