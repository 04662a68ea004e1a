#include "work/frame.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <random>
#include <thread>

#include "channel.h"

namespace qvToolkit {

namespace {

class FrameTest : public testing::Test {
 protected:
  static std::string format(FrameKind kind, std::uint32_t files, std::uint32_t bytes) {
    return formatFrameHead({static_cast<std::uint32_t>(kind), files, bytes});
  }
  bool sendFrame(FrameKind kind, std::string_view bytes, std::vector<int> const& files = {}) const {
    return qvToolkit::sendFrame(m_channel.m_near.get(), kind, bytes, files);
  }
  bool receive() { return m_reader.receive(m_channel.m_far.get()); }
  void expectRefused(std::string_view bytes) {
    ASSERT_TRUE(m_channel.send(bytes));
    EXPECT_FALSE(receive());
    EXPECT_FALSE(m_reader.isSound());
  }

  qvTest::Channel m_channel;
  FrameReader m_reader;
};

TEST_F(FrameTest, ArrivesWithItsBytesAndFiles) {
  FileDescriptor const file(open("/dev/null", O_RDONLY | O_CLOEXEC));
  ASSERT_TRUE(sendFrame(FrameKind::Task, "some bytes", {file.get(), file.get()}));
  ASSERT_TRUE(receive());
  auto const frame = m_reader.take();
  ASSERT_TRUE(frame.has_value());
  EXPECT_EQ(frame->m_kind, FrameKind::Task);
  EXPECT_EQ(frame->m_bytes, "some bytes");
  ASSERT_EQ(frame->m_files.size(), 2U);
  struct stat sent {};
  struct stat received {};
  ASSERT_EQ(fstat(file.get(), &sent), 0);
  ASSERT_EQ(fstat(frame->m_files[1].get(), &received), 0);
  EXPECT_EQ(received.st_rdev, sent.st_rdev);
  EXPECT_NE(fcntl(frame->m_files[0].get(), F_GETFD) & FD_CLOEXEC, 0);
  EXPECT_FALSE(m_reader.take().has_value());
}

TEST_F(FrameTest, IsPutTogetherFromSingleBytes) {
  std::string const bytes = format(FrameKind::Ended, 0, 3) + "end" + format(FrameKind::Ready, 0, 0);
  std::vector<std::string> frames;
  for (char const byte : bytes) {
    ASSERT_TRUE(m_channel.send({&byte, 1}));
    ASSERT_TRUE(receive());
    while (auto const frame = m_reader.take()) frames.push_back(frame->m_bytes);
  }
  EXPECT_EQ(frames, (std::vector<std::string>{"end", ""}));
}

TEST_F(FrameTest, LargerThanWhatAChannelHoldsArrives) {
  std::string const large(3'000'000, 'x');
  std::thread sender([&] { EXPECT_TRUE(sendFrame(FrameKind::Request, large)); });
  auto const frame = qvTest::receiveFrame(m_reader, m_channel.m_far.get());
  sender.join();
  ASSERT_TRUE(frame.has_value());
  EXPECT_EQ(frame->m_bytes, large);
}

TEST_F(FrameTest, KeepsItsFilesApartFromThoseOfOthers) {
  FileDescriptor const null(open("/dev/null", O_RDONLY | O_CLOEXEC));
  FileDescriptor const folder(open("/", O_RDONLY | O_CLOEXEC));
  ASSERT_TRUE(sendFrame(FrameKind::Task, "a", {null.get()}));
  ASSERT_TRUE(sendFrame(FrameKind::Warm, "b"));
  ASSERT_TRUE(sendFrame(FrameKind::Task, "c", {folder.get()}));
  std::vector<std::size_t> counts;
  for (int i = 0; i < 3; ++i) {
    auto const frame = qvTest::receiveFrame(m_reader, m_channel.m_far.get());
    ASSERT_TRUE(frame.has_value());
    counts.push_back(frame->m_files.size());
    struct stat status {};
    if (i == 2) {
      ASSERT_EQ(fstat(frame->m_files.at(0).get(), &status), 0);
      EXPECT_TRUE(S_ISDIR(status.st_mode));
    }
  }
  EXPECT_EQ(counts, (std::vector<std::size_t>{1, 0, 1}));
}

TEST_F(FrameTest, NothingIsReceivedWithoutWaiting) {
  EXPECT_TRUE(receive());
  EXPECT_FALSE(m_reader.take().has_value());
}

TEST_F(FrameTest, EndsWhenTheOtherSideIsGone) {
  m_channel.m_near.reset();
  EXPECT_FALSE(receive());
  EXPECT_TRUE(m_reader.isSound()) << "which is no fault";
}

TEST_F(FrameTest, CutShortIsNone) {
  ASSERT_TRUE(m_channel.send(format(FrameKind::Ended, 0, 9) + "eight  !"));
  ASSERT_TRUE(receive());
  EXPECT_FALSE(m_reader.take().has_value());
  m_channel.m_near.reset();
  EXPECT_FALSE(receive());
  EXPECT_FALSE(m_reader.take().has_value());
}

TEST_F(FrameTest, OfNoKindIsRefused) {
  expectRefused(formatFrameHead({0, 0, 0}));
}

TEST_F(FrameTest, OfAKindBehindTheLastIsRefused) {
  expectRefused(formatFrameHead({9, 0, 0}));
}

TEST_F(FrameTest, OfTooManyBytesIsRefusedBeforeTheyCome) {
  expectRefused(format(FrameKind::Task, 0, MaxFrameBytes + 1));
}

TEST_F(FrameTest, OfTooManyFilesIsRefused) {
  expectRefused(format(FrameKind::Task, MaxFrameFiles + 1, 0));
}

TEST_F(FrameTest, WhoseFilesAreMissingIsRefused) {
  expectRefused(format(FrameKind::Task, 3, 2) + "{}");
}

TEST_F(FrameTest, WithFilesThatItDoesNotTellIsRefused) {
  FileDescriptor const file(open("/dev/null", O_RDONLY | O_CLOEXEC));
  std::string const head = format(FrameKind::Warm, 0, 0);
  alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> beside{};
  iovec piece{const_cast<char*>(head.data()), head.size()};
  msghdr message{};
  message.msg_iov = &piece;
  message.msg_iovlen = 1;
  message.msg_control = beside.data();
  message.msg_controllen = beside.size();
  *CMSG_FIRSTHDR(&message) = {CMSG_LEN(sizeof(int)), SOL_SOCKET, SCM_RIGHTS};
  int const number = file.get();
  std::memcpy(CMSG_DATA(CMSG_FIRSTHDR(&message)), &number, sizeof number);
  ASSERT_EQ(sendmsg(m_channel.m_near.get(), &message, 0), static_cast<ssize_t>(head.size()));
  EXPECT_FALSE(receive());
  EXPECT_FALSE(m_reader.isSound());
}

TEST_F(FrameTest, BehindAProperOneIsRefusedAndTheProperOneIsTaken) {
  expectRefused(format(FrameKind::Ready, 0, 2) + "ok" + std::string(12, '\xff'));
  auto const frame = m_reader.take();
  ASSERT_TRUE(frame.has_value());
  EXPECT_EQ(frame->m_bytes, "ok");
  EXPECT_FALSE(m_reader.take().has_value());
}

TEST_F(FrameTest, OfRandomBytesIsRefusedOrNeverComplete) {
  std::minstd_rand random(20260228);
  for (int run = 0; run < 500; ++run) {
    qvTest::Channel const channel;
    FrameReader reader;
    std::string bytes(random() % 200, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    // Some look like a frame at first.
    if (run % 2 == 0)
      bytes.insert(0, format(FrameKind::Task, static_cast<std::uint32_t>(random() % 3),
                             static_cast<std::uint32_t>(random() % 300)));
    ASSERT_TRUE(channel.send(bytes));
    bool const isReceived = reader.receive(channel.m_far.get());
    EXPECT_EQ(isReceived, reader.isSound()) << run;
    while (auto const frame = reader.take()) EXPECT_LE(frame->m_bytes.size(), bytes.size());
  }
}

TEST_F(FrameTest, CannotBeSentToNobody) {
  m_channel.m_far.reset();
  EXPECT_FALSE(sendFrame(FrameKind::Ready, "x"));
  EXPECT_EQ(errno, EPIPE);
}

TEST(FrameReader, ReceivesNothingFromWhatIsNoSocket) {
  FileDescriptor const file(open("/dev/null", O_RDONLY | O_CLOEXEC));
  FrameReader reader;
  EXPECT_FALSE(reader.receive(file.get()));
}

}  // namespace

}  // namespace qvToolkit
