#include <gtest/gtest.h>

#include <cerrno>

#include "files/childProcess.h"
#include "qvToolkit/pages/pageConverter.h"
#include "samplePage.h"
#include "tests/support/stringSink.h"

namespace {

using namespace qvTest;
using namespace qvToolkit;

std::string convert(std::string const& svg, PageFormat format, unsigned resolution = 150) {
  StringSink sink;
  PageConverter converter({format, resolution}, {});
  EXPECT_TRUE(converter.convert(svg, sink)) << converter.findProblem().value_or(Finding()).m_text;
  EXPECT_FALSE(converter.findProblem().has_value());
  return sink.m_text;
}

TEST(PdfPage, HoldsItsTextInEveryModeButOutlines) {
  SamplePage const page;
  for (TextMode const mode : {TextMode::Live, TextMode::Both, TextMode::Outline}) {
    std::string const pdf = convert(page.write(mode), PageFormat::Pdf);
    ASSERT_TRUE(pdf.starts_with("%PDF-"));
    ChildRun const run = runChild({{"pdftotext", "-layout", "-", "-"}, {}}, pdf);
    if (run.m_problem == ENOENT) GTEST_SKIP() << "pdftotext is not installed";
    for (char const* const text : {"120\u00B10.2", "THRU", "M8\u00D71.25", "Substitute 100%", "affluent",
                                   "\u0414\u043E\u043F\u0443\u0441\u043A", "\u05E9\u05DC\u05D5\u05DD"}) {
      EXPECT_EQ(run.m_output.find(text) != std::string::npos, mode != TextMode::Outline)
          << text << " in mode " << static_cast<int>(mode) << "\n"
          << run.m_output;
    }
  }
}

TEST(PdfPage, HasTheSameBytesEveryTime) {
  std::string const svg = SamplePage().write(TextMode::Live);
  EXPECT_EQ(convert(svg, PageFormat::Pdf), convert(svg, PageFormat::Pdf));
}

TEST(PngPage, HasThePixelsThatItsResolutionAsksFor) {
  std::string const svg =
      R"(<svg xmlns="http://www.w3.org/2000/svg" width="25.4mm" height="50.8mm" viewBox="0 0 1 2"/>)";
  for (unsigned const resolution : {72U, 150U, 300U}) {
    std::string const png = convert(svg, PageFormat::Png, resolution);
    ASSERT_GT(png.size(), 24U);
    auto const width = static_cast<unsigned char>(png[18]) * 256U + static_cast<unsigned char>(png[19]);
    auto const height = static_cast<unsigned char>(png[22]) * 256U + static_cast<unsigned char>(png[23]);
    EXPECT_EQ(width, resolution);
    EXPECT_EQ(height, 2 * resolution);
  }
}

TEST(PageConverter, SaysWhatTheProgramSaysWhenItFails) {
  StringSink sink;
  PageConverter converter({PageFormat::Png, 150}, {});
  EXPECT_FALSE(converter.convert("<svg", sink));
  Finding const problem = converter.findProblem().value_or(Finding());
  EXPECT_EQ(problem.m_code, FindingCode::OutputFailed);
  EXPECT_TRUE(problem.m_text.starts_with("rsvg-convert failed: ")) << problem.m_text;
  EXPECT_EQ(sink.m_text, "");
}

}  // namespace
