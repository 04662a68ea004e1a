#include <gtest/gtest.h>

#include <limits>

#include "annotationLegacy/qvAnnotationText.h"
#include "tests/hostile/linearTime.h"
#include "tests/readers/variant/variants.h"

namespace {

using namespace readersTest;
using Text = qvLegacy::qvAnnotationText;
using Properties = Text::TextProperties;
using Segment = Text::TextSegment;

/// A text annotation after reading one map into it.
struct Loaded : Text {
  explicit Loaded(Map const& map, qv::qvStreamVersion const& version = v6_22)
      : outcome(read(*this, map, version)) {}
  Outcome outcome;
};

/// The run that one segment map gives, under the given default properties.
Segment runOf(Map const& segment, Map const& defaults = {}) {
  Loaded const text(Map{{"defaulttextprop", defaults}, {"lines", list(list(segment))}});
  return text.m_lines.front().front();
}

std::string textOf(Text const& text) {
  std::string plain;
  text.toString(plain);
  return plain;
}

Properties propertiesWith(std::uint16_t height, Map const& map) {
  Properties properties;
  properties.m_height = height;
  properties.loadFromVariant(map, v6_22);
  return properties;
}

// --- text properties

TEST(TextPropertiesFields, QuantiseTheGivenHeight) {
  std::vector<std::pair<Variant, int>> const rows = {{0.53, 52},
                                                     {1.05, 104},
                                                     {2, 200},
                                                     {-1, 0},
                                                     {1e9, 65534},
                                                     {12.5, 1250},
                                                     {1e39, 65534},
                                                     {-1e39, 0},
                                                     {"1.5", 150},
                                                     {"x", 0},
                                                     {true, 100},
                                                     {false, 0},
                                                     {Variant(), 0},
                                                     {0.004, 0},
                                                     {655.35, 65534},
                                                     {Map{}, 0},
                                                     {std::numeric_limits<double>::quiet_NaN(), 0}};
  for (auto const& [height, hundredths] : rows) {
    EXPECT_EQ(propertiesWith(777, {{"heightem", height}}).m_height, hundredths) << height.toString();
  }
}

TEST(TextPropertiesFields, QuantiseAnAbsentHeightAnew) {
  for (auto const& [before, after] : {std::pair{53, 52}, {105, 104}, {65535, 65534}, {100, 100}, {0, 0}}) {
    EXPECT_EQ(propertiesWith(static_cast<std::uint16_t>(before), {}).m_height, after);
  }
}

TEST(TextPropertiesFields, LowerOneInFourteenOfAllAbsentHeightsByOneHundredth) {
  int lowered = 0;
  for (int height = 0; height <= 65535; ++height) {
    int const after = propertiesWith(static_cast<std::uint16_t>(height), {}).m_height;
    if (after == height) continue;
    ASSERT_EQ(after, height - 1);
    ++lowered;
  }
  EXPECT_EQ(lowered, 4585);
}

TEST(TextPropertiesFields, SetAndClearTheStyleBitsAndKeepTheOthers) {
  auto const flagsAfter = [](std::uint16_t flags, Map const& map) {
    Properties properties;
    properties.m_styleFlags = flags;
    properties.loadFromVariant(map, v6_22);
    return properties.m_styleFlags;
  };
  EXPECT_EQ(flagsAfter(0xFFFC, {{"bold", true}, {"italic", false}}), 0xFFFD);
  EXPECT_EQ(flagsAfter(0xFFFF, {{"bold", false}}), 0xFFFE);
  EXPECT_EQ(flagsAfter(0xFFFF, {{"italic", 0}}), 0xFFFD);
  EXPECT_EQ(flagsAfter(0, {{"bold", 1}, {"italic", "true"}}), 3);
  EXPECT_EQ(flagsAfter(3, {{"bold", Variant()}, {"italic", Map{}}}), 0);
  EXPECT_EQ(flagsAfter(2, {}), 2);
}

TEST(TextPropertiesFields, ReplaceTheFontOnlyWhenItIsGiven) {
  EXPECT_EQ(propertiesWith(100, {}).m_fontName, "Arial");
  EXPECT_EQ(propertiesWith(100, {{"font", "Times"}}).m_fontName, "Times");
  EXPECT_EQ(propertiesWith(100, {{"font", 7}}).m_fontName, "7");
  EXPECT_EQ(propertiesWith(100, {{"font", ""}}).m_fontName, "");
  EXPECT_EQ(propertiesWith(100, {{"font", list(1)}}).m_fontName, "");
}

// --- version and default properties

TEST(TextFields, AreRefusedBefore6_17) {
  Loaded const older(Map{{"text", "x"}}, v6_16);
  EXPECT_FALSE(older.outcome.isRead);
  // The shared reader refuses first, so its message is the only one.
  EXPECT_EQ(older.outcome.messages, Messages{"invalid version for annotation interface"});
  EXPECT_TRUE(older.m_lines.empty());
  Loaded const newer(Map{{"text", "x"}}, v6_17);
  EXPECT_TRUE(newer.outcome.isRead);
  EXPECT_EQ(textOf(newer), "x");
}

TEST(TextFields, AreNotReadWhenTheSharedOnesFail) {
  Loaded const text(Map{{"position", 5}, {"defaulttextprop", Map{{"heightem", 2}}}, {"text", "x"}});
  EXPECT_FALSE(text.outcome.isRead);
  EXPECT_EQ(text.outcome.messages, Messages{"invalid 'position' field"});
  EXPECT_EQ(text.m_defaultTextProperties.m_height, 100);
  EXPECT_TRUE(text.m_lines.empty());
}

TEST(TextFields, HoldDefaultProperties) {
  Loaded const text(Map{{"defaulttextprop", Map{{"heightem", 2}, {"bold", true}, {"font", "Times"}}}});
  EXPECT_EQ(text.m_defaultTextProperties.m_height, 200);
  EXPECT_EQ(text.m_defaultTextProperties.m_styleFlags, Properties::Bold);
  EXPECT_EQ(text.m_defaultTextProperties.m_fontName, "Times");
  EXPECT_EQ(Loaded(Map{}).m_defaultTextProperties.m_height, 100);
}

TEST(TextFields, KeepAHeightThatIsNotGivenAndHasNoProperties) {
  Text text;
  text.m_defaultTextProperties.m_height = 53;
  EXPECT_TRUE(read(text, {}, v6_22).isRead);
  EXPECT_EQ(text.m_defaultTextProperties.m_height, 53);
  EXPECT_TRUE(read(text, {{"defaulttextprop", Map{}}}, v6_22).isRead);
  EXPECT_EQ(text.m_defaultTextProperties.m_height, 52);
}

TEST(TextFields, ReportDefaultPropertiesThatAreNoMapAndGoOn) {
  for (Variant const& value : oneOfEachKind()) {
    if (value.isMap()) continue;
    Loaded const text(Map{{"defaulttextprop", value}, {"lines", list(list(Map{{"text", "a"}}))}});
    EXPECT_TRUE(text.outcome.isRead);
    EXPECT_EQ(text.outcome.messages, Messages{"invalid 'defaulttextprop' field"});
    EXPECT_EQ(text.m_defaultTextProperties.m_height, 100);
    EXPECT_EQ(textOf(text), "a");
  }
}

// --- plain text

TEST(PlainText, IsSplitAtLineBreaks) {
  Loaded const text(Map{{"text", "a\r\nb"}});
  ASSERT_EQ(text.m_lines.size(), 2U);
  ASSERT_EQ(text.m_lines.front().size(), 1U);
  EXPECT_EQ(text.m_lines.front().front().m_type, Segment::Normal);
  EXPECT_EQ(text.m_lines.front().front().m_textProperties, nullptr);
  EXPECT_EQ(textOf(text), "a\nb");
}

TEST(PlainText, IsOneLineOfOneEmptyRunWhenThereIsNone) {
  Loaded const text(Map{});
  EXPECT_TRUE(text.outcome.isRead);
  ASSERT_EQ(text.m_lines.size(), 1U);
  ASSERT_EQ(text.m_lines.front().size(), 1U);
  EXPECT_EQ(text.m_lines.front().front().m_text, nullptr);
}

TEST(PlainText, IsUsedInsteadOfLinesThatAreNoList) {
  for (Variant const& value : oneOfEachKind()) {
    if (value.isList()) continue;
    Loaded const text(Map{{"lines", value}, {"text", "x"}});
    EXPECT_EQ(textOf(text), "x");
    EXPECT_TRUE(text.outcome.messages.empty());
  }
}

TEST(PlainText, IsIgnoredWhereThereAreLines) {
  Loaded const text(Map{{"lines", list()}, {"text", "x"}});
  EXPECT_TRUE(text.m_lines.empty());
  EXPECT_TRUE(text.outcome.isRead);
}

TEST(PlainText, TakesTheStringFormOfOtherKinds) {
  EXPECT_EQ(textOf(Loaded(Map{{"text", 7}})), "7");
  EXPECT_EQ(textOf(Loaded(Map{{"text", true}})), "true");
  EXPECT_EQ(textOf(Loaded(Map{{"text", list(1)}})), "");
}

TEST(PlainText, ReplacesTheLinesThatAreThere) {
  Text text;
  text.setText("old");
  EXPECT_TRUE(read(text, {{"text", "new"}}, v6_22).isRead);
  EXPECT_EQ(textOf(text), "new");
}

// --- lines

TEST(LinesField, SkipsElementsOfTheWrongKind) {
  Loaded const text(
      Map{{"lines", list(list(Map{{"text", "a"}, {"type", "sub"}}, 7), "z", list(Map{{"type", "SUB"}}))}});
  EXPECT_TRUE(text.outcome.isRead);
  EXPECT_EQ(text.outcome.messages, (Messages{"invalid segment", "invalid line"}));
  ASSERT_EQ(text.m_lines.size(), 2U);
  ASSERT_EQ(text.m_lines.front().size(), 1U);
  EXPECT_STREQ(text.m_lines.front().front().getText(), "a");
  EXPECT_EQ(text.m_lines.front().front().m_type, Segment::Subscript);
  ASSERT_EQ(text.m_lines.back().size(), 1U);
  EXPECT_EQ(text.m_lines.back().front().m_text, nullptr);
  EXPECT_EQ(text.m_lines.back().front().m_type, Segment::Normal);
}

TEST(LinesField, ReportsEachElementOfTheWrongKind) {
  for (Variant const& value : oneOfEachKind()) {
    if (!value.isList()) {
      EXPECT_EQ(Loaded(Map{{"lines", list(value)}}).outcome.messages, Messages{"invalid line"});
    }
    if (!value.isMap()) {
      EXPECT_EQ(Loaded(Map{{"lines", list(list(value))}}).outcome.messages, Messages{"invalid segment"});
    }
  }
  Loaded const text(Map{{"lines", list(1, 2, list(3, 4))}});
  EXPECT_EQ(text.outcome.messages,
            (Messages{"invalid line", "invalid line", "invalid segment", "invalid segment"}));
  ASSERT_EQ(text.m_lines.size(), 1U);
  EXPECT_TRUE(text.m_lines.front().empty());
}

TEST(LinesField, OfManyLinesIsReadInLinearTime) {
  auto const readLines = [](std::size_t count) {
    qv::qvVariant::qvVariantListImpl const lines(count, list(Map{{"text", "a"}}));
    return [map = Map{{"lines", lines}}, count] {
      Loaded const text(map);
      EXPECT_EQ(text.m_lines.size(), count);
    };
  };
  qvHostile::expectLinearTime(readLines(5'000), readLines(40'000));
}

TEST(LinesField, KeepsEmptyLines) {
  EXPECT_EQ(Loaded(Map{{"lines", list(list(), list())}}).m_lines.size(), 2U);
}

TEST(LinesField, AppendsToTheLinesThatAreThere) {
  Text text;
  text.setText("old");
  EXPECT_TRUE(read(text, {{"lines", list(list(Map{{"text", "new"}}))}}, v6_22).isRead);
  EXPECT_EQ(textOf(text), "old\nnew");
}

// --- segments

TEST(SegmentElement, KnowsTwoTypesExactly) {
  std::vector<std::pair<Variant, int>> const rows = {{"sub", 1},  {"sup", 2}, {"SUB", 0},
                                                     {"sub ", 0}, {"", 0},    {"su", 0},
                                                     {1, 0},      {Map{}, 0}, {Variant(), 0}};
  for (auto const& [name, type] : rows) EXPECT_EQ(runOf({{"type", name}}).m_type, type) << name.toString();
  EXPECT_EQ(runOf({}).m_type, Segment::Normal);
}

TEST(SegmentElement, TakesTheStringFormOfItsText) {
  EXPECT_STREQ(runOf({{"text", 7}}).getText(), "7");
  EXPECT_STREQ(runOf({{"text", 1.5}}).getText(), "1.5");
  EXPECT_EQ(runOf({{"text", Map{}}}).m_text, nullptr);
}

TEST(SegmentElement, IsCutAt65535Characters) {
  EXPECT_EQ(runOf({{"text", std::string(70000, 'x')}}).m_length, 65535);
}

TEST(SegmentElement, KeepsZeroCharactersInsideItsText) {
  Loaded const text(Map{{"lines", list(list(Map{{"text", std::string("a\0b", 3)}}))}});
  Segment const& run = text.m_lines.front().front();
  EXPECT_EQ(run.m_length, 3);
  EXPECT_EQ(std::string(run.getText(), 3), std::string("a\0b", 3));
}

TEST(SegmentElement, DoesNotSplitItsTextAtLineBreaks) {
  EXPECT_STREQ(runOf({{"text", "a\r\nb"}}).getText(), "a\r\nb");
}

TEST(SegmentElement, HasNoPropertiesOfItsOwnWhereTheyRepeatTheDefaults) {
  Map const defaults{{"heightem", 2}, {"bold", true}, {"font", "Times"}};
  EXPECT_EQ(runOf({}, defaults).m_textProperties, nullptr);
  EXPECT_EQ(runOf(defaults, defaults).m_textProperties, nullptr);
  EXPECT_EQ(runOf({{"italic", false}}, defaults).m_textProperties, nullptr);
}

TEST(SegmentElement, HasPropertiesOfItsOwnOnTopOfTheDefaults) {
  Map const defaults{{"heightem", 2}, {"bold", true}, {"font", "Times"}};
  Segment const italic = runOf({{"italic", true}}, defaults);
  ASSERT_NE(italic.m_textProperties, nullptr);
  EXPECT_EQ(italic.m_textProperties->m_height, 200);
  EXPECT_EQ(italic.m_textProperties->m_styleFlags, 3);
  EXPECT_EQ(italic.m_textProperties->m_fontName, "Times");
  EXPECT_NE(runOf({{"bold", false}}, defaults).m_textProperties, nullptr);
  EXPECT_NE(runOf({{"heightem", 1}}, defaults).m_textProperties, nullptr);
  EXPECT_NE(runOf({{"font", "Mono"}}, defaults).m_textProperties, nullptr);
}

TEST(SegmentElement, HasPropertiesOfItsOwnWhereQuantisingLowersTheDefaultHeight) {
  Text text;
  text.m_defaultTextProperties.m_height = 53;
  EXPECT_TRUE(read(text, {{"lines", list(list(Map{{"text", "a"}}))}}, v6_22).isRead);
  ASSERT_NE(text.m_lines.front().front().m_textProperties, nullptr);
  EXPECT_EQ(text.m_lines.front().front().m_textProperties->m_height, 52);
}

}  // namespace
