// Which font draws what. The fonts that are named here are those of tests/environment.

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "fontFolders.h"

namespace qv::text {
namespace {

using svg::FontMatch;

svg::TextSpan drawIn(std::string const& font, std::string const& text = "A") {
  return layOutRun(normal(text, makeProperties(10.0F, font))).m_spans.at(0);
}

TEST(FontChoice, TakesTheAskedFamilyWhenItIsInstalled) {
  svg::TextSpan const span = drawIn("Liberation Serif");
  EXPECT_EQ(span.m_family, "Liberation Serif");
  EXPECT_EQ(span.m_askedFamily, "Liberation Serif");
  EXPECT_EQ(span.m_match, FontMatch::Asked);
}

TEST(FontChoice, ComparesFamilyNamesWithoutCaseAndBlanks) {
  svg::TextSpan const span = drawIn("liberationSANS");
  EXPECT_EQ(span.m_family, "Liberation Sans");
  EXPECT_EQ(span.m_askedFamily, "liberationSANS");
  EXPECT_EQ(span.m_match, FontMatch::Asked);
}

TEST(FontChoice, TakesAFamilyWithTheSameAdvanceWidthsInsteadOfCommonOnes) {
  for (auto const& [asked, expected] : {std::pair("Arial", "Liberation Sans"),
                                        {"Helvetica", "Liberation Sans"},
                                        {"Times New Roman", "Liberation Serif"},
                                        {"Courier New", "Liberation Mono"}}) {
    svg::TextSpan const span = drawIn(asked);
    EXPECT_EQ(span.m_family, expected);
    EXPECT_EQ(span.m_askedFamily, asked);
    EXPECT_EQ(span.m_match, FontMatch::MetricCompatible);
  }
}

TEST(FontChoice, SubstitutesAnUnknownFamilyByDejaVuSans) {
  svg::TextSpan const span = drawIn("No Such Family");
  EXPECT_EQ(span.m_family, "DejaVu Sans");
  EXPECT_EQ(span.m_match, FontMatch::Substitute);
}

TEST(FontChoice, TreatsNoFamilyAsArial) {
  svg::TextSpan const span = drawIn("");
  EXPECT_EQ(span.m_family, "Liberation Sans");
  EXPECT_EQ(span.m_askedFamily, "Arial");
}

TEST(FontChoice, DrawsTheDiameterSignWithDejaVuSans) {
  svg::Text const item = layOutRun(normal("\xE2\x8C\x80 12"));
  ASSERT_EQ(item.m_spans.size(), 2U);
  EXPECT_EQ(item.m_spans[0].m_family, "DejaVu Sans");
  EXPECT_EQ(item.m_spans[0].m_match, FontMatch::Substitute);
  EXPECT_EQ(item.m_spans[0].m_text, "\xE2\x8C\x80");
  EXPECT_EQ(item.m_spans[0].m_original, "");
  EXPECT_EQ(item.m_spans[1].m_family, "Liberation Sans");
  EXPECT_EQ(item.m_spans[1].m_text, " 12");
}

TEST(FontChoice, DrawsEverySignOfDrawings) {
  constexpr std::array<char const*, 21> SIGNS = {"\u2300", "\u2312", "\u2313", "\u2316", "\u232D", "\u232F",
                                                 "\u2330", "\u2331", "\u23E4", "\u23E5", "\u25CB", "\u2225",
                                                 "\u27C2", "\u2220", "\u24C2", "\u24C1", "\u24C5", "\u2334",
                                                 "\u2335", "\u21A7", "\u25A1"};
  for (char const* const sign : SIGNS) {
    svg::TextSpan const span = drawIn("Arial", sign);
    EXPECT_NE(span.m_match, FontMatch::Missing) << sign;
    EXPECT_EQ(span.m_text, sign);
    EXPECT_GT(span.m_advance, 0.0F) << sign;
  }
}

TEST(FontChoice, FindsTheFontOfAScriptThatNoListedFontHas) {
  std::vector<svg::TextSpan> const spans = layOutRun(normal("\u0928\u092E\u0938\u094D\u0924\u0947")).m_spans;
  ASSERT_EQ(spans.size(), 1U);
  EXPECT_EQ(spans[0].m_family, "Noto Sans Devanagari");
  EXPECT_EQ(spans[0].m_match, FontMatch::Substitute);
}

TEST(FontChoice, DrawsASignThatScriptsShareWithTheFontOfTheLettersBefore) {
  constexpr char const* DANDA = "\u0964";
  EXPECT_NE(layOutSpans(DANDA).at(0).m_family, "Noto Sans Devanagari");
  EXPECT_EQ(layOutSpans(std::string("\u0928") + DANDA).size(), 1U);
  std::vector<svg::TextSpan> const spans = layOutSpans(std::string("\u0928 12 ab ") + DANDA);
  ASSERT_EQ(spans.size(), 3U);
  EXPECT_EQ(spans[2].m_text, DANDA);
  EXPECT_EQ(spans[2].m_family, "Noto Sans Devanagari");
}

TEST(FontChoice, ShowsTheReplacementGlyphForACharacterThatNoFontHas) {
  svg::Text const item = layOutRun(normal("a\xEE\x80\x80\xEE\x80\x81z"));
  ASSERT_EQ(item.m_spans.size(), 3U);
  svg::TextSpan const& missing = item.m_spans[1];
  EXPECT_EQ(missing.m_match, FontMatch::Missing);
  EXPECT_EQ(missing.m_text, "\uFFFD\uFFFD");
  EXPECT_EQ(missing.m_original, "\xEE\x80\x80\xEE\x80\x81");
  EXPECT_EQ(missing.m_family, "DejaVu Sans");
  EXPECT_GT(missing.m_advance, 0.0F);
  EXPECT_EQ(item.m_spans[2].m_text, "z");
}

TEST(FontChoice, ShowsTheReplacementGlyphForBrokenText) {
  svg::Text const item = layOutRun(normal("a\xFF\x01z"));
  ASSERT_EQ(item.m_spans.size(), 3U);
  EXPECT_EQ(item.m_spans[1].m_text, "\uFFFD\uFFFD");
  EXPECT_EQ(item.m_spans[1].m_match, FontMatch::Substitute);
}

TEST(FontChoice, KeepsACombiningMarkWithItsBase) {
  EXPECT_EQ(layOutRun(normal("ae\u0301z")).m_spans.size(), 1U);
  svg::Text const composed = layOutRun(normal("\u00E9"));
  svg::Text const decomposed = layOutRun(normal("e\u0301"));
  EXPECT_EQ(composed.m_spans[0].m_advance, decomposed.m_spans[0].m_advance);
}

TEST(FontChoice, NeedsNoGlyphForInvisibleCharacters) {
  svg::Text const item = layOutRun(normal("a\u200B\u2060z"));
  ASSERT_EQ(item.m_spans.size(), 1U);
  EXPECT_EQ(item.m_spans[0].m_advance, measure(normal("a")) + measure(normal("z")));
}

TEST(FontChoice, UsesTheBoldAndItalicFacesOfTheFamily) {
  TextProperties properties = makeProperties();
  float const regular = measure(normal("Bold", properties));
  properties.m_bold = true;
  svg::TextSpan const bold = layOutRun(normal("Bold", properties)).m_spans[0];
  EXPECT_GT(bold.m_advance, regular);
  EXPECT_TRUE(bold.m_bold);
  EXPECT_FALSE(bold.m_italic);
  EXPECT_EQ(bold.m_family, "Liberation Sans");
  properties = makeProperties(10.0F, "Times New Roman");
  float const upright = measure(normal("Italic", properties));
  properties.m_italic = true;
  svg::TextSpan const italic = layOutRun(normal("Italic", properties)).m_spans[0];
  EXPECT_NE(italic.m_advance, upright);
  EXPECT_TRUE(italic.m_italic);
}

TEST(FontChoice, NamesTheFamilyUnderWhichTheFaceWasAskedFor) {
  // One file has both names.
  for (char const* const name : {"Noto Sans CanAborig", "Noto Sans Canadian Aboriginal"}) {
    svg::TextSpan const span = drawIn(name, "\u1401");
    EXPECT_EQ(span.m_family, name);
    EXPECT_EQ(span.m_match, FontMatch::Asked);
  }
}

constexpr std::size_t WIDTH_IN_OS2 = 6;
constexpr char CONDENSED = 3;

/// The bytes of a TrueType file with another width class in its table of metrics; the glyphs stay as they
/// are.
std::string withWidthClass(std::string font, char width) {
  std::size_t const record = font.find("OS/2");
  std::size_t table = 0;
  for (std::size_t i = 8; i < 12; ++i) table = table << 8 | static_cast<unsigned char>(font.at(record + i));
  font.at(table + WIDTH_IN_OS2 + 1) = width;
  return font;
}

std::string readFile(std::filesystem::path const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(FontChoice, PrefersAFaceOfTheUsualWidth) {
  std::filesystem::path const folder = testing::TempDir() + "fontsOfTwoWidths." + std::to_string(getpid());
  std::filesystem::create_directory(folder);
  std::string const usual = readFile(std::string(LIBERATION_FOLDER) + "/LiberationSans-Regular.ttf");
  std::ofstream(folder / "a.ttf", std::ios::binary) << withWidthClass(usual, CONDENSED);
  std::ofstream(folder / "b.ttf", std::ios::binary) << usual;
  {
    WithFonts const scope(onlyFontsOf({folder}));
    EXPECT_EQ(layOutAnew("A").at(0).m_glyphSource->getFontFile(), folder / "b.ttf");
    std::filesystem::remove(folder / "b.ttf");
  }
  WithFonts const scope(onlyFontsOf({folder}));
  EXPECT_EQ(layOutAnew("A").at(0).m_glyphSource->getFontFile(), folder / "a.ttf");
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace qv::text
