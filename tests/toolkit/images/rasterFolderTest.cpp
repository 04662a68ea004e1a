#include "qvToolkit/images/rasterFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/support/exportSupport.h"

namespace qvToolkit {

namespace {

class RasterFolderTest : public testing::Test {
 protected:
  RasterFolderTest() {
    m_outer.writeFile("secret.png", "secret");
    m_outer.writeFile("images/logo.png", "logo");
    m_outer.writeFile("images/sub/part.jpg", "part");
  }

  /// What the callback and `resolve` deliver; the problem where the name is refused.
  std::string ask(std::string const& name) {
    std::string data;
    if (!RasterFolder::deliver(name, data, &m_folder)) return "refused: " + *m_folder.findProblem(name);
    return std::string(m_folder.resolve(data));
  }

  qvTest::TemporaryFolder m_outer;
  RasterFolder m_folder{
      (std::filesystem::create_directories(m_outer.getPath("images")), m_outer.getPath("images"))};
};

TEST_F(RasterFolderTest, DeliversFilesOfTheFolder) {
  EXPECT_EQ(ask("logo.png"), "logo");
  EXPECT_EQ(ask("sub/part.jpg"), "part");
  EXPECT_EQ(m_folder.findProblem("logo.png"), nullptr);
}

TEST_F(RasterFolderTest, TriesTheUsualExtensionsWhereNoFileHasTheNameItself) {
  EXPECT_EQ(ask("logo"), "logo");
  EXPECT_EQ(ask("sub/part"), "part");
  EXPECT_EQ(ask("other"), "refused: No such file or directory");
}

TEST_F(RasterFolderTest, RefusesNamesThatLeaveTheFolder) {
  std::string const outside = m_outer.getPath("secret.png");
  for (std::string const& name : {std::string("../secret.png"), std::string("sub/../../secret.png"), outside,
                                  std::string(".."), std::string("sub/.."), std::string("/"), std::string(),
                                  std::string("logo.png\0.jpg", 13), std::string(5000, 'a')}) {
    EXPECT_TRUE(ask(name).starts_with("refused: ")) << name;
  }
}

TEST_F(RasterFolderTest, FollowsNoSymbolicLink) {
  ASSERT_EQ(symlink("../secret.png", m_outer.getPath("images/link.png").c_str()), 0);
  ASSERT_EQ(symlink("..", m_outer.getPath("images/up").c_str()), 0);
  ASSERT_EQ(symlink("logo.png", m_outer.getPath("images/inner.png").c_str()), 0);
  EXPECT_TRUE(ask("link.png").starts_with("refused: "));
  EXPECT_TRUE(ask("up/secret.png").starts_with("refused: "));
  EXPECT_TRUE(ask("inner.png").starts_with("refused: "));
}

TEST_F(RasterFolderTest, ReadsRegularFilesOnly) {
  ASSERT_EQ(mkfifo(m_outer.getPath("images/pipe.png").c_str(), 0600), 0);
  EXPECT_EQ(ask("pipe.png"), "refused: it is no regular file");
  EXPECT_EQ(ask("sub"), "refused: it is no regular file");
}

TEST_F(RasterFolderTest, RefusesAFileLargerThan64MiB) {
  m_outer.writeFile("images/large.png", "x");
  ASSERT_EQ(truncate(m_outer.getPath("images/large.png").c_str(), (off_t{64} << 20) + 1), 0);
  EXPECT_EQ(ask("large.png"), "refused: it is larger than the limit of 67108864 bytes");
  ASSERT_EQ(truncate(m_outer.getPath("images/large.png").c_str(), 70), 0);
  m_outer.writeFile("images/other.png", "y");
  EXPECT_EQ(ask("other.png"), "y");
}

TEST_F(RasterFolderTest, HoldsOneImageOnceHoweverOftenItIsDelivered) {
  std::string first;
  std::string second;
  ASSERT_TRUE(RasterFolder::deliver("logo.png", first, &m_folder));
  ASSERT_TRUE(RasterFolder::deliver("logo.png", second, &m_folder));
  EXPECT_LT(first.size(), 32U);
  EXPECT_EQ(m_folder.resolve(first).data(), m_folder.resolve(second).data());
}

TEST_F(RasterFolderTest, LooksANameUpOnce) {
  EXPECT_EQ(ask("late.png"), "refused: No such file or directory");
  m_outer.writeFile("images/late.png", "late");
  EXPECT_EQ(ask("late.png"), "refused: No such file or directory");
}

TEST_F(RasterFolderTest, LeavesForeignDataAsTheyAre) {
  EXPECT_EQ(m_folder.resolve("anything"), "anything");
  EXPECT_EQ(m_folder.resolve(std::string_view("\0raster 99", 10)).size(), 10U);
}

TEST(RasterFolderWithoutFolder, AnswersNoName) {
  RasterFolder folder("");
  std::string data;
  EXPECT_FALSE(RasterFolder::deliver("logo.png", data, &folder));
  EXPECT_EQ(*folder.findProblem("logo.png"), "no folder of images was given");
  EXPECT_EQ(folder.getFolderProblem(), "");
}

TEST(RasterFolderWithoutFolder, SaysWhyAFolderCannotBeUsed) {
  EXPECT_EQ(RasterFolder("/nowhere/at/all").getFolderProblem(), "No such file or directory");
  qvTest::TemporaryFolder const outer;
  outer.writeFile("file", "x");
  EXPECT_EQ(RasterFolder(outer.getPath("file")).getFolderProblem(), "Not a directory");
}

}  // namespace

}  // namespace qvToolkit
