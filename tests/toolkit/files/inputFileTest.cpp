#include "files/inputFile.h"
#include "tests/support/temporaryFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

namespace {

/// The file that the first read after this cuts down to three bytes.
char const* shrinkingFile = nullptr;

}  // namespace

// Stands in for the system's.
extern "C" ssize_t read(int file, void* bytes, std::size_t count) {
  if (shrinkingFile != nullptr && truncate(std::exchange(shrinkingFile, nullptr), 3) != 0) return -1;
  return syscall(SYS_read, file, bytes, count);
}

namespace {

using namespace qvToolkit;

constexpr std::uint64_t MaxBytes = 1U << 20;

class InputFileTest : public testing::Test {
 protected:
  std::string write(std::string const& content) const { return m_folder.writeFile("file", content); }

  static void expectTooLarge(InputFile const& input) {
    ASSERT_TRUE(input.m_problem.has_value());
    EXPECT_EQ(input.m_problem->m_code, FindingCode::InputTooLarge);
  }

  static void expectUnreadable(InputFile const& input, std::string const& text) {
    ASSERT_TRUE(input.m_problem.has_value());
    EXPECT_EQ(input.m_problem->m_code, FindingCode::InputUnreadable);
    EXPECT_EQ(input.m_problem->m_severity, Severity::Error);
    EXPECT_EQ(input.m_problem->m_text, text);
    EXPECT_TRUE(input.m_bytes.empty());
  }

  qvTest::TemporaryFolder m_folder;
};

TEST_F(InputFileTest, SaysWhenStandardInputIsClosed) {
  int const input = dup(STDIN_FILENO);
  close(STDIN_FILENO);
  InputFile const file = readInputFile("-", MaxBytes);
  dup2(input, STDIN_FILENO);
  close(input);
  expectUnreadable(file, "cannot read: standard input is closed");
}

TEST_F(InputFileTest, ReadsAllBytesOfAFile) {
  std::string content("a\0\xFF", 3);
  for (int i = 0; i < 200000; ++i) content += static_cast<char>(i);
  InputFile const input = readInputFile(write(content), MaxBytes);
  EXPECT_FALSE(input.m_problem.has_value());
  EXPECT_EQ(input.m_bytes, content);
}

TEST_F(InputFileTest, ReadsWhatIsLeftOfAFileThatShrinksMeanwhile) {
  std::string const path = write(std::string(500000, 'x'));
  shrinkingFile = path.c_str();
  InputFile const input = readInputFile(path, MaxBytes);
  EXPECT_EQ(shrinkingFile, nullptr);
  EXPECT_FALSE(input.m_problem.has_value());
  EXPECT_EQ(input.m_bytes, "xxx");
}

TEST_F(InputFileTest, SaysThatAFileIsMissing) {
  expectUnreadable(readInputFile(m_folder.getPath("none"), MaxBytes),
                   "cannot open: No such file or directory");
}

TEST_F(InputFileTest, SaysThatAFolderIsNoFile) {
  expectUnreadable(
      readInputFile(m_folder.getPath(), MaxBytes),
      "cannot read: it is a directory, expected a regular file; give '-' to read standard input");
}

TEST_F(InputFileTest, RefusesAPipeWithoutWaitingForAWriter) {
  std::string const path = m_folder.getPath("pipe");
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  expectUnreadable(readInputFile(path, MaxBytes),
                   "cannot read: it is a pipe, expected a regular file; give '-' to read standard input");
}

TEST_F(InputFileTest, RefusesADeviceThatNeverEnds) {
  expectUnreadable(readInputFile("/dev/zero", MaxBytes),
                   "cannot read: it is a device, expected a regular file; give '-' to read standard input");
}

TEST_F(InputFileTest, SaysThatAFileMayNotBeRead) {
  std::string const path = write("x");
  std::filesystem::permissions(path, std::filesystem::perms::none);
  // Root may read everything, so it becomes somebody else meanwhile.
  uid_t const user = ::geteuid();
  constexpr uid_t Nobody = 65534;
  if (user == 0 && ::seteuid(Nobody) != 0) GTEST_SKIP() << "root that cannot become another user";
  InputFile const input = readInputFile(path, MaxBytes);
  ASSERT_EQ(::seteuid(user), 0);
  expectUnreadable(input, "cannot open: Permission denied");
}

TEST_F(InputFileTest, RefusesANameWithAZeroCharacter) {
  expectUnreadable(readInputFile(write("x") + std::string("\0y", 2), MaxBytes),
                   "cannot open: a zero character in the name");
}

TEST_F(InputFileTest, ReadsWhatIsOpenWhateverItIs) {
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe(ends.data()), 0);
  FileDescriptor const out(ends[0]);
  FileDescriptor in(ends[1]);
  ASSERT_EQ(::write(in.get(), "bytes", 5), 5);
  in.reset();
  EXPECT_EQ(readInputFile(out.get(), MaxBytes).m_bytes, "bytes");
  OpenedInput const file = openInputFile(write("content"), MaxBytes);
  ASSERT_FALSE(file.m_problem.has_value());
  EXPECT_EQ(readInputFile(file.m_file.get(), MaxBytes).m_bytes, "content");
  EXPECT_EQ(readInputFile(file.m_file.get(), MaxBytes).m_bytes, "") << "it is at its end";
}

