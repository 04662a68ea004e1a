#include <gtest/gtest.h>

#include <algorithm>

#include "qvToolkit/findings/exitCode.h"
#include "toolRunner.h"

namespace qvTest {

namespace {

using namespace qvToolkit;

struct NumberOption {
  std::string m_command;
  std::string m_name;
  std::string m_least;
  std::string m_most;
  std::vector<std::string> m_senseless;
};

/// The words that no option with a number takes are added to each row.
NumberOption const NumberOptions[] = {
    {"migrate",
     "--head-size",
     "0.001",
     "1000",
     {"0", "-0", "inf", "-inf", "1e-45", "1e38", "1e999", "1000.5", "0x3"}},
    {"migrate", "--dpi", "10", "2400", {"0", "9", "2401", "0x96", "72.5"}},
    {"inspect", "--max-memory", "1M", "1048576T", {"0", "1048575", "1023K", "1048577T"}},
    {"inspect", "--max-time", "1", "1000000000", {"0", "1000000001", "1K", "0.5"}},
    {"inspect", "--max-input", "1", "1048576T", {"0", "0K"}},
    {"inspect", "--max-failed-reads", "0", "1000000000000", {"1000000000001", "1K"}},
    {"inspect", "--max-stack", "16K", "1048576T", {"0", "16383"}},
    {"inspect", "--max-json-depth", "1", "1000000", {"0", "1000001"}},
    {"migrate", "--max-depth", "0", "1000000000000", {"1K"}},
    {"migrate", "--max-nodes", "1", "1000000000000", {"0"}},
    {"migrate", "--max-output", "1", "1048576T", {"0"}},
    {"migrate", "--max-output-file", "1", "1048576T", {"0"}},
    {"migrate", "--max-raster", "1", "1048576T", {"0"}},
    {"migrate", "--max-views", "1", "1000000000000", {"0"}},
    {"encode",
     "--stream-version",
     "6.13",
     "6.27",
     {"0", "6", "6.12", "6.28", "7.0", "6.2", "6.022", "06.22", "6.22.1"}},
    {"dump", "--at", "0", "18446744073709551615", {"0x", "0x10000000000000000", "18446744073709551616"}},
};

class NumberOptionsOfTheTool : public testing::Test {
 protected:
  ToolRun run(NumberOption const& option, std::string const& word) const {
    std::vector<std::string> arguments{option.m_command, m_document, option.m_name, word};
    if (option.m_command == "migrate")
      arguments.insert(arguments.end(), {"--force", "-o", m_place.getPath("out")});
    if (option.m_command == "encode")
      arguments.insert(arguments.end(), {"--force", "-o", m_place.getPath("out.qvs")});
    return runTool(arguments);
  }

  Workplace m_place;
  std::string m_document = m_place.write("plain.json", makeDocument());
};

TEST_F(NumberOptionsOfTheTool, RefuseWhatHasNoSenseAndNameTheirRange) {
  for (NumberOption const& option : NumberOptions) {
    std::vector<std::string> words = option.m_senseless;
    words.insert(words.end(), {"", " ", "nan", "-8", "-1", "+1", "1 ", "one", "99999999999999999999999"});
    for (std::string const& word : words) {
      ToolRun const refused = run(option, word);
      std::string const beginning = "qvannot: " + option.m_name + ": '" + word + "' is no ";
      std::string const range = " from " + option.m_least + " to " + option.m_most;
      EXPECT_EQ(refused.m_exitCode, ExitUsage) << option.m_name << " " << word;
      EXPECT_TRUE(refused.m_errors.starts_with(beginning)) << refused.m_errors;
      EXPECT_NE(refused.m_errors.find(range), std::string::npos) << refused.m_errors;
    }
  }
  EXPECT_FALSE(
      std::ranges::any_of(m_place.list("."), [](auto const& name) { return name.starts_with("out"); }));
}

TEST_F(NumberOptionsOfTheTool, TakeBothEndsOfTheirRange) {
  for (NumberOption const& option : NumberOptions) {
    for (std::string const& word : {option.m_least, option.m_most}) {
      EXPECT_NE(run(option, word).m_exitCode, ExitUsage) << option.m_name << " " << word;
    }
  }
}

}  // namespace

}  // namespace qvTest
