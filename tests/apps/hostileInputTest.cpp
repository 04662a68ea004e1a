#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>

#include "qvToolkit/findings/exitCode.h"
#include "tests/hostile/hostileDocuments.h"
#include "toolRunner.h"

namespace qvTest {

namespace {

using namespace qvToolkit;

/// The budget of a small document and what the tool itself takes.
constexpr std::uint64_t MaxPeakMiB = 256 + 16;
constexpr double MaxSeconds = 5;

/// What documents can do to the tool, each as a file and a run.
class HostileInput : public testing::Test {
 protected:
  ToolRun inspect(std::string const& content, std::vector<std::string> const& more = {}) const {
    std::vector<std::string> arguments = {"inspect", m_place.write("bad", content)};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return runTool(arguments);
  }
  ToolRun migrate(std::string const& content, std::vector<std::string> const& more = {}) const {
    std::vector<std::string> arguments = {"migrate", m_place.write("bad", content), "-o",
                                          m_place.getPath("out")};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return runTool(arguments);
  }
  static void expectBounded(ToolRun const& run, std::string const& what) {
    EXPECT_GE(run.m_exitCode, 0) << what << ": a signal";
    EXPECT_NE(run.m_exitCode, ExitBug) << what;
    if (MeasuresMemory) {
      EXPECT_LT(run.m_peakMiB, MaxPeakMiB) << what;
    }
    EXPECT_LT(run.m_seconds, MaxSeconds) << what;
    EXPECT_EQ(run.m_errors.find("worker."), std::string::npos) << what << run.m_errors;
  }
  static void expectLimit(ToolRun const& run, std::string const& code, std::string const& option) {
    EXPECT_EQ(run.m_exitCode, ExitLimit) << run.m_errors.substr(0, 500);
    EXPECT_NE(run.m_errors.find("[" + code), std::string::npos) << run.m_errors.substr(0, 500);
    EXPECT_NE(run.m_errors.find(option), std::string::npos);
    EXPECT_EQ(run.m_output, "");
  }
  Workplace m_place;
};

/// One count field of a document with a number that nobody has.
class HostileCount : public HostileInput, public testing::WithParamInterface<std::uint32_t> {};

TEST_P(HostileCount, OfAnyFieldStaysWithinTheBudgets) {
  std::uint32_t const version = GetParam();
  auto const document = qvHostile::makeCountedDocument(version);
  // A small budget, so that those who fill it are quick.
  std::vector<std::string> arguments = {"inspect", "--max-memory", "32M"};
  for (auto const& field : document.m_counts) {
    std::string const name = std::to_string(field.m_offset) + " " + field.m_name;
    for (std::uint32_t const count : {0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU, 0x0FFFFFFFU, 2U}) {
      std::string const number = " " + std::to_string(count);
      arguments.push_back(m_place.write(name + number, qvHostile::replaceCount(document, field, count)));
      arguments.push_back(
          m_place.write(name + number + " cut", qvHostile::cutBehindCount(document, field, count)));
    }
  }
  ToolRun const run = runTool(arguments);
  EXPECT_EQ(run.m_exitCode, ExitLimit);
  if (MeasuresMemory) {
    EXPECT_LT(run.m_peakMiB, 32U + 16U);
  }
  EXPECT_EQ(run.m_errors.find("worker."), std::string::npos) << run.m_errors;
  EXPECT_NE(run.m_errors.find("limit.memory"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(At, HostileCount, testing::Values(qvHostile::v6_16, qvHostile::v6_27),
                         [](auto const& version) { return std::to_string(version.param & 0xFFFFU); });

TEST_F(HostileInput, ThatAnnouncesGigabytesIsRefusedBeforeTheyAreTouched) {
  auto const document = qvHostile::makeCountedDocument(qvHostile::v6_22);
  for (auto const& field : document.m_counts) {
    if (field.m_name != "leaders" && field.m_name != "measures" && field.m_name != "view name") continue;
    ToolRun const run = inspect(qvHostile::cutBehindCount(document, field, 0x7FFFFFFF));
    expectLimit(run, "limit.memory", "--max-memory");
    expectBounded(run, field.m_name);
    if (MeasuresMemory) {
      EXPECT_LT(run.m_peakMiB, 64U) << field.m_name;
    }
  }
}

TEST_F(HostileInput, WithTextsAndRastersBeyond32BitsIsRefusedInOneSum) {
  ToolRun const run = inspect(qvHostile::makePhantoms(0xFFFFFFFF, 1));
  expectLimit(run, "limit.memory", "--max-memory");
}

TEST_F(HostileInput, ThatAnnouncesEndlessTextsEndsByTheFailedReads) {
  ToolRun const run = inspect(qvHostile::makePhantoms(20000000, 0));
  expectLimit(run, "limit.failed-reads", "--max-failed-reads");
  expectBounded(run, "phantoms");
}

TEST_F(HostileInput, NestedAMillionTimesEndsByTheStack) {
  for (std::size_t const levels : {40000U, 1000000U}) {
    ToolRun const run = inspect(qvHostile::makeNestedStream(levels));
    expectLimit(run, "limit.stack", "--max-stack");
    EXPECT_EQ(inspect(qvHostile::makeNestedJson(levels)).m_exitCode, ExitLimit);
  }
}

TEST_F(HostileInput, OfEvenAMillionOpenBracketsIsRefused) {
  ToolRun const run = inspect(std::string(1000000, '['));
  expectLimit(run, "json.too-deep", "--max-json-depth");
  EXPECT_EQ(inspect("{\"views\":[]}", {"--max-json-depth", "1"}).m_exitCode, ExitLimit);
}

TEST_F(HostileInput, IsMigratedDownTo200LevelsOfSubAnnotations) {
  EXPECT_EQ(migrate(qvHostile::makeNestedStream(200)).m_exitCode, ExitDone);
  ToolRun const run = migrate(qvHostile::makeNestedStream(201), {"--force"});
  EXPECT_EQ(run.m_exitCode, ExitLimit);
  EXPECT_NE(run.m_errors.find("[limit.depth, view/0/annot/0, --max-depth]"), std::string::npos)
      << run.m_errors;
  EXPECT_EQ(migrate(qvHostile::makeNestedStream(201), {"--force", "--max-depth", "201"}).m_exitCode,
            ExitDone);
  std::string const input = m_place.write("deep", qvHostile::makeNestedStream(201));
  EXPECT_EQ(runTool({"encode", input, "-o", m_place.getPath("e.qvs"), "--stream-version", "6.22"}).m_exitCode,
            ExitLimit);
  EXPECT_EQ(runTool({"transform", input, "-o", m_place.getPath("t.qvs"), "--scale", "2"}).m_exitCode,
            ExitLimit);
  EXPECT_EQ(m_place.read("e.qvs") + m_place.read("t.qvs"), "");
}

TEST_F(HostileInput, OfAMillionWrongLinesIsReportedInAHundredLines) {
  ToolRun const run = inspect(qvHostile::makeWrongLines(1000000));
  EXPECT_EQ(run.m_exitCode, ExitFindings);
  EXPECT_LE(std::count(run.m_errors.begin(), run.m_errors.end(), '\n'), 102);
  EXPECT_NE(run.m_errors.find("(999900 more times) [reader.repeated, view/0]"), std::string::npos);
}

TEST_F(HostileInput, WhoseResultsGrowTooLargeLeavesNone) {
  ToolRun const run = migrate(qvHostile::makeLeaders(2000), {"--max-output", "100K"});
  expectLimit(run, "limit.output", "--max-output");
  EXPECT_TRUE(m_place.list("out").empty());
  ToolRun const file = migrate(qvHostile::makeLeaders(2000), {"--max-output-file", "100K"});
  expectLimit(file, "limit.output", "--max-output-file");
  EXPECT_TRUE(m_place.list("out").empty());
  ToolRun const shown = inspect(qvHostile::makeNestedStream(190), {"--max-output", "1K"});
  EXPECT_EQ(shown.m_exitCode, ExitLimit);
  EXPECT_EQ(shown.m_output, "") << "half a result would look whole";
}

TEST_F(HostileInput, OfAHundredThousandTextsTakesNoMemoryForTheSizeOfItsResults) {
  std::string const content = qvHostile::makeManyTexts(20000);
  ToolRun const run = migrate(content);
  EXPECT_EQ(run.m_exitCode, ExitDone);
  if (MeasuresMemory) {
    EXPECT_LT(run.m_peakMiB, 150U);
  }
}

TEST_F(HostileInput, IsRefusedWithTheNameTheValueThePlaceAndTheOptionOfTheLimit) {
  struct Case {
    std::string m_content;
    std::string m_option;
    std::string m_value;
    std::string m_text;
    std::string m_notes;
  };
  auto const counted = qvHostile::makeCountedDocument(qvHostile::v6_22);
  auto const isLeaders = [](auto const& field) { return field.m_name == "leaders"; };
  auto const leaders = std::ranges::find_if(counted.m_counts, isLeaders);
  std::string const document = makeDocument();
  std::string const view = document.substr(10, document.size() - 12);
  Case const cases[] = {
      {qvHostile::cutBehindCount(counted, *leaders, 0x0FFFFFFF), "--max-memory", "33554432",
       ": error: byte " + std::to_string(leaders->m_offset + 4) + ": the document needs more memory",
       "[limit.memory, --max-memory]"},
      {qvHostile::makeWrongLines(100000), "--max-memory", "14680064", "",
       "[limit.memory, view/0, --max-memory]"},
      {qvHostile::makePhantoms(100, 0), "--max-failed-reads", "77",
       "byte 103: ", "[limit.failed-reads, --max-failed-reads]"},
      {qvHostile::makeNestedStream(1000), "--max-stack", "32768", "byte ", "[limit.stack, --max-stack]"},
      {qvHostile::makeNestedJson(10), "--max-json-depth", "12", "expected at most 12",
       "[json.too-deep, --max-json-depth]"},
      {makeDocument(), "--max-input", "100", "", "[input.too-large, --max-input]"},
      {qvHostile::makeNestedStream(5), "--max-depth", "4", "more than 4 levels",
       "[limit.depth, view/0/annot/0, --max-depth]"},
      {qvHostile::makeManyTexts(9), "--max-nodes", "8", "more than 8 annotations",
       "[limit.nodes, view/0, --max-nodes]"},
      {"[" + view + "," + view + "]", "--max-views", "1", "has 2 views",
       "[limit.views, view/1, --max-views]"},
      {makeDocument(), "--max-output", "500", "", "[limit.output, --max-output]"},
      {makeDocument(), "--max-output-file", "500", "'", "[limit.output, --max-output-file]"},
  };
  for (Case const& limit : cases) {
    ToolRun const run = migrate(limit.m_content, {"--force", limit.m_option, limit.m_value});
    EXPECT_EQ(run.m_exitCode, ExitLimit) << limit.m_option << ": " << run.m_errors;
    EXPECT_NE(run.m_errors.find(limit.m_value), std::string::npos) << limit.m_option << ": " << run.m_errors;
    EXPECT_NE(run.m_errors.find(limit.m_text), std::string::npos) << limit.m_option << ": " << run.m_errors;
    EXPECT_NE(run.m_errors.find(limit.m_notes), std::string::npos) << limit.m_option << ": " << run.m_errors;
    EXPECT_EQ(run.m_output.find("view-0000"), std::string::npos) << limit.m_option;
  }
  ToolRun const shown = inspect(qvHostile::makeManyTexts(100), {"--max-output", "500"});
  EXPECT_NE(
      shown.m_errors.find("/bad: error: the result is larger than the limit of 500 bytes; nothing is shown "
                          "[limit.output, --max-output]"),
      std::string::npos)
      << shown.m_errors;
}

TEST_F(HostileInput, ThatNamesAFontOfMegabytesIsToldInShortLines) {
  std::string document = qvHostile::makeNestedStream(0);
  // It ends with the size of the name, a height and a number of lines.
  document.resize(document.size() - 8);
  std::uint32_t const size = 4U << 20U;
  std::memcpy(document.data() + document.size() - sizeof(size), &size, sizeof(size));
  ToolRun const run = migrate(document);
  EXPECT_EQ(run.m_exitCode, ExitFindings) << run.m_errors.substr(0, 500);
  EXPECT_NE(run.m_errors.find("... (4194304 bytes)' is drawn with"), std::string::npos);
  EXPECT_LT(run.m_errors.size(), 10000U);
}

TEST_F(HostileInput, TellsItsLimitBehindMoreMessagesThanAreShown) {
  std::string views;
  for (int i = 0; i < 101; ++i) {
    std::string version;
    for (int c = 0; c < 2000; ++c) version += R"(\u0001)";
    views += (i == 0 ? R"({"ver":")" : R"(,{"ver":")") + version + std::to_string(i) + R"(","name":")" +
             version + "\"}";
  }
  ToolRun const run = migrate("[" + views + "]", {"--max-output", "10"});
  EXPECT_EQ(run.m_exitCode, ExitLimit);
  EXPECT_LT(run.m_errors.size(), std::size_t{1} << 20);
  EXPECT_NE(run.m_errors.find("there are more messages than are shown"), std::string::npos)
      << run.m_errors.size();
  EXPECT_TRUE(run.m_errors.ends_with(" [limit.output, --max-output]\n"));
}

TEST_F(HostileInput, TellsALimitThatIsShorterThanItsMessage) {
  for (std::string const command : {"inspect", "migrate"}) {
    std::vector<std::string> const more = {"--max-output-file", "50"};
    ToolRun const run = command == "inspect" ? inspect(makeDocument(), more) : migrate(makeDocument(), more);
    expectLimit(run, "limit.output", "--max-output-file");
    EXPECT_NE(run.m_errors.find(" larger than the limit of 50 bytes; nothing is "), std::string::npos)
        << run.m_errors;
  }
}

TEST_F(HostileInput, OfMoreViewsThanMayBecomeFilesMakesNone) {
  std::string views;
  for (int i = 0; i < 10001; ++i) views += i == 0 ? R"({"ver":"6.27"})" : R"(,{"ver":"6.27"})";
  ToolRun const run = migrate("[" + views + "]");
  expectLimit(run, "limit.views", "--max-views");
  EXPECT_TRUE(m_place.list("out").empty());
}

TEST_F(HostileInput, LargerThanTheLimitIsNotRead) {
  ToolRun const run = inspect(makeDocument(), {"--max-input", "100"});
  expectLimit(run, "input.too-large", "--max-input");
}

TEST_F(HostileInput, DoesNoHarmToTheOthersOfOneRun) {
  std::string const good = m_place.write("good.json", makeDocument());
  std::string const also = m_place.write("also.json", makeDocument());
  std::string const deep = m_place.write("deep.qvs", qvHostile::makeNestedStream(40000));
  std::string const large = m_place.write("large.qvs", qvHostile::makePhantoms(0xFFFFFFFF, 1));
  ToolRun const run = runTool({"migrate", good, deep, large, also, "-o", m_place.getPath("out")});
  EXPECT_EQ(run.m_exitCode, ExitLimit);
  EXPECT_EQ(m_place.list("out").size(), 4U) << "pages and models of the good ones";
}

TEST_F(HostileInput, HasItsPlaceInTheJsonOfAllInputs) {
  std::string const good = m_place.write("good.json", makeDocument());
  std::string const deep = m_place.write("deep.qvs", qvHostile::makeNestedStream(40000));
  for (std::vector<std::string> const& more : std::vector<std::vector<std::string>>{{}, {"--full"}}) {
    std::vector<std::string> arguments = {"inspect", "--json", good, deep, good};
    arguments.insert(arguments.end(), more.begin(), more.end());
    ToolRun const run = runTool(arguments);
    EXPECT_EQ(run.m_exitCode, ExitLimit);
    EXPECT_TRUE(run.m_output.starts_with("{\"format\":\"qvannot.inspect"));
    EXPECT_TRUE(run.m_output.ends_with("}\n]}\n"));
    EXPECT_NE(run.m_output.find("limit.stack"), std::string::npos);
    EXPECT_NE(run.m_output.find("good.json"), run.m_output.rfind("good.json"));
  }
}

TEST_F(HostileInput, MeansNothingToTheResultsOfGoodOnes) {
  std::string const good = m_place.write("good.json", makeDocument());
  for (std::vector<std::string> arguments : std::vector<std::vector<std::string>>{
           {"inspect", good, good}, {"inspect", "--json", good, good}, {"fonts", "--json", good}}) {
    ToolRun const run = runTool(arguments);
    arguments.push_back("--limits=none");
    ToolRun const trusted = runTool(arguments);
    EXPECT_EQ(run.m_output, trusted.m_output);
    EXPECT_EQ(run.m_errors, trusted.m_errors);
    EXPECT_EQ(run.m_exitCode, trusted.m_exitCode);
  }
}

TEST_F(HostileInput, IsTakenAsItIsWhenTheLimitsAreLifted) {
  std::string const content = qvHostile::makePhantoms(200000, 0);
  EXPECT_EQ(inspect(content).m_exitCode, ExitLimit);
  EXPECT_EQ(inspect(content, {"--limits=none"}).m_exitCode, ExitFindings);
  EXPECT_EQ(inspect(content, {"--limits=none", "--max-failed-reads", "10"}).m_exitCode, ExitLimit);
}

TEST(LimitOptions, TakeSizesWithALetter) {
  Workplace const place;
  std::string const good = place.write("good.json", makeDocument());
  for (char const* size : {"1048576", "1024K", "1M", "1G", "1T"}) {
    EXPECT_EQ(runTool({"inspect", good, "--max-input", size}).m_exitCode, ExitDone) << size;
  }
  for (char const* size :
       {"", "M", "1.5M", "-1", "1m", "1MB", "0x10", "99999999999999999999", "18446744073709551615K"}) {
    EXPECT_EQ(runTool({"inspect", good, "--max-input", size}).m_exitCode, ExitUsage) << size;
  }
  EXPECT_EQ(runTool({"inspect", good, "--max-depth", "1K"}).m_exitCode, ExitUsage);
  EXPECT_EQ(runTool({"inspect", good, "--limits", "some"}).m_exitCode, ExitUsage);
}

TEST_F(HostileInput, ThatIsAPipeWithoutEndEndsByItsSize) {
  ToolSetting setting;
  setting.m_input = std::string(300000, ' ');
  ToolRun const run = runTool({"inspect", "-", "--max-input", "200000"}, setting);
  expectLimit(run, "input.too-large", "--max-input");
}

TEST_F(HostileInput, WithAnImageBeyondTheLimitIsReportedAsSuch) {
  static_cast<void>(m_place.write("images/mark.png", std::string(2000, 'x')));
  ToolRun const run = migrate(qvHostile::makeManyRasters(2, "mark.png"),
                              {"--rasters", m_place.getPath("images"), "--max-raster", "1K"});
  EXPECT_EQ(run.m_exitCode, ExitLimit);
  EXPECT_NE(run.m_errors.find("[limit.raster, view/0/annot/0, --max-raster]"), std::string::npos)
      << run.m_errors;
}

}  // namespace

}  // namespace qvTest
