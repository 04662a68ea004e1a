#include "jsonList.h"

namespace qvannot {

void JsonList::add(std::string_view entry) {
  m_reporter.print(m_list.beginEntry());
  m_reporter.print(entry);
}

bool JsonList::add(Spool const& entry) {
  std::uint64_t const size = entry.getSize();
  if (size < 2 || entry.read(0, 1) != "{" || entry.read(size - 1, 1) != "}") return false;
  m_reporter.print(m_list.beginEntry());
  m_reporter.print(entry, 0, size);
  return true;
}

}  // namespace qvannot
