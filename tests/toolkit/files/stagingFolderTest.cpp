#include "files/stagingFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "files/stagingOwner.h"
#include "tests/support/temporaryFolder.h"

namespace qvToolkit {

namespace {

namespace fs = std::filesystem;

class StagingFolderTest : public testing::Test {
 protected:
  StagingFolderTest() : m_folder(open(m_outer.getPath(".").c_str(), O_RDONLY | O_DIRECTORY)) {}

  bool isThere(std::string const& name) const { return fs::exists(m_outer.getPath(name)); }
  /// A folder that somebody of that name has left, with something in it.
  std::string leave(StagingOwner const& owner) const {
    std::string const name = makeStagingName(owner, 0);
    fs::create_directories(m_outer.getPath(name) + "/place");
    std::ofstream(m_outer.getPath(name) + "/place/page.svg") << "half a page";
    std::ofstream(m_outer.getPath(name) + "/lock");
    return name;
  }
  /// A process that is killed while it has a staging folder.
  pid_t dieInOne() const {
    pid_t const child = fork();
    if (child != 0) return child;
    StagingFolder staging;
    if (staging.make(m_folder.get()) && staging.makePlace("7").isOpen()) raise(SIGKILL);
    _exit(1);
  }
  void makeOld(std::string const& name) const {
    fs::last_write_time(m_outer.getPath(name), fs::file_time_type::clock::now() - std::chrono::hours(25));
  }

  qvTest::TemporaryFolder m_outer;
  FileDescriptor m_folder;
};

TEST_F(StagingFolderTest, IsRemovedWithAllThatIsInIt) {
  {
    StagingFolder staging;
    ASSERT_TRUE(staging.make(m_folder.get()));
    FileDescriptor const place = staging.makePlace("7");
    ASSERT_TRUE(place.isOpen());
    FileDescriptor const file(openat(place.get(), "a.svg", O_CREAT | O_WRONLY, 0600));
    ASSERT_TRUE(file.isOpen());
    EXPECT_FALSE(fs::is_empty(m_outer.getPath(".")));
  }
  EXPECT_TRUE(fs::is_empty(m_outer.getPath(".")));
}

TEST_F(StagingFolderTest, RemovesAPlaceWithWhatIsLeftInIt) {
  StagingFolder staging;
  ASSERT_TRUE(staging.make(m_folder.get()));
  FileDescriptor const place = staging.makePlace("7");
  FileDescriptor const file(openat(place.get(), "a.svg", O_CREAT | O_WRONLY, 0600));
  staging.removePlace("7");
  EXPECT_TRUE(staging.makePlace("7").isOpen());
}

TEST_F(StagingFolderTest, OfALivingProcessStays) {
  StagingFolder staging;
  ASSERT_TRUE(staging.make(m_folder.get()));
  removeAbandoned(m_folder.get());
  EXPECT_TRUE(staging.makePlace("7").isOpen());
}

TEST_F(StagingFolderTest, OfAKilledProcessIsRemoved) {
  pid_t const child = dieInOne();
  waitpid(child, nullptr, 0);
  ASSERT_FALSE(fs::is_empty(m_outer.getPath(".")));
  removeAbandoned(m_folder.get());
  EXPECT_TRUE(fs::is_empty(m_outer.getPath(".")));
}

TEST_F(StagingFolderTest, OfAKilledProcessThatNobodyHasWaitedForIsRemoved) {
  pid_t const child = dieInOne();
  siginfo_t end{};
  ASSERT_EQ(waitid(P_PID, static_cast<id_t>(child), &end, WEXITED | WNOWAIT), 0);
  ASSERT_EQ(end.si_status, SIGKILL);
  ASSERT_FALSE(fs::is_empty(m_outer.getPath(".")));
  removeAbandoned(m_folder.get());
  EXPECT_TRUE(fs::is_empty(m_outer.getPath(".")));
  waitpid(child, nullptr, 0);
}

TEST_F(StagingFolderTest, OfAnEarlierStartOfTheHostIsRemovedThoughANewProcessHasTheNumber) {
  StagingOwner owner = getStagingOwner();
  owner.m_boot = "0123456789abcdef";
  std::string const name = leave(owner);
  removeAbandoned(m_folder.get());
  EXPECT_FALSE(isThere(name));
}

TEST_F(StagingFolderTest, OfAnEarlierProcessOfTheSameNumberIsRemoved) {
  StagingOwner owner = getStagingOwner();
  ++owner.m_start;
  std::string const name = leave(owner);
  removeAbandoned(m_folder.get());
  EXPECT_FALSE(isThere(name));
}

TEST_F(StagingFolderTest, ThatIsLockedStaysWhateverItsNameTells) {
  StagingOwner owner = getStagingOwner();
  ++owner.m_start;
  std::string const name = leave(owner);
  FileDescriptor const lock(open(m_outer.getPath(name + "/lock").c_str(), O_RDWR));
  ASSERT_EQ(flock(lock.get(), LOCK_EX), 0);
  removeAbandoned(m_folder.get());
  EXPECT_TRUE(isThere(name));
}

TEST_F(StagingFolderTest, OfAnotherHostIsRemovedOnlyAfterADayWithoutAChange) {
  StagingOwner owner = getStagingOwner();
  owner.m_host += "x";
  std::string const name = leave(owner);
  removeAbandoned(m_folder.get());
  EXPECT_TRUE(isThere(name));
  makeOld(name);
  removeAbandoned(m_folder.get());
  EXPECT_FALSE(isThere(name));
}

TEST_F(StagingFolderTest, FoldersOfOtherNamesStay) {
  std::vector<std::string> const names{".qvannot", ".qvannot-a-b-1-2", ".qvannot-a-b-1-2-x",
                                       ".qvannot-a-b-x-2-3", "qvannot-a-b-1-2-3"};
  for (std::string const& name : names) {
    fs::create_directories(m_outer.getPath(name));
    makeOld(name);
  }
  removeAbandoned(m_folder.get());
  for (std::string const& name : names) EXPECT_TRUE(isThere(name)) << name;
}

TEST_F(StagingFolderTest, LinksInItAreRemovedAndNotFollowed) {
  StagingOwner owner = getStagingOwner();
  ++owner.m_start;
  std::string const name = leave(owner);
  m_outer.writeFile("kept/page.svg", "a page");
  fs::create_directory_symlink(m_outer.getPath("kept"), m_outer.getPath(name + "/link"));
  removeAbandoned(m_folder.get());
  EXPECT_FALSE(isThere(name));
  EXPECT_TRUE(isThere("kept/page.svg"));
}

TEST(StagingOwner, IsReadFromTheNameThatItMakes) {
  StagingOwner const owner = getStagingOwner();
  EXPECT_EQ(parseStagingName(makeStagingName(owner, 12)), owner);
  EXPECT_EQ(findOwnerState(owner), OwnerState::Alive);
}

TEST(StagingOwner, OfAnotherHostIsNotKnown) {
  StagingOwner owner = getStagingOwner();
  owner.m_host = "elsewhere." + owner.m_host;
  EXPECT_EQ(findOwnerState(owner), OwnerState::Unknown);
}

}  // namespace

}  // namespace qvToolkit