TEST_F(InputFileTest, RefusesWhatIsOpenAndTooLarge) {
  OpenedInput const file = openInputFile(write("content"), MaxBytes);
  expectTooLarge(readInputFile(file.m_file.get(), 6));
  EXPECT_TRUE(openInputFile(write("content"), 6).m_problem.has_value());
}

TEST_F(InputFileTest, HoldsTheLimitExactly) {
  std::string const path = write(std::string(1000, 'x'));
  EXPECT_EQ(readInputFile(path, 1000).m_bytes.size(), 1000U);
  InputFile const input = readInputFile(path, 999);
  ASSERT_TRUE(input.m_problem.has_value());
  EXPECT_EQ(input.m_problem->m_code, FindingCode::InputTooLarge);
  EXPECT_EQ(input.m_problem->m_text, "the input is larger than the limit of 999 bytes");
}

TEST_F(InputFileTest, RefusesAHugeSparseFileAtOnce) {
  std::string const path = write("");
  std::filesystem::resize_file(path, std::uintmax_t{1} << 40);
  expectTooLarge(readInputFile(path, MaxBytes));
}

/// Puts a file in the place of standard input while it lives.
class StandardInput {
 public:
  explicit StandardInput(int descriptor) : m_saved(::dup(STDIN_FILENO)) {
    ::dup2(descriptor, STDIN_FILENO);
    ::close(descriptor);
  }
  StandardInput(StandardInput const&) = delete;
  StandardInput& operator=(StandardInput const&) = delete;
  ~StandardInput() {
    ::dup2(m_saved, STDIN_FILENO);
    ::close(m_saved);
  }

 private:
  int m_saved;
};

TEST_F(InputFileTest, ReadsStandardInputToItsEnd) {
  StandardInput const input(::open(write("from outside").c_str(), O_RDONLY));
  EXPECT_EQ(readInputFile("-", MaxBytes).m_bytes, "from outside");
}

TEST_F(InputFileTest, StopsAtTheLimitOnStandardInputWithoutEnd) {
  StandardInput const input(::open("/dev/zero", O_RDONLY));
  expectTooLarge(readInputFile("-", MaxBytes));
}

TEST_F(InputFileTest, SaysThatStandardInputIsAFolder) {
  StandardInput const input(::open(m_folder.getPath().c_str(), O_RDONLY));
  expectUnreadable(readInputFile("-", MaxBytes), "cannot read: Is a directory");
}

}  // namespace
