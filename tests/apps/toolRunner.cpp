#include "toolRunner.h"

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <filesystem>

namespace qvTest {

namespace {

void redirect(std::string const& path, int flags, int to) {
  int const file = open(path.c_str(), flags, 0600);
  if (file < 0 || dup2(file, to) < 0) _exit(126);
  close(file);
}

double getSeconds(timeval const& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

/// From here on the call fails with ENOSYS.
void forbid(long call) {
  sock_filter filter[] = {
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(call), 0, 1),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
  };
  sock_fprog const program{std::size(filter), filter};
  prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
  if (prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0) _exit(124);
}

[[noreturn]] void becomeTool(std::vector<std::string> const& arguments, ToolSetting const& setting,
                             Workplace const& place) {
  std::string const input = setting.m_standardInput.empty() ? place.getPath("in") : setting.m_standardInput;
  redirect(input, O_RDONLY, STDIN_FILENO);
  std::string const output =
      setting.m_standardOutput.empty() ? place.getPath("out") : setting.m_standardOutput;
  redirect(output, O_WRONLY | O_CREAT, STDOUT_FILENO);
  redirect(place.getPath("err"), O_WRONLY | O_CREAT, STDERR_FILENO);
  if (setting.m_maxMemoryMiB != 0) {
    rlimit const limit{setting.m_maxMemoryMiB << 20, setting.m_maxMemoryMiB << 20};
    setrlimit(RLIMIT_AS, &limit);
  }
  for (int const signalNumber : setting.m_ignoredSignals) signal(signalNumber, SIG_IGN);
  for (int const stream : setting.m_closedStreams) close(stream);
  if (setting.m_missingCall.has_value()) forbid(*setting.m_missingCall);
  for (auto const& [name, value] : setting.m_environment) setenv(name.c_str(), value.c_str(), 1);
  std::vector<char*> pointers = {const_cast<char*>(QVANNOT_PATH)};
  for (std::string const& argument : arguments) pointers.push_back(const_cast<char*>(argument.c_str()));
  pointers.push_back(nullptr);
  execv(QVANNOT_PATH, pointers.data());
  _exit(127);
}

}  // namespace

ToolRun runTool(std::vector<std::string> const& arguments, ToolSetting const& setting) {
  Workplace const place;
  static_cast<void>(place.write("in", setting.m_input));
  pid_t const child = fork();
  if (child == 0) becomeTool(arguments, setting, place);
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  auto const peak = static_cast<std::uint64_t>(usage.ru_maxrss) >> 10;
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, place.read("out"), place.read("err"), peak,
          getSeconds(usage.ru_utime) + getSeconds(usage.ru_stime)};
}

std::vector<std::string> Workplace::list(std::string const& folder) const {
  std::vector<std::string> names;
  if (!std::filesystem::is_directory(getPath(folder))) return names;
  for (auto const& entry : std::filesystem::directory_iterator(getPath(folder))) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string makeDocument(std::string_view extra, std::string_view viewMetadata) {
  return R"({"views":[{"ver":"6.27","name":"front","origin":[0,0,0],"normal":[0,0,1],"axis":[1,0,0],"metadata":)" +
         std::string(viewMetadata) + R"(,"annotations":[{"name":"note","type":"text",)" + std::string(extra) +
         R"("position":[1,2,0],"defaulttextprop":{"font":"Liberation Sans","heightem":1},)"
         R"("lines":[[{"text":"plain"}]]}]}]})";
}

}  // namespace qvTest
