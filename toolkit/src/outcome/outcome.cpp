#include "qvToolkit/outcome/outcome.h"

#include <algorithm>

#include "text/wordTable.h"

namespace qvToolkit {

namespace {

constexpr WordTable<Conclusion, 9> ConclusionWords = {{
    {ExitDone, "done"},
    {ExitFindings, "findings"},
    {ExitUsage, "usage"},
    {ExitInputUnreadable, "unreadable"},
    {ExitInputBroken, "broken"},
    {ExitOutputFailed, "outputFailed"},
    {ExitLimit, "limit"},
    {ExitNothingToDo, "nothing"},
    {ExitBug, "bug"},
}};

}  // namespace

std::string_view getConclusionText(Conclusion conclusion) {
  return getWord(ConclusionWords, conclusion);
}

std::optional<Conclusion> findConclusion(std::string_view text) {
  return findValue(ConclusionWords, text);
}

Conclusion conclude(ExitCode reached, Findings const& findings, Severity threshold) {
  for (Finding const& finding : findings) reached = std::max(reached, getExitCode(finding, threshold));
  return reached;
}

}  // namespace qvToolkit
