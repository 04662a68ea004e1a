#include "qvToolkit/reports/fontReport.h"

#include <gtest/gtest.h>

#include "qvToolkit/reports/fontCollector.h"
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
  m_document.m_source = {"part.json", 7, "abc", Format::Json};
  JsonWriter json;
  writeDocumentFonts(json, m_document, report(), {});
  EXPECT_EQ(json.takeText(),
            R"({"source":{"path":"part.json","pathHex":null,"size":7,"sha256":"abc","encoding":"json"},)"
            R"("readable":true,"fonts":[{"askedFamily":"Old","askedFamilyHex":null,"bold":false,)"
            R"("italic":false,"match":"missing","family":"New","version":null,"sha256":null,)"
            R"("faceIndex":null,"boldMadeUp":false,"italicMadeUp":false,"characters":2,"package":null}],)"
            R"("missingCharacters":[{"codePoint":"U+10FFFD","name":null,"package":null,)"
            R"("addresses":["view/0/annot/0"]}],"packages":[],"findings":[]})"
            "\n");
}

TEST_F(FontReportTest, SaysNothingOfASourceThatWasNotRead) {
  m_document.m_source = {"part\xFF.json", {}, {}, {}};
  m_document.m_findings = {makeFinding(FindingCode::InputUnreadable, "no such file")};
  JsonWriter json;
  writeDocumentFonts(json, m_document, {}, {});
  std::string const text = json.takeText();
  EXPECT_TRUE(
      text.starts_with("{\"source\":{\"path\":\"part\uFFFD.json\",\"pathHex\":\"70617274ff2e6a736f6e\","
                       "\"size\":null,\"sha256\":null,\"encoding\":null},\"readable\":false,"))
      << text;
}

/// A font whose bytes are given.
class GivenFont : public qv::svg::GlyphSource {
 public:
  GivenFont(std::string file, std::string data) : m_file(std::move(file)), m_data(std::move(data)) {}
  std::string const& getFontFile() const noexcept override { return m_file; }
  unsigned getFaceIndex() const noexcept override { return 3; }
  std::string getFontVersion() const override { return "Version 1.5"; }
  std::string_view getFontData() const noexcept override {
    ++m_reads;
    return m_data;
  }
  unsigned getUnitsPerEm() const noexcept override { return 1000; }
  qv::svg::Outline getOutline(std::uint32_t) const override { return {}; }

  std::string m_file;
  std::string m_data;
  mutable int m_reads = 0;
};

TEST_F(FontReportTest, KnowsAFontByVersionAndContentWhereverItsFileLies) {
  auto const font = std::make_shared<GivenFont>("/fonts/a.ttf", "abc");
  add(makeSpan("Old", "New", FontMatch::Substitute)).m_glyphSource = font;
  FontUse const use = report().m_uses.at(0);
  EXPECT_EQ(use.m_file, "/fonts/a.ttf");
  EXPECT_EQ(use.m_version, "Version 1.5");
  EXPECT_EQ(use.m_sha256, "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(use.m_faceIndex, 3U);
}

TEST(FontHashes, HashEachFileOnceWhileItsFontIsInUse) {
  FontHashes hashes;
  auto font = std::make_shared<GivenFont>("/fonts/a.ttf", "abc");
  auto const slanted = std::make_shared<GivenFont>("/fonts/a.ttf", "abc");
  std::string const hash = hashes.get(font);
  EXPECT_EQ(hashes.get(font), hash);
  EXPECT_EQ(hashes.get(slanted), hash);
  EXPECT_EQ(font->m_reads + slanted->m_reads, 1);
  font.reset();
  auto const other = std::make_shared<GivenFont>("/fonts/a.ttf", "another file under its name");
  EXPECT_NE(hashes.get(other), hash);
  EXPECT_EQ(hashes.get(nullptr), "");
}

}  // namespace
