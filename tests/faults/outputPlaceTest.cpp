#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

#include "qvToolkit/files/outputSet.h"
#include "qvToolkit/findings/exitCode.h"
#include "tests/apps/toolRunner.h"

/// Outputs that have no room, may not be written, or would replace their input.
namespace qvFaults {

namespace {

using qvTest::runTool;
using qvTest::ToolRun;
using qvTest::Workplace;

constexpr char const* Example = QVA_EXAMPLES "/binary/leaders_6.27.qvs";

std::string readExample() {
  std::ifstream file(Example, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// What became of a migration to a disk of its own. Exit codes of the process that has the disk.
enum DiskEnd : int { Whole = 0, Absent = 1, Half = 2, NoDisk = 3 };

bool writeFile(char const* path, std::string const& text) {
  std::ofstream file(path);
  file << text << std::flush;
  return file.good();
}

/// A user other than root may mount in a namespace of users only, and has no files there until that knows it.
bool leaveUsers() {
  std::string const user = std::to_string(getuid());
  std::string const group = std::to_string(getgid());
  return unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && writeFile("/proc/self/setgroups", "deny") &&
         writeFile("/proc/self/uid_map", user + ' ' + user + " 1") &&
         writeFile("/proc/self/gid_map", group + ' ' + group + " 1");
}

bool mountDisk(std::string const& path, std::size_t bytes) {
  bool const isApart = unshare(CLONE_NEWNS) == 0 || leaveUsers();
  std::string const options = "size=" + std::to_string(bytes);
  return isApart && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         mount("tmpfs", path.c_str(), "tmpfs", 0, options.c_str()) == 0;
}

DiskEnd migrateTo(Workplace const& place, std::vector<std::string> const& expected) {
  ToolRun const run = runTool({"migrate", Example, "-o", place.getPath("disk")});
  std::vector<std::string> const files = place.list("disk");
  bool const isWhole = files == expected && run.m_exitCode == qvToolkit::ExitDone;
  bool const isAbsent = files.empty() && run.m_exitCode == qvToolkit::ExitOutputFailed &&
                        run.m_errors.find("No space left") != std::string::npos;
  return isWhole ? Whole : isAbsent ? Absent : Half;
}

DiskEnd runOnDisk(std::size_t bytes, std::vector<std::string> const& expected) {
  Workplace const place;
  std::filesystem::create_directories(place.getPath("disk"));
  pid_t const child = fork();
  if (child == 0) _exit(mountDisk(place.getPath("disk"), bytes) ? migrateTo(place, expected) : NoDisk);
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? static_cast<DiskEnd>(WEXITSTATUS(status)) : Half;
}

TEST(OutputPlace, ThatIsFullGetsAllFilesOrNone) {
  Workplace const place;
  ASSERT_EQ(runTool({"migrate", Example, "-o", place.getPath("out")}).m_exitCode, qvToolkit::ExitDone);
  std::vector<std::string> const expected = place.list("out");
  std::map<DiskEnd, std::size_t> ends;
  for (std::size_t pages = 1; ends[Whole] == 0 && pages < 64; ++pages) {
    DiskEnd const end = runOnDisk(pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)), expected);
    if (end == NoDisk) GTEST_SKIP() << "no disk can be made here";
    ++ends[end];
    EXPECT_NE(end, Half) << pages << " pages";
  }
  EXPECT_GT(ends[Absent], 3U);
  EXPECT_EQ(ends[Whole], 1U);
}

/// Root may write everywhere: for a while it is nobody in particular.
class WithoutRights {
 public:
  WithoutRights() : m_isAnother(m_user != 0 || seteuid(Nobody) == 0) {}
  ~WithoutRights() { EXPECT_EQ(seteuid(m_user), 0); }
  WithoutRights(WithoutRights const&) = delete;
  WithoutRights& operator=(WithoutRights const&) = delete;
  bool isAnother() const { return m_isAnother; }

 private:
  static constexpr uid_t Nobody = 65534;
  uid_t m_user = geteuid();
  bool m_isAnother;
};

TEST(OutputPlace, ThatMayNotBeWrittenIsToldWithItsReason) {
  Workplace const place;
  std::filesystem::create_directories(place.getPath("out"));
  ASSERT_EQ(chmod(place.getPath("out").c_str(), 0555), 0);
  ASSERT_EQ(chmod(place.getPath(".").c_str(), 0555), 0);
  {
    WithoutRights const rights;
    if (!rights.isAnother()) GTEST_SKIP() << "root that cannot become another user";
    for (char const* const folder : {"out", "out/deeper", "beside"}) {
      qvToolkit::OutputSet set(place.getPath(folder), true);
      EXPECT_FALSE(set.open("a.svg"));
      EXPECT_FALSE(set.commit());
      EXPECT_EQ(set.getProblem().m_code, qvToolkit::FindingCode::OutputFailed);
      EXPECT_NE(set.getProblem().m_text.find("Permission denied"), std::string::npos)
          << set.getProblem().m_text;
    }
  }
  EXPECT_TRUE(place.list("out").empty());
  EXPECT_FALSE(std::filesystem::exists(place.getPath("beside")));
  ASSERT_EQ(chmod(place.getPath(".").c_str(), 0755), 0);
}

/// Runs the command, which must refuse, and looks at the input.
void expectInputKept(Workplace const& place, std::vector<std::string> const& arguments) {
  ToolRun const run = runTool(arguments);
  EXPECT_EQ(run.m_exitCode, qvToolkit::ExitOutputFailed) << run.m_errors;
  EXPECT_NE(run.m_errors.find("is an input and is not replaced"), std::string::npos) << run.m_errors;
  EXPECT_EQ(place.read("in.qvs"), readExample());
}

TEST(OutputPlace, ThatIsTheInputIsRefusedUnderAnyOfItsNames) {
  Workplace const place;
  std::string const input = place.write("in.qvs", readExample());
  ASSERT_EQ(link(input.c_str(), place.getPath("hard.qvs").c_str()), 0);
  ASSERT_EQ(symlink("in.qvs", place.getPath("soft.qvs").c_str()), 0);
  ASSERT_EQ(link(input.c_str(), place.getPath("in.migrated.json").c_str()), 0);
  for (char const* const name : {"in.qvs", "hard.qvs", "soft.qvs", "./in.qvs"}) {
    std::string const output = place.getPath(name);
    expectInputKept(place, {"encode", input, "--stream-version", "6.27", "--force", "-o", output});
    expectInputKept(place, {"transform", input, "--translate", "1", "0", "0", "--stream-version", "6.27",
                            "--force", "-o", output});
  }
  expectInputKept(place, {"migrate", input, "--force", "-o", place.getPath(".")});
  EXPECT_EQ(place.list("."),
            (std::vector<std::string>{"hard.qvs", "in.migrated.json", "in.qvs", "soft.qvs"}));
}

}  // namespace

}  // namespace qvFaults
