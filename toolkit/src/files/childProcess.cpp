#include "files/childProcess.h"

#include <signal.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>

#include "files/fileDescriptor.h"
#include "files/wholeIo.h"

namespace qvToolkit {

namespace {

/// A nameless file in memory.
FileDescriptor createMemoryFile() {
  return FileDescriptor(memfd_create("qvannot", MFD_CLOEXEC));
}

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

/// The attributes and actions of a start.
class Spawning {
 public:
  Spawning() {
    posix_spawnattr_init(&m_attributes);
    posix_spawn_file_actions_init(&m_actions);
  }
  ~Spawning() {
    posix_spawnattr_destroy(&m_attributes);
    posix_spawn_file_actions_destroy(&m_actions);
  }
  Spawning(Spawning const&) = delete;
  Spawning& operator=(Spawning const&) = delete;

  /// Signals that this process ignores would be ignored by the child, too.
  void resetSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    sigaddset(&signals, SIGXFSZ);
    posix_spawnattr_setsigdefault(&m_attributes, &signals);
    posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGDEF);
  }
  void connect(FileDescriptor const& file, int number) {
    posix_spawn_file_actions_adddup2(&m_actions, file.get(), number);
  }
  int start(ChildCommand const& command, pid_t& child) {
    std::vector<std::string> const environment = makeEnvironment(command.m_environment);
    return posix_spawnp(&child, command.m_words.front().c_str(), &m_actions, &m_attributes,
                        makePointers(command.m_words).data(), makePointers(environment).data());
  }

 private:
  posix_spawnattr_t m_attributes;
  posix_spawn_file_actions_t m_actions;
};

/// What it allocates, but not its code, which is mapped: that counts for the process's address space only.
void limitMemory(pid_t child, std::uint64_t bytes) {
  rlimit limit{};
  if (bytes == ChildCommand::Unlimited || getrlimit(RLIMIT_DATA, &limit) != 0) return;
  limit.rlim_cur = std::min<rlim_t>(bytes, limit.rlim_max);
  limit.rlim_max = limit.rlim_cur;
  prlimit(child, RLIMIT_DATA, &limit, nullptr);
}

int waitFor(pid_t child) {
  int status = 0;
  repeatInterrupted([&] { return waitpid(child, &status, 0); });
  return status;
}

}  // namespace

ChildRun runChild(ChildCommand const& command, std::string_view input) {
  ChildRun run;
  std::array<FileDescriptor, 3> files = {createMemoryFile(), createMemoryFile(), createMemoryFile()};
  bool const areOpen = std::ranges::all_of(files, &FileDescriptor::isOpen);
  if (!areOpen || !writeAll(files[0].get(), input) || !rewind(files[0].get())) {
    run.m_problem = errno;
    return run;
  }
  Spawning spawning;
  spawning.resetSignals();
  for (std::size_t i = 0; i < files.size(); ++i) spawning.connect(files[i], static_cast<int>(i));
  pid_t child = 0;
  run.m_problem = spawning.start(command, child);
  if (run.m_problem != 0) return run;
  limitMemory(child, command.m_maxMemory);
  int const status = waitFor(child);
  if (WIFSIGNALED(status)) run.m_signal = WTERMSIG(status);
  if (WIFEXITED(status)) run.m_exitCode = WEXITSTATUS(status);
  run.m_output = readAll(files[1].get());
  run.m_errors = readAll(files[2].get());
  return run;
}

}  // namespace qvToolkit
