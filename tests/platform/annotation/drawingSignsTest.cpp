// The signs of drawings: each in the first font of the fixed order that has it.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fontFolders.h"

namespace qv::text {
namespace {

struct Sign {
  char const* m_text;
  char const* m_family;
};

constexpr Sign SIGNS[] = {
    {"\u2300", "DejaVu Sans"},        {"\u2312", "Noto Sans Symbols"}, {"\u2313", "Noto Sans Symbols"},
    {"\u2316", "Noto Sans Symbols2"}, {"\u232D", "Noto Sans Symbols"}, {"\u232F", "Noto Sans Symbols"},
    {"\u2330", "Noto Sans Symbols"},  {"\u2331", "Noto Sans Symbols"}, {"\u23E4", "Noto Sans Symbols"},
    {"\u23E5", "DejaVu Sans"},        {"\u25CB", "Liberation Sans"},   {"\u2225", "DejaVu Sans"},
    {"\u27C2", "Noto Sans Math"},     {"\u2220", "DejaVu Sans"},       {"\u24C2", "Noto Sans Symbols"},
    {"\u24C1", "Noto Sans Symbols"},  {"\u24C5", "Noto Sans Symbols"}, {"\u2334", "Noto Sans Symbols"},
    {"\u2335", "Noto Sans Symbols"},  {"\u21A7", "DejaVu Sans"},       {"\u25A1", "Liberation Sans"},
    {"\u24CA", "Noto Sans Symbols"},  {"\u25CE", "DejaVu Sans"},       {"\u25FA", "DejaVu Sans"},
    {"\u2197", "DejaVu Sans"},        {"\u2212", "Liberation Sans"},   {"\u00B1", "Liberation Sans"},
    {"\u00B0", "Liberation Sans"},    {"\u00D7", "Liberation Sans"},
};

TEST(DrawingSigns, AreDrawnInTheFirstFontOfTheOrderThatHasThem) {
  for (Sign const& sign : SIGNS) {
    std::vector<svg::TextSpan> const spans = layOutSpans(sign.m_text);
    ASSERT_EQ(spans.size(), 1U) << sign.m_text;
    EXPECT_EQ(spans[0].m_family, sign.m_family) << sign.m_text;
    EXPECT_EQ(spans[0].m_text, sign.m_text);
    ASSERT_EQ(spans[0].m_glyphs.size(), 1U) << sign.m_text;
    EXPECT_FALSE(spans[0].m_glyphSource->getOutline(spans[0].m_glyphs[0].m_index).empty()) << sign.m_text;
  }
}

TEST(DrawingSigns, KeepTheFontOfTheTextBesideThem) {
  std::vector<svg::TextSpan> const spans = layOutSpans("\u2316\u23000.2\u24C2A");
  ASSERT_EQ(spans.size(), 5U);
  EXPECT_EQ(spans[2].m_text, "0.2");
  EXPECT_EQ(spans[2].m_family, "Liberation Sans");
  EXPECT_EQ(spans[4].m_text, "A");
  for (std::size_t i = 1; i < spans.size(); ++i) EXPECT_FLOAT_EQ(spans[i].m_x, getEnd(spans[i - 1]));
}

TEST(DrawingSigns, AreReportedWhenNoFontHasThem) {
  WithFonts const scope(onlyFontsOf({LIBERATION_FOLDER}));
  for (Sign const& sign : SIGNS) {
    if (sign.m_family == std::string("Liberation Sans")) continue;
    svg::TextSpan const span = layOutAnew(sign.m_text).at(0);
    EXPECT_EQ(span.m_match, svg::FontMatch::Missing) << sign.m_text;
    EXPECT_EQ(span.m_original, sign.m_text);
    EXPECT_EQ(span.m_glyphs.size(), 1U) << "the replacement is not visible";
  }
}

}  // namespace
}  // namespace qv::text
