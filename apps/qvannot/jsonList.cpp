#include "jsonList.h"

namespace qvannot {

namespace {

constexpr std::string_view Head = "{\n  \"files\": [";
constexpr std::string_view Tail = "\n  ]\n}\n";

}  // namespace

void JsonList::beginEntry() {
  m_reporter.print(m_isEmpty ? Head : ",");
  m_isEmpty = false;
}

bool JsonList::add(std::string_view list) {
  if (!list.starts_with(Head) || !list.ends_with(Tail)) return false;
  beginEntry();
  list.remove_prefix(Head.size());
  list.remove_suffix(Tail.size());
  m_reporter.print(list);
  return true;
}

bool JsonList::add(Spool const& list) {
  std::uint64_t const size = list.getSize();
  if (size < Head.size() + Tail.size()) return false;
  std::uint64_t const end = size - Tail.size();
  if (list.read(0, Head.size()) != Head || list.read(end, Tail.size()) != Tail) return false;
  beginEntry();
  m_reporter.print(list, Head.size(), end);
  return true;
}

void JsonList::finish() {
  m_reporter.print(m_isEmpty ? "{\n  \"files\": []\n}\n" : Tail);
}

}  // namespace qvannot
