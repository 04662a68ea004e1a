#include <gtest/gtest.h>

#include "qvToolkit/findings/exitCode.h"
#include "qvToolkit/reading/openDocument.h"
#include "qvToolkit/work/session.h"
#include "toolRunner.h"
#include "transform/qvGenericTransformation.h"

namespace qvTest {

namespace {

using namespace qvToolkit;

class TransformCommand : public testing::Test {
 protected:
  ToolRun transform(std::vector<std::string> const& words) const {
    std::vector<std::string> arguments = {"transform", m_json, "-o", m_output, "--force"};
    arguments.insert(arguments.end(), words.begin(), words.end());
    return runTool(arguments);
  }

  Workplace m_place;
  std::string m_json = m_place.write("plain.json", makeDocument());
  std::string m_output = m_place.getPath("moved.qvs");
};

/// Where an annotation of the moved document lies in model space.
Wm4::Vector3<float> getPlace(Document const& document, std::size_t view, std::size_t annotation) {
  qv::qvGenericTransformation<float> plane;
  document.m_views.at(view).m_view->getPlaneTransform(plane);
  return plane.ApplyForward(document.m_views.at(view).m_view->m_annotations.at(annotation)->m_position, true);
}

TEST_F(TransformCommand, MovesAViewInTheModelAndLeavesItsPageAsItIs) {
  EXPECT_EQ(runTool({"migrate", m_json, "-o", m_place.getPath("out")}).m_exitCode, ExitDone);
  for (std::vector<std::string> const& words :
       {std::vector<std::string>{"--translate", "-5", "7", "0"}, {"--rotate", "x", "90"}}) {
    ToolRun const run = transform(words);
    EXPECT_EQ(run.m_exitCode, ExitDone) << run.m_errors;
    EXPECT_EQ(run.m_output, m_output + "\n");
    EXPECT_EQ(run.m_errors, "");
    EXPECT_EQ(runTool({"migrate", m_output, "-o", m_place.getPath("out"), "--force"}).m_exitCode, ExitDone);
    EXPECT_EQ(m_place.read("out/moved.view-0000.svg"), m_place.read("out/plain.view-0000.svg"));
  }
}

TEST_F(TransformCommand, ScalesPlacesAndSaysThatTextsKeepTheirSize) {
  ToolRun const run = transform({"--scale", "3"});
  EXPECT_EQ(run.m_exitCode, ExitDone) << run.m_errors;
  EXPECT_NE(run.m_errors.find("info: places are scaled by 3; "), std::string::npos) << run.m_errors;
  EXPECT_NE(run.m_errors.find("[transform.size-kept]"), std::string::npos) << run.m_errors;
  EXPECT_EQ(runTool({"migrate", m_output, "-o", m_place.getPath("out")}).m_exitCode, ExitDone);
  std::string const page = m_place.read("out/moved.view-0000.svg");
  EXPECT_NE(page.find(R"x(transform="translate(3 -6)")x"), std::string::npos) << page;
}

TEST_F(TransformCommand, MovesEachAnnotationOfADrawingOnce) {
  Session const library;
  std::string const bracket = QVA_EXAMPLES "/bracket_6.27.json";
  Wm4::Vector3<float> const width = getPlace(openDocument(bracket), 0, 0);
  EXPECT_EQ(width, Wm4::Vector3<float>(60, 0, -16));

  EXPECT_EQ(runTool({"transform", bracket, "-o", m_output, "--translate", "10", "20", "30"}).m_exitCode,
            ExitDone);
  EXPECT_EQ(getPlace(openDocument(m_output), 0, 0), Wm4::Vector3<float>(70, 20, 14));

  EXPECT_EQ(runTool({"transform", bracket, "-o", m_output, "--force", "--rotate", "x", "90"}).m_exitCode,
            ExitDone);
  Document const turned = openDocument(m_output);
  EXPECT_EQ(getPlace(turned, 0, 0), Wm4::Vector3<float>(60, 16, 0));
  EXPECT_EQ(getPlace(turned, 0, 1), Wm4::Vector3<float>(-18, -40, 0));
}

TEST_F(TransformCommand, WritesNothingWhenANumberWouldLeaveSinglePrecision) {
  std::string const far = m_place.write("far.json", makeDocument(R"("leaders":[{"pos":[3e38,0,0]}],)"));
  ToolRun const run = runTool({"transform", far, "-o", m_output, "--scale", "10"});
  EXPECT_EQ(run.m_exitCode, ExitOutputFailed);
  EXPECT_NE(run.m_errors.find("[transform.overflow, view/0/annot/0]"), std::string::npos) << run.m_errors;
  EXPECT_EQ(m_place.read("moved.qvs"), "");
}

TEST_F(TransformCommand, UndoesATurnByTheOppositeOne) {
  EXPECT_EQ(runTool({"encode", m_json, "-o", m_output, "--stream-version", "6.27"}).m_exitCode, ExitDone);
  std::string const original = m_place.read("moved.qvs");
  EXPECT_EQ(transform({"--rotate", "z", "90"}).m_exitCode, ExitDone);
  EXPECT_NE(m_place.read("moved.qvs"), original);
  std::string const back = m_place.getPath("back.qvs");
  EXPECT_EQ(runTool({"transform", m_output, "-o", back, "--rotate", "z", "-90"}).m_exitCode, ExitDone);
  EXPECT_EQ(m_place.read("back.qvs"), original);
}

TEST_F(TransformCommand, TakesExactlyOneTransformation) {
  for (std::vector<std::string> const& words : {std::vector<std::string>{},
                                                {"--scale", "2", "--translate", "1", "2", "3"},
                                                {"--scale", "two"},
                                                {"--scale", "nan"},
                                                {"--scale", "0"},
                                                {"--scale", "-1"},
                                                {"--scale", "1", "2", "3"},
                                                {"--rotate", "z", "inf"},
                                                {"--translate", "1e39", "0", "0"},
                                                {"--rotate", "q", "90"},
                                                {"--translate", "1"},
                                                {"--matrix", "1", "0"}}) {
    ToolRun const run = transform(words);
    EXPECT_EQ(run.m_exitCode, ExitUsage);
    EXPECT_NE(run.m_errors.find("qvannot transform --help"), std::string::npos) << run.m_errors;
  }
}

TEST_F(TransformCommand, RefusesAnEmptyWordInFrontOfAnUnknownOption) {
  ToolRun const run = transform({"--scale", "2", "--strict", "", "--bogus"});
  EXPECT_EQ(run.m_exitCode, ExitUsage);
  EXPECT_NE(run.m_errors.find("--bogus"), std::string::npos) << run.m_errors;
}

TEST_F(TransformCommand, IsToldApartFromAnUnknownCommand) {
  ToolRun const run = runTool({"turn", m_json});
  EXPECT_EQ(run.m_exitCode, ExitUsage);
  EXPECT_NE(run.m_errors.find("there is no command 'turn'"), std::string::npos) << run.m_errors;
}

}  // namespace

}  // namespace qvTest
