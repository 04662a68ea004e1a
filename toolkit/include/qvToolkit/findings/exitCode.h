#pragma once

namespace qvToolkit {

/// Exit codes of the tool. Where several things happened, the highest counts.
enum ExitCode : int {
  ExitDone = 0,             ///< all done, no finding at or above the threshold
  ExitFindings = 1,         ///< done, with findings, or some views not migrated
  ExitUsage = 2,            ///< bad command line
  ExitInputUnreadable = 3,  ///< an input cannot be opened
  ExitInputBroken = 4,      ///< an input is of no known format or broken beyond reading
  ExitOutputFailed = 5,     ///< an output cannot be written
  ExitLimit = 6,            ///< a limit was hit or a worker died
  ExitNothingToDo = 7,      ///< no input, or no view in any of them
  ExitBug = 70,             ///< the tool itself is at fault
};

}  // namespace qvToolkit
