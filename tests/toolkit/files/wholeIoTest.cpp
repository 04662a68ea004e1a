#include "files/wholeIo.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <thread>

namespace qvToolkit {

namespace {

TEST(WholeIo, RepeatsACallThatASignalInterrupts) {
  int calls = 0;
  auto const call = [&calls] {
    errno = EINTR;
    return ++calls < 3 ? -1 : 7;
  };
  EXPECT_EQ(repeatInterrupted(call), 7);
  EXPECT_EQ(calls, 3);
}

TEST(WholeIo, ReturnsAnyOtherErrorAtOnce) {
  int calls = 0;
  auto const call = [&calls] {
    ++calls;
    errno = EIO;
    return -1;
  };
  EXPECT_EQ(repeatInterrupted(call), -1);
  EXPECT_EQ(calls, 1);
}

TEST(WholeIo, WritesAndReadsMoreThanAPipeHoldsAtOnce) {
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
  std::string const content(1'000'000, 'x');
  bool isWritten = false;
  std::thread writer([&] {
    isWritten = writeAll(pipe[1], content);
    ::close(pipe[1]);
  });
  std::string read;
  EXPECT_TRUE(readPieces(pipe[0], [&read](std::string_view piece) {
    read += piece;
    return true;
  }));
  writer.join();
  ::close(pipe[0]);
  EXPECT_TRUE(isWritten);
  EXPECT_EQ(read, content);
}

TEST(WholeIo, EndsWhereThePieceIsRefused) {
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
  ASSERT_TRUE(writeAll(pipe[1], "abc"));
  EXPECT_TRUE(readPieces(pipe[0], [](std::string_view) { return false; }));
  ::close(pipe[0]);
  ::close(pipe[1]);
}

TEST(WholeIo, FailsWithTheSystemsError) {
  EXPECT_FALSE(writeAll(-1, "abc"));
  EXPECT_EQ(errno, EBADF);
  EXPECT_FALSE(readPieces(-1, [](std::string_view) { return true; }));
  EXPECT_EQ(errno, EBADF);
}

}  // namespace

}  // namespace qvToolkit
