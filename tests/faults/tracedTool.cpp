#include "tracedTool.h"

#include <fcntl.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>

namespace qvFaults {

namespace {

using Kind = SystemCallFault::Kind;

constexpr long Options = PTRACE_O_TRACESECCOMP | PTRACE_O_TRACEFORK | PTRACE_O_TRACEVFORK |
                         PTRACE_O_TRACECLONE | PTRACE_O_EXITKILL;

/// Stops the calls that a fault can hit, and no other; opening only where it creates.
constexpr sock_filter StopAt(long number, unsigned char stepsToStop) {
  return BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(number), stepsToStop, 0);
}

constexpr sock_filter Filter[] = {
    BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
    StopAt(SYS_write, 18),
    StopAt(SYS_pwrite64, 17),
    StopAt(SYS_writev, 16),
    StopAt(SYS_fsync, 15),
    StopAt(SYS_fchmod, 14),
    StopAt(SYS_ftruncate, 13),
    StopAt(SYS_linkat, 12),
    StopAt(SYS_unlink, 11),
    StopAt(SYS_unlinkat, 10),
    StopAt(SYS_renameat, 9),
    StopAt(SYS_renameat2, 8),
    StopAt(SYS_mkdir, 7),
    StopAt(SYS_mkdirat, 6),
    StopAt(SYS_sendmsg, 5),
    StopAt(SYS_pread64, 4),
    BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_openat, 0, 2),
    BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[2])),
    BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, O_CREAT, 1, 0),
    BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_TRACE),
};

/// Stops one call, wherever it leads.
std::vector<sock_filter> makeFilter(long number) {
  return {Filter[0], StopAt(number, 1), BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
          BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_TRACE)};
}

void redirect(std::string const& path, int flags, int to) {
  int const file = open(path.c_str(), flags, 0600);
  if (file < 0 || dup2(file, to) < 0) _exit(126);
  close(file);
}

[[noreturn]] void becomeTool(std::vector<std::string> const& arguments, std::string const& folder,
                             std::span<sock_filter const> filter) {
  redirect("/dev/null", O_RDONLY, STDIN_FILENO);
  redirect(folder + "/stdout", O_WRONLY | O_CREAT | O_TRUNC, STDOUT_FILENO);
  redirect(folder + "/stderr", O_WRONLY | O_CREAT | O_TRUNC, STDERR_FILENO);
  setenv("TMPDIR", (folder + "/tmp").c_str(), 1);
  // The leak check of a sanitizer wants to trace, too.
  setenv("ASAN_OPTIONS", "detect_leaks=0", 1);
  std::vector<char*> words = {const_cast<char*>(QVANNOT_PATH)};
  for (std::string const& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
  words.push_back(nullptr);
  if (chdir(folder.c_str()) != 0 || ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(125);
  raise(SIGSTOP);
  sock_fprog const program{static_cast<unsigned short>(filter.size()),
                           const_cast<sock_filter*>(filter.data())};
  prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
  if (prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0) _exit(124);
  execv(QVANNOT_PATH, words.data());
  _exit(127);
}

/// Lives for one run.
class Tracer {
 public:
  Tracer(pid_t tool, SystemCallFault const& fault) : m_tool(tool), m_fault(fault) {}

  TracedRun follow() {
    int status = 0;
    waitpid(m_tool, &status, 0);
    if (!WIFSTOPPED(status)) return m_run;
    ptrace(PTRACE_SETOPTIONS, m_tool, nullptr, Options);
    ptrace(PTRACE_CONT, m_tool, nullptr, nullptr);
    for (;;) {
      pid_t const process = waitpid(-1, &status, __WALL);
      if (process < 0 && errno == EINTR) continue;
      if (process < 0) return m_run;
      handle(process, status);
    }
  }

 private:
  void handle(pid_t process, int status) {
    if (!WIFSTOPPED(status)) {
      if (process == m_tool) noteEnd(status);
      return;
    }
    int const signal = WSTOPSIG(status);
    int const event = status >> 16;
    if (event == PTRACE_EVENT_SECCOMP && m_run.m_calls++ == m_fault.m_at) strike(process);
    // What a new process begins with is no signal for it.
    bool const isForProcess = event == 0 && signal != SIGSTOP && signal != SIGTRAP;
    ptrace(PTRACE_CONT, process, nullptr, isForProcess ? static_cast<long>(signal) : 0L);
  }

  void noteEnd(int status) {
    if (WIFEXITED(status)) m_run.m_exitCode = WEXITSTATUS(status);
    if (WIFSIGNALED(status)) m_run.m_signal = WTERMSIG(status);
  }

  void strike(pid_t process) {
    if (m_fault.m_kind == Kind::None) return;
    if (m_fault.m_kind == Kind::Kill) {
      ++m_run.m_killed;
      kill(process, SIGKILL);
    } else if (m_fault.m_kind == Kind::Signal) {
      kill(m_tool, m_fault.m_number);
    } else {
      changeCall(process);
    }
  }

  void changeCall(pid_t process) const {
    user_regs_struct registers{};
    ptrace(PTRACE_GETREGS, process, nullptr, &registers);
    if (m_fault.m_kind == Kind::Short) {
      if (registers.orig_rax == SYS_write && registers.rdx > 1) registers.rdx /= 2;
    } else {
      registers.orig_rax = static_cast<unsigned long long>(-1);
      registers.rax = static_cast<unsigned long long>(-m_fault.m_number);
    }
    ptrace(PTRACE_SETREGS, process, nullptr, &registers);
  }

  pid_t m_tool;
  SystemCallFault const& m_fault;
  TracedRun m_run;
};

std::string readFile(std::string const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TracedRun trace(std::vector<std::string> const& arguments, std::string const& folder,
                SystemCallFault const& fault, std::span<sock_filter const> filter) {
  std::filesystem::create_directories(folder + "/tmp");
  pid_t const tool = fork();
  if (tool == 0) becomeTool(arguments, folder, filter);
  TracedRun run = Tracer(tool, fault).follow();
  run.m_output = readFile(folder + "/stdout");
  run.m_errors = readFile(folder + "/stderr");
  return run;
}

}  // namespace

TracedRun runTraced(std::vector<std::string> const& arguments, std::string const& folder,
                    SystemCallFault const& fault) {
  return trace(arguments, folder, fault, Filter);
}

std::uint32_t countCalls(long number, std::vector<std::string> const& arguments, std::string const& folder) {
  return trace(arguments, folder, {}, makeFilter(number)).m_calls;
}

}  // namespace qvFaults
