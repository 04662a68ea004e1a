#include "files/outputFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/support/temporaryFolder.h"

namespace qvToolkit {

namespace {

class OutputFolderTest : public testing::Test {
 protected:
  OutputFolderTest() {
    std::filesystem::create_directories(m_outer.getPath("staging"));
    m_staging = FileDescriptor(open(m_outer.getPath("staging").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  }
  void stage(std::string const& name, std::string_view bytes) const {
    m_outer.writeFile("staging/" + name, bytes);
  }
  std::string read(std::string const& name) const { return qvTest::readFile(m_outer.getPath(name)); }
  bool isThere(std::string const& name) const { return std::filesystem::exists(m_outer.getPath(name)); }
  bool place(OutputFolder& folder, std::vector<std::string> const& names) {
    m_files.clear();
    for (std::string const& name : names) m_files.push_back({name, 0, {}});
    return folder.open() && folder.place(m_staging.get(), m_files);
  }

  qvTest::TemporaryFolder m_outer;
  FileDescriptor m_staging;
  std::string m_out = m_outer.getPath("deep/out");
  std::vector<OutputFile> m_files;
};

TEST_F(OutputFolderTest, GivesFilesTheirNamesWithSizesAndHashes) {
  stage("a.svg", "first");
  stage("b.json", "second");
  OutputFolder folder(m_out, false);
  ASSERT_TRUE(place(folder, {"a.svg", "b.json"}));
  EXPECT_EQ(read("deep/out/a.svg"), "first");
  EXPECT_EQ(read("deep/out/b.json"), "second");
  EXPECT_FALSE(isThere("staging/a.svg"));
  EXPECT_EQ(m_files[1].m_size, 6U);
  EXPECT_EQ(m_files[1].m_sha256, "16367aacb67a4a017c8da8ab95682ccb390863780f7114dda0a0e0c55644c7c4");
}

TEST_F(OutputFolderTest, GivesFilesTheModeOfTheUsersMask) {
  stage("a.svg", "first");
  OutputFolder folder(m_out, false);
  mode_t const mask = umask(027);
  bool const isPlaced = place(folder, {"a.svg"});
  umask(mask);
  ASSERT_TRUE(isPlaced);
  struct stat status {};
  ASSERT_EQ(stat((m_out + "/a.svg").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(OutputFolderTest, ReplacesNothingUnlessForced) {
  stage("a.svg", "first");
  stage("b.json", "second");
  m_outer.writeFile("deep/out/b.json", "old");
  OutputFolder careful(m_out, false);
  EXPECT_FALSE(place(careful, {"a.svg", "b.json"}));
  EXPECT_EQ(careful.getProblem().m_code, FindingCode::OutputExists);
  EXPECT_EQ(careful.getProblem().m_text, "'" + m_out + "/b.json' exists; it is not replaced");
  EXPECT_EQ(read("deep/out/b.json"), "old");
  EXPECT_FALSE(isThere("deep/out/a.svg")) << "all or none";
  OutputFolder forced(m_out, true);
  ASSERT_TRUE(place(forced, {"a.svg", "b.json"}));
  EXPECT_EQ(read("deep/out/b.json"), "second");
}

TEST_F(OutputFolderTest, TakesALinkThatLeadsNowhereForAnExistingFile) {
  stage("a.svg", "first");
  OutputFolder folder(m_out, false);
  ASSERT_TRUE(folder.open());
  ASSERT_EQ(symlink("/nowhere/x", (m_out + "/a.svg").c_str()), 0);
  EXPECT_FALSE(place(folder, {"a.svg"}));
  EXPECT_EQ(folder.getProblem().m_code, FindingCode::OutputExists);
}

TEST_F(OutputFolderTest, NeverReplacesWhatIsProtected) {
  stage("a.svg", "first");
  m_outer.writeFile("deep/out/a.svg", "input");
  FileIdentities const inputs({m_out + "/a.svg"});
  OutputFolder folder(m_out, true);
  folder.protect(inputs);
  EXPECT_FALSE(place(folder, {"a.svg"}));
  EXPECT_EQ(folder.getProblem().m_code, FindingCode::OutputFailed);
  EXPECT_EQ(read("deep/out/a.svg"), "input");
}

TEST_F(OutputFolderTest, PlacesNoneWhereOneIsMissing) {
  stage("a.svg", "first");
  OutputFolder folder(m_out, false);
  EXPECT_FALSE(place(folder, {"a.svg", "b.json"}));
  EXPECT_EQ(folder.getProblem().m_text, "cannot write '" + m_out + "/b.json': No such file or directory");
  EXPECT_TRUE(std::filesystem::is_empty(m_out));
}

TEST_F(OutputFolderTest, PlacesNoneWhereANameComesTwice) {
  stage("a.svg", "first");
  OutputFolder folder(m_out, false);
  EXPECT_FALSE(place(folder, {"a.svg", "a.svg"}));
  EXPECT_TRUE(std::filesystem::is_empty(m_out));
}

TEST_F(OutputFolderTest, PlacesRegularFilesOnly) {
  m_outer.writeFile("secret", "text");
  ASSERT_EQ(symlink("../secret", m_outer.getPath("staging/link").c_str()), 0);
  ASSERT_EQ(mkfifo(m_outer.getPath("staging/pipe").c_str(), 0600), 0);
  std::filesystem::create_directories(m_outer.getPath("staging/folder"));
  for (std::string const name : {"link", "pipe", "folder"}) {
    OutputFolder folder(m_out, false);
    EXPECT_FALSE(place(folder, {name})) << name;
    EXPECT_EQ(folder.getProblem().m_code, FindingCode::OutputFailed);
    EXPECT_FALSE(isThere("deep/out/" + name));
  }
}

TEST_F(OutputFolderTest, TakesNoNameThatLeadsElsewhere) {
  m_outer.writeFile("secret", "text");
  stage("sub/a.svg", "first");
  for (std::string const name : {"../secret", "sub/a.svg", "..", ".", "", "/etc/hosts"}) {
    OutputFolder folder(m_out, true);
    EXPECT_FALSE(place(folder, {name})) << name;
    EXPECT_EQ(folder.getProblem().m_code, FindingCode::OutputFailed) << name;
    EXPECT_NE(folder.getProblem().m_text.find("Invalid argument"), std::string::npos)
        << folder.getProblem().m_text;
  }
  EXPECT_EQ(read("secret"), "text");
}

TEST_F(OutputFolderTest, SaysWhenItIsAFile) {
  m_outer.writeFile("deep/out", "x");
  OutputFolder folder(m_out, false);
  EXPECT_FALSE(folder.open());
  EXPECT_NE(folder.getProblem().m_text.find("cannot use the output folder '" + m_out + "'"),
            std::string::npos);
}

TEST(OutputFolder, KnowsThePathOfAFileInIt) {
  EXPECT_EQ(OutputFolder("out", false).getPath("a"), "out/a");
  EXPECT_EQ(OutputFolder("out/", false).getPath("a"), "out/a");
}

}  // namespace

}  // namespace qvToolkit
