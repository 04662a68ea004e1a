#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <thread>

#include "qvToolkit/findings/exitCode.h"
#include "tests/hostile/hostileDocuments.h"
#include "toolRunner.h"

namespace qvTest {

namespace {

using namespace qvToolkit;

/// What stands in place of a document, an image or a reader, and names that lead elsewhere.
class HostileFile : public testing::Test {
 protected:
  /// Each command refuses the path at once, with this reason and without a result.
  static void expectRefused(std::string const& path, ExitCode code, std::string const& reason) {
    Workplace const place;
    for (std::vector<std::string> arguments : std::vector<std::vector<std::string>>{
             {"inspect", path},
             {"fonts", path},
             {"dump", path},
             {"migrate", path, "-o", place.getPath("out")},
             {"encode", path, "-o", place.getPath("e.qvs"), "--stream-version", "6.22"},
             {"transform", path, "-o", place.getPath("t.qvs"), "--scale", "2"}}) {
      ToolRun const run = runTool(arguments);
      EXPECT_EQ(run.m_exitCode, code) << arguments[0] << ": " << run.m_errors;
      EXPECT_NE(run.m_errors.find(reason), std::string::npos) << arguments[0] << ": " << run.m_errors;
      EXPECT_EQ(run.m_output, "");
      EXPECT_LT(run.m_seconds, 2);
      EXPECT_TRUE(!MeasuresMemory || run.m_peakMiB < 64U) << run.m_peakMiB;
    }
    EXPECT_TRUE(place.list(".").empty());
  }
  /// Every file below the workplace, by its path from there.
  std::vector<std::string> listAll() const {
    std::filesystem::path const root = m_place.getPath("");
    std::vector<std::string> paths;
    for (auto const& entry : std::filesystem::recursive_directory_iterator(root)) {
      if (!entry.is_directory()) paths.push_back(entry.path().lexically_relative(root));
    }
    return paths;
  }
  Workplace m_place;
};

TEST_F(HostileFile, ThatIsAFolderIsRefused) {
  expectRefused(m_place.getPath("."), ExitInputUnreadable, "it is a directory");
}

TEST_F(HostileFile, ThatIsAPipeWithoutWriterIsNotWaitedFor) {
  ASSERT_EQ(mkfifo(m_place.getPath("pipe").c_str(), 0600), 0);
  expectRefused(m_place.getPath("pipe"), ExitInputUnreadable, "it is a pipe");
}

TEST_F(HostileFile, ThatIsAnEndlessDeviceIsRefused) {
  expectRefused("/dev/zero", ExitInputUnreadable, "it is a device");
}

TEST_F(HostileFile, OfATerabyteOfHolesIsRefusedBeforeItIsRead) {
  std::string const path = m_place.write("sparse.json", "");
  ASSERT_EQ(truncate(path.c_str(), off_t{1} << 40), 0);
  expectRefused(path, ExitLimit, "[input.too-large, --max-input]");
}

TEST_F(HostileFile, ThatComesAsEndlessStandardInputEndsByItsSize) {
  ASSERT_EQ(mkfifo(m_place.getPath("pipe").c_str(), 0600), 0);
  std::thread writer([&] {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    int const pipe = open(m_place.getPath("pipe").c_str(), O_WRONLY);
    std::string const blanks(65536, ' ');
    while (write(pipe, blanks.data(), blanks.size()) > 0) {
    }
    close(pipe);
  });
  ToolSetting setting;
  setting.m_standardInput = m_place.getPath("pipe");
  ToolRun const run = runTool({"inspect", "-", "--max-input", "20M"}, setting);
  writer.join();
  EXPECT_EQ(run.m_exitCode, ExitLimit);
  EXPECT_NE(run.m_errors.find("[input.too-large, --max-input]"), std::string::npos) << run.m_errors;
  EXPECT_TRUE(!MeasuresMemory || run.m_peakMiB < 96U) << run.m_peakMiB;
}

/// Names that file systems, shells and browsers mind; each is tried in every place that a document has.
std::vector<std::string> makeNastyNames() {
  std::vector<std::string> names = {"../../x", "..",   ".",       "/etc/passwd", "//x",
                                    "a/b",     "a\\b", "-rf",     "--force",     ".hidden",
                                    "",        " ",    "x ",      "x.",          "~",
                                    "~root",   "*",    "?",       "$HOME",       "`id`",
                                    "$(id)",   ";ls",  "|cat",    "&",           "<x>",
                                    "\"",      "'",    "%00",     "%2e",         "a:b",
                                    "con",     "NUL",  "aux.svg", "COM1",        "view-0000.svg"};
  for (char const* name :
       {"\\u0000", "a\\u0000.svg", "\\n", "\\r\\n", "\\t", "\\u001b[2J", "\\u007f", "\\u0085",
        "\\u202egvs.exe", "\\u2028", "\\ufeff", "\\ufffe", "\\ud800", "\\u00e9", "e\\u0301"}) {
    names.emplace_back(name);
  }
  for (char const letter : {'K', 'k'}) names.emplace_back(1, letter);
  while (names.size() < 99) names.push_back("../" + names[names.size() % 30]);
  names.emplace_back(300, 'a');
  return names;
}

std::string quote(std::string name) {
  for (std::size_t at = 0; (at = name.find_first_of("\"\\", at)) != std::string::npos; at += 2) {
    bool const isEscape = name[at] == '\\' && at + 1 < name.size() && name[at + 1] != 'b';
    if (isEscape) continue;
    name.insert(at, 1, '\\');
  }
  return '"' + name + '"';
}

TEST_F(HostileFile, NamesOfADocumentNeverNameItsResults) {
  std::vector<std::string> const names = makeNastyNames();
  ASSERT_EQ(names.size(), 100U);
  std::string views;
  for (std::string const& name : names) {
    views += (views.empty() ? "" : ",") + (R"({"ver":"6.27","name":)" + quote(name)) +
             R"(,"origin":[0,0,0],"normal":[0,0,1],"axis":[1,0,0],"metadata":{},"annotations":[)" +
             R"({"type":"text","name":)" + quote(name) + R"(,"lines":[[{"text":)" + quote(name) + "}]]}]}";
  }
  std::string const input = m_place.write("in/names.json", "[" + views + "]");
  ToolRun const run = runTool({"migrate", input, "-o", m_place.getPath("deep/down/out")});
  EXPECT_EQ(run.m_exitCode, ExitDone) << run.m_errors;
  EXPECT_EQ(m_place.list("deep/down/out").size(), 101U) << "a page for each view, and the model";
  EXPECT_EQ(listAll().size(), 102U) << "nothing beside them and the input";
  for (std::string const& name : m_place.list("deep/down/out")) {
    EXPECT_TRUE(name.starts_with("names.")) << name;
    EXPECT_EQ(name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789.-"), std::string::npos) << name;
  }
}

TEST_F(HostileFile, NamesOfInputsNameTheirResultsTamely) {
  std::vector<std::string> arguments = {"migrate", "-o", m_place.getPath("out")};
  std::size_t inputs = 0;
  for (std::string const name :
       {"-x.json", ".json", "a b.json", "a\nb.json", "\x1b[2J.json", "\xff.json", "A.json", "a.json",
        "sub/a.json", "sub/..json", "*.json", "$(id).json", "..."}) {
    arguments.push_back(m_place.write("in/" + name, makeDocument()));
    ++inputs;
  }
  ToolRun const run = runTool(arguments);
  EXPECT_EQ(run.m_exitCode, ExitDone) << run.m_errors;
  EXPECT_EQ(m_place.list("out").size(), 2 * inputs);
  EXPECT_EQ(listAll().size(), 3 * inputs);
  for (std::string const& name : m_place.list("out")) {
    EXPECT_TRUE(name.front() != '.' && name.front() != '-') << name;
  }
  std::string const shown = run.m_output + run.m_errors;
  EXPECT_TRUE(
      std::ranges::none_of(shown, [](char c) { return (c >= 0 && c < ' ' && c != '\n') || c == '\xff'; }));
}

TEST_F(HostileFile, NamesOfImagesReachNothingOutsideTheirFolder) {
  static_cast<void>(m_place.write("secret.png", "\x89PNG\r\n\x1a\nsecret"));
  std::string const secret = m_place.getPath("secret.png");
  std::string const images = m_place.getPath("images");
  std::filesystem::create_directories(images + "/sub");
  ASSERT_EQ(symlink("../secret.png", (images + "/link.png").c_str()), 0);
  ASSERT_EQ(symlink("..", (images + "/up").c_str()), 0);
  ASSERT_EQ(symlink("/", (images + "/root").c_str()), 0);
  ASSERT_EQ(mkfifo((images + "/pipe.png").c_str(), 0600), 0);
  std::size_t number = 0;
  for (std::string const& name :
       {secret, "/" + secret, std::string("../secret.png"), std::string("../secret"),
        std::string("sub/../../secret.png"), std::string("./../secret.png"), std::string("link.png"),
        std::string("link"), std::string("up/secret.png"), "root" + secret,
        std::string("sub//../../secret.png"), std::string("/dev/zero"), std::string("root/dev/zero"),
        std::string("/proc/self/environ"), std::string("pipe.png"), std::string("pipe"), std::string("sub"),
        std::string("."), std::string("")}) {
    std::string const folder = "out" + std::to_string(number++);
    ToolRun const run = runTool({"migrate", m_place.write("in.json", qvHostile::makeManyRasters(1, name)),
                                 "-o", m_place.getPath(folder), "--rasters", images});
    EXPECT_EQ(run.m_exitCode, ExitFindings) << name << run.m_errors;
    EXPECT_NE(run.m_errors.find("[raster.unavailable, view/0/annot/0"), std::string::npos) << run.m_errors;
    EXPECT_EQ(m_place.list(folder), std::vector<std::string>{"in.migrated.json"}) << "no page";
    EXPECT_LT(run.m_seconds, 2);
  }
}

TEST_F(HostileFile, HoldsAnImageOnceHoweverManyRastersNameIt) {
  std::string image("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\0\x0a\0\0\0\x0a", 24);
  image.resize(1000000, 'x');
  static_cast<void>(m_place.write("images/mark.png", image));
  std::string const input = m_place.write("in.json", qvHostile::makeManyRasters(20000, "mark.png"));
  ToolRun const run =
      runTool({"migrate", input, "-o", m_place.getPath("out"), "--rasters", m_place.getPath("images")});
  EXPECT_EQ(run.m_exitCode, ExitDone) << run.m_errors.substr(0, 500);
  std::string const page = m_place.read("out/in.view-0000.svg");
  std::size_t const first = page.find("data:image/png;base64,");
  EXPECT_NE(first, std::string::npos);
  EXPECT_EQ(page.find("data:image/png;base64,", first + 1), std::string::npos);
  EXPECT_TRUE(!MeasuresMemory || run.m_peakMiB < 200U) << run.m_peakMiB;
}

}  // namespace

}  // namespace qvTest
