#include <fcntl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <sstream>

#include "annotationLegacy/qvAnnotationMigration.h"
#include "apps/qvannot/optionNames.h"
#include "files/fileDescriptor.h"
#include "qvToolkit/files/outputSet.h"
#include "qvToolkit/work/memoryResults.h"
#include "qvToolkit/work/steps.h"
#include "toolRunner.h"

namespace qvTest {

namespace {

using namespace qvToolkit;

/// The examples of both encodings.
std::vector<std::string> listExamples() {
  std::vector<std::string> paths;
  for (auto const& entry : std::filesystem::recursive_directory_iterator(QVA_EXAMPLES)) {
    std::string const extension = entry.path().extension();
    if (extension == ".json" || extension == ".qvs") paths.push_back(entry.path());
  }
  std::ranges::sort(paths);
  EXPECT_GT(paths.size(), 20U);
  return paths;
}

struct Performed {
  Outcome m_outcome;
  MemoryResults m_results;
};

std::unique_ptr<Performed> perform(Request const& request, std::string const& path, std::string const& stem) {
  SessionOptions options = makeSessionOptions(request);
  options.m_spelling = qvannot::spellOption;
  Session session(options);
  FileDescriptor const file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  auto performed = std::make_unique<Performed>();
  performed->m_outcome =
      performRequest(session, request, {path, std::filesystem::path(path).filename(), stem, file.get()},
                     performed->m_results);
  return performed;
}

/// What is said beside infos, which the tool puts together.
std::vector<std::string> listMessages(std::string const& errors) {
  std::vector<std::string> lines;
  std::istringstream stream(errors);
  for (std::string line; std::getline(stream, line);) {
    if (line.find(": info: ") == std::string::npos) lines.push_back(line);
  }
  return lines;
}

std::vector<std::string> listMessages(std::string const& path, Findings const& findings) {
  std::string text;
  for (Finding const& finding : findings) text += formatFinding(path, finding, qvannot::spellOption) + '\n';
  return listMessages(text);
}

void expectSame(ToolRun const& run, Performed const& performed, std::string const& path) {
  EXPECT_EQ(performed.m_outcome.m_conclusion, run.m_exitCode) << path;
  EXPECT_EQ(listMessages(path, performed.m_outcome.m_findings), listMessages(run.m_errors)) << path;
}

TEST(PerformedRequest, WritesThePagesAndTheModelOfTheTool) {
  Workplace const place;
  Request request;
  request.m_action = Action::Migrate;
  request.m_rasterFolder = std::string(QVA_EXAMPLES) + "/rasters";
  request.m_dropped = qvLegacy::qvAnnotationMigration::DropKnownMetadata;
  request.m_textMode = TextMode::Both;
  std::size_t number = 0;
  for (std::string const& path : listExamples()) {
    std::string const out = std::to_string(number++);
    ToolRun const run = runTool({"migrate", path, "-o", place.getPath(out), "--rasters",
                                 request.m_rasterFolder, "--drop-known-metadata", "--text", "both"});
    auto const performed = perform(request, path, makeStem(path));
    expectSame(run, *performed, path);
    EXPECT_EQ(performed->m_results.getFiles().size(), place.list(out).size()) << path;
    for (MemoryResults::File const& file : performed->m_results.getFiles()) {
      EXPECT_EQ(file.m_bytes, place.read(out + '/' + file.m_name)) << path;
    }
  }
}

TEST(PerformedRequest, ConvertsPagesAsTheToolDoes) {
  Workplace const place;
  Request request;
  request.m_action = Action::Migrate;
  request.m_pageFormat = PageFormat::Png;
  request.m_resolution = 40;
  std::string const path = std::string(QVA_EXAMPLES) + "/note_sheet_6.27.json";
  ToolRun const run =
      runTool({"migrate", path, "-o", place.getPath("out"), "--format", "png", "--dpi", "40"});
  auto const performed = perform(request, path, makeStem(path));
  expectSame(run, *performed, path);
  ASSERT_EQ(performed->m_results.getFiles().size(), 2U);
  MemoryResults::File const& page = performed->m_results.getFiles()[0];
  EXPECT_EQ(page.m_name, "note_sheet_6.27.view-0000.png");
  EXPECT_EQ(page.m_bytes, place.read("out/" + page.m_name));
}

TEST(PerformedRequest, PrintsWhatTheToolPrints) {
  for (Action const action : {Action::Inspect, Action::Fonts, Action::Dump}) {
    Request request;
    request.m_action = action;
    for (std::string const& path : listExamples()) {
      ToolRun const run = runTool({std::string(getActionText(action)), path});
      auto const performed = perform(request, path, {});
      expectSame(run, *performed, path);
      EXPECT_EQ(performed->m_results.getPrinted(), run.m_output) << path;
    }
  }
}

TEST(PerformedRequest, PrintsTheEntriesOfTheToolsLists) {
  for (std::string const command : {"inspect", "inspect --full", "fonts"}) {
    Request request;
    request.m_action = command == "fonts" ? Action::Fonts : Action::Inspect;
    request.m_isFull = command.ends_with("--full");
    request.m_asJson = true;
    for (std::string const& path : listExamples()) {
      std::vector<std::string> arguments = {command.substr(0, command.find(' ')), "--json", path};
      if (request.m_isFull) arguments.push_back("--full");
      ToolRun const run = runTool(arguments);
      auto const performed = perform(request, path, {});
      expectSame(run, *performed, path);
      ReportList list = makeReportList(request);
      std::string text = list.beginEntry();
      text += performed->m_results.getPrinted() + list.end();
      EXPECT_EQ(text, run.m_output) << path;
    }
  }
}

TEST(PerformedRequest, EncodesAndMovesAsTheToolDoes) {
  Workplace const place;
  for (std::string const& path : listExamples()) {
    Request request;
    request.m_streamVersion = 0x60011;
    for (Action const action : {Action::Encode, Action::Transform}) {
      request.m_action = action;
      std::vector<std::string> arguments = {std::string(getActionText(action)),
                                            path,
                                            "-o",
                                            place.getPath("out.qvs"),
                                            "--force",
                                            "--stream-version",
                                            "6.17"};
      if (action == Action::Transform) {
        request.m_transformation.m_translation = {1, 2, 3};
        arguments.insert(arguments.end(), {"--translate", "1", "2", "3"});
      }
      ToolRun const run = runTool(arguments);
      auto const performed = perform(request, path, "out.qvs");
      expectSame(run, *performed, path);
      ASSERT_EQ(performed->m_results.getFiles().size(), 1U) << path;
      EXPECT_EQ(performed->m_results.getFiles()[0].m_bytes, place.read("out.qvs")) << path;
    }
  }
}

}  // namespace

}  // namespace qvTest
