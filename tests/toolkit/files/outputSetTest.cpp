#include "qvToolkit/files/outputSet.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "tests/support/exportSupport.h"

namespace qvToolkit {

namespace {

class OutputSetTest : public testing::Test {
 protected:
  std::string out(std::string const& name = {}) const {
    return name.empty() ? m_outer.getPath("out") : m_outer.getPath("out/" + name);
  }
  std::size_t countOutputs() const {
    if (!std::filesystem::exists(out())) return 0;
    auto const entries = std::filesystem::directory_iterator(out());
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
  }
  static bool writeTwo(OutputSet& set) {
    return set.open("a.svg") && set.write("first") && set.open("b.json") && set.write("sec") &&
           set.write("ond");
  }
  qvTest::TemporaryFolder m_outer;
};

TEST_F(OutputSetTest, MakesAllFilesAppearAtOnce) {
  OutputSet set(out(), false);
  ASSERT_TRUE(writeTwo(set));
  EXPECT_FALSE(std::filesystem::exists(out("a.svg")));
  ASSERT_TRUE(set.commit());
  EXPECT_EQ(qvTest::readFile(out("a.svg")), "first");
  EXPECT_EQ(qvTest::readFile(out("b.json")), "second");
  EXPECT_EQ(countOutputs(), 2U);
  EXPECT_EQ(set.getPaths(), (std::vector<std::string>{out("a.svg"), out("b.json")}));
  ASSERT_EQ(set.getFiles().size(), 2U);
  EXPECT_EQ(set.getFiles()[1].m_name, "b.json");
  EXPECT_EQ(set.getFiles()[1].m_size, 6U);
  EXPECT_EQ(set.getFiles()[1].m_sha256, "16367aacb67a4a017c8da8ab95682ccb390863780f7114dda0a0e0c55644c7c4");
}

TEST_F(OutputSetTest, CreatesTheFolderWithItsParents) {
  OutputSet set(out("deep/er"), false);
  ASSERT_TRUE(set.open("a.svg") && set.commit());
  EXPECT_TRUE(std::filesystem::exists(out("deep/er/a.svg")));
}

TEST_F(OutputSetTest, CreatesNoFolderForNothing) {
  { OutputSet const set(out(), false); }
  EXPECT_FALSE(std::filesystem::exists(out()));
}

TEST_F(OutputSetTest, LeavesNothingBehindWhenItIsNotCommitted) {
  {
    OutputSet set(out(), false);
    ASSERT_TRUE(writeTwo(set));
    EXPECT_EQ(countOutputs(), 1U) << "the folder of what is not complete";
  }
  EXPECT_EQ(countOutputs(), 0U);
}

TEST_F(OutputSetTest, RefusesToReplaceAFileUnlessForced) {
  m_outer.writeFile("out/b.json", "old");
  {
    OutputSet set(out(), false);
    EXPECT_FALSE(writeTwo(set));
    EXPECT_EQ(set.getProblem().m_code, FindingCode::OutputExists);
    EXPECT_EQ(set.getProblem().m_options, std::vector{OptionKey::Force});
    EXPECT_FALSE(set.commit());
  }
  EXPECT_EQ(qvTest::readFile(out("b.json")), "old");
  EXPECT_EQ(countOutputs(), 1U);
  OutputSet forced(out(), true);
  ASSERT_TRUE(writeTwo(forced) && forced.commit());
  EXPECT_EQ(qvTest::readFile(out("b.json")), "second");
}

TEST_F(OutputSetTest, TakesBackWhatItNamedWhenALaterNameIsTakenMeanwhile) {
  OutputSet set(out(), false);
  ASSERT_TRUE(writeTwo(set));
  m_outer.writeFile("out/b.json", "somebody else's");
  EXPECT_FALSE(set.commit());
  EXPECT_EQ(set.getProblem().m_code, FindingCode::OutputExists);
  EXPECT_FALSE(std::filesystem::exists(out("a.svg")));
  EXPECT_EQ(qvTest::readFile(out("b.json")), "somebody else's");
}

TEST_F(OutputSetTest, NeverReplacesAnInput) {
  m_outer.writeFile("out/a.svg", "input");
  ASSERT_EQ(link(out("a.svg").c_str(), m_outer.getPath("other-name").c_str()), 0);
  FileIdentities const inputs({m_outer.getPath("nowhere"), m_outer.getPath("other-name")});
  OutputSet set(out(), true);
  set.protect(inputs);
  EXPECT_TRUE(set.open("b.svg"));
  EXPECT_FALSE(set.open("a.svg"));
  EXPECT_EQ(set.getProblem().m_code, FindingCode::OutputFailed);
  EXPECT_EQ(qvTest::readFile(out("a.svg")), "input");
}

TEST_F(OutputSetTest, TakesALinkThatLeadsNowhereForAnExistingFile) {
  std::filesystem::create_directories(out());
  ASSERT_EQ(symlink("/nowhere/x", out("a.svg").c_str()), 0);
  OutputSet set(out(), false);
  EXPECT_FALSE(set.open("a.svg"));
  EXPECT_EQ(set.getProblem().m_code, FindingCode::OutputExists);
}

TEST_F(OutputSetTest, SaysWhenTheFolderIsAFile) {
  m_outer.writeFile("out", "x");
  OutputSet set(out(), false);
  EXPECT_FALSE(set.open("a.svg"));
  EXPECT_EQ(set.getProblem().m_code, FindingCode::OutputFailed);
  EXPECT_NE(set.getProblem().m_text.find(out()), std::string::npos);
}

TEST_F(OutputSetTest, FailsWhenTheFileSystemTakesNoMore) {
  auto* const previous = std::signal(SIGXFSZ, SIG_IGN);
  rlimit old{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
  rlimit small = old;
  small.rlim_cur = 1000;
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  bool isWritten = false;
  {
    OutputSet set(out(), false);
    isWritten = set.open("a.svg") && set.write(std::string(5000, 'x')) && set.commit();
    EXPECT_EQ(set.getProblem().m_code, FindingCode::OutputFailed);
  }
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &old), 0);
  std::signal(SIGXFSZ, previous);
  EXPECT_FALSE(isWritten);
  EXPECT_EQ(countOutputs(), 0U);
}

TEST_F(OutputSetTest, EndsWhenItIsInterrupted) {
  volatile int interrupted = 0;
  {
    OutputSet set(out(), false, &interrupted);
    ASSERT_TRUE(writeTwo(set));
    interrupted = 2;
    EXPECT_FALSE(set.commit());
    EXPECT_FALSE(set.write("x"));
  }
  EXPECT_EQ(countOutputs(), 0U);
}

TEST_F(OutputSetTest, GivesFilesTheModeOfTheUsersMask) {
  mode_t const mask = umask(027);
  OutputSet set(out(), false);
  ASSERT_TRUE(set.open("a.svg") && set.commit());
  umask(mask);
  struct stat status {};
  ASSERT_EQ(stat(out("a.svg").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(OutputSetTest, TakesMoreThanAThousandFiles) {
  OutputSet set(out(), false);
  for (int i = 0; i < 1100; ++i) ASSERT_TRUE(set.open(std::to_string(i))) << set.getProblem().m_text;
  ASSERT_TRUE(set.commit());
  EXPECT_EQ(countOutputs(), 1100U);
}

TEST_F(OutputSetTest, RefusesWhatIsLargerThanItMayBe) {
  struct Case {
    std::uint64_t m_all;
    std::uint64_t m_file;
    OptionKey m_option;
  };
  for (Case const& limit : {Case{10, 100, OptionKey::MaxOutput}, Case{100, 5, OptionKey::MaxOutputFile}}) {
    OutputSet set(out(), false);
    set.limit(limit.m_all, limit.m_file);
    EXPECT_FALSE(writeTwo(set) && set.write("0123"));
    EXPECT_EQ(set.getProblem().m_code, FindingCode::LimitOutput);
    EXPECT_EQ(set.getProblem().m_options, std::vector{limit.m_option});
    EXPECT_FALSE(set.commit());
  }
  EXPECT_EQ(countOutputs(), 0U);
  OutputSet set(out(), false);
  set.limit(11, 6);
  EXPECT_TRUE(writeTwo(set) && set.commit());
}

TEST_F(OutputSetTest, OfAProcessThatDiedIsRemovedAndNothingElse) {
  OutputSet living(out(), false);
  ASSERT_TRUE(writeTwo(living));
  pid_t const child = fork();
  if (child == 0) {
    OutputSet set(out(), false);
    if (writeTwo(set)) raise(SIGKILL);
    _exit(1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(countOutputs(), 2U);
  removeAbandonedOutputs(out());
  removeAbandonedOutputs(out("none"));
  EXPECT_EQ(countOutputs(), 1U);
  EXPECT_TRUE(living.commit());
}

}  // namespace

}  // namespace qvToolkit
