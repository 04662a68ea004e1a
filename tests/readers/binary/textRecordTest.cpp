#include <gtest/gtest.h>

#include "annotationLegacy/qvAnnotationText.h"
#include "tests/hostile/linearTime.h"
#include "tests/readers/binary/records.h"

namespace {

using namespace readersTest;
using Annotation = qvLegacy::qvAnnotationInterface;
using Text = qvLegacy::qvAnnotationText;
using Vector = Wm4::Vector3<float>;
using Color = Wm4::Vector3<unsigned char>;

Text::TextSegment filledRun() {
  Text::TextSegment run("old", Text::TextSegment::Superscript);
  run.setTextProperties(Text::TextProperties("Mono", 2.0F));
  return run;
}

std::string bytesOf(Text::TextSegment const& run, std::size_t size) {
  return {run.getText(), size};
}

TEST(TextPropertiesRecord, ReadsFontHeightAndFlags) {
  ByteStream stream(Bytes("05 00 00 00 54 69 6D 65 73 64 00 03 00"), v6_22);
  Text::TextProperties properties;
  properties.load(stream);
  EXPECT_EQ(properties.m_fontName, "Times");
  EXPECT_EQ(properties.m_height, 100);
  EXPECT_EQ(properties.m_styleFlags, Text::TextProperties::Bold | Text::TextProperties::Italic);
  EXPECT_EQ(stream.left(), 0U);
  EXPECT_EQ(stream.reads(), (std::vector<std::size_t>{4, 5, 4}));
}

TEST(TextPropertiesRecord, EmptiesTheFontForALengthBelowOne) {
  for (std::uint32_t const length : {0U, 0xFFFFFFFFU, 0x80000000U}) {
    ByteStream stream(Bytes().u32(length).u32(0xFFFFFFFF), v6_22);
    Text::TextProperties properties;
    properties.load(stream);
    EXPECT_EQ(properties.m_fontName, "");
    EXPECT_EQ(properties.m_height, 65535);
    EXPECT_EQ(properties.m_styleFlags, 65535);
    EXPECT_FALSE(stream.hasStreamError());
  }
}

TEST(TextPropertiesRecord, KeepsHeightAndFlagsWhenTheirWordIsNotWhole) {
  ByteStream stream(Bytes("02 00 00 00 41 42 01 02 03"), v6_22);
  Text::TextProperties properties("x", 2.5F);
  properties.m_styleFlags = 3;
  properties.load(stream);
  EXPECT_EQ(properties.m_fontName, "AB");
  EXPECT_EQ(properties.m_height, 250);
  EXPECT_EQ(properties.m_styleFlags, 3);
  EXPECT_TRUE(stream.hasStreamError());
}

TEST(TextPropertiesRecord, KeepTheDefaultsCharactersWhereAShortFontNameHasNone) {
  ByteStream stream(Bytes("07 00 00 00 54 69"), v6_22);
  Text::TextProperties properties;
  properties.load(stream);
  EXPECT_EQ(properties.m_fontName, std::string("Tiial\0\0", 7));
  EXPECT_TRUE(stream.hasStreamError());
}

TEST(TextPropertiesRecord, KeepTheOlderCharactersWhenLoadedAgainFromAShorterStream) {
  Bytes const whole = propertiesRecord("Helvetica", 50, 1);
  Text::TextProperties properties;
  ByteStream first(whole, v6_22);
  properties.load(first);
  ASSERT_FALSE(first.hasStreamError());
  ByteStream second(Bytes().u32(6).raw("Mo"), v6_22);
  properties.load(second);
  EXPECT_EQ(properties.m_fontName, "Molvet");
  EXPECT_EQ(properties.m_height, 50);
  EXPECT_EQ(properties.m_styleFlags, 1);
}

TEST(OldTextRecord, KeepsTheOlderCharactersOfItsNameWhenLoadedAgainFromAShorterStream) {
  Text text;
  ByteStream first(oldTextRecord(v6_14, "General note", 1), v6_14);
  text.load(first);
  ASSERT_EQ(text.m_name, "General note");
  ByteStream second(Bytes().u32(14).raw("Spec"), v6_14);
  text.load(second);
  EXPECT_EQ(text.m_name, std::string("Specral note\0\0", 14));
}

TEST(RunRecord, KeepsNothingOfAnOlderTextWhenLoadedAgainFromAShorterStream) {
  for (std::uint32_t const version : {v6_16, v6_17}) {
    Text::TextSegment run;
    ByteStream first(runRecord(version, "abcdef", 0), version);
    run.load(first);
    ASSERT_STREQ(run.getText(), "abcdef");
    ByteStream second(runRecord(version, "vwxyz", 0).prefix(version < v6_17 ? 6 : 4), version);
    run.load(second);
    EXPECT_STREQ(run.getText(), "vw") << version;
  }
}

TEST(RunRecord, KeepsZeroCharactersFrom6_17On) {
  ByteStream stream(Bytes("03 00 61 00 62 02 00"), v6_17);
  Text::TextSegment run;
  run.load(stream);
  EXPECT_EQ(run.m_length, 3);
  EXPECT_EQ(bytesOf(run, 4), std::string("a\0b\0", 4));
  EXPECT_EQ(run.m_type, Text::TextSegment::Superscript);
  EXPECT_EQ(run.m_textProperties, nullptr);
  EXPECT_EQ(stream.GetReadBytes(), 7U);
  EXPECT_EQ(stream.left(), 0U);
  EXPECT_FALSE(stream.hasStreamError());
}

TEST(RunRecord, WithoutTextStillReadsTypeAndPropertiesFlag) {
  ByteStream stream(Bytes("00 00 02 00"), v6_17);
  Text::TextSegment run;
  run.load(stream);
  EXPECT_EQ(run.m_text, nullptr);
  EXPECT_EQ(run.m_length, 0);
  EXPECT_EQ(run.m_type, Text::TextSegment::Superscript);
  EXPECT_EQ(run.m_textProperties, nullptr);
  EXPECT_EQ(stream.left(), 0U);
  EXPECT_FALSE(stream.hasStreamError());
}

TEST(RunRecord, EndsTheTextAtItsFirstZeroBefore6_17) {
  ByteStream stream(Bytes("03 00 00 00 61 00 62 00"), v6_16);
  Text::TextSegment run;
  run.load(stream);
  EXPECT_EQ(run.m_length, 1);
  EXPECT_STREQ(run.getText(), "a");
  EXPECT_EQ(run.m_type, Text::TextSegment::Normal);
  EXPECT_EQ(run.m_textProperties, nullptr);
  EXPECT_EQ(stream.GetReadBytes(), 8U);
  EXPECT_FALSE(stream.hasStreamError());
}

TEST(RunRecord, HasNoTextBefore6_17WhenItBeginsWithAZero) {
  ByteStream stream(Bytes("02 00 00 00 00 62 00"), v6_16);
  Text::TextSegment run;
  run.load(stream);
  EXPECT_EQ(run.m_text, nullptr);
  EXPECT_EQ(run.m_length, 0);
}

TEST(RunRecord, CutsTheTextAt65535CharactersBefore6_17) {
  ByteStream stream(Bytes().text(std::string(70000, 'x')).u8(0), v6_16);
  Text::TextSegment run;
  run.load(stream);
  EXPECT_EQ(run.m_length, 65535);
  EXPECT_EQ(std::string_view(run.getText()).size(), 65535U);
  EXPECT_EQ(stream.left(), 0U);
}

TEST(RunRecord, Holds65535CharactersFrom6_17On) {
  ByteStream stream(Bytes().u16(65535).raw(std::string(65535, 'x')).u8(1).u8(0), v6_17);
  Text::TextSegment run;
  run.load(stream);
  EXPECT_EQ(run.m_length, 65535);
  EXPECT_EQ(std::string_view(run.getText()), std::string(65535, 'x'));
  EXPECT_EQ(run.m_type, Text::TextSegment::Subscript);
  EXPECT_FALSE(stream.hasStreamError());
}

TEST(RunRecord, DiscardsTextAndPropertiesFirst) {
  Text::TextSegment run = filledRun();
  ByteStream since(Bytes("00 00 01 00"), v6_17);
  run.load(since);
  EXPECT_EQ(run.m_text, nullptr);
  EXPECT_EQ(run.m_textProperties, nullptr);
  EXPECT_EQ(run.m_type, Text::TextSegment::Subscript);

  run = filledRun();
  ByteStream before(Bytes("00 00 00 00 00"), v6_16);
  run.load(before);
  EXPECT_EQ(run.m_text, nullptr);
  EXPECT_EQ(run.m_textProperties, nullptr);
  EXPECT_EQ(run.m_type, Text::TextSegment::Normal);
}

TEST(RunRecord, ReadsPropertiesForEveryFlagThatIsNotZero) {
  for (std::uint32_t const version : {v6_16, v6_17}) {
    for (std::uint8_t const flag : std::initializer_list<std::uint8_t>{1, 2, 255}) {
      Bytes const plain = runRecord(version, "a", 0);
      Bytes bytes = plain.prefix(plain.size() - 1);
      ByteStream stream(bytes.u8(flag).append(propertiesRecord("Mono", 50, 1)), version);
      Text::TextSegment run;
      run.load(stream);
      ASSERT_NE(run.m_textProperties, nullptr);
      EXPECT_EQ(run.m_textProperties->m_fontName, "Mono");
      EXPECT_EQ(run.m_textProperties->m_height, 50);
      EXPECT_EQ(run.m_textProperties->m_styleFlags, 1);
      EXPECT_EQ(stream.left(), 0U);
    }
  }
}

TEST(RunRecord, StartsItsPropertiesFromTheDefaults) {
  ByteStream stream(Bytes("00 00 00 01"), v6_17);
  Text::TextSegment run = filledRun();
  run.load(stream);
  ASSERT_NE(run.m_textProperties, nullptr);
  EXPECT_EQ(run.m_textProperties->m_fontName, "");
  EXPECT_EQ(run.m_textProperties->m_height, 100);
  EXPECT_EQ(run.m_textProperties->m_styleFlags, 0);
  EXPECT_TRUE(stream.hasStreamError());
}

TEST(RunRecord, KeepsTypesOutsideTheEnumeration) {
  ByteStream stream(Bytes("00 00 C8 00"), v6_17);
  Text::TextSegment run;
  run.load(stream);
  EXPECT_EQ(static_cast<int>(run.m_type), 200);
  EXPECT_FALSE(stream.hasStreamError());
}

TEST(RunRecord, FillsAShortTextUpWithZerosAndKeepsTypeAndLength) {
  ByteStream stream(Bytes("04 00 61 62"), v6_17);
  Text::TextSegment run = filledRun();
  run.load(stream);
  EXPECT_EQ(run.m_length, 4);
  EXPECT_EQ(bytesOf(run, 5), std::string("ab\0\0\0", 5));
  EXPECT_EQ(run.m_type, Text::TextSegment::Superscript);
  EXPECT_EQ(run.m_textProperties, nullptr);
  EXPECT_TRUE(stream.hasStreamError());
}

TEST(RunRecord, HasNoTextWhenItsLengthIsNotWhole) {
  for (std::uint32_t const version : {v6_16, v6_17}) {
    ByteStream stream(Bytes("FF"), version);
    Text::TextSegment run = filledRun();
    run.load(stream);
    EXPECT_EQ(run.m_text, nullptr);
    EXPECT_EQ(run.m_length, 0);
    EXPECT_TRUE(stream.hasStreamError());
  }
}

TEST(TextRecord, ReadsEveryFieldInOrder) {
  for (std::uint32_t const version : {v6_15, v6_16, v6_17, v6_21, v6_22, v6_27}) {
    ByteStream stream(textRecord(version, "note"), version);
    Text text;
    text.load(stream);
    EXPECT_EQ(text.m_name, "note");
    EXPECT_EQ(text.m_position, Vector(4, 5, 6));
    EXPECT_EQ(text.m_defaultTextProperties.m_fontName, "Times");
    EXPECT_EQ(text.m_defaultTextProperties.m_height, 250);
    EXPECT_EQ(text.m_defaultTextProperties.m_styleFlags, 2);
    ASSERT_EQ(text.m_lines.size(), 2U);
    ASSERT_EQ(text.m_lines.front().size(), 2U);
    Text::TextSegment const& run = text.m_lines.front().back();
    EXPECT_STREQ(text.m_lines.front().front().getText(), "ab");
    EXPECT_STREQ(run.getText(), "c");
    EXPECT_EQ(run.m_type, version >= v6_17 ? Text::TextSegment::Superscript : Text::TextSegment::Normal);
    EXPECT_EQ(run.m_textProperties->m_fontName, "Mono");
    EXPECT_TRUE(text.m_lines.back().empty());
    EXPECT_EQ(stream.left(), 0U) << version;
    EXPECT_FALSE(stream.hasStreamError()) << version;
  }
}

TEST(TextRecord, OfManyLinesIsReadInLinearTime) {
  auto const readLines = [](std::uint32_t count) {
    Bytes bytes = baseRecord(v6_22, "note").append(propertiesRecord("Times", 250, 2)).u32(count);
    for (std::uint32_t i = 0; i < count; ++i) bytes.u32(1).append(runRecord(v6_22, "a", 0));
    return [bytes, count] {
      ByteStream stream(bytes, v6_22);
      Text text;
      text.load(stream);
      EXPECT_EQ(text.m_lines.size(), count);
    };
  };
  qvHostile::expectLinearTime(readLines(10'000), readLines(80'000));
}

TEST(TextRecord, OverwritesTheLinesThatAreThere) {
  Bytes bytes = baseRecord(v6_22, "note").append(propertiesRecord("Times", 250, 2));
  bytes.u32(1).u32(1).append(runRecord(v6_22, "new", 1));
  ByteStream stream(bytes, v6_22);
  Text text;
  text.setText("one\ntwo\nthree");
  text.m_lines.front().push_back(filledRun());
  text.load(stream);
  ASSERT_EQ(text.m_lines.size(), 1U);
  ASSERT_EQ(text.m_lines.front().size(), 1U);
  EXPECT_STREQ(text.m_lines.front().front().getText(), "new");
  EXPECT_EQ(text.m_lines.front().front().m_type, Text::TextSegment::Subscript);
}

TEST(TextRecord, GoesOnAtTheNextByteAfterAnUnknownChildKind) {
  Bytes bytes;
  bytes.u32(0).u32(0).u32(0).point(4, 5, 6).u8(10).u8(20).u8(30).u8(0x25).u32(1).u8(5).u8(7);
  bytes.append(propertiesRecord("Times", 250, 2)).append(linesRecord(v6_22));
  ByteStream stream(bytes, v6_22);
  Text text;
  text.load(stream);
  EXPECT_EQ(text.m_defaultTextProperties.m_fontName, "Times");
  EXPECT_EQ(text.m_lines.size(), 2U);
  EXPECT_TRUE(stream.hasStreamError());
  EXPECT_EQ(stream.left(), 0U);
}

TEST(TextRecord, LeavesTheNodesOfAParentToItsOwnLoopAfterAnUnknownGrandchild) {
  Bytes child;
  child.u8(4).u8(1).u32(0).u32(0).u32(0).point(0, 0, 0).u32(0).u32(1).u8(5).u8(9);
  child.append(propertiesRecord("Times", 250, 2)).u32(0);
  ByteStream stream(
      baseRecord(v6_22, "n", {child, Bytes().u8(6).u8(0)}).append(propertiesRecord("A", 1, 0)).u32(0), v6_22);
  Text text;
  text.load(stream);
  ASSERT_EQ(text.getSubAnnotsCount(), 2U);
  EXPECT_EQ(text.m_subAnnots->back().m_anchor, 6U);
  EXPECT_EQ(text.m_metadata.size(), 1U);
  EXPECT_EQ(text.m_defaultTextProperties.m_fontName, "A");
  EXPECT_TRUE(stream.hasStreamError());
  EXPECT_EQ(stream.left(), 0U);
}

TEST(OldTextRecord, IsChosenBefore6_15) {
  for (std::uint32_t const version : {v6_13, v6_14}) {
    ByteStream stream(oldTextRecord(version, "note", 1), version);
    Text text;
    text.load(stream);
    EXPECT_EQ(text.m_name, version >= v6_14 ? "note" : "");
    EXPECT_EQ(text.m_defaultTextProperties.m_fontName, "Times");
    ASSERT_EQ(text.m_leaders.size(), 1U);
    EXPECT_EQ(text.m_leaders[0].m_position, Vector(1, 2, 3));
    EXPECT_EQ(text.m_lines.size(), 2U);
    EXPECT_EQ(text.m_lines.front().back().m_type, Text::TextSegment::Normal);
    EXPECT_EQ(text.m_position, Vector(4, 5, 6));
    EXPECT_EQ(text.m_color, Color(10, 20, 30));
    EXPECT_EQ(text.m_style, 1);
    EXPECT_EQ(stream.left(), 0U);
    EXPECT_FALSE(stream.hasStreamError());
  }
}

TEST(OldTextRecord, TakesItsLastByteAsASwitchBefore6_14) {
  struct Row {
    std::uint32_t version;
    std::uint8_t lastByte;
    int style;
  };
  for (Row const row : {Row{v6_13, 5, 1}, Row{v6_13, 0, 0}, Row{v6_13, 255, 1}, Row{v6_14, 5, 5},
                        Row{v6_14, 0, 0}, Row{v6_14, 255, 255}}) {
    ByteStream stream(oldTextRecord(row.version, "note", row.lastByte), row.version);
    Text text;
    text.m_style = 0x25;
    text.load(stream);
    EXPECT_EQ(text.m_style, row.style);
    EXPECT_FALSE(stream.hasStreamError());
  }
}

TEST(OldTextRecord, WithoutItsLastByteHasNoFrameBefore6_14AndKeepsTheStyleLater) {
  for (std::uint32_t const version : {v6_13, v6_14}) {
    Bytes const bytes = oldTextRecord(version, "note", 5);
    ByteStream stream(bytes.prefix(bytes.size() - 1), version);
    Text text;
    text.m_style = 0x25;
    text.load(stream);
    EXPECT_EQ(text.m_style, version == v6_13 ? 0 : 0x25);
    EXPECT_TRUE(stream.hasStreamError());
  }
}

TEST(OldTextRecord, KeepsTheNameBefore6_14AndEmptiesItLaterForALengthBelowOne) {
  ByteStream before(oldTextRecord(v6_13, "", 1), v6_13);
  Text text;
  text.m_name = "old";
  text.load(before);
  EXPECT_EQ(text.m_name, "old");
  ByteStream since(oldTextRecord(v6_14, "", 1), v6_14);
  text.load(since);
  EXPECT_EQ(text.m_name, "");
  EXPECT_FALSE(since.hasStreamError());
}

TEST(OldTextRecord, KeepsMeasuresChildrenMetadataAndHeads) {
  ByteStream stream(oldTextRecord(v6_14, "note", 1), v6_14);
  Text text;
  text.m_leaders.resize(3);
  text.m_leaders[0].m_head = 5;
  text.m_measures.resize(2);
  text.m_metadata["old"] = 1;
  text.editSubAnnots().emplace_back();
  text.load(stream);
  ASSERT_EQ(text.m_leaders.size(), 1U);
  EXPECT_EQ(text.m_leaders[0].m_head, 5);
  EXPECT_EQ(text.m_measures.size(), 2U);
  EXPECT_EQ(text.m_metadata.size(), 1U);
  EXPECT_EQ(text.getSubAnnotsCount(), 1U);
}

TEST(OldTextRecord, ReadsItsGatesWhenCalledAtALaterVersion) {
  Bytes bytes;
  bytes.text("note").append(propertiesRecord("Times", 250, 2)).u32(1).append(leaderRecord(v6_22, 4));
  bytes.append(linesRecord(v6_22)).point(4, 5, 6).u8(10).u8(20).u8(30).u8(0xA5);
  ByteStream stream(bytes, v6_22);
  Text text;
  text.loadPrior_6_15(stream);
  EXPECT_EQ(text.m_name, "note");
  EXPECT_EQ(text.m_leaders[0].m_head, 4);
  EXPECT_EQ(text.m_lines.front().back().m_type, Text::TextSegment::Superscript);
  EXPECT_EQ(text.m_style, 0xA5);
  EXPECT_EQ(stream.left(), 0U);
  EXPECT_FALSE(stream.hasStreamError());
}

}  // namespace
