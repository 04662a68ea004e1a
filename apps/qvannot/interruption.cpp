#include "interruption.h"

#include <signal.h>

namespace qvannot {

namespace {

volatile sig_atomic_t interruption = 0;

void remember(int signal) {
  interruption = signal;
}

}  // namespace

void installSignalHandling() {
  struct sigaction action {};
  action.sa_handler = remember;
  action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
  sigaction(SIGHUP, &action, nullptr);
  signal(SIGPIPE, SIG_IGN);
  signal(SIGXFSZ, SIG_IGN);
  // Where the caller ignores it, nobody learns how a process ended.
  signal(SIGCHLD, SIG_DFL);
}

volatile int const* getInterruption() {
  return &interruption;
}

void endByInterruption() {
  if (interruption != 0) raise(interruption);
}

}  // namespace qvannot
