#include "files/stagedFiles.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/support/temporaryFolder.h"

namespace qvToolkit {

namespace {

class StagedFilesTest : public testing::Test {
 protected:
  StagedFilesTest() { m_files.setFolder(m_staging.get()); }
  std::string read(std::string const& name) const { return qvTest::readFile(m_folder.getPath(name)); }

  qvTest::TemporaryFolder m_folder;
  FileDescriptor m_staging{open(m_folder.getPath().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
  StagedFiles m_files{"out"};
};

TEST_F(StagedFilesTest, StandInTheFolderInTheOrderOfTheirBegin) {
  ASSERT_TRUE(m_files.open("b.svg") && m_files.write("fir") && m_files.write("st"));
  ASSERT_TRUE(m_files.open("a.json") && m_files.write("second") && m_files.end());
  EXPECT_EQ(read("b.svg"), "first");
  EXPECT_EQ(read("a.json"), "second");
  EXPECT_EQ(m_files.getNames(), (std::vector<std::string>{"b.svg", "a.json"}));
  EXPECT_FALSE(m_files.hasFailed());
}

TEST_F(StagedFilesTest, AreSeenByNobodyElse) {
  ASSERT_TRUE(m_files.open("a.svg") && m_files.end());
  struct stat status {};
  ASSERT_EQ(stat(m_folder.getPath("a.svg").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(StagedFilesTest, HaveEachNameOnce) {
  ASSERT_TRUE(m_files.open("a.svg"));
  EXPECT_FALSE(m_files.open("a.svg"));
  EXPECT_EQ(m_files.getProblem().m_code, FindingCode::OutputFailed);
  EXPECT_EQ(m_files.getProblem().m_text, "cannot create 'out/a.svg': File exists");
}

TEST_F(StagedFilesTest, FollowNoLink) {
  ASSERT_EQ(symlink("elsewhere", m_folder.getPath("a.svg").c_str()), 0);
  EXPECT_FALSE(m_files.open("a.svg"));
  EXPECT_FALSE(std::filesystem::exists(m_folder.getPath("elsewhere")));
}

TEST_F(StagedFilesTest, AreNoMoreAfterTheFirstProblem) {
  m_folder.writeFile("a.svg", "old");
  EXPECT_FALSE(m_files.open("a.svg"));
  EXPECT_TRUE(m_files.hasFailed());
  EXPECT_FALSE(m_files.write("x"));
  EXPECT_FALSE(m_files.open("b.svg"));
  EXPECT_FALSE(m_files.end());
  EXPECT_EQ(read("a.svg"), "old");
  EXPECT_NE(m_files.getProblem().m_text.find("a.svg"), std::string::npos) << "the first one is told";
}

TEST_F(StagedFilesTest, AreRefusedWhereOneIsTooLarge) {
  m_files.limit(100, 5);
  ASSERT_TRUE(m_files.open("a.svg") && m_files.write("12345"));
  ASSERT_TRUE(m_files.open("b.svg") && m_files.write("12345")) << "each has its own";
  EXPECT_FALSE(m_files.write("6"));
  EXPECT_EQ(m_files.getProblem().m_code, FindingCode::LimitOutput);
  EXPECT_EQ(m_files.getProblem().m_options, std::vector{OptionKey::MaxOutputFile});
  EXPECT_EQ(m_files.getProblem().m_text,
            "'out/b.svg' is larger than the limit of 5 bytes; nothing is written");
}

TEST_F(StagedFilesTest, AreRefusedWhereTheyAreTooLargeTogether) {
  m_files.limit(10, 100);
  ASSERT_TRUE(m_files.open("a.svg") && m_files.write("1234"));
  ASSERT_TRUE(m_files.open("b.svg") && m_files.write("123456"));
  EXPECT_FALSE(m_files.write("7"));
  EXPECT_EQ(m_files.getProblem().m_code, FindingCode::LimitOutput);
  EXPECT_EQ(m_files.getProblem().m_options, std::vector{OptionKey::MaxOutput});
}

TEST_F(StagedFilesTest, CannotBeMadeWhereThereIsNoFolder) {
  StagedFiles files("out");
  EXPECT_FALSE(files.open("a.svg"));
  EXPECT_EQ(files.getProblem().m_text, "cannot create 'out/a.svg': Bad file descriptor");
}

}  // namespace

}  // namespace qvToolkit
