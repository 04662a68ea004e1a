#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qvToolkit/export.h"
#include "qvToolkit/files/fileIdentities.h"
#include "qvToolkit/outcome/outcome.h"
#include "qvToolkit/outcome/request.h"
#include "qvToolkit/work/workerProgram.h"

namespace qvToolkit {

/// One input of a run.
struct PoolInput {
  std::string m_givenPath;  ///< is opened when its turn comes; "-" for standard input
  std::string m_path;       ///< relative to the root of the run; `Source::m_path`
  std::string m_stem;       ///< as of `Task`
};

/// What became of an input, with what was printed for it.
/// @code
/// auto const show = [](PoolResult const& result) {
///   std::cout << result.m_facts.m_givenPath << ' ' << result.m_outcome.m_views.size() << " views\n";
///   return result.forEachText([](std::string_view text) { return bool(std::cout << text); });
/// };
/// PoolOptions options;
/// options.m_processes = 2;
/// std::vector<PoolInput> const inputs = {
///     {"bracket.json", "bracket.json", ""}, {"bracket.qvs", "bracket.qvs", ""}};
/// assert(runPool(Request(), inputs, options, show));
/// @endcode
/// A copy holds four files open, where the text is, among them the input.
class QVT_EXPORT PoolResult {
 public:
  std::size_t m_index = 0;  ///< among the inputs
  Outcome m_outcome;        ///< the outputs that it names are there, hashed, under their names
  RunFacts m_facts;         ///< of the work on it; empty where that never began
  bool m_hasDied = false;   ///< its process died, which a finding of the outcome tells, or it never began
  std::string m_messages;   ///< what libraries printed meanwhile; at most 1 MiB

  /// Hands over what the action printed, in pieces of at most 64 KiB, until `take` answers false. Nothing of
  /// an input whose process died. False when it cannot be read back. Throws what `take` throws.
  bool forEachText(std::function<bool(std::string_view)> const& take) const;

 private:
  friend class PoolRun;
  class Files;
  std::shared_ptr<Files> m_files;
};

/// How a pool works.
struct PoolOptions {
  /// Inputs at a time, at least 1; at most 256, and not more than this process may open files for.
  std::size_t m_processes = 1;
  std::string m_outputFolder;  ///< for files; created with its parents when missing; empty: none are made
  bool m_force = false;        ///< files that exist are replaced, but no input
  /// The worker program and its arguments, such as {"qvannot", "worker"}: its standard input is the channel.
  /// Empty: a fork of this process serves, which must have one thread then, and closes all that this process
  /// has open but the standard streams.
  std::vector<std::string> m_program;
  ProgramHooks m_hooks;                         ///< of this process, for forks and for work without one
  volatile int const* m_interrupted = nullptr;  ///< another value than 0 ends the run; not owned, may be null
  std::function<void(std::size_t)> m_onBegin;   ///< is told the index of an input whose work begins
};

/// Works on inputs by a worker program, several at a time, and shows each result in the order of the inputs,
/// as soon as all before it are shown; of results that wait there are at most four for each process. With
/// lifted limits all is done in this process, one input after the other.
/// @code
/// Request request;
/// PoolOptions options;
/// runPool(request, {{"bracket.json", "bracket.json", "bracket"}}, options, [](PoolResult const& result) {
///   std::cout << result.m_outcome.m_views.size() << " views\n";
///   return true;
/// });
/// @endcode
/// A result's files are hashed, synchronised and given their names by this process once they are complete:
/// all of an input, or none, unless the system fails amid files that `m_force` replaces. What was not
/// complete is removed, also when the run is interrupted; what an earlier run has left that was killed is
/// removed first. `show` answers false to end the run. False when the run was ended.
///
/// An input that cannot be opened, and one whose process dies, is a result, too, and costs no other one; a
/// worker program that dies is started anew. Throws `std::bad_alloc`, `std::system_error` when no worker
/// program can be started, `std::runtime_error` with its reason when it refuses the request, and what `show`
/// throws.
QVT_EXPORT bool runPool(Request const& request, std::vector<PoolInput> const& inputs,
                        PoolOptions const& options, std::function<bool(PoolResult const&)> const& show);

/// How many inputs this machine can work on at a time: the processors that this process may use by affinity
/// and control group, but not more than the memory holds, each taking the most that its limit allows; at
/// least 1.
QVT_EXPORT std::size_t getDefaultProcesses(Limits const& limits);

}  // namespace qvToolkit
