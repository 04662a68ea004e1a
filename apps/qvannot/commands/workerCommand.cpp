#include <sys/socket.h>
#include <unistd.h>

#include "qvToolkit/work/workerProgram.h"
#include "qvannot/commandList.h"
#include "qvannot/programHooks.h"
#include "qvannot/reporter.h"

namespace qvannot {

namespace {

bool isConnectedLocalSocket(int file) {
  sockaddr_storage other{};
  socklen_t size = sizeof other;
  return getpeername(file, reinterpret_cast<sockaddr*>(&other), &size) == 0 && other.ss_family == AF_UNIX;
}

struct WorkerCommand final : Command {
  Options listOptions() override { return {}; }
  void run(Reporter& reporter) const override {
    reporter.expectNoViews();
    if (!isConnectedLocalSocket(STDIN_FILENO)) {
      return reporter.fail(qvToolkit::ExitUsage,
                           "standard input is no connected local socket; another program starts this "
                           "command, with one end of a pair of sockets");
    }
    reporter.count(
        static_cast<qvToolkit::ExitCode>(qvToolkit::serveClient(STDIN_FILENO, makeProgramHooks())));
  }
};

}  // namespace

constexpr CommandRow workerCommand = {
    "worker",
    "Work on documents for another program",
    "Serves the program that has the other end of standard input, a connected local socket, until it "
    "goes away: each document that it hands over is worked on in a process of its own. The page "
    "docs/worker-protocol.md describes what passes between the two.",
    {},
    makeCommand<WorkerCommand>,
    true};

}  // namespace qvannot
