#include "fontChoice.h"

#include "optionNames.h"

namespace qvannot {

bool chooseFonts(qvToolkit::FontOptions const& options, std::size_t inputs, Reporter& reporter) {
  std::string const problem = qvToolkit::findFontFolderProblem(options);
  if (!problem.empty()) {
    reporter.fail(qvToolkit::ExitInputUnreadable, problem + "; correct " + option::FontDir);
    return false;
  }
  qvToolkit::applyFontOptions(options);
  // A single input may need none.
  if (inputs > 1) qvToolkit::findFonts();
  return true;
}

}  // namespace qvannot
