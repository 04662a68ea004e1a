#include "work/answer.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <random>

#include "files/fileDescriptor.h"
#include "files/wholeIo.h"
#include "work/frame.h"

namespace qvToolkit {

namespace {

std::string makeFrame(FrameKind kind, std::string const& bytes) {
  auto const size = static_cast<std::uint32_t>(bytes.size());
  return formatFrameHead({static_cast<std::uint32_t>(kind), 0, size}) + bytes;
}

class AnswerTest : public testing::Test {
 protected:
  std::string readText() const {
    std::string text;
    EXPECT_TRUE(AnswerReader(m_spool).forEachText([&text](std::string_view piece) {
      text += piece;
      return true;
    }));
    return text;
  }
  /// The answer is these bytes.
  void leave(std::string_view bytes) const {
    ASSERT_EQ(ftruncate(m_spool.getDescriptor(), 0), 0);
    ASSERT_EQ(lseek(m_spool.getDescriptor(), 0, SEEK_SET), 0);
    ASSERT_TRUE(writeAll(m_spool.getDescriptor(), bytes));
  }
  bool isWhole(std::string_view bytes) const {
    leave(bytes);
    return AnswerReader(m_spool).isWhole();
  }

  Spool m_spool;
  AnswerWriter m_writer{m_spool.getDescriptor()};
};

TEST_F(AnswerTest, HoldsTextAndOutcome) {
  ASSERT_TRUE(m_writer.write("some ") && m_writer.write("text") && m_writer.conclude("{}"));
  AnswerReader const reader(m_spool);
  EXPECT_TRUE(reader.isWhole());
  EXPECT_EQ(reader.getOutcome(), "{}");
  EXPECT_EQ(readText(), "some text");
}

TEST_F(AnswerTest, HoldsTextOfManyPieces) {
  std::string const text(1'000'000, 'x');
  ASSERT_TRUE(m_writer.write(text) && m_writer.write("y") && m_writer.conclude("{}"));
  EXPECT_EQ(readText(), text + "y");
}

TEST_F(AnswerTest, StopsHandingOverTextWhereNobodyWantsMore) {
  ASSERT_TRUE(m_writer.write(std::string(1'000'000, 'x')) && m_writer.conclude("{}"));
  int count = 0;
  EXPECT_TRUE(AnswerReader(m_spool).forEachText([&count](std::string_view) { return ++count < 3; }));
  EXPECT_EQ(count, 3);
}

TEST_F(AnswerTest, TakesAllTextBack) {
  ASSERT_TRUE(m_writer.write(std::string(200'000, 'x')) && m_writer.write("y"));
  m_writer.withdraw();
  ASSERT_TRUE(m_writer.conclude("{}"));
  EXPECT_TRUE(AnswerReader(m_spool).isWhole());
  EXPECT_EQ(readText(), "");
}

TEST_F(AnswerTest, WithoutAnOutcomeIsNotWhole) {
  ASSERT_TRUE(m_writer.write(std::string(200'000, 'x')));
  EXPECT_FALSE(AnswerReader(m_spool).isWhole());
  EXPECT_FALSE(isWhole(""));
  EXPECT_FALSE(isWhole(makeFrame(FrameKind::Text, "text")));
}

TEST_F(AnswerTest, IsWholeInFullOnly) {
  std::string const whole = makeFrame(FrameKind::Text, "text") + makeFrame(FrameKind::Outcome, "{\"a\":1}");
  EXPECT_TRUE(isWhole(whole));
  for (std::size_t size = 0; size < whole.size(); ++size)
    EXPECT_FALSE(isWhole(whole.substr(0, size))) << size;
  EXPECT_FALSE(isWhole(whole + "x")) << "nothing stands behind the outcome";
  EXPECT_FALSE(isWhole(whole + makeFrame(FrameKind::Outcome, "{}")));
  EXPECT_FALSE(isWhole(makeFrame(FrameKind::Ready, "") + makeFrame(FrameKind::Outcome, "{}")));
}

TEST_F(AnswerTest, OfAHugeLengthIsNotWhole) {
  auto const kind = static_cast<std::uint32_t>(FrameKind::Outcome);
  EXPECT_FALSE(isWhole(formatFrameHead({kind, 0, 0xFFFFFFFFU})));
  EXPECT_FALSE(isWhole(formatFrameHead({kind, 0, MaxFrameBytes})));
}

TEST_F(AnswerTest, OfRandomBytesIsNotWhole) {
  std::mt19937 random(20260301);
  for (int run = 0; run < 300; ++run) {
    std::string bytes(random() % 100, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    EXPECT_FALSE(isWhole(bytes)) << run;
    EXPECT_FALSE(isWhole(makeFrame(FrameKind::Text, "text") + bytes)) << run;
  }
}

TEST(AnswerWriter, TellsThatItsFileTakesNoMore) {
  FileDescriptor const full(open("/dev/full", O_WRONLY | O_CLOEXEC));
  AnswerWriter writer(full.get());
  EXPECT_TRUE(writer.write("little")) << "which waits";
  EXPECT_FALSE(writer.write(std::string(200'000, 'x')));
  EXPECT_EQ(errno, ENOSPC);
  EXPECT_FALSE(writer.conclude("{}"));
}

}  // namespace

}  // namespace qvToolkit
