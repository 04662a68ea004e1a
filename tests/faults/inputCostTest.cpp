#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/syscall.h>

#include "tests/apps/toolRunner.h"
#include "tracedTool.h"

/// What one more input costs, counted in system calls: the same however many there are already.
namespace qvFaults {

namespace {

constexpr std::uint32_t FontFiles = 40;

class InputCost : public testing::Test {
 protected:
  /// Fonts are configured by as many files as a system has, and by none of the system's own. There are none.
  InputCost() {
    std::string files = "<fontconfig><dir>" + m_place.getPath("fonts") + "</dir><cachedir>" +
                        m_place.getPath("cache") + "</cachedir>";
    for (std::uint32_t i = 0; i < FontFiles; ++i) {
      std::string const name = "part" + std::to_string(i) + ".conf";
      files += "<include>" + m_place.write(name, "<fontconfig></fontconfig>") + "</include>";
    }
    setenv("FONTCONFIG_FILE", m_place.write("fonts.conf", files + "</fontconfig>").c_str(), 1);
  }
  ~InputCost() override { unsetenv("FONTCONFIG_FILE"); }

  /// The calls of a command over so many inputs, all of one name.
  std::uint32_t count(long call, std::vector<std::string> arguments, std::size_t inputs) const {
    for (std::size_t i = 0; i < inputs; ++i) {
      arguments.push_back(m_place.write(std::to_string(i) + "/drawing.json", qvTest::makeDocument()));
    }
    qvTest::Workplace const folder;
    std::uint32_t const calls = countCalls(call, arguments, folder.getPath("."));
    EXPECT_GT(calls, 0U);
    return calls;
  }

  qvTest::Workplace m_place;
};

TEST_F(InputCost, OfProtectingInputsFromResultsIsTheSameForEach) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "the leak check traces the process itself, which then cannot be traced by another";
#endif
  std::vector<std::string> const migrate = {"migrate", "-o", "out"};
  std::uint32_t const ten = count(SYS_newfstatat, migrate, 10);
  std::uint32_t const twenty = count(SYS_newfstatat, migrate, 20);
  std::uint32_t const thirty = count(SYS_newfstatat, migrate, 30);
  EXPECT_EQ(thirty - twenty, twenty - ten);
}

TEST_F(InputCost, HoldsNoLookForFontsBeyondTheFirstInput) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "the leak check traces the process itself, which then cannot be traced by another";
#endif
  for (char const* const command : {"fonts", "migrate"}) {
    std::vector<std::string> arguments = {command};
    if (arguments.front() == "migrate") arguments.insert(arguments.end(), {"-o", "out"});
    std::uint32_t const one = count(SYS_openat, arguments, 1);
    std::uint32_t const two = count(SYS_openat, arguments, 2);
    EXPECT_GT(one, FontFiles);
    EXPECT_LT(two - one, FontFiles) << command;
  }
}

TEST_F(InputCost, HoldsNoLookForFontsWhereNothingIsDrawn) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "the leak check traces the process itself, which then cannot be traced by another";
#endif
  std::uint32_t const drawn = count(SYS_openat, {"fonts"}, 2);
  EXPECT_LE(count(SYS_openat, {"inspect"}, 2) + FontFiles, drawn);
}

}  // namespace

}  // namespace qvFaults
