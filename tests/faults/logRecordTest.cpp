#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <iostream>
#include <map>

#include "allocationSweep.h"
#include "exampleDocuments.h"
#include "logRecordGuard.h"
#include "qvToolkit/reading/openDocument.h"
#include "qvToolkit/work/session.h"

/// A log record is written by its destructor, where an exhausted heap ends the process: there, and nowhere
/// else.
namespace qvFaults {

namespace {

/// How a process of its own ended.
enum ChildEnd : int { DoneWell = 0, DoneBadly = 1, NoFailureLeft = 2, EndedInRecord = 3, EndedElsewhere = 4 };

[[noreturn]] void endByTerminate() {
  _exit(isWritingLogRecord() ? EndedInRecord : EndedElsewhere);
}

ChildEnd runInChild(Step const& step, std::string const& expected, Failures failures, std::uint32_t first) {
  pid_t const child = fork();
  if (child == 0) {
    std::set_terminate(endByTerminate);
    FaultyRun const run = runFaulty(step, expected, failures, first);
    if (!run.m_problem.empty()) _exit(DoneBadly);
    _exit(run.m_hasStruck ? DoneWell : NoFailureLeft);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? static_cast<ChildEnd>(WEXITSTATUS(status)) : EndedElsewhere;
}

/// Fails each allocation of a migration that writes records, as no image can be had.
std::map<ChildEnd, std::uint32_t> sweep(Failures failures) {
  std::map<ChildEnd, std::uint32_t> ends;
  for (Example const& example : readExamples("image_sheet_6.27.qvs")) {
    qvToolkit::Document const document = qvToolkit::readDocument(example.m_bytes, example.m_name);
    Step const step{"migrate", [&] { return migrate(document, {}); }};
    std::string const expected = step.m_run().m_text;
    EXPECT_NE(expected.find("Fail to retrieve raster"), std::string::npos);
    for (std::uint32_t first = 0; ends[NoFailureLeft] == 0 && first < 10'000; ++first) {
      ChildEnd const end = runInChild(step, expected, failures, first);
      ++ends[end];
      EXPECT_NE(end, DoneBadly) << first;
      EXPECT_NE(end, EndedElsewhere) << first;
    }
  }
  std::cout << ends[DoneWell] << " ended well, " << ends[EndedInRecord] << " in a log record\n";
  return ends;
}

class LogRecord : public testing::TestWithParam<Failures> {
 protected:
  qvToolkit::Session const m_session;
};

TEST_P(LogRecord, IsTheOnlyPlaceWhereAFailingAllocationEndsTheProcess) {
  auto ends = sweep(GetParam());
  EXPECT_EQ(ends[NoFailureLeft], 1U);
  EXPECT_GT(ends[DoneWell], 0U);
  EXPECT_GT(ends[EndedInRecord], 0U);
}

INSTANTIATE_TEST_SUITE_P(OfAMigration, LogRecord, testing::Values(Failures::Once, Failures::FromThenOn),
                         [](auto const& test) {
                           return test.param == Failures::Once ? "Once" : "FromThenOn";
                         });

}  // namespace

}  // namespace qvFaults
