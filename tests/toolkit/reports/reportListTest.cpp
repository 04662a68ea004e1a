#include "qvToolkit/reports/reportList.h"

#include <gtest/gtest.h>

#include "annotationLegacy/version.h"

namespace {

using namespace qvToolkit;

std::string const version = qvAnnotationLegacy::Version::GetDescStringMajorMinorRelease(false);

std::string makeList(JsonStyle style, int entries) {
  ReportList list(ReportFormat::Fonts, style);
  std::string text;
  for (int i = 0; i < entries; ++i) {
    JsonWriter entry = list.makeEntryWriter();
    entry.beginObject().member("a", i).endObject();
    text += list.beginEntry() + entry.takeText();
  }
  return text + list.end();
}

TEST(ReportList, HasEachEntryOnALineOfItsOwn) {
  EXPECT_EQ(makeList(JsonStyle::Compact, 2),
            "{\"format\":\"qvannot.fonts\",\"formatVersion\":2,\"toolVersion\":\"" + version +
                "\",\"files\":[\n{\"a\":0},\n{\"a\":1}\n]}\n");
}

TEST(ReportList, IsIndentedAsOneDocument) {
  EXPECT_EQ(makeList(JsonStyle::Pretty, 2),
            "{\n  \"format\": \"qvannot.fonts\",\n  \"formatVersion\": 2,\n  \"toolVersion\": \"" + version +
                "\",\n  \"files\": [\n    {\n      \"a\": 0\n    },\n    {\n      \"a\": 1\n    }\n  ]\n}\n");
}

TEST(ReportList, MayBeEmpty) {
  std::string const head =
      "{\"format\":\"qvannot.fonts\",\"formatVersion\":2,\"toolVersion\":\"" + version + "\",";
  EXPECT_EQ(makeList(JsonStyle::Compact, 0), head + "\"files\":[]}\n");
  EXPECT_TRUE(makeList(JsonStyle::Pretty, 0).ends_with("\",\n  \"files\": []\n}\n"));
}

TEST(ReportList, TakesEntriesThroughASink) {
  ReportList const list(ReportFormat::Inspect);
  TextSink sink;
  JsonWriter entry = list.makeEntryWriter(sink);
  entry.beginObject().endObject();
  EXPECT_TRUE(entry.finish());
  EXPECT_EQ(sink.m_text, "{}");
}

TEST(ReportList, HasANameForEachFormat) {
  EXPECT_EQ(getFormatName(ReportFormat::Inspect), "qvannot.inspect");
  EXPECT_EQ(getFormatName(ReportFormat::InspectFull), "qvannot.inspect-full");
  EXPECT_EQ(getFormatName(ReportFormat::Fonts), "qvannot.fonts");
  EXPECT_EQ(getFormatName(ReportFormat::Migrated), "qvannot.migrated");
}

}  // namespace
