#include "qvToolkit/stream/streamDump.h"

#include <algorithm>

#include "tests/support/modelGenerator.h"
#include "tests/support/streamTest.h"

namespace qvStreamTest {

namespace {

using Lines = std::vector<std::string>;
using State = StreamField::State;

std::vector<StreamField> walk(std::string_view bytes) {
  std::vector<StreamField> fields;
  walkObjectStream(bytes, [&fields](StreamField const& field) { fields.push_back(field); });
  return fields;
}

Lines dump(std::string_view bytes, std::optional<std::uint64_t> at = {}) {
  Lines lines;
  dumpStream(bytes, at,
             [&lines](std::string_view line) { lines.emplace_back(line.substr(0, line.size() - 1)); });
  return lines;
}

/// The only break of a document; fails when there is another number of them.
StreamField findBreak(std::string_view bytes) {
  StreamField found;
  int count = 0;
  for (StreamField const& field : walk(bytes)) {
    if (field.m_state != State::Break) continue;
    found = field;
    ++count;
  }
  EXPECT_EQ(count, 1);
  return found;
}

/// Whether the fields cover each byte exactly once, in order.
void expectCovered(std::vector<StreamField> const& fields, std::size_t size) {
  std::uint64_t offset = 0;
  for (StreamField const& field : fields) {
    ASSERT_EQ(field.m_offset, offset) << field.m_path;
    if (field.m_state == State::Absent) {
      ASSERT_EQ(field.m_size, 0U) << field.m_path;
    }
    offset += field.m_size;
  }
  ASSERT_EQ(offset, size);
}

class Dump : public StreamTest {
 protected:
  static std::string makeSample(std::uint32_t version) {
    return encode(openDocument(std::string(QVA_EXAMPLES) + "/bracket_6.27.json"), version).m_bytes;
  }
};

TEST_F(Dump, ShowsEachFieldWithOffsetBytesPathValueAndGate) {
  std::string const view = Bytes()
                               .text("V")
                               .point(1, 2, 3)
                               .point(0, 0, 1)
                               .point(1, 0, 0)
                               .u32(1)
                               .u32(0)
                               .text("a\x1b")
                               .u32(1)
                               .point(0.5F, 0, -0.25F)
                               .u32(0)
                               .point(0, 0, 0)
                               .raw("\xff\x80\x01\x21")
                               .text("Arial")
                               .u16(110)
                               .u16(3)
                               .u32(1)
                               .u32(1)
                               .u16(3)
                               .raw("\xe2\x8c\x80")
                               .u8(2)
                               .u8(0)
                               .get();
  EXPECT_EQ(
      dump(beginDocument(0x60011, 1).raw(makeObject(5, ViewType, view)).get()),
      Lines({"00000000  71 76 53 74 72 65 61 6d                 mark = \"qvStream\"",
             "00000008  11 00 06 00                             version = 0x60011 (6.17)",
             "0000000c  01 00 00 00                             objectCount = 1",
             "00000010  05 00 00 00                             object[0].id = 5",
             "00000014  17 00 00 00                             object[0].type.length = 23",
             "00000018  71 76 43 6f 72 65 2e 71 76 41 6e 6e ..  object[0].type = \"qvCore.qvAnnotationView\"",
             "0000002f  77 00 00 00 00 00 00 00                 object[0].payloadSize = 119",
             "00000037  01 00 00 00                             object[0].name.length = 1",
             "0000003b  56                                      object[0].name = \"V\"",
             "0000003c  00 00 80 3f 00 00 00 40 00 00 40 40     object[0].planeOrigin = (1, 2, 3)",
             "00000048  00 00 00 00 00 00 00 00 00 00 80 3f     object[0].planeNormal = (0, 0, 1)",
             "00000054  00 00 80 3f 00 00 00 00 00 00 00 00     object[0].planeXAxis = (1, 0, 0)",
             "00000060  01 00 00 00                             object[0].textCount = 1",
             "00000064  00 00 00 00                             object[0].rasterCount = 0  [since 6.15]",
             "00000068  02 00 00 00                             object[0].text[0].name.length = 2",
             "0000006c  61 1b                                   object[0].text[0].name = \"a\\x1b\"",
             "0000006e  01 00 00 00                             object[0].text[0].leaderCount = 1",
             "00000072  00 00 00 3f 00 00 00 00 00 00 80 be     object[0].text[0].leader[0].position = (0.5, "
             "0, "
             "-0.25)",
             "0000007e  -                                       object[0].text[0].leader[0].head = not in "
             "6.17  "
             "[since 6.22]",
             "0000007e  00 00 00 00                             object[0].text[0].measureCount = 0  [since "
             "6.17]",
             "00000082  00 00 00 00 00 00 00 00 00 00 00 00     object[0].text[0].position = (0, 0, 0)",
             "0000008e  ff 80 01                                object[0].text[0].color = #FF8001",
             "00000091  21                                      object[0].text[0].style = 33 (rectangle, "
             "ignores "
             "depth)",
             "00000092  -                                       object[0].text[0].childCount = not in 6.17  "
             "[since 6.22]",
             "00000092  -                                       object[0].text[0].metadata = not in 6.17  "
             "[since "
             "6.22]",
             "00000092  05 00 00 00                             "
             "object[0].text[0].defaultProperties.font.length = 5",
             "00000096  41 72 69 61 6c                          object[0].text[0].defaultProperties.font = "
             "\"Arial\"",
             "0000009b  6e 00                                   object[0].text[0].defaultProperties.height = "
             "110",
             "0000009d  03 00                                   "
             "object[0].text[0].defaultProperties.styleFlags = 3 "
             "(bold) (italic)",
             "0000009f  01 00 00 00                             object[0].text[0].lineCount = 1",
             "000000a3  01 00 00 00                             object[0].text[0].line[0].runCount = 1",
             "000000a7  03 00                                   object[0].text[0].line[0].run[0].length = 3  "
             "[since 6.17]",
             "000000a9  e2 8c 80                                object[0].text[0].line[0].run[0].text = "
             "\"\xe2\x8c\x80\"",
             "000000ac  02                                      object[0].text[0].line[0].run[0].type = 2 "
             "(sup)  "
             "[since 6.17]",
             "000000ad  00                                      "
             "object[0].text[0].line[0].run[0].hasProperties = 0",
             "000000ae  -                                       object[0].metadata = not in 6.17  [since "
             "6.27]"}));
}

TEST_F(Dump, CoversEveryByteOfGoodDocumentsWithoutABreak) {
  for (std::uint32_t const version : getVersions()) {
    for (std::uint64_t seed = 0; seed < 30; ++seed) {
      std::string const bytes = encode(generateDocument(seed), version, seed % 2 == 0).m_bytes;
      std::vector<StreamField> const fields = walk(bytes);
      expectCovered(fields, bytes.size());
      for (StreamField const& field : fields) {
        ASSERT_TRUE(field.m_state == State::Present || field.m_state == State::Absent) << field.m_path;
      }
    }
  }
}

TEST_F(Dump, OfADocumentCutAtAnyByteGoesUpToTheBreakAndSaysWhatWasExpected) {
  for (std::uint32_t const version : {0x60010U, 0x6001BU}) {
    std::string const whole = makeSample(version);
    std::vector<StreamField> const all = walk(whole);
    for (std::size_t length = 8; length < whole.size(); ++length) {
      std::string_view const cut = std::string_view(whole).substr(0, length);
      std::vector<StreamField> const fields = walk(cut);
      expectCovered(fields, length);
      ASSERT_LE(fields.size(), all.size());
      for (std::size_t i = 0; i + 1 < fields.size(); ++i) {
        ASSERT_EQ(fields[i].m_path, all[i].m_path) << length;
        ASSERT_EQ(fields[i].m_value, all[i].m_value) << length;
      }
      ASSERT_EQ(fields.back().m_state, State::Break) << length;
      ASSERT_EQ(fields.back().m_path, all[fields.size() - 1].m_path) << length;
      ASSERT_TRUE(fields.back().m_value.ends_with("before the end of the document") ||
                  fields.back().m_value.find("which the bytes left can hold") != std::string::npos)
          << fields.back().m_value;
    }
  }
}

TEST_F(Dump, BreaksWhereTheReaderRunsShort) {
  std::string const whole = makeSample(0x6001B);
  int compared = 0;
  for (std::size_t length = 8; length < whole.size(); ++length) {
    Document const document = read(whole.substr(0, length));
    for (Finding const& finding : document.m_findings) {
      if (finding.m_code != FindingCode::StreamOverRead) continue;
      StreamField const field = findBreak(std::string_view(whole).substr(0, length));
      // The reader takes a colour byte by byte and height and style flags as one number; the dump does not.
      EXPECT_NEAR(static_cast<double>(*finding.m_place.m_byteOffset), static_cast<double>(field.m_offset),
                  2.0);
      ++compared;
      break;
    }
  }
  EXPECT_GT(compared, 500);
}

TEST_F(Dump, StaysWithinADocumentWithAnyByteFlipped) {
  for (char const* const name : {"bracket_6.13.qvs", "image_sheet_6.27.qvs"}) {
    std::string bytes = readFile(std::string(QVA_EXAMPLES) + "/binary/" + name);
    for (std::size_t i = 8; i < bytes.size(); ++i) {
      char const before = bytes[i];
      for (int const change : {0xFF, 0x01, 0x80}) {
        bytes[i] = static_cast<char>(before ^ change);
        expectCovered(walk(bytes), bytes.size());
        if (HasFatalFailure()) return;
      }
      bytes[i] = before;
    }
  }
}

TEST_F(Dump, WalksOnBehindABrokenObject) {
  std::string const cut = makeEmptyView("a").substr(0, 20);
  std::string const bytes = beginDocument(0x60016, 2)
                                .raw(makeObject(2, ViewType, cut))
                                .raw(makeObject(3, ViewType, makeEmptyView("b")))
                                .get();
  StreamField const field = findBreak(bytes);
  EXPECT_EQ(field.m_path, "object[0].planeNormal");
  EXPECT_EQ(field.m_value, "expected 12 bytes, found 3 bytes before the end of the payload");
  EXPECT_EQ(walk(bytes).back().m_path, "object[1].metadata");
}

TEST_F(Dump, SaysWhatIsLeftOverAndWhatIsUnknown) {
  std::string const bytes = beginDocument(0x60016, 2)
                                .raw(makeObject(2, ViewType, makeEmptyView("a") + "xyz"))
                                .raw(makeObject(3, "qvCore.qvMesh", "1234"))
                                .raw("??")
                                .get();
  Lines rests;
  for (StreamField const& field : walk(bytes)) {
    if (field.m_state == State::Rest) rests.push_back(field.m_path + ": " + field.m_value);
    EXPECT_NE(field.m_state, State::Break);
  }
  EXPECT_EQ(rests, Lines({"object[0].rest: expected the end of the payload, found 3 bytes",
                          "object[1].rest: unknown type: 4 bytes",
                          "rest: expected the end of the document, found 2 bytes"}));
}

TEST_F(Dump, ShowsTheLinksOfBothSpellingsOfTheMetadataType) {
  for (char const* const type : {"qvCore.qvAnnotationMetadata", "qvCore.qvAnnotationMetaData"}) {
    std::vector<StreamField> const fields =
        walk(beginDocument(0x60016, 1).raw(makeObject(1, type, makeMetadata({0, 7}))).get());
    EXPECT_EQ(fields.at(fields.size() - 2).m_value, "none");
    EXPECT_EQ(fields.back().m_path, "object[0].view[1].link");
    EXPECT_EQ(fields.back().m_value, "object of id 7");
  }
}

/// A document of one view of that metadata, at 6.27.
std::string makeWithMetadata(std::string const& metadata) {
  return beginDocument(0x6001B, 1).raw(makeObject(2, ViewType, makeEmptyView("v") + metadata)).get();
}

TEST_F(Dump, BreaksAtWhatTheMetadataEncodingDoesNotKnow) {
  StreamField field = findBreak(makeWithMetadata(Bytes().u32(1).text("k").u8(9).get()));
  EXPECT_EQ(field.m_path, "object[0].metadata.entry[0].kind");
  EXPECT_EQ(field.m_value, "expected a kind of value, 0 to 4, 10 or 11, found 9");
  field = findBreak(makeWithMetadata(Bytes().u32(3).u32(0).u8(0).get()));
  EXPECT_EQ(field.m_path, "object[0].metadata.count");
  EXPECT_EQ(field.m_value, "expected at most 1 entries, which the bytes left can hold, found 3");
  Bytes deep;
  deep.u32(1).text("k");
  for (int i = 0; i < 64; ++i) deep.u8(11).u32(1);
  field = findBreak(makeWithMetadata(deep.u8(0).get()));
  EXPECT_EQ(field.m_value, "expected at most 64 maps and lists within each other, found one more");
}

TEST_F(Dump, BreaksAtAChildOfUnknownKindAndAtAViewOfATooOldVersion) {
  Bytes text;
  text.text("").u32(0).u32(0).point(0, 0, 0).raw("\xff\xff\xff\x01").u32(1).u8(1).u8(7).text("Arial");
  std::string const view =
      Bytes().text("v").point(0, 0, 0).point(0, 0, 1).point(1, 0, 0).u32(1).u32(0).raw(text.get()).get();
  StreamField field = findBreak(beginDocument(0x60016, 1).raw(makeObject(2, ViewType, view)).get());
  EXPECT_EQ(field.m_path, "object[0].text[0].sub[0].kind");
  EXPECT_EQ(field.m_value, "expected the kind of a child, 0, 1 or 2, found 7");
  field = findBreak(beginDocument(0x6000C, 1).raw(makeObject(2, ViewType, view)).get());
  EXPECT_EQ(field.m_value, "expected stream version 6.13 or newer for a view, found 6.12");
}

TEST_F(Dump, CostsNothingForWhatIsAnnouncedButNotThere) {
  Bytes text;
  text.text("").u32(0xFFFFFFFF);
  std::string const view = Bytes()
                               .text("v")
                               .point(0, 0, 0)
                               .point(0, 0, 1)
                               .point(1, 0, 0)
                               .u32(0xFFFFFFFF)
                               .u32(0xFFFFFFFF)
                               .raw(text.get())
                               .get();
  std::string const bytes =
      beginDocument(0x60016, 0xFFFFFFFF).u32(2).text(ViewType).u64(~std::uint64_t{0}).raw(view).get();
  EXPECT_EQ(findBreak(bytes).m_path, "object[0].text[0].leader[0].position");
  EXPECT_LT(walk(bytes).size(), 30U);
  EXPECT_EQ(findBreak(beginDocument(0x60016, 1).u32(1).u32(0x7FFFFFFF).get()).m_path,
            "object[0].type.length");
}

TEST_F(Dump, WalksTreesOfAnyDepthAndShortensTheirPaths) {
  Bytes head;
  head.text("").u32(0).u32(0).point(0, 0, 0).raw("\xff\xff\xff\x01").u32(1).u8(1).u8(1);
  Bytes view;
  view.text("v").point(0, 0, 0).point(0, 0, 1).point(1, 0, 0).u32(1).u32(0);
  for (int i = 0; i < 20000; ++i) view.raw(head.get());
  std::string const bytes = beginDocument(0x60016, 1).raw(makeObject(2, ViewType, view.get())).get();
  StreamField const field = findBreak(bytes);
  EXPECT_NE(field.m_path.find("(19986 levels)"), std::string::npos) << field.m_path;
  EXPECT_LT(field.m_path.size(), 200U);
}

TEST_F(Dump, AtAnOffsetShowsItsFieldAndTheNeighbours) {
  std::string const bytes = makeSample(0x60016);
  Lines const all = dump(bytes);
  EXPECT_EQ(dump(bytes, 0), Lines(all.begin(), all.begin() + 3));
  EXPECT_EQ(dump(bytes, 0x19), Lines(all.begin() + 3, all.begin() + 8));
  EXPECT_EQ(dump(bytes, bytes.size() - 1).back(), all.back());
  Findings const findings = dumpStream(bytes, bytes.size(), [](std::string_view) { FAIL(); });
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].m_code, FindingCode::StreamOffset);
}

TEST_F(Dump, GivesWhatTheFormatPageShows) {
  Lines const all = dump(readFile(std::string(QVA_EXAMPLES) + "/binary/image_sheet_6.22.qvs"));
  std::ifstream page(std::string(QVA_EXAMPLES) + "/../docs/formats/object-stream.md");
  int count = 0;
  for (std::string line; std::getline(page, line);) {
    bool const isField = line.size() > 10 && line.find_first_not_of("0123456789abcdef") == 8;
    if (!isField || line.find("BREAK") != std::string::npos) continue;
    EXPECT_NE(std::find(all.begin(), all.end(), line), all.end()) << line;
    ++count;
  }
  EXPECT_GT(count, 50);
}

TEST_F(Dump, RefusesWhatIsNoObjectStream) {
  Findings const findings = dumpStream("{\"views\":[]}", {}, [](std::string_view) { FAIL(); });
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(getExitCode(findings[0], Severity::Error), ExitInputBroken);
  Findings const missing = dumpStreamFile("/nowhere", {}, [](std::string_view) {});
  ASSERT_EQ(missing.size(), 1U);
  EXPECT_EQ(missing[0].m_code, FindingCode::InputUnreadable);
}

}  // namespace

}  // namespace qvStreamTest
