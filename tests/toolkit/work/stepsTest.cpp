#include "qvToolkit/work/steps.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include "files/fileDescriptor.h"
#include "qvToolkit/reading/openDocument.h"
#include "qvToolkit/work/memoryResults.h"
#include "tests/support/exportSupport.h"

namespace qvToolkit {

namespace {

/// Two views: a text, and a raster whose image is not there.
constexpr char const* Views = R"([{"ver":"6.22","name":"one","annotations":[{"type":"text","name":"a",
"lines":[[{"text":"hello"}]]}]},{"ver":"6.22","name":"two","annotations":[{"type":"raster","name":"b",
"rastername":"gone","size":[1,1]}]}])";

/// Performs requests on one document, which is a file.
class StepsTest : public testing::Test {
 protected:
  Outcome perform(std::string const& content, MemoryHooks const& hooks = {}) {
    return performIn(m_results, content, hooks);
  }
  Outcome performIn(Results& results, std::string const& content, MemoryHooks const& hooks = {}) {
    Session session(makeSessionOptions(m_request));
    FileDescriptor const file(open(m_folder.writeFile("doc", content).c_str(), O_RDONLY | O_CLOEXEC));
    return performRequest(session, m_request, {"given/doc", "doc", m_stem, file.get()}, results, hooks);
  }
  Outcome perform(Action action, std::string const& content) {
    m_request.m_action = action;
    return perform(content);
  }
  std::vector<std::string> listFiles() const {
    std::vector<std::string> names;
    for (MemoryResults::File const& file : m_results.getFiles()) names.push_back(file.m_name);
    return names;
  }

  qvTest::TemporaryFolder m_folder;
  Request m_request;
  std::string m_stem = "stem";
  MemoryResults m_results;
};

bool holds(Findings const& findings, FindingCode code) {
  return !qvTest::select(findings, code).empty();
}

TEST_F(StepsTest, TellWhatWasReadWhateverIsDone) {
  for (Action const action :
       {Action::Inspect, Action::Migrate, Action::Encode, Action::Transform, Action::Fonts}) {
    Outcome const outcome = perform(action, Views);
    EXPECT_EQ(outcome.m_source.m_path, "doc");
    EXPECT_EQ(outcome.m_source.m_size, std::string(Views).size());
    EXPECT_EQ(outcome.m_source.m_sha256.size(), 64U);
    EXPECT_EQ(outcome.m_source.m_format, Format::Json);
    ASSERT_EQ(outcome.m_views.size(), 2U);
    EXPECT_EQ(outcome.m_views[1].m_address, "view/1");
    EXPECT_EQ(outcome.m_views[1].m_name, "two");
    EXPECT_EQ(outcome.m_views[1].m_version, "6.22");
    EXPECT_TRUE(outcome.m_views[1].m_isRead);
    EXPECT_EQ(outcome.m_views[1].m_counts.m_raster, 1U);
    EXPECT_EQ(outcome.m_views[1].m_isMigrated.has_value(), action == Action::Migrate);
  }
}

TEST_F(StepsTest, MigrateViewByViewAndWriteTheModelLast) {
  Outcome const outcome = perform(Action::Migrate, Views);
  EXPECT_EQ(listFiles(), (std::vector<std::string>{"stem.view-0000.svg", "stem.migrated.json"}));
  ASSERT_EQ(outcome.m_outputs.size(), 2U);
  EXPECT_EQ(outcome.m_outputs[1].m_name, "stem.migrated.json");
  EXPECT_EQ(outcome.m_views[0].m_isMigrated, true);
  EXPECT_EQ(outcome.m_views[0].m_page, "stem.view-0000.svg");
  EXPECT_EQ(outcome.m_views[1].m_isMigrated, false);
  EXPECT_EQ(outcome.m_views[1].m_page, "");
  EXPECT_TRUE(holds(outcome.m_findings, FindingCode::RasterUnavailable));
  EXPECT_EQ(outcome.m_conclusion, ExitFindings);
  ASSERT_EQ(outcome.m_fonts.size(), 1U);
  EXPECT_FALSE(outcome.m_fonts[0].m_family.empty());
  EXPECT_EQ(outcome.m_fonts[0].m_sha256.size(), 64U);
  std::string const& model = m_results.getFiles()[1].m_bytes;
  EXPECT_NE(model.find("\"stem.view-0000.svg\""), std::string::npos);
  EXPECT_NE(model.find("raster.unavailable"), std::string::npos);
}

