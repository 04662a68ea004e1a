#include "qvToolkit/work/memoryResults.h"

namespace qvToolkit {

bool MemoryResults::open(std::string const& name) {
  if (m_hasFailed) return false;
  m_files.push_back({name, {}});
  return true;
}

void MemoryResults::limit(std::uint64_t allBytes, std::uint64_t fileBytes) {
  m_maxAllBytes = allBytes;
  m_maxFileBytes = fileBytes;
}

void MemoryResults::withdraw() {
  m_text.clear();
  m_files.clear();
}

bool MemoryResults::append(std::string_view bytes, bool isText) {
  if (m_hasFailed) return false;
  std::string& target = isText ? m_text : m_files.back().m_bytes;
  m_allBytes += bytes.size();
  bool const isTooLarge = target.size() + bytes.size() > m_maxFileBytes;
  std::string const what = isText ? "the result is" : "'" + m_files.back().m_name + "' is";
  if (isTooLarge) return refuse(what, m_maxFileBytes, OptionKey::MaxOutputFile);
  if (m_allBytes > m_maxAllBytes) return refuse("the results are", m_maxAllBytes, OptionKey::MaxOutput);
  target += bytes;
  return true;
}

bool MemoryResults::refuse(std::string const& what, std::uint64_t limit, OptionKey option) {
  m_hasFailed = true;
  m_problem = withOptions(
      makeFinding(FindingCode::LimitOutput,
                  what + " larger than the limit of " + std::to_string(limit) + " bytes; nothing is written"),
      {option});
  return false;
}

}  // namespace qvToolkit
