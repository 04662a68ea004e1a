#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "qvToolkit/findings/exitCode.h"
#include "qvToolkit/findings/finding.h"
#include "qvToolkit/model/document.h"
#include "spool.h"

namespace qvannot {

/// What the tool says, and the exit code that follows from it.
class Reporter {
 public:
  /// With `isStrict` warnings count towards the exit code, otherwise only errors do.
  explicit Reporter(bool isStrict) : m_isStrict(isStrict) {}

  /// Writes the findings of one input to standard error, and counts them all; a limit that was hit counts as
  /// such and is told last. Equal infos share a line, and at most 100 lines of one code are written.
  void report(std::string const& path, qvToolkit::Findings const& findings);
  /// Counts the views of an opened document; reports why it could not be opened. True when it has any view.
  bool reportOpened(qvToolkit::Document const& document);
  /// For work that does not depend on views: it is never nothing to do.
  void expectNoViews() { m_hasViews = true; }
  /// Writes "qvannot: TEXT" to standard error and counts the code.
  void fail(qvToolkit::ExitCode code, std::string_view text);
  void count(qvToolkit::ExitCode code);
  /// Writes a result to standard output; a failure is an output that cannot be written. A reader who has gone
  /// away wants no more, and so gets no message either.
  void print(std::string_view text);
  /// Passes on what was printed so far. False when standard output takes no more: work whose only result goes
  /// there is in vain.
  [[nodiscard]] bool flush();
  /// Bytes that may be printed or written from now on, and how many of them printed; more is a limit that was
  /// hit.
  void setOutputBudget(std::uint64_t bytes, std::uint64_t printedBytes) {
    m_outputBudget = m_outputLeft = bytes;
    m_printBudget = m_printLeft = printedBytes;
  }
  std::uint64_t getOutputBudget() const noexcept { return m_outputBudget; }

  /// Names the input whose result is printed from here on.
  void setInput(std::string const& path) { m_input = path; }
  /// Writes a part of what a worker has left as its result; a failure is an output that cannot be written.
  void print(Spool const& spool, std::uint64_t begin, std::uint64_t end);

  /// From here on it speaks for one input in a worker: what came before is the tool's business.
  void beginWorker();
  /// Counts what a worker said in the end.
  void countWorker(qvToolkit::ExitCode code);
  /// Passes on what a worker wrote to standard error; of more than 1 MiB the first three quarters and the
  /// last one, which tells why it ended. Of one that died it is escaped once more, since nobody knows what
  /// wrote it.
  void relayErrors(Spool const& errors, bool hasDied);

  /// Flushes standard output and says what counts in the end. Findings that could not be told are an output
  /// that cannot be written.
  qvToolkit::ExitCode finish();

 private:
  std::string readMessages(Spool const& errors);
  void failToPrint(int error);
  void refuseOutput(std::uint64_t limit, qvToolkit::OptionKey option);
  void withdraw();

  bool m_isStrict;
  std::string m_input;
  bool m_hasViews = false;
  bool m_isBroken = false;  ///< standard output takes no more
  bool m_isWorker = false;
  std::uint64_t m_outputBudget = std::numeric_limits<std::uint64_t>::max();
  std::uint64_t m_outputLeft = m_outputBudget;
  std::uint64_t m_printBudget = m_outputBudget;
  std::uint64_t m_printLeft = m_printBudget;
  qvToolkit::ExitCode m_exitCode = qvToolkit::ExitDone;
};

/// Shows on a terminal which input is being worked on; elsewhere, and for a single input, nothing.
class Progress {
 public:
  explicit Progress(std::size_t total);
  ~Progress();
  Progress(Progress const&) = delete;
  Progress& operator=(Progress const&) = delete;
  void show(std::size_t index, std::string const& path) const;
  /// To be called before anything else is written.
  void clear() const;

 private:
  std::size_t m_total;
  bool m_isShown;
};

}  // namespace qvannot
