#include "files/childProcess.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>

#include "files/fileDescriptor.h"
#include "files/temporaryFile.h"
#include "files/wholeIo.h"

namespace qvToolkit {

namespace {

/// As shells say of a program that cannot be started.
constexpr int ExitUnstarted = 127;

bool rewind(int file) {
  return lseek(file, 0, SEEK_SET) == 0;
}

std::string readAll(int file) {
  std::string bytes;
  auto const take = [&bytes](std::string_view piece) {
    bytes += piece;
    return true;
  };
  static_cast<void>(rewind(file) && readPieces(file, take));
  return bytes;
}

bool haveSameName(std::string_view variable, std::string_view other) {
  return variable.substr(0, variable.find('=')) == other.substr(0, other.find('='));
}

/// Null-terminated pointers to the strings, as the system wants them.
std::vector<char*> makePointers(std::vector<std::string> const& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string const& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

std::vector<std::string> makeEnvironment(std::vector<std::string> changes) {
  for (char** variable = environ; *variable != nullptr; ++variable) {
    auto const isChange = [variable](std::string const& change) { return haveSameName(*variable, change); };
    if (std::ranges::none_of(changes, isChange)) changes.emplace_back(*variable);
  }
  return changes;
}

/// What a new process does between its start and the program: nothing here allocates.
class Start {
 public:
  Start(ChildCommand const& command, std::array<FileDescriptor, 3> const& files)
      : m_environment(makeEnvironment(command.m_environment)),
        m_words(makePointers(command.m_words)),
        m_variables(makePointers(m_environment)),
        m_files(files),
        m_maxMemory(command.m_maxMemory) {}

  /// Returns the system's error number; 0 when the program runs.
  int run(pid_t& child) {
    std::array<int, 2> ends = {-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) return errno;
    FileDescriptor const told(ends[0]);
    FileDescriptor telling(ends[1]);
    child = fork();
    if (child == 0) become(telling.get());
    if (child < 0) return errno;
    telling.reset();
    return readError(told.get());
  }

 private:
  /// Closed without a word where the program has taken over.
  static int readError(int told) {
    int error = 0;
    auto const count = repeatInterrupted([&] { return ::read(told, &error, sizeof error); });
    return count == sizeof error ? error : 0;
  }

  [[noreturn]] void become(int telling) {
    // Whoever kills the process that started it means the work, and so the program, too.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != m_parent) _exit(ExitUnstarted);
    // Signals that this process ignores would be ignored by the program, too.
    signal(SIGPIPE, SIG_DFL);
    signal(SIGXFSZ, SIG_DFL);
    limitMemory();
    for (std::size_t i = 0; i < m_files.size(); ++i) dup2(m_files[i].get(), static_cast<int>(i));
    execvpe(m_words.front(), m_words.data(), m_variables.data());
    int const error = errno;
    static_cast<void>(writeAll(telling, {reinterpret_cast<char const*>(&error), sizeof error}));
    _exit(ExitUnstarted);
  }

  /// What it allocates, but not its code, which is mapped: that counts for the process's address space only.
  void limitMemory() const {
    rlimit limit{};
    if (m_maxMemory == ChildCommand::Unlimited || getrlimit(RLIMIT_DATA, &limit) != 0) return;
    limit.rlim_cur = std::min<rlim_t>(m_maxMemory, limit.rlim_max);
    limit.rlim_max = limit.rlim_cur;
    setrlimit(RLIMIT_DATA, &limit);
  }

  std::vector<std::string> m_environment;
  std::vector<char*> m_words;
  std::vector<char*> m_variables;
  std::array<FileDescriptor, 3> const& m_files;
  std::uint64_t m_maxMemory;
  pid_t m_parent = getpid();
};

int waitFor(pid_t child) {
  int status = 0;
  repeatInterrupted([&] { return waitpid(child, &status, 0); });
  return status;
}

}  // namespace

ChildRun runChild(ChildCommand const& command, std::string_view input) {
  ChildRun run;
  std::array<FileDescriptor, 3> files = {openMemoryFile(), openMemoryFile(), openMemoryFile()};
  bool const areOpen = std::ranges::all_of(files, &FileDescriptor::isOpen);
  if (!areOpen || !writeAll(files[0].get(), input) || !rewind(files[0].get())) {
    run.m_problem = errno;
    return run;
  }
  pid_t child = 0;
  run.m_problem = Start(command, files).run(child);
  if (run.m_problem != 0) {
    if (child > 0) waitFor(child);
    return run;
  }
  int const status = waitFor(child);
  if (WIFSIGNALED(status)) run.m_signal = WTERMSIG(status);
  if (WIFEXITED(status)) run.m_exitCode = WEXITSTATUS(status);
  run.m_output = readAll(files[1].get());
  run.m_errors = readAll(files[2].get());
  return run;
}

}  // namespace qvToolkit
