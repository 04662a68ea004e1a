#include "commandSession.h"

#include <string>

#include "optionNames.h"

namespace qvannot {

bool prepare(qvToolkit::Session const& session, std::size_t inputs, Reporter& reporter) {
  if (auto const problem = session.findProblem()) {
    reporter.fail(qvToolkit::ExitInputUnreadable,
                  problem->m_text + "; correct " + std::string(spellOption(problem->m_option)));
    return false;
  }
  // A single input may need none.
  if (inputs > 1) session.warm();
  return true;
}

}  // namespace qvannot
