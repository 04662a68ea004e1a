/// Measures the tool as whole processes, with a process for each document and without, interleaved; what a
/// fork costs here comes from the same run. Usage: workerCost REPETITIONS OUTPUT_FOLDER
/// DOCUMENT...; the folder is removed. In memory (/dev/shm) the disk does not count.

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

struct Cost {
  double m_processor = 1e9;  ///< seconds, with all processes that were started
  double m_clock = 1e9;      ///< seconds
};

struct Mode {
  char const* m_name;
  std::vector<std::string> m_words;
  Cost m_least = {};
};

double toSeconds(timeval const& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

double getProcessorTime(int who) {
  rusage usage{};
  getrusage(who, &usage);
  return toSeconds(usage.ru_utime) + toSeconds(usage.ru_stime);
}

double getClock() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

[[noreturn]] void become(std::vector<std::string> const& words) {
  std::vector<char*> pointers;
  for (std::string const& word : words) pointers.push_back(const_cast<char*>(word.c_str()));
  pointers.push_back(nullptr);
  int const nothing = open("/dev/null", O_RDWR);
  for (int const number : {0, 1, 2}) dup2(nothing, number);
  execv(pointers.front(), pointers.data());
  _exit(127);
}

Cost run(std::vector<std::string> const& words) {
  double const processor = getProcessorTime(RUSAGE_CHILDREN);
  double const clock = getClock();
  pid_t const process = fork();
  if (process == 0) become(words);
  waitpid(process, nullptr, 0);
  return {getProcessorTime(RUSAGE_CHILDREN) - processor, getClock() - clock};
}

/// Of one fork that writes into so many pages of its parent, in seconds.
double measureFork(std::size_t pages) {
  constexpr std::size_t PageBytes = 4096;
  constexpr int Forks = 500;
  std::vector<char> memory(pages * PageBytes, 1);
  double const before = getProcessorTime(RUSAGE_SELF) + getProcessorTime(RUSAGE_CHILDREN);
  for (int i = 0; i < Forks; ++i) {
    pid_t const process = fork();
    if (process == 0) {
      for (std::size_t page = 0; page < pages; ++page)
        static_cast<char volatile*>(memory.data())[page * PageBytes] = 2;
      _exit(0);
    }
    waitpid(process, nullptr, 0);
  }
  return (getProcessorTime(RUSAGE_SELF) + getProcessorTime(RUSAGE_CHILDREN) - before) / Forks;
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 4) return 2;
  std::string const folder = arguments[2];
  std::vector<std::string> const documents(arguments + 3, arguments + count);
  std::array<Mode, 3> modes = {{{"one at a time", {"-j", "1"}},
                                {"two at a time", {"-j", "2"}},
                                {"in one process", {"--limits", "none"}}}};
  double fork = 1e9;
  for (int i = 0; i < std::atoi(arguments[1]); ++i) {
    for (Mode& mode : modes) {
      std::filesystem::remove_all(folder);
      std::vector<std::string> words = {QVANNOT_PATH, "migrate", "-o", folder, "--drop-known-metadata"};
      words.insert(words.end(), mode.m_words.begin(), mode.m_words.end());
      words.insert(words.end(), documents.begin(), documents.end());
      Cost const cost = run(words);
      mode.m_least = {std::min(mode.m_least.m_processor, cost.m_processor),
                      std::min(mode.m_least.m_clock, cost.m_clock)};
    }
    fork = std::min(fork, measureFork(300));
  }
  std::filesystem::remove_all(folder);
  auto const number = static_cast<double>(documents.size());
  for (Mode const& mode : modes)
    std::printf("%-15s %7.2f ms of processor time, %7.2f ms by the clock, for each document\n", mode.m_name,
                mode.m_least.m_processor / number * 1e3, mode.m_least.m_clock / number * 1e3);
  Cost const& one = modes[0].m_least;
  Cost const& here = modes[2].m_least;
  double const beyond = (one.m_processor - here.m_processor) / number;
  std::printf("a process of its own: %.2f ms, %.2f x a fork that writes 300 pages (%.2f ms)\n", beyond * 1e3,
              beyond / fork, fork * 1e3);
  std::printf(
      "one at a time / in one process: %.2f of processor time; two at a time: %.2f x as fast as one\n",
      one.m_processor / here.m_processor, one.m_clock / modes[1].m_least.m_clock);
}
