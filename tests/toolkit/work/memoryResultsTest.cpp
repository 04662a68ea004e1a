#include "qvToolkit/work/memoryResults.h"

#include <gtest/gtest.h>

namespace qvToolkit {

namespace {

TEST(MemoryResults, KeepTextAndFilesApart) {
  MemoryResults results;
  ASSERT_TRUE(results.open("a") && results.getFile().write("1") && results.getText().write("text"));
  ASSERT_TRUE(results.getFile().write("2") && results.open("b") && results.getFile().write("3"));
  EXPECT_EQ(results.getPrinted(), "text");
  ASSERT_EQ(results.getFiles().size(), 2U);
  EXPECT_EQ(results.getFiles()[0].m_bytes, "12");
  EXPECT_EQ(results.getFiles()[1].m_name, "b");
}

TEST(MemoryResults, RefuseAFileThatIsTooLarge) {
  MemoryResults results;
  results.limit(100, 3);
  ASSERT_TRUE(results.open("a") && results.getFile().write("123"));
  EXPECT_FALSE(results.getFile().write("4"));
  EXPECT_EQ(results.getProblem().m_code, FindingCode::LimitOutput);
  EXPECT_EQ(results.getProblem().m_options, std::vector{OptionKey::MaxOutputFile});
  EXPECT_NE(results.getProblem().m_text.find("'a' is larger than the limit of 3 bytes"), std::string::npos);
  EXPECT_FALSE(results.open("b"));
}

TEST(MemoryResults, CountTextAndFilesTogether) {
  MemoryResults results;
  results.limit(5, 5);
  ASSERT_TRUE(results.getText().write("123") && results.open("a") && results.getFile().write("45"));
  EXPECT_FALSE(results.getText().write("6"));
  EXPECT_EQ(results.getProblem().m_options, std::vector{OptionKey::MaxOutput});
}

TEST(MemoryResults, ForgetWhatIsWithdrawn) {
  MemoryResults results;
  ASSERT_TRUE(results.getText().write("123") && results.open("a"));
  results.withdraw();
  EXPECT_EQ(results.getPrinted(), "");
  EXPECT_TRUE(results.getFiles().empty());
}

}  // namespace

}  // namespace qvToolkit