TEST_F(StepsTest, TakeImagesFromTheFolderOfTheRequest) {
  m_folder.writeFile("images/gone.png", qvTest::makePng());
  m_request.m_rasterFolder = m_folder.getPath("images");
  Outcome const outcome = perform(Action::Migrate, Views);
  EXPECT_EQ(outcome.m_conclusion, ExitDone);
  EXPECT_EQ(listFiles().size(), 3U);
  EXPECT_NE(m_results.getFiles()[1].m_bytes.find("data:image/png"), std::string::npos);
}

TEST_F(StepsTest, LeaveNoFileWhereOneIsTooLarge) {
  m_request.m_limits.set(Limit::OutputFile, 2000);
  Outcome const outcome = perform(Action::Migrate, Views);
  EXPECT_EQ(outcome.m_conclusion, ExitLimit);
  Findings const limits = qvTest::select(outcome.m_findings, FindingCode::LimitOutput);
  ASSERT_EQ(limits.size(), 1U);
  EXPECT_NE(limits[0].m_text.find("'stem.migrated.json' is larger than the limit of 2000 bytes"),
            std::string::npos)
      << limits[0].m_text;
  EXPECT_TRUE(m_results.getFiles().empty());
  EXPECT_TRUE(outcome.m_outputs.empty());
  EXPECT_EQ(outcome.m_views[0].m_page, "");
}

TEST_F(StepsTest, MigrateNoDocumentOfTooManyViews) {
  m_request.m_limits.set(Limit::Views, 1);
  Outcome const outcome = perform(Action::Migrate, Views);
  EXPECT_EQ(qvTest::select(outcome.m_findings, FindingCode::LimitViews).at(0).m_address, "view/1");
  EXPECT_EQ(outcome.m_conclusion, ExitLimit);
  EXPECT_TRUE(m_results.getFiles().empty());
}

TEST_F(StepsTest, EncodeIntoTheNamedFile) {
  m_stem = "out.qvs";
  m_request.m_streamVersion = 0x60011;
  Outcome const outcome = perform(Action::Encode, Views);
  ASSERT_EQ(listFiles(), std::vector<std::string>{"out.qvs"});
  Session const session;
  Document const back = readDocument(m_results.getFiles()[0].m_bytes, "out.qvs");
  ASSERT_EQ(back.m_views.size(), 2U);
  EXPECT_EQ(back.m_views[0].m_version.GetPacked(), 0x60011U);
  EXPECT_EQ(outcome.m_outputs.at(0).m_name, "out.qvs");
}

TEST_F(StepsTest, MoveADocumentAndEncodeIt) {
  perform(Action::Encode, Views);
  std::string const before = m_results.getFiles().at(0).m_bytes;
  m_results.withdraw();
  m_request.m_transformation.m_translation = {0, 0, 100};
  EXPECT_EQ(perform(Action::Transform, Views).m_conclusion, ExitDone);
  std::string const moved = m_results.getFiles().at(0).m_bytes;
  Session const session;
  EXPECT_EQ(readDocument(moved, "moved").m_views.at(0).m_view->m_planeOrigin.Z(), 100.0F);
  EXPECT_EQ(readDocument(before, "before").m_views.at(0).m_view->m_planeOrigin.Z(), 0.0F);
}

TEST_F(StepsTest, DumpWhatIsAnObjectStream) {
  perform(Action::Encode, Views);
  std::string const stream = m_results.getFiles().at(0).m_bytes;
  Outcome const outcome = perform(Action::Dump, stream);
  EXPECT_TRUE(m_results.getPrinted().starts_with("00000000  71 76 53 74"));
  EXPECT_EQ(outcome.m_conclusion, ExitDone) << "it needs no views";
  EXPECT_EQ(outcome.m_source.m_format, Format::ObjectStream);
  EXPECT_EQ(outcome.m_source.m_size, stream.size());
  EXPECT_EQ(perform(Action::Dump, Views).m_conclusion, ExitInputBroken);
}

