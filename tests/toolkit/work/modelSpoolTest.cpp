#include "work/modelSpool.h"

#include <gtest/gtest.h>

namespace qvToolkit {

namespace {

TEST(ModelSpool, CopiesWhatWasWritten) {
  ModelSpool spool(std::uint64_t{1} << 30);
  std::string expected;
  for (int i = 0; i < 3; ++i) {
    std::string const piece(100'000, static_cast<char>('a' + i));
    ASSERT_TRUE(spool.write(piece));
    expected += piece;
  }
  TextSink sink;
  EXPECT_TRUE(spool.copyTo(sink));
  EXPECT_EQ(sink.m_text, expected);
  EXPECT_EQ(spool.findProblem(), std::nullopt);
}

TEST(ModelSpool, KeepsWhatMayBeThereAndCopiesEnoughToBeRefused) {
  ModelSpool spool(5);
  EXPECT_TRUE(spool.write("12345"));
  EXPECT_FALSE(spool.write("6"));
  EXPECT_FALSE(spool.write("7")) << "nothing is kept behind what is left out";
  TextSink sink;
  EXPECT_TRUE(spool.copyTo(sink));
  EXPECT_EQ(sink.m_text, "123456");
}

TEST(ModelSpool, StopsAtASinkThatTakesNoMore) {
  struct Full : OutputSink {
    bool write(std::string_view) override { return false; }
  } sink;
  ModelSpool spool(100);
  ASSERT_TRUE(spool.write("text"));
  EXPECT_FALSE(spool.copyTo(sink));
  EXPECT_EQ(spool.findProblem(), std::nullopt) << "the sink knows why";
}

}  // namespace

}  // namespace qvToolkit
