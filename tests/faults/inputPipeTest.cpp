#include <gtest/gtest.h>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <string_view>

#include "tests/apps/toolRunner.h"

/// A document that comes through a pipe, piece by piece.
namespace qvFaults {

namespace {

constexpr char const* Example = QVA_EXAMPLES "/binary/image_sheet_6.27.qvs";

std::string readFile(std::string const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

[[noreturn]] void inspectPipe(int pipe, std::string const& output) {
  std::FILE* const file = std::freopen(output.c_str(), "w", stdout);
  if (file == nullptr || dup2(pipe, STDIN_FILENO) < 0) _exit(126);
  execl(QVANNOT_PATH, QVANNOT_PATH, "inspect", "--json", "--full", "-", nullptr);
  _exit(127);
}

/// What the tool prints of the bytes that it gets `piece` at a time.
std::string inspect(std::string_view bytes, std::size_t piece) {
  qvTest::Workplace const place;
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return "no pipe";
  pid_t const child = fork();
  if (child == 0) {
    close(ends[1]);
    inspectPipe(ends[0], place.getPath("out"));
  }
  close(ends[0]);
  for (; !bytes.empty(); bytes.remove_prefix(std::min(piece, bytes.size()))) {
    if (write(ends[1], bytes.data(), std::min(piece, bytes.size())) < 0) break;
    sched_yield();
  }
  close(ends[1]);
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  return place.read("out");
}

TEST(InputPipe, InPiecesOfAnySizeGivesTheSameDocument) {
  std::string const bytes = readFile(Example);
  std::string const whole = inspect(bytes, bytes.size());
  EXPECT_NE(whole.find("Image sheet"), std::string::npos);
  for (std::size_t const piece : {1U, 2U, 3U, 7U, 64U, 511U})
    EXPECT_EQ(inspect(bytes, piece), whole) << piece;
}

}  // namespace

}  // namespace qvFaults
