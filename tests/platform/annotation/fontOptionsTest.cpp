// Which fonts a process may use, and what to install when they are not enough.

#include "qvAnnotation/fontOptions.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "fontFolders.h"

namespace qv::text {
namespace {

using svg::FontMatch;

TEST(FontOptions, AreKept) {
  WithFonts const scope({.m_directories = {"a"}, .m_replacements = {{"b", "c"}}, .m_useSystemFonts = false});
  FontOptions const options = getFontOptions();
  EXPECT_EQ(options.m_directories, std::vector<std::string>{"a"});
  ASSERT_EQ(options.m_replacements.size(), 1U);
  EXPECT_EQ(options.m_replacements[0].m_replacement, "c");
  EXPECT_FALSE(options.m_useSystemFonts);
}

TEST(FontOptions, WithoutSystemFontsOnlyTheGivenFoldersAreUsed) {
  WithFonts const scope(onlyFontsOf({DEJAVU_FOLDER}));
  std::vector<svg::TextSpan> const spans = layOutAnew("A");
  EXPECT_EQ(spans.at(0).m_family, "DejaVu Sans");
  EXPECT_EQ(spans[0].m_askedFamily, "Arial");
  EXPECT_EQ(spans[0].m_match, FontMatch::Substitute);
  EXPECT_EQ(spans[0].m_glyphSource->getFontFile(), std::string(DEJAVU_FOLDER) + "/DejaVuSans.ttf");
}

TEST(FontOptions, WithoutSystemFontsNoConfigurationIsRead) {
  WithVariable const configuration("FONTCONFIG_FILE", "/no/such/file");
  WithFonts const scope(onlyFontsOf({LIBERATION_FOLDER}));
  EXPECT_EQ(layOutAnew("A").at(0).m_family, "Liberation Sans");
}

TEST(FontOptions, ASignThatNoFontOfTheFoldersHasIsReplacedVisibly) {
  WithFonts const scope(onlyFontsOf({LIBERATION_FOLDER}));
  std::vector<svg::TextSpan> const spans = layOutAnew("\u2316 0.2");
  EXPECT_EQ(spans.at(0).m_match, FontMatch::Missing);
  EXPECT_EQ(spans[0].m_original, "\u2316");
  EXPECT_EQ(spans[0].m_glyphs.size(), 1U);
  EXPECT_EQ(spans.at(1).m_match, FontMatch::MetricCompatible);
}

TEST(FontOptions, SeveralFoldersServeTogether) {
  WithFonts const scope(onlyFontsOf({LIBERATION_FOLDER, "/no/such/folder", NOTO_FOLDER}));
  std::vector<svg::TextSpan> const spans = layOutAnew("\u2316A");
  EXPECT_EQ(spans.at(0).m_family, "Noto Sans Symbols2");
  EXPECT_EQ(spans.at(1).m_family, "Liberation Sans");
}

TEST(FontOptions, WithoutAnyFontNothingIsLaidOut) {
  WithFonts const scope(onlyFontsOf({"/no/such/folder"}));
  EXPECT_FALSE(hasMissedEveryFont());  // nobody has asked for one yet
  EXPECT_TRUE(layOutAnew("A").empty());
  EXPECT_TRUE(hasMissedEveryFont());
}

TEST(FontOptions, SayWhichFamiliesAreThere) {
  WithFonts const scope(onlyFontsOf({LIBERATION_FOLDER}));
  EXPECT_TRUE(hasFontFamily("liberation SANS"));
  EXPECT_FALSE(hasFontFamily("Arial"));
  EXPECT_FALSE(hasFontFamily(""));
  EXPECT_FALSE(layOutAnew("A").empty());
  EXPECT_FALSE(hasMissedEveryFont());
}

TEST(FontOptions, ARelativeFolderIsNamedInFull) {
  WithFonts const scope(onlyFontsOf({std::string(DEJAVU_FOLDER) + "/../liberation2"}));
  EXPECT_EQ(layOutAnew("A").at(0).m_glyphSource->getFontFile(),
            std::string(LIBERATION_FOLDER) + "/LiberationSans-Regular.ttf");
}

TEST(FontOptions, AReplacementIsDrawnInsteadOfTheAskedFamily) {
  WithFonts const scope({.m_directories = {}, .m_replacements = {{"ISOCPEUR", "Liberation Mono"}}});
  svg::TextSpan const span = layOutAnew("A", makeProperties(10.0F, "isocpeur")).at(0);
  EXPECT_EQ(span.m_family, "Liberation Mono");
  EXPECT_EQ(span.m_askedFamily, "isocpeur");
  EXPECT_EQ(span.m_match, FontMatch::Asked);
}

TEST(FontOptions, AReplacementCountsEvenForAnInstalledFamily) {
  WithFonts const scope({.m_directories = {}, .m_replacements = {{"Liberation Sans", "DejaVu Serif"}}});
  EXPECT_EQ(layOutAnew("A", makeProperties(10.0F, "Liberation Sans")).at(0).m_family, "DejaVu Serif");
  EXPECT_EQ(layOutAnew("A", makeProperties(10.0F, "Liberation Serif")).at(0).m_family, "Liberation Serif");
}

TEST(FontOptions, AReplacementMayBeServedByAFamilyWithTheSameWidths) {
  WithFonts const scope({.m_directories = {}, .m_replacements = {{"Txt", "Courier New"}}});
  svg::TextSpan const span = layOutAnew("A", makeProperties(10.0F, "Txt")).at(0);
  EXPECT_EQ(span.m_family, "Liberation Mono");
  EXPECT_EQ(span.m_match, FontMatch::MetricCompatible);
}

TEST(FontOptions, AReplacementThatIsNotThereChangesNothing) {
  WithFonts const scope({.m_directories = {}, .m_replacements = {{"Liberation Sans", "No Such Family"}}});
  svg::TextSpan const span = layOutAnew("A", makeProperties(10.0F, "Liberation Sans")).at(0);
  EXPECT_EQ(span.m_family, "Liberation Sans");
  EXPECT_EQ(span.m_match, FontMatch::Asked);
}

TEST(FontOptions, OfSeveralReplacementsOfAFamilyTheFirstCounts) {
  WithFonts const scope(
      {.m_directories = {}, .m_replacements = {{"Txt", "DejaVu Serif"}, {"Txt", "Liberation Mono"}}});
  EXPECT_EQ(layOutAnew("A", makeProperties(10.0F, "Txt")).at(0).m_family, "DejaVu Serif");
}

TEST(FontOptions, AConverterKeepsTheFontsOfItsFirstText) {
  TextSegmentToSvgConverter converter;
  EXPECT_EQ(layOut({{normal("A")}}, converter).at(0)->m_spans.at(0).m_family, "Liberation Sans");
  WithFonts const scope(onlyFontsOf({DEJAVU_FOLDER}));
  EXPECT_EQ(layOut({{normal("A")}}, converter).at(0)->m_spans.at(0).m_family, "Liberation Sans");
}

TEST(FontPackages, NameThePackageOfAFamilyOrItsLike) {
  for (auto const& [family, package] : {std::pair("Arial", "fonts-liberation2"),
                                        {"times new roman", "fonts-liberation2"},
                                        {"CourierNewPSMT", "fonts-liberation2"},
                                        {"Arial Narrow", "fonts-liberation-sans-narrow"},
                                        {"Calibri", "fonts-crosextra-carlito"},
                                        {"Cambria", "fonts-crosextra-caladea"},
                                        {"DejaVu Sans", "fonts-dejavu-core"},
                                        {"DejaVu Sans Condensed", "fonts-dejavu-extra"},
                                        {"Noto Sans Symbols2", "fonts-noto-core"},
                                        {"Noto Sans CJK JP", "fonts-noto-cjk"},
                                        {"Palatino", "fonts-urw-base35"},
                                        {"No Such Family", ""},
                                        {"", ""}}) {
    EXPECT_EQ(findPackageWithFamily(family), package) << family;
  }
}

TEST(FontPackages, NameNoPackageForCharactersThatHaveNoMeaningOfTheirOwn) {
  for (char32_t const character :
       {U'\uE000', U'\U000F0000', U'\uFFFF', U'\u0378', static_cast<char32_t>(0x110000)}) {
    EXPECT_EQ(findPackageWithCharacter(character), "") << static_cast<unsigned>(character);
  }
}

TEST(FontPackages, NameThePackageOfOtherScripts) {
  EXPECT_EQ(findPackageWithCharacter(U'\u4E2D'), "fonts-noto-cjk");
  EXPECT_EQ(findPackageWithCharacter(U'\uAC00'), "fonts-noto-cjk");
  EXPECT_EQ(findPackageWithCharacter(U'\U00020000'), "fonts-noto-cjk");
  EXPECT_EQ(findPackageWithCharacter(U'\u0928'), "fonts-noto-core");
  EXPECT_EQ(findPackageWithCharacter(U'\U0001F600'), "fonts-symbola");
}

/// True when a font of the folder has the character.
bool isInFolder(std::string const& character, std::string const& folder) {
  WithFonts const scope(onlyFontsOf({folder}));
  return layOutAnew(character).at(0).m_match != FontMatch::Missing;
}

TEST(FontPackages, HoldTheCharactersForWhichTheyAreNamed) {
  for (auto const& [character, text] : {std::pair(U'\u00B1', "\u00B1"),
                                        {U'\u00D8', "\u00D8"},
                                        {U'\u03A9', "\u03A9"},
                                        {U'\u0416', "\u0416"},
                                        {U'\u2300', "\u2300"},
                                        {U'\u2312', "\u2312"},
                                        {U'\u2316', "\u2316"},
                                        {U'\u23E5', "\u23E5"},
                                        {U'\u25CB', "\u25CB"},
                                        {U'\u2225', "\u2225"},
                                        {U'\u27C2', "\u27C2"},
                                        {U'\u24C2', "\u24C2"},
                                        {U'\u21A7', "\u21A7"},
                                        {U'\u05D0', "\u05D0"},
                                        {U'\u0639', "\u0639"},
                                        {U'\u0E01', "\u0E01"}}) {
    std::string_view const package = findPackageWithCharacter(character);
    char const* const folder = package == "fonts-liberation2"   ? LIBERATION_FOLDER
                               : package == "fonts-dejavu-core" ? DEJAVU_FOLDER
                                                                : NOTO_FOLDER;
    EXPECT_TRUE(isInFolder(text, folder)) << text << ' ' << package;
  }
}

}  // namespace
}  // namespace qv::text
