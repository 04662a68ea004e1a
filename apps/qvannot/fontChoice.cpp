#include "fontChoice.h"

namespace qvannot {

bool chooseFonts(qvToolkit::FontOptions const& options, Reporter& reporter) {
  std::string const problem = qvToolkit::findFontFolderProblem(options);
  if (!problem.empty()) {
    reporter.fail(qvToolkit::ExitInputUnreadable, problem + "; correct --font-dir");
    return false;
  }
  qvToolkit::applyFontOptions(options);
  return true;
}

}  // namespace qvannot
