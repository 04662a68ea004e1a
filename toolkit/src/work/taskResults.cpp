#include "work/taskResults.h"

#include <cerrno>
#include <limits>
#include <system_error>
#include <utility>

namespace qvToolkit {

TaskResults::TaskResults(int answer, int staging, std::string const& place)
    : m_answer(answer),
      m_files(place),
      m_maxAllBytes(std::numeric_limits<std::uint64_t>::max()),
      m_maxTextBytes(m_maxAllBytes) {
  m_files.setFolder(staging);
}

void TaskResults::limit(std::uint64_t allBytes, std::uint64_t fileBytes) {
  m_files.limit(allBytes, fileBytes);
  m_maxAllBytes = allBytes;
  m_maxTextBytes = fileBytes;
}

Finding const& TaskResults::getProblem() const {
  return m_hasFailed ? m_problem : m_files.getProblem();
}

bool TaskResults::print(std::string_view bytes) {
  if (m_hasFailed) return false;
  m_textBytes += bytes.size();
  if (m_textBytes > m_maxAllBytes) return refuse(m_maxAllBytes, OptionKey::MaxOutput);
  if (m_textBytes > m_maxTextBytes) return refuse(m_maxTextBytes, OptionKey::MaxOutputFile);
  if (m_answer.write(bytes)) return true;
  return errno == EFBIG
             ? refuse(m_maxTextBytes, OptionKey::MaxOutputFile)
             : fail(makeFinding(FindingCode::OutputFailed,
                                "cannot keep the result: " + std::generic_category().message(errno)));
}

bool TaskResults::refuse(std::uint64_t limit, OptionKey option) {
  return fail(withOptions(
      makeFinding(FindingCode::LimitOutput, "the result is larger than the limit of " +
                                                std::to_string(limit) + " bytes; nothing is shown"),
      {option}));
}

bool TaskResults::fail(Finding problem) {
  m_hasFailed = true;
  m_problem = std::move(problem);
  m_answer.withdraw();
  return false;
}

}  // namespace qvToolkit
