#include "work/taskResults.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include "files/spool.h"
#include "tests/support/temporaryFolder.h"

namespace qvToolkit {

namespace {

class TaskResultsTest : public testing::Test {
 protected:
  std::string readText() const {
    std::string text;
    AnswerReader const reader(m_answer);
    EXPECT_TRUE(reader.isWhole());
    EXPECT_TRUE(reader.forEachText([&text](std::string_view piece) {
      text += piece;
      return true;
    }));
    return text;
  }

  qvTest::TemporaryFolder m_folder;
  FileDescriptor m_staging{open(m_folder.getPath().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
  Spool m_answer;
  TaskResults m_results{m_answer.getDescriptor(), m_staging.get(), "given"};
};

TEST_F(TaskResultsTest, PutTextIntoTheAnswerAndFilesIntoTheFolder) {
  ASSERT_TRUE(m_results.getText().write("text"));
  ASSERT_TRUE(m_results.open("a.svg") && m_results.getFile().write("page"));
  ASSERT_TRUE(m_results.getAnswer().conclude("{}"));
  EXPECT_EQ(readText(), "text");
  EXPECT_EQ(qvTest::readFile(m_folder.getPath("a.svg")), "page");
}

TEST_F(TaskResultsTest, TakeTextBack) {
  ASSERT_TRUE(m_results.getText().write("text"));
  m_results.withdraw();
  ASSERT_TRUE(m_results.getAnswer().conclude("{}"));
  EXPECT_EQ(readText(), "");
}

TEST_F(TaskResultsTest, ShowNothingOfTextThatIsTooLarge) {
  struct Case {
    std::uint64_t m_all;
    std::uint64_t m_one;
    OptionKey m_option;
  };
  for (Case const& limit : {Case{10, 100, OptionKey::MaxOutput}, Case{100, 10, OptionKey::MaxOutputFile}}) {
    Spool answer;
    TaskResults results(answer.getDescriptor(), -1, "given");
    results.limit(limit.m_all, limit.m_one);
    EXPECT_TRUE(results.getText().write("0123456789"));
    EXPECT_FALSE(results.getText().write("x"));
    EXPECT_FALSE(results.getText().write("y"));
    EXPECT_EQ(results.getProblem().m_code, FindingCode::LimitOutput);
    EXPECT_EQ(results.getProblem().m_options, std::vector{limit.m_option});
    EXPECT_NE(results.getProblem().m_text.find("limit of 10 bytes"), std::string::npos);
    ASSERT_TRUE(results.getAnswer().conclude("{}"));
    int pieces = 0;
    EXPECT_TRUE(AnswerReader(answer).forEachText([&pieces](std::string_view) { return ++pieces > 0; }));
    EXPECT_EQ(pieces, 0);
  }
}

TEST_F(TaskResultsTest, TellWhyAFileCannotBeWritten) {
  m_folder.writeFile("a.svg", "old");
  EXPECT_FALSE(m_results.open("a.svg"));
  EXPECT_EQ(m_results.getProblem().m_text, "cannot create 'given/a.svg': File exists");
}

TEST_F(TaskResultsTest, TellThatTextCannotBeKept) {
  FileDescriptor const full(open("/dev/full", O_WRONLY | O_CLOEXEC));
  TaskResults results(full.get(), -1, "given");
  EXPECT_FALSE(results.getText().write(std::string(200'000, 'x')));
  EXPECT_EQ(results.getProblem().m_code, FindingCode::OutputFailed);
  EXPECT_EQ(results.getProblem().m_text, "cannot keep the result: No space left on device");
}

}  // namespace

}  // namespace qvToolkit
