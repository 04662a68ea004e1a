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

  /// The bytes of the image; the problem where there is none.
  std::string ask(std::string const& name) {
    Raster const raster = m_folder.find(name);
    return raster.m_image == nullptr ? "refused: " + raster.m_problem : raster.m_image->getBytes();
  }

  qvTest::TemporaryFolder m_outer;
  RasterFolder m_folder{
      (std::filesystem::create_directories(m_outer.getPath("images")), m_outer.getPath("images"))};
};

TEST_F(RasterFolderTest, DeliversFilesOfTheFolder) {
  EXPECT_EQ(ask("logo.png"), "logo");
  EXPECT_EQ(ask("sub/part.jpg"), "part");
  EXPECT_EQ(m_folder.find("logo.png").m_problem, "");
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
  EXPECT_TRUE(m_folder.find("large.png").m_isTooLarge);
  ASSERT_EQ(truncate(m_outer.getPath("images/large.png").c_str(), 70), 0);
  m_outer.writeFile("images/other.png", "y");
  EXPECT_EQ(ask("other.png"), "y");
}

TEST(RasterFolderWithoutFolder, AnswersNoName) {
  RasterFolder const folder("");
  EXPECT_EQ(folder.find("logo.png").m_image, nullptr);
  EXPECT_EQ(folder.find("logo.png").m_problem, "no folder of images was given");
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
