#pragma once

#include <string>
#include <string_view>

#include "qvToolkit/findings/exitCode.h"
#include "qvToolkit/findings/finding.h"
#include "qvToolkit/outcome/outcome.h"

namespace qvannot {

/// What the tool says, and the exit code that follows from it.
class Reporter {
 public:
  /// With `isStrict` warnings count towards the exit code, otherwise only errors do.
  explicit Reporter(bool isStrict) : m_isStrict(isStrict) {}

  /// Tells what became of one input: writes its findings to standard error, and counts them and its views. A
  /// limit that was hit is told last. Equal infos share a line, and at most 100 lines of one code are
  /// written.
  void report(std::string const& path, qvToolkit::Outcome const& outcome);
  /// For work that does not depend on views: it is never nothing to do.
  void expectNoViews() { m_hasViews = true; }
  /// Writes "qvannot: TEXT" to standard error and counts the code.
  void fail(qvToolkit::ExitCode code, std::string_view text);
  void count(qvToolkit::ExitCode code);
  /// Writes a result to standard output; a failure is an output that cannot be written. A reader who has gone
  /// away wants no more, and so gets no message either. False when nothing is taken any more.
  bool print(std::string_view text);
  /// Nothing is printed any more, so that what was printed does not look whole; says why.
  void breakOff(std::string_view reason);
  /// Passes on what was printed so far. False when standard output takes no more: work whose only result goes
  /// there is in vain.
  [[nodiscard]] bool flush();
  /// Passes on what libraries printed during the work on an input. Of one that died it is escaped once more,
  /// since nobody knows what wrote it.
  void relay(std::string const& messages, bool hasDied);

  /// Flushes standard output and says what counts in the end. Findings that could not be told are an output
  /// that cannot be written.
  qvToolkit::ExitCode finish();

 private:
  void write(std::string const& path, qvToolkit::Findings const& findings);
  bool failToPrint(int error);

  bool m_isStrict;
  bool m_hasViews = false;
  bool m_isBroken = false;  ///< standard output takes no more
  qvToolkit::ExitCode m_exitCode = qvToolkit::ExitDone;
};

}  // namespace qvannot
