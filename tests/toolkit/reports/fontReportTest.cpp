#include "qvToolkit/reports/fontReport.h"

#include <gtest/gtest.h>

#include "tests/support/exportSupport.h"

namespace {

using namespace qvToolkit;
using qv::svg::FontMatch;

qv::svg::TextSpan makeSpan(std::string const& asked, std::string const& family, FontMatch match) {
  qv::svg::TextSpan span;
  span.m_text = "\u2300x";
  span.m_askedFamily = asked;
  span.m_family = family;
  span.m_match = match;
  return span;
}

class FontReportTest : public testing::Test {
 protected:
  FontReportTest() {
    m_views.push_back(qvTest::makeView());
    m_document.m_path = "part.json";
  }

  qv::svg::TextSpan& add(qv::svg::TextSpan const& span) {
    auto& text = qvTest::addText(*qvTest::getAnnotation(m_views[0]).m_svgRoot, "");
    text.m_spans = {span};
    return text.m_spans[0];
  }

  FontReport report() const { return reportFonts(m_views); }

  std::vector<MigratedView> m_views;
  Document m_document;
};

TEST_F(FontReportTest, AddsUpWhatIsDrawnInOneWay) {
  add(makeSpan("Zebra", "Zebra", FontMatch::Asked));
  add(makeSpan("Arial", "Liberation Sans", FontMatch::MetricCompatible));
  add(makeSpan("Arial", "Liberation Sans", FontMatch::MetricCompatible));
  add(makeSpan("Arial", "Liberation Sans", FontMatch::MetricCompatible)).m_bold = true;
  FontReport const fonts = report();
  ASSERT_EQ(fonts.m_uses.size(), 3U);
  EXPECT_EQ(fonts.m_uses[0].m_askedFamily, "Arial");
  EXPECT_EQ(fonts.m_uses[0].m_characters, 4U);
  EXPECT_TRUE(fonts.m_uses[1].m_bold);
  EXPECT_EQ(fonts.m_uses[2].m_askedFamily, "Zebra");
}

TEST_F(FontReportTest, NamesThePackageOfAFamilyThatIsNotThere) {
  add(makeSpan("Arial", "DejaVu Sans", FontMatch::Substitute));
  ASSERT_EQ(report().m_uses.size(), 1U);
  EXPECT_EQ(report().m_uses[0].m_package, "fonts-liberation2");
  add(makeSpan("Arial", "Liberation Sans", FontMatch::MetricCompatible));
  // Now the other font only lends its signs.
  EXPECT_TRUE(listPackages(report()).empty());
}

TEST_F(FontReportTest, ListsMissingCharactersWithPackageAndAddresses) {
  qv::svg::TextSpan span = makeSpan("Arial", "Arial", FontMatch::Missing);
  span.m_original = "\u2316\u2316";
  add(span);
  auto& other = qvTest::addAnnotation(m_views[0], "other");
  qvTest::addText(*other.m_svgRoot, "").m_spans = {span};
  FontReport const fonts = report();
  ASSERT_EQ(fonts.m_missing.size(), 1U);
  EXPECT_EQ(fonts.m_missing[0].m_character, 0x2316U);
  EXPECT_EQ(fonts.m_missing[0].m_package, "fonts-noto-core");
  EXPECT_EQ(fonts.m_missing[0].m_addresses, (std::vector<std::string>{"view/0/annot/0", "view/0/annot/1"}));
}

TEST_F(FontReportTest, TellsOfViewsWhoseFontsAreNotKnown) {
  add(makeSpan("Arial", "Arial", FontMatch::Asked));
  m_views.push_back(qvTest::makeView());
  m_views.back().m_view = nullptr;
  EXPECT_EQ(report().m_viewsLeftOut, 1U);
  EXPECT_TRUE(formatFontReport(m_document, report())
                  .starts_with("part.json: 1 font family asked for, besides those of 1 view that is not "
                               "migrated\n"));
  m_views[0].m_view = nullptr;
  EXPECT_EQ(formatFontReport(m_document, report()),
            "part.json: 0 font families asked for, besides those of 2 views that are not migrated\n");
}

TEST_F(FontReportTest, IsShownAsTables) {
  add(makeSpan("Arial", "Liberation Sans", FontMatch::MetricCompatible));
  qv::svg::TextSpan span = makeSpan("Arial", "Noto Sans Math", FontMatch::Missing);
  span.m_original = "\u2316";
  span.m_synthesis.m_bold = span.m_bold = true;
  add(span);
  EXPECT_EQ(formatFontReport(m_document, report()),
            "part.json: 1 font family asked for\n"
            "    ASKED  STYLE    DRAWN WITH       MATCH                  CHARACTERS  FILE\n"
            "    Arial  regular  Liberation Sans  metric-compatible      2\n"
            "    Arial  bold     Noto Sans Math   missing, bold made up  2\n"
            "  characters that no font has:\n"
            "    CHARACTER                  PACKAGE          WHERE\n"
            "    U+2316 POSITION INDICATOR  fonts-noto-core  view/0/annot/0\n"
            "  to install: fonts-noto-core\n");
  m_document.m_findings = {makeFinding(FindingCode::JsonBroken, "broken")};
  EXPECT_EQ(formatFontReport(m_document, {}), "part.json: not read\n");
}

TEST_F(FontReportTest, IsWrittenAsJson) {
  qv::svg::TextSpan span = makeSpan("Old", "New", FontMatch::Missing);
  span.m_original = "\U0010FFFD";
  add(span);
  std::string const json = formatFontReportsJson({m_document}, {report()}, {{}});
  for (char const* const part :
       {"\"file\": \"part.json\"", "\"readable\": true", "\"askedFamily\": \"Old\"", "\"match\": \"missing\"",
        "\"codePoint\": \"U+10FFFD\"", "\"packages\": []", "\"findings\": []", "\"boldMadeUp\": false"}) {
    EXPECT_NE(json.find(part), std::string::npos) << part << "\n" << json;
  }
}

}  // namespace
