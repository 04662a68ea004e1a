#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "findingSamples.h"
#include "qvToolkit/findings/finding.h"
#include "toolRunner.h"

namespace qvTest {

namespace {

using namespace qvToolkit;

/// What no document brings about by itself; the tests of the worker and of the limits do.
constexpr FindingCode CodesOfDeath[] = {FindingCode::LimitTime, FindingCode::WorkerCrashed,
                                        FindingCode::WorkerKilled, FindingCode::WorkerGarbage};

ToolRun run(FindingSample const& sample, Workplace const& place) {
  bool const isFile = sample.m_command == "encode" || sample.m_command == "transform";
  std::vector<std::string> arguments = {sample.m_command, place.getPath("p.json")};
  if (sample.m_code != FindingCode::InputUnreadable)
    static_cast<void>(place.write("p.json", sample.m_content));
  if (isFile) arguments.insert(arguments.end(), {"-o", place.getPath("out.qvs")});
  bool const hasFolder = std::ranges::find(sample.m_options, "-o") != sample.m_options.end();
  if (sample.m_command == "migrate" && !hasFolder)
    arguments.insert(arguments.end(), {"-o", place.getPath("out")});
  for (std::string const& option : sample.m_options)
    arguments.push_back(option == "HERE" ? place.getPath("") : option);
  // Of two runs the second one finds what the first one wrote.
  if (sample.m_code == FindingCode::OutputExists) static_cast<void>(runTool(arguments));
  return runTool(arguments);
}

TEST(FindingCodes, AreEachToldOfADocumentThatHasIt) {
  for (FindingSample const& sample : getFindingSamples()) {
    std::string const code(getCodeText(sample.m_code));
    ToolRun const result = run(sample, Workplace());
    bool const isTold = result.m_errors.find("[" + code + "]") != std::string::npos ||
                        result.m_errors.find("[" + code + ", ") != std::string::npos;
    EXPECT_TRUE(isTold) << code << ": " << result.m_errors.substr(0, 500);
    if (getRow(sample.m_code).m_class <= FindingClass::Lost) continue;
    EXPECT_EQ(result.m_exitCode, getExitCode(sample.m_code)) << code;
  }
}

TEST(FindingCodes, AreAllProducedByATest) {
  std::set<FindingCode> produced(std::begin(CodesOfDeath), std::end(CodesOfDeath));
  for (FindingSample const& sample : getFindingSamples()) {
    EXPECT_TRUE(produced.insert(sample.m_code).second) << getCodeText(sample.m_code) << " has two samples";
  }
  for (CatalogueRow const& row : getCatalogue()) {
    EXPECT_TRUE(produced.contains(row.m_code)) << row.m_text << " has no document that brings it about";
  }
}

}  // namespace

}  // namespace qvTest
