#include "files/openBeneath.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>

#include "files/fileDescriptor.h"
#include "tests/support/exportSupport.h"

namespace qvToolkit {

namespace {

/// Both ways must give the same answers.
class OpenBeneath : public testing::TestWithParam<int (*)(int, std::string const&)> {
 protected:
  OpenBeneath() {
    m_outer.writeFile("secret", "secret");
    m_outer.writeFile("in/a/b/file", "content");
    m_folder = FileDescriptor(open(m_outer.getPath("in").c_str(), O_RDONLY | O_DIRECTORY));
  }
  std::string read(std::string const& path) {
    FileDescriptor const file(GetParam()(m_folder.get(), path));
    std::array<char, 64> bytes;
    ssize_t const count = file.isOpen() ? ::read(file.get(), bytes.data(), bytes.size()) : -1;
    return count < 0 ? "-" : std::string(bytes.data(), static_cast<std::size_t>(count));
  }
  qvTest::TemporaryFolder m_outer;
  FileDescriptor m_folder;
};

TEST_P(OpenBeneath, OpensFilesAtAnyDepth) {
  EXPECT_EQ(read("a/b/file"), "content");
  EXPECT_EQ(read("a//b///file"), "content");
  EXPECT_EQ(read("a/b/none"), "-");
}

TEST_P(OpenBeneath, FollowsNoLinkAnywhereOnTheWay) {
  ASSERT_EQ(symlink("../secret", m_outer.getPath("in/link").c_str()), 0);
  ASSERT_EQ(symlink("a", m_outer.getPath("in/inner").c_str()), 0);
  EXPECT_EQ(read("link"), "-");
  EXPECT_EQ(read("inner/b/file"), "-");
}

TEST_P(OpenBeneath, LeavesNoDescriptorOpen) {
  int const before = dup(0);
  close(before);
  EXPECT_EQ(read("a/b/file"), "content");
  EXPECT_EQ(read("a/b/file/x"), "-");
  int const after = dup(0);
  close(after);
  EXPECT_EQ(after, before);
}

INSTANTIATE_TEST_SUITE_P(ByKernelAndStepwise, OpenBeneath,
                         testing::Values(&openBeneath, &openBeneathStepwise));

}  // namespace

}  // namespace qvToolkit
