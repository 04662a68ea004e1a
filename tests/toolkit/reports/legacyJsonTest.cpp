#include "qvToolkit/reports/legacyJson.h"

#include <cmath>
#include <limits>
#include <string>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "json/jsonReader.h"
#include "model/variantLookup.h"
#include "reports/variantJson.h"
#include "tests/support/openTest.h"

namespace {

using namespace qvToolkit;
using namespace std::string_literals;

class LegacyJsonTest : public OpenTest {
 protected:
  static qv::qvVariant parse(std::string text) {
    JsonReading reading = readJson(text, 1000);
    EXPECT_FALSE(reading.m_isBroken) << text;
    EXPECT_TRUE(reading.m_findings.empty());
    return std::move(reading.m_value);
  }

  /// The first view of a document as the JSON output has it.
  static VariantMap writeView(Document const& document) {
    qv::qvVariant value;
    JsonWriter json;
    writeLegacyDocument(json, document);
    value = parse(json.takeText());
    return findList(value.toMap(), "views")->at(0).toMap();
  }

  static VariantMap writeAnnotation(Document const& document, std::size_t index) {
    return findList(writeView(document), "annotations")->at(index).toMap();
  }

  /// The value under a key as JSON would show it.
  static void expectNumbers(VariantMap const& map, std::string const& key,
                            std::vector<double> const& numbers) {
    VariantList const* const list = findList(map, key);
    ASSERT_NE(list, nullptr) << key;
    ASSERT_EQ(list->size(), numbers.size());
    for (std::size_t i = 0; i < numbers.size(); ++i) EXPECT_EQ((*list)[i].toReal(), numbers[i]) << key;
  }