TEST_F(StepsTest, PrintWhatADocumentHolds) {
  perform(Action::Inspect, Views);
  EXPECT_NE(m_results.getPrinted().find("given/doc"), std::string::npos) << m_results.getPrinted();
  EXPECT_NE(m_results.getPrinted().find("hello"), std::string::npos);
  EXPECT_TRUE(m_results.getFiles().empty());
}

TEST_F(StepsTest, PrintAnEntryOfAList) {
  m_request.m_asJson = true;
  perform(Action::Inspect, Views);
  std::string const entry = m_results.getPrinted();
  EXPECT_TRUE(entry.starts_with("{")) << entry;
  EXPECT_EQ(entry.find("given/doc"), std::string::npos) << "paths are relative to the root of the run";
  ReportList list = makeReportList(m_request);
  EXPECT_TRUE(list.beginEntry().starts_with("{\"format\""));
  m_results.withdraw();
  m_request.m_isPretty = true;
  perform(Action::Inspect, Views);
  EXPECT_GT(m_results.getPrinted().size(), entry.size());
}

TEST_F(StepsTest, TellWhichFontsADocumentIsDrawnWith) {
  Outcome const outcome = perform(Action::Fonts, Views);
  EXPECT_NE(m_results.getPrinted().find("Arial"), std::string::npos) << m_results.getPrinted();
  EXPECT_EQ(outcome.m_fonts.size(), 1U);
  EXPECT_FALSE(holds(outcome.m_findings, FindingCode::RasterUnavailable)) << "it is not about fonts";
  EXPECT_TRUE(holds(outcome.m_findings, FindingCode::ViewNotMigrated));
}

TEST_F(StepsTest, HaveNothingToDoWithoutViews) {
  Outcome const outcome = perform(Action::Inspect, "[]");
  EXPECT_EQ(outcome.m_conclusion, ExitNothingToDo);
  EXPECT_TRUE(holds(outcome.m_findings, FindingCode::NoViews));
}

TEST_F(StepsTest, TellWhyAnInputCannotBeRead) {
  m_request.m_asJson = true;
  m_request.m_limits.set(Limit::Input, 10);
  Outcome const outcome = perform(Action::Inspect, Views);
  EXPECT_EQ(outcome.m_conclusion, ExitLimit);
  EXPECT_EQ(outcome.m_source.m_size, std::nullopt);
  EXPECT_EQ(m_results.getPrinted(), formatFailedEntry(m_request, outcome));
  EXPECT_NE(m_results.getPrinted().find("input.too-large"), std::string::npos);
}

TEST_F(StepsTest, HaveLimitsFollowFromTheSizeOfTheInput) {
  std::uint64_t told = 0;
  MemoryHooks hooks;
  hooks.m_onInput = [&told](std::uint64_t bytes) { told = bytes; };
  m_request.m_asJson = true;
  m_request.m_limits.set(Limit::Output, 100);
  Outcome const outcome = perform(Views, hooks);
  EXPECT_EQ(told, std::string(Views).size());
  EXPECT_EQ(outcome.m_conclusion, ExitLimit);
  EXPECT_EQ(m_results.getPrinted(), "") << "half a result would look whole";
  EXPECT_NE(formatFailedEntry(m_request, outcome).find("limit.output"), std::string::npos);
}

TEST_F(StepsTest, MakeAnOutcomeOfMemoryThatRunsOut) {
  struct Full : MemoryResults {
    bool open(std::string const& name) override {
      if (!getFiles().empty()) throw std::bad_alloc();
      return MemoryResults::open(name);
    }
  } results;
  m_request.m_action = Action::Migrate;
  Outcome const outcome = performIn(results, Views);
  EXPECT_EQ(outcome.m_conclusion, ExitLimit);
  EXPECT_TRUE(holds(outcome.m_findings, FindingCode::LimitMemory));
  EXPECT_TRUE(results.getFiles().empty());
  EXPECT_TRUE(outcome.m_outputs.empty());
}

}  // namespace

}  // namespace qvToolkit
