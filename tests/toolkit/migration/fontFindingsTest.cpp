#include "migration/fontFindings.h"

#include <gtest/gtest.h>

#include "qvAnnotation/fontOptions.h"

namespace {

using namespace qvToolkit;
using qv::svg::FontMatch;

struct NamedSource : qv::svg::GlyphSource {
  std::string const& getFontFile() const noexcept override { return m_file; }
  unsigned getFaceIndex() const noexcept override { return 0; }
  std::string getFontVersion() const override { return {}; }
  std::string_view getFontData() const noexcept override { return {}; }
  unsigned getUnitsPerEm() const noexcept override { return 1000; }
  qv::svg::Outline getOutline(std::uint32_t) const override { return {}; }
  std::string m_file = "/fonts/new.ttf";
};

qv::svg::TextSpan makeSpan(FontMatch match) {
  qv::svg::TextSpan span;
  span.m_text = "x";
  span.m_askedFamily = "Old";
  span.m_family = "New";
  span.m_match = match;
  span.m_glyphSource = std::make_shared<NamedSource>();
  span.m_glyphs.push_back({1, 0.0F, 0.0F});
  return span;
}

Findings report(qv::svg::TextSpan const& span) {
  FindingList findings;
  reportSpan(span, "view/0/annot/0", findings);
  return findings.takeFindings();
}

TEST(FontFindings, NameTheAskedFontTheDrawnOneAndItsFile) {
  Findings const compatible = report(makeSpan(FontMatch::MetricCompatible));
  ASSERT_EQ(compatible.size(), 1U);
  EXPECT_EQ(compatible[0].m_severity, Severity::Info);
  EXPECT_EQ(compatible[0].m_text,
            "text in font 'Old' is drawn with 'New' (/fonts/new.ttf), which is as wide");
  Findings const substituted = report(makeSpan(FontMatch::Substitute));
  ASSERT_EQ(substituted.size(), 1U);
  EXPECT_EQ(substituted[0].m_severity, Severity::Warning);
  EXPECT_EQ(substituted[0].m_text,
            "text in font 'Old' is drawn with 'New' (/fonts/new.ttf), which is not as wide");
}

TEST(FontFindings, TellOfCharactersForWhichTheFontDrawsNothing) {
  qv::svg::TextSpan span = makeSpan(FontMatch::Asked);
  span.m_text = "a b";
  span.m_glyphs.clear();
  Findings const found = report(span);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].m_code, FindingCode::GlyphMissing);
  EXPECT_EQ(found[0].m_severity, Severity::Error);
  EXPECT_EQ(found[0].m_text,
            "the font 'New' (/fonts/new.ttf) draws nothing for 2 characters of the text; remove it, or name "
            "another one");
  span.m_text = " \u00A0";
  EXPECT_TRUE(report(span).empty());
}

TEST(FontFindings, AreNoneForTheAskedFontAndAnInfoForOneThatTheUserWants) {
  qv::svg::TextSpan span = makeSpan(FontMatch::Asked);
  EXPECT_TRUE(report(span).empty());
  span.m_family = "DejaVu Sans";
  qv::text::setFontOptions({.m_directories = {}, .m_replacements = {{"O ld", "DejaVu Sans"}}});
  Findings const replaced = report(span);
  qv::text::setFontOptions({});
  ASSERT_EQ(replaced.size(), 1U);
  EXPECT_EQ(replaced[0].m_code, FindingCode::FontReplaced);
  EXPECT_EQ(replaced[0].m_severity, Severity::Info);
  EXPECT_EQ(replaced[0].m_text,
            "text in font 'Old' is drawn with 'DejaVu Sans' (/fonts/new.ttf), as was asked for");
}

TEST(FontFindings, WarnWhenTheFontThatTheUserWantsIsNotThere) {
  qv::text::setFontOptions({.m_directories = {}, .m_replacements = {{"Old", "No Such Font"}}});
  Findings const found = report(makeSpan(FontMatch::MetricCompatible));
  qv::text::setFontOptions({});
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].m_severity, Severity::Warning);
  EXPECT_EQ(found[0].m_text,
            "text in font 'Old' is drawn with 'New' (/fonts/new.ttf), since the font 'No Such Font' that "
            "is named instead is not there");
  EXPECT_EQ(found[0].m_options, std::vector{OptionKey::FontReplacement});
}

TEST(FontFindings, NameWhatIsMadeUp) {
  qv::svg::TextSpan span = makeSpan(FontMatch::Asked);
  span.m_synthesis = {.m_bold = true, .m_oblique = true};
  Findings const found = report(span);
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].m_code, FindingCode::FontSynthesized);
  EXPECT_EQ(found[0].m_severity, Severity::Warning);
  EXPECT_EQ(found[0].m_text, "the font 'New' (/fonts/new.ttf) has no bold face; bold is made up by a stroke");
  EXPECT_EQ(found[1].m_text,
            "the font 'New' (/fonts/new.ttf) has no italic face; italic is made up by a slant");
}

TEST(FontFindings, NameEachMissingCharacterAndThePackageThatHasIt) {
  qv::svg::TextSpan span = makeSpan(FontMatch::Missing);
  span.m_original = "\u2316\U0010FFFD\u2316";
  Findings const found = report(span);
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].m_severity, Severity::Error);
  EXPECT_EQ(found[0].m_text,
            "no font has the character U+2316 POSITION INDICATOR; a replacement sign is drawn; install the "
            "package fonts-noto-core");
  EXPECT_EQ(found[1].m_text,
            "no font has the character U+10FFFD; a replacement sign is drawn; install a font that has it");
}

TEST(FontFindings, NameWhatCannotBeShown) {
  qv::svg::TextSpan span = makeSpan(FontMatch::Asked);
  span.m_unshowable = {"\x1b", "\xed\xa0\x80", "\xff", "\xe2\x8c"};
  Findings found = report(span);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].m_code, FindingCode::TextRepaired);
  EXPECT_EQ(found[0].m_severity, Severity::Warning);
  EXPECT_EQ(
      found[0].m_text,
      "the text holds U+001B, U+D800, the byte FF, the bytes E2 8C: control characters and invalid UTF-8 "
      "are shown as U+FFFD");
  span.m_unshowable.assign(7, "\x07");
  EXPECT_NE(report(span)[0].m_text.find("U+0007 and 2 more:"), std::string::npos);
}

}  // namespace