  std::string const m_content =
      makeView("6.27", R"("name":"v","origin":[1,2,3],"normal":[0,1,0],"axis":[0,0,1],
      "metadata":{"i":3,"r":3.0,"s":"x","b":true,"n":null,"l":[1,[2.5]],"m":{"k":{}}},"annotations":[
      {"type":"text","name":"a","color":"ff8000","position":[1,-2,0.5],"frameshape":"hexagon","isscalelocked":true,
       "leaders":[{"pos":[1,2,3],"head":"plus"}],"measures":[{"A":[0,0,1],"B":[1,0,2],"V":[0,1,3],"arrowdir":"outin"}],
       "defaulttextprop":{"font":"F","heightem":2.5,"italic":true},
       "lines":[[{"text":"x","type":"sub"},{"text":"y","bold":true}],[]],"metadata":{"k":1},
       "children":[{"type":"raster","rastername":"img","sizeem":[2.5,3],"anchorloc":"rb"}]}])");
};

TEST_F(LegacyJsonTest, WritesTheFieldsOfAView) {
  VariantMap const view = writeView(read(m_content));
  EXPECT_EQ(findText(view, "name"), "v");
  EXPECT_TRUE(findValue(view, "readable")->toBool());
  EXPECT_EQ(findText(view, "version"), "6.27");
  EXPECT_EQ(findValue(view, "versionNumber")->toInteger(), 0x6001B);
  VariantMap const& plane = findValue(view, "plane")->toMap();
  expectNumbers(plane, "origin", {1, 2, 3});
  expectNumbers(plane, "normal", {0, 1, 0});
  expectNumbers(plane, "xAxis", {0, 0, 1});
}

TEST_F(LegacyJsonTest, WritesTheFieldsOfAnAnnotation) {
  VariantMap const text = writeAnnotation(read(m_content), 0);
  EXPECT_EQ(findText(text, "address"), "view/0/annot/0");
  EXPECT_EQ(findText(text, "kind"), "text");
  EXPECT_EQ(findText(text, "kindNumber"), "1");
  EXPECT_EQ(findText(text, "name"), "a");
  EXPECT_EQ(findText(text, "color"), "#FF8000");
  EXPECT_EQ(findText(text, "style"), std::to_string(0x49));
  EXPECT_EQ(findText(text, "frameShape"), "hexagon");
  EXPECT_EQ(findText(text, "scaleLocked"), "true");
  EXPECT_EQ(findText(text, "frameLocked"), "false");
  EXPECT_EQ(findText(text, "ignoreZTest"), "false");
  EXPECT_EQ(findText(text, "subAnnotations"), "1");
  EXPECT_TRUE(findValue(text, "anchor")->isNull());
  EXPECT_TRUE(findValue(text, "anchorNumber")->isNull());
  expectNumbers(text, "position", {1, -2, 0.5});

  VariantMap const& leader = findList(text, "leaders")->at(0).toMap();
  expectNumbers(leader, "position", {1, 2, 3});
  EXPECT_EQ(findText(leader, "head"), "plus");
  VariantMap const& measure = findList(text, "measures")->at(0).toMap();
  expectNumbers(measure, "pointA", {0, 0, 1});
  expectNumbers(measure, "pointB", {1, 0, 2});
  expectNumbers(measure, "offset", {0, 1, 3});
  EXPECT_EQ(findText(measure, "arrowDirection"), "outin");
}

TEST_F(LegacyJsonTest, WritesLinesRunsAndProperties) {
  VariantMap const text = writeAnnotation(read(m_content), 0);
  VariantMap const& properties = findValue(text, "defaultTextProperties")->toMap();
  EXPECT_EQ(findText(properties, "font"), "F");
  EXPECT_EQ(findText(properties, "heightHundredths"), "250");
  EXPECT_EQ(findText(properties, "styleFlags"), "2");
  EXPECT_EQ(findText(properties, "italic"), "true");
  VariantList const& lines = *findList(text, "lines");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_TRUE(lines[1].toList().empty());
  VariantMap const& first = lines[0].toList().at(0).toMap();
  EXPECT_EQ(findText(first, "text"), "x");
  EXPECT_EQ(findText(first, "length"), "1");
  EXPECT_EQ(findText(first, "kind"), "subscript");
  EXPECT_EQ(findText(first, "kindNumber"), "1");
  EXPECT_TRUE(findValue(first, "properties")->isNull());
  VariantMap const& second = lines[0].toList().at(1).toMap();
  EXPECT_EQ(findText(second, "kind"), "normal");
  EXPECT_EQ(findText(findValue(second, "properties")->toMap(), "styleFlags"), "3");
}

TEST_F(LegacyJsonTest, WritesRastersAndAnchors) {
  VariantMap const raster = writeAnnotation(read(m_content), 1);
  EXPECT_EQ(findText(raster, "address"), "view/0/annot/0/sub/0");
  EXPECT_EQ(findText(raster, "depth"), "1");
  EXPECT_EQ(findText(raster, "anchor"), "rt");
  EXPECT_EQ(findText(raster, "anchorNumber"), "12");
  EXPECT_EQ(findText(raster, "rasterName"), "img");
  expectNumbers(raster, "size", {2.5, 3});
}

TEST_F(LegacyJsonTest, TellsTheKindOfEachMetadataValue) {
  VariantList const entries = *findList(writeView(read(m_content)), "metadata");
  std::vector<std::string> kinds;
  for (qv::qvVariant const& entry : entries) {
    kinds.push_back(findText(entry.toMap(), "key") + " " + findText(entry.toMap(), "kind"));
  }
  EXPECT_EQ(kinds, (std::vector<std::string>{"b bool", "i integer", "l list", "m map", "n null", "r real",
                                             "s string"}));
  VariantList const& list = *findList(entries[2].toMap(), "value");
  EXPECT_EQ(findText(list.at(0).toMap(), "kind"), "integer");
  EXPECT_EQ(findText(findList(list.at(1).toMap(), "value")->at(0).toMap(), "value"), "2.5");
  VariantMap const& inner = findList(entries[3].toMap(), "value")->at(0).toMap();
  EXPECT_EQ(findText(inner, "key"), "k");
  EXPECT_TRUE(findList(inner, "value")->empty());
}

TEST_F(LegacyJsonTest, KeepsWhatJsonCannotSay) {
  Document const document = read(m_content);
  auto& annotation = *document.m_views.at(0).m_view->m_annotations.at(0);
  annotation.m_position = {std::numeric_limits<float>::infinity(), 1.0F, -0.0F};
  annotation.m_leaders.at(0).m_head = 200;
  annotation.m_style = 0x0F;
  auto& text = dynamic_cast<qvLegacy::qvAnnotationText&>(annotation);
  text.m_lines.front().front().setText("a\0\xFF"s);
  VariantMap const written = writeAnnotation(document, 0);
  EXPECT_TRUE(findList(written, "position")->at(0).isNull());
  VariantList const& bits = *findList(written, "positionBits");
  EXPECT_EQ(bits.at(0).toString(), "7f800000");
  EXPECT_EQ(bits.at(1).toString(), "3f800000");
  EXPECT_EQ(bits.at(2).toString(), "80000000");
  VariantMap const& leader = findList(written, "leaders")->at(0).toMap();
  EXPECT_TRUE(findValue(leader, "head")->isNull());
  EXPECT_EQ(findText(leader, "headNumber"), "200");
  EXPECT_TRUE(findValue(written, "frameShape")->isNull());
  EXPECT_EQ(findText(written, "frameShapeNumber"), "15");
  VariantMap const& run = findList(written, "lines")->at(0).toList().at(0).toMap();
  EXPECT_EQ(findText(run, "text"), "a\0\uFFFD"s);
  EXPECT_EQ(findText(run, "textHex"), "6100ff");
  EXPECT_EQ(findText(run, "length"), "3");
}

TEST_F(LegacyJsonTest, KeepsTheSignOfZero) {
  Document const document = read(m_content);
  document.m_views.at(0).m_view->m_annotations.at(0)->m_position = {-0.0F, 0.0F, 1.0F};
  VariantMap const written = writeAnnotation(document, 0);
  EXPECT_TRUE(std::signbit(findList(written, "position")->at(0).toReal()));
  EXPECT_FALSE(std::signbit(findList(written, "position")->at(1).toReal()));
  EXPECT_TRUE(findValue(written, "positionBits")->isNull());
}

TEST_F(LegacyJsonTest, HasAllMembersOfAnEntryThatIsEmpty) {
  Document const document = read(m_content);
  auto& annotations = document.m_views.at(0).m_view->m_annotations;
  annotations.insert(annotations.begin(), nullptr);
  VariantMap const empty = writeAnnotation(document, 0);
  EXPECT_TRUE(findValue(empty, "isNull")->toBool());
  std::vector<std::string> withValue;
  for (auto const& [key, value] : writeAnnotation(document, 1)) {
    ASSERT_NE(findValue(empty, key), nullptr) << key;
    if (!findValue(empty, key)->isNull()) withValue.push_back(key);
  }
  EXPECT_EQ(withValue, (std::vector<std::string>{"address", "depth", "isNull"}));
}

TEST_F(LegacyJsonTest, WritesEveryHeightAsItIsStored) {
  Document const document = read(m_content);
  auto& text = dynamic_cast<qvLegacy::qvAnnotationText&>(*document.m_views.at(0).m_view->m_annotations.at(0));
  for (std::uint16_t const height :
       {std::uint16_t{0}, std::uint16_t{53}, std::uint16_t{212}, std::uint16_t{65535}}) {
    text.m_defaultTextProperties.m_height = height;
    VariantMap const written = writeAnnotation(document, 0);
    EXPECT_EQ(findText(findValue(written, "defaultTextProperties")->toMap(), "heightHundredths"),
              std::to_string(height));
  }
}

TEST_F(LegacyJsonTest, SaysWhenAViewOrADocumentWasNotRead) {
  VariantMap const view = writeView(read(R"({"ver":"6.16","name":"old"})"));
  EXPECT_FALSE(findValue(view, "readable")->toBool());
  EXPECT_EQ(findText(view, "name"), "old");
  EXPECT_EQ(findList(view, "readerMessages")->at(0).toString(), "invalid version 6.16");
  EXPECT_TRUE(findValue(view, "annotations")->isNull());
  qv::qvVariant const files = parse(formatLegacyJson({read("x"), read(m_content)}));
  ASSERT_EQ(findList(files.toMap(), "files")->size(), 2U);
  EXPECT_FALSE(findValue(findList(files.toMap(), "files")->at(0).toMap(), "readable")->toBool());
}

TEST(VariantJson, WritesKeysThatAreNoUtf8WithoutCollision) {
  VariantMap map;
  map["a\xFE"] = 1;
  map["a\xFF"] = std::numeric_limits<double>::quiet_NaN();
  JsonWriter json;
  writeVariantMap(json, map);
  std::string const text = json.takeText();
  EXPECT_NE(text.find("\"keyHex\":\"61fe\""), std::string::npos) << text;
  EXPECT_NE(text.find("\"keyHex\":\"61ff\""), std::string::npos) << text;
  EXPECT_NE(text.find("\"valueBits\":\"7ff8000000000000\""), std::string::npos) << text;
}

TEST(VariantJson, WalksDeepVariantsWithoutRecursion) {
  qv::qvVariant value(1);
  for (int i = 0; i < 1000; ++i) {
    VariantList list;
    list.push_back(std::move(value));
    value = std::move(list);
  }
  VariantMap map;
  map["deep"] = std::move(value);
  JsonWriter json;
  writeVariantMap(json, map);
  EXPECT_NE(json.takeText().find("\"integer\""), std::string::npos);
}

}  // namespace
