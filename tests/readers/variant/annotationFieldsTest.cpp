#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "tests/readers/variant/variants.h"

namespace {

using namespace readersTest;
using Annotation = qvLegacy::qvAnnotationInterface;
using Text = qvLegacy::qvAnnotationText;
using Raster = qvLegacy::qvAnnotationRaster;
using Vector = Wm4::Vector3<float>;
using Color = Wm4::Vector3<unsigned char>;

/// A base annotation after reading one map into it.
struct Loaded : Annotation {
  explicit Loaded(Map const& map, qv::qvStreamVersion const& version = v6_22)
      : Annotation(Unknown), outcome(read(*this, map, version)) {}
  Outcome outcome;
};

int styleFor(Variant const& frameShape) {
  return Loaded({{"frameshape", frameShape}}).m_style;
}

std::vector<std::uint32_t> anchorsOf(Annotation const& annotation) {
  std::vector<std::uint32_t> anchors;
  if (annotation.m_subAnnots == nullptr) return anchors;
  for (auto const& node : *annotation.m_subAnnots) anchors.push_back(node.m_anchor);
  return anchors;
}

// --- version and name

TEST(AnnotationFields, AreRefusedBefore6_17) {
  Annotation annotation(Annotation::Unknown);
  annotation.m_name = "old";
  Outcome const outcome = read(annotation, {{"name", "n"}, {"position", list(1, 2, 3)}}, v6_16);
  EXPECT_FALSE(outcome.isRead);
  EXPECT_EQ(outcome.messages, Messages{"invalid version for annotation interface"});
  EXPECT_EQ(annotation.m_name, "old");
  EXPECT_EQ(annotation.m_position, Vector(0, 0, 0));
  EXPECT_TRUE(read(annotation, {}, v6_17).isRead);
}

TEST(AnnotationFields, AlwaysReplaceTheName) {
  Annotation annotation(Annotation::Unknown);
  annotation.m_name = "old";
  EXPECT_TRUE(read(annotation, {}, v6_17).isRead);
  EXPECT_EQ(annotation.m_name, "");
  EXPECT_EQ(Loaded({{"name", "n"}}).m_name, "n");
  EXPECT_EQ(Loaded({{"name", 7}}).m_name, "7");
  EXPECT_EQ(Loaded({{"name", true}}).m_name, "true");
  EXPECT_EQ(Loaded({{"name", list(1)}}).m_name, "");
  EXPECT_EQ(Loaded({{"name", std::string("a\0b", 3)}}).m_name, std::string("a\0b", 3));
}

class RenamedAnnotation : public Annotation {
 public:
  RenamedAnnotation() : Annotation(Unknown) {}
  void SetName(std::string const& name) override { m_name = "set: " + name; }
};

TEST(AnnotationFields, SetTheNameThroughTheVirtualOperation) {
  RenamedAnnotation annotation;
  EXPECT_TRUE(read(annotation, {{"name", "n"}}, v6_17).isRead);
  EXPECT_EQ(annotation.m_name, "set: n");
}

TEST(AnnotationFields, GiveTheDefaultsForAPositionOnly) {
  Loaded const annotation({{"position", list(1, 2, 3)}, {"children", list(Map{{"type", "text"}})}}, v6_17);
  EXPECT_TRUE(annotation.outcome.isRead);
  EXPECT_TRUE(annotation.outcome.messages.empty());
  EXPECT_EQ(annotation.m_position, Vector(1, 2, 3));
  EXPECT_EQ(annotation.m_color, Color(255, 255, 255));
  EXPECT_TRUE(annotation.m_leaders.empty());
  EXPECT_EQ(annotation.m_style, 1);
  EXPECT_EQ(annotation.m_subAnnots, nullptr);
}

// --- colour

TEST(ColorField, TakesSixHexadecimalDigitsOfEitherCase) {
  EXPECT_EQ(Loaded({{"color", "FF8000"}}).m_color, Color(255, 128, 0));
  EXPECT_EQ(Loaded({{"color", "ff8001"}}).m_color, Color(255, 128, 1));
  EXPECT_EQ(Loaded({{"color", "aBcDeF"}}).m_color, Color(0xAB, 0xCD, 0xEF));
  EXPECT_EQ(Loaded({{"color", "000001"}}).m_color, Color(0, 0, 1));
  EXPECT_EQ(Loaded({{"color", "000000"}}).m_color, Color(0, 0, 0));
}

TEST(ColorField, EndsAtTheFirstCharacterThatIsNoDigit) {
  EXPECT_EQ(Loaded({{"color", "ff80zz"}}).m_color, Color(0, 0xFF, 0x80));
  EXPECT_EQ(Loaded({{"color", "1-2345"}}).m_color, Color(0, 0, 1));
  EXPECT_EQ(Loaded({{"color", std::string("a\0bcde", 6)}}).m_color, Color(0, 0, 10));
}

TEST(ColorField, TakesTheStringFormOfOtherKinds) {
  EXPECT_EQ(Loaded({{"color", 123456}}).m_color, Color(0x12, 0x34, 0x56));
  EXPECT_EQ(Loaded({{"color", 12345.0}}).outcome.messages, Messages{"invalid 'color' field"});
}

TEST(ColorField, IsReportedAndPassedOverWhenItIsNoColour) {
  for (char const* const text : {"zzzzzz", "#FF8000", "#FF800", "", "00000g", "0000000", "00000", "0x1234",
                                 "+12345", "-12345", " 12345", "\t12345", "0X00ff", "-00000"}) {
    Loaded const annotation({{"color", text}, {"position", list(1, 2, 3)}});
    EXPECT_TRUE(annotation.outcome.isRead) << text;
    EXPECT_EQ(annotation.outcome.messages, Messages{"invalid 'color' field"}) << text;
    EXPECT_EQ(annotation.m_color, Color(255, 255, 255)) << text;
    EXPECT_EQ(annotation.m_position, Vector(1, 2, 3)) << text;
  }
}

TEST(ColorField, IsReportedWhenItsFirstByteIsNoAscii) {
  for (int byte = 0x80; byte <= 0xFF; ++byte) {
    std::string text = "xfffff";
    text[0] = static_cast<char>(byte);
    EXPECT_EQ(Loaded({{"color", text}}).outcome.messages, Messages{"invalid 'color' field"}) << byte;
  }
}

TEST(ColorField, IsReportedForKindsWithoutSixCharacters) {
  for (Variant const& value : oneOfEachKind()) {
    EXPECT_EQ(Loaded({{"color", value}}).outcome.messages, Messages{"invalid 'color' field"});
  }
}

// --- position

TEST(PositionField, TakesIntegersAndReals) {
  EXPECT_EQ(Loaded({{"position", list(1, 2.5, -3)}}).m_position, Vector(1, 2.5F, -3));
}

TEST(PositionField, BecomesInfiniteBeyondSinglePrecision) {
  EXPECT_EQ(Loaded({{"position", list(1e39, -1e39, 0)}}).m_position.X(),
            std::numeric_limits<float>::infinity());
}

TEST(PositionField, StopsTheReadingWhenItIsNoVector) {
  std::vector<Variant> values = oneOfEachKind();
  values.insert(values.end(), {list(), list(1, 2), list(1, 2, "3"), list(1, 2, 3, 4), list(true, 2, 3),
                               list(1, Variant(), 3), list(1, 2, list(3))});
  for (Variant const& value : values) {
    Loaded const annotation({{"name", "n"},
                             {"color", "000000"},
                             {"position", value},
                             {"leaders", list(Map{})},
                             {"frameshape", "circle"}});
    EXPECT_FALSE(annotation.outcome.isRead);
    EXPECT_EQ(annotation.outcome.messages, Messages{"invalid 'position' field"});
    EXPECT_EQ(annotation.m_name, "n");
    EXPECT_EQ(annotation.m_color, Color(0, 0, 0));
    EXPECT_EQ(annotation.m_position, Vector(0, 0, 0));
    EXPECT_TRUE(annotation.m_leaders.empty());
    EXPECT_EQ(annotation.m_style, 1);
  }
}

// --- leaders

TEST(LeadersField, HoldsPositionsBefore6_22) {
  Loaded const annotation({{"leaders", list(list(1, 2, 3), list(4, 5, 6))}}, v6_21);
  ASSERT_EQ(annotation.m_leaders.size(), 2U);
  EXPECT_EQ(annotation.m_leaders[0].m_position, Vector(1, 2, 3));
  EXPECT_EQ(annotation.m_leaders[1].m_position, Vector(4, 5, 6));
  EXPECT_EQ(annotation.m_leaders[1].m_head, 0);
  EXPECT_TRUE(annotation.outcome.messages.empty());
}

TEST(LeadersField, HoldsMapsFrom6_22On) {
  Loaded const annotation({{"leaders", list(Map{{"pos", list(1, 2, 3)}, {"head", "arrow"}}, Map{})}});
  ASSERT_EQ(annotation.m_leaders.size(), 2U);
  EXPECT_EQ(annotation.m_leaders[0].m_position, Vector(1, 2, 3));
  EXPECT_EQ(annotation.m_leaders[0].m_head, Annotation::ArrowHead);
  EXPECT_EQ(annotation.m_leaders[1].m_position, Vector(0, 0, 0));
  EXPECT_EQ(annotation.m_leaders[1].m_head, 0);
  EXPECT_TRUE(annotation.outcome.messages.empty());
}

TEST(LeadersField, TakesNeitherVersionsFormInTheOther) {
  Loaded const older({{"leaders", list(Map{{"pos", list(1, 2, 3)}})}}, v6_21);
  Loaded const newer({{"leaders", list(list(1, 2, 3))}}, v6_22);
  for (Loaded const* const annotation : {&older, &newer}) {
    EXPECT_TRUE(annotation->m_leaders.empty());
    EXPECT_TRUE(annotation->outcome.isRead);
    EXPECT_EQ(annotation->outcome.messages, Messages{"invalid 'leaders' field content"});
  }
}

TEST(LeadersField, EndsAtTheFirstElementThatFails) {
  Loaded const annotation(
      {{"leaders", list(list(1, 2, 3), 5, list(4, 5, 6), "x")}, {"measures", 5}, {"frameshape", "circle"}},
      v6_17);
  EXPECT_EQ(annotation.m_leaders.size(), 1U);
  EXPECT_EQ(annotation.outcome.messages,
            (Messages{"invalid 'leaders' field content", "invalid 'measures' field"}));
  EXPECT_EQ(annotation.m_style, 11);
}

TEST(LeadersField, IsReportedWhenItIsNoList) {
  for (Variant const& value : oneOfEachKind()) {
    if (value.isList()) continue;
    Loaded const annotation({{"leaders", value}, {"frameshape", "circle"}});
    EXPECT_TRUE(annotation.outcome.isRead);
    EXPECT_EQ(annotation.outcome.messages, Messages{"invalid 'leaders' field"});
    EXPECT_EQ(annotation.m_style, 11);
  }
}

TEST(LeadersField, AppendsToTheLeadersThatAreThere) {
  Annotation annotation(Annotation::Unknown);
  annotation.m_leaders.resize(1);
  EXPECT_TRUE(read(annotation, {{"leaders", list(list(1, 2, 3))}}, v6_17).isRead);
  EXPECT_EQ(annotation.m_leaders.size(), 2U);
}

TEST(LeaderElement, KeepsItsHeadBefore6_22) {
  Annotation::Leader leader;
  leader.m_head = 5;
  EXPECT_TRUE(leader.loadFromVariant(list(1, 2, 3), v6_21));
  EXPECT_EQ(leader.m_head, 5);
  EXPECT_EQ(leader.m_position, Vector(1, 2, 3));
}

TEST(LeaderElement, FailsBefore6_22WhenItIsNoVector) {
  for (Variant const& value :
       {list(1, 2), list(1, 2, 3, 4), list(1, 2, "3"), Variant(Map{}), Variant(5), Variant()}) {
    Annotation::Leader leader{Vector(7, 8, 9)};
    EXPECT_FALSE(leader.loadFromVariant(value, v6_21));
    EXPECT_EQ(leader.m_position, Vector(7, 8, 9));
  }
}

TEST(LeaderElement, RunsToTheOriginWhenItsPositionIsMissingOrMalformed) {
  for (Map const& map : {Map{}, Map{{"pos", 5}}, Map{{"pos", list(1, 2)}}, Map{{"pos", list(1, 2, "3")}},
                         Map{{"pos", list(1, 2, 3, 4)}}, Map{{"pos", Variant()}}}) {
    Annotation::Leader leader{Vector(7, 8, 9)};
    leader.m_head = 5;
    EXPECT_TRUE(leader.loadFromVariant(map, v6_22));
    EXPECT_EQ(leader.m_position, Vector(0, 0, 0));
    EXPECT_EQ(leader.m_head, 0);
  }
}

TEST(LeaderElement, KnowsSixHeads) {
  std::vector<std::pair<Variant, int>> const rows = {
      {"square", 1}, {"circle", 2}, {"arrow", 3}, {"plus", 4}, {"cross", 5}, {"triangle", 6}, {"Arrow", 0},
      {"arrow ", 0}, {"", 0},       {3, 0},       {3.0, 0},    {true, 0},    {Variant(), 0},  {Map{}, 0}};
  for (auto const& [name, head] : rows) {
    Annotation::Leader leader;
    EXPECT_TRUE(leader.loadFromVariant(Map{{"head", name}}, v6_22));
    EXPECT_EQ(leader.m_head, head) << name.toString();
  }
}

// --- measures

Map measureMap() {
  return {{"A", list(1, 2, 3)}, {"B", list(4, 5, 6)}, {"V", list(7, 8, 9)}, {"arrowdir", "outin"}};
}

TEST(MeasuresField, HoldsMapsWithThreeVectors) {
  for (qv::qvStreamVersion const version : {v6_17, v6_21, v6_22}) {
    Loaded const annotation({{"measures", list(measureMap())}}, version);
    ASSERT_EQ(annotation.m_measures.size(), 1U);
    EXPECT_EQ(annotation.m_measures[0].m_pointA, Vector(1, 2, 3));
    EXPECT_EQ(annotation.m_measures[0].m_pointB, Vector(4, 5, 6));
    EXPECT_EQ(annotation.m_measures[0].m_offset, Vector(7, 8, 9));
    EXPECT_EQ(annotation.m_measures[0].m_arrowDir, version >= v6_22 ? 3 : 0);
    EXPECT_TRUE(annotation.outcome.messages.empty());
  }
}

TEST(MeasuresField, EndsAtTheFirstElementThatFails) {
  Loaded const annotation({{"measures", list(measureMap(), Map{}, measureMap())}, {"frameshape", "circle"}});
  EXPECT_TRUE(annotation.outcome.isRead);
  EXPECT_EQ(annotation.m_measures.size(), 1U);
  EXPECT_EQ(annotation.outcome.messages, Messages{"invalid 'measures' field content"});
  EXPECT_EQ(annotation.m_style, 11);
}

TEST(MeasuresField, IsReportedWhenItIsNoList) {
  for (Variant const& value : oneOfEachKind()) {
    if (value.isList()) continue;
    Loaded const annotation({{"measures", value}});
    EXPECT_TRUE(annotation.outcome.isRead);
    EXPECT_EQ(annotation.outcome.messages, Messages{"invalid 'measures' field"});
  }
}

TEST(MeasureElement, NeedsEachOfItsThreeVectors) {
  for (char const* const key : {"A", "B", "V"}) {
    for (Variant const& value : {list(1, 2), list(1, 2, "3"), list(1, 2, 3, 4), Variant(5), Variant()}) {
      Map map = measureMap();
      map[key] = value;
      EXPECT_FALSE(Annotation::MeasureLeader().loadFromVariant(map, v6_22)) << key;
    }
    Map map = measureMap();
    map.erase(key);
    EXPECT_FALSE(Annotation::MeasureLeader().loadFromVariant(map, v6_22)) << key;
  }
}

TEST(MeasureElement, FailsWhenItIsNoMap) {
  for (Variant const& value : oneOfEachKind()) {
    if (!value.isMap()) EXPECT_FALSE(Annotation::MeasureLeader().loadFromVariant(value, v6_17));
  }
}

TEST(MeasureElement, KnowsThreeArrowDirectionsFrom6_22On) {
  std::vector<std::pair<Variant, int>> const rows = {
      {"outout", 1}, {"inout", 2}, {"outin", 3}, {"inin", 0}, {"OutOut", 0}, {"", 0}, {2, 0}, {Variant(), 0}};
  for (auto const& [name, direction] : rows) {
    Map map = measureMap();
    map["arrowdir"] = name;
    Annotation::MeasureLeader measure;
    measure.m_arrowDir = 7;
    EXPECT_TRUE(measure.loadFromVariant(map, v6_21));
    EXPECT_EQ(measure.m_arrowDir, 7);
    EXPECT_TRUE(measure.loadFromVariant(map, v6_22));
    EXPECT_EQ(measure.m_arrowDir, direction) << name.toString();
  }
  Map map = measureMap();
  map.erase("arrowdir");
  Annotation::MeasureLeader measure;
  measure.m_arrowDir = 7;
  EXPECT_TRUE(measure.loadFromVariant(map, v6_22));
  EXPECT_EQ(measure.m_arrowDir, 0);
}

// --- style

TEST(StyleFields, SetOneBitForEachFlag) {
  EXPECT_EQ(Loaded({{"isframelocked", true}}).m_style, 0x81);
  EXPECT_EQ(Loaded({{"isscalelocked", true}}).m_style, 0x41);
  EXPECT_EQ(Loaded({{"isignoreztest", true}}).m_style, 0x21);
  EXPECT_EQ(Loaded({{"isframelocked", false}, {"isscalelocked", 0}, {"isignoreztest", "x"}}).m_style, 0x01);
  EXPECT_EQ(Loaded({{"isframelocked", 1}, {"isscalelocked", "true"}, {"isignoreztest", 0.5}}).m_style, 0xE1);
  EXPECT_EQ(Loaded({{"isframelocked", true},
                    {"isscalelocked", true},
                    {"isignoreztest", true},
                    {"frameshape", "circle"}})
                .m_style,
            0xEB);
}

TEST(StyleFields, ReplaceTheWholeByte) {
  Annotation annotation(Annotation::Unknown);
  annotation.m_style = 0xFF;
  EXPECT_TRUE(read(annotation, {}, v6_17).isRead);
  EXPECT_EQ(annotation.m_style, 0x01);
}

TEST(StyleFields, KnowFifteenFrameShapes) {
  char const* const names[] = {"noframe",   "rectangle", "square",   "diamond",       "triangle",
                               "flagright", "flagleft",  "flagboth", "parallelogram", "hexagon",
                               "pentagon",  "circle",    "oblong",   "oblongleft",    "oblongright"};
  for (int shape = 0; shape < 15; ++shape) EXPECT_EQ(styleFor(names[shape]), shape) << names[shape];
}

TEST(StyleFields, MakeEveryOtherFrameShapeARectangle) {
  for (char const* const name : {"Circle", "circle ", "", "none", "NoFrame"})
    EXPECT_EQ(styleFor(name), 1) << name;
  for (Variant const& value : oneOfEachKind()) EXPECT_EQ(styleFor(value), 1);
  EXPECT_EQ(Loaded(Map{}).m_style, 1);
}

// --- children

TEST(ChildrenField, IsNotReadBefore6_22) {
  Map const map{{"children", list(5)}, {"metadata", Map{{"k", 1}}}};
  Annotation annotation(Annotation::Unknown);
  annotation.m_metadata["old"] = 1;
  EXPECT_TRUE(read(annotation, map, v6_21).isRead);
  EXPECT_EQ(annotation.m_metadata.count("old"), 1U);
  EXPECT_EQ(annotation.m_subAnnots, nullptr);
  EXPECT_FALSE(read(annotation, map, v6_22).isRead);
}

TEST(ChildrenField, HoldsTextsAndRasters) {
  Loaded const annotation(
      {{"children", list(Map{{"type", "text"}, {"name", "t"}, {"anchorloc", "rb"}, {"text", "a\nb"}},
                         Map{{"type", "raster"}, {"rastername", "logo"}})}});
  EXPECT_TRUE(annotation.outcome.isRead);
  EXPECT_EQ(anchorsOf(annotation), (std::vector<std::uint32_t>{12, 0}));
  auto const* const text = dynamic_cast<Text const*>(annotation.m_subAnnots->front().m_annot.get());
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->m_name, "t");
  EXPECT_EQ(text->m_lines.size(), 2U);
  EXPECT_EQ(text->GetReferences(), 1);
  auto const* const raster = dynamic_cast<Raster const*>(annotation.m_subAnnots->back().m_annot.get());
  ASSERT_NE(raster, nullptr);
  EXPECT_EQ(raster->m_rasterName, "logo");
  EXPECT_EQ(raster->GetReferences(), 1);
}

TEST(ChildrenField, IsReadRecursively) {
  Map const grandchild{{"type", "text"}, {"name", "g"}, {"anchorloc", "tl"}, {"color", "no"}};
  Map const child{{"type", "text"}, {"childs", list(grandchild)}};
  Loaded const annotation({{"children", list(child)}});
  EXPECT_EQ(annotation.outcome.messages, Messages{"invalid 'color' field"});
  Annotation const& read = *annotation.m_subAnnots->front().m_annot;
  EXPECT_EQ(anchorsOf(read), std::vector<std::uint32_t>{4});
  EXPECT_EQ(read.m_subAnnots->front().m_annot->m_name, "g");
}

TEST(ChildrenField, IsTakenUnderItsOlderKeyOnlyWhereItIsAbsent) {
  Variant const one = list(Map{{"type", "text"}});
  Loaded const shadowed({{"children", "x"}, {"childs", one}});
  EXPECT_TRUE(shadowed.outcome.isRead);
  EXPECT_TRUE(shadowed.outcome.messages.empty());
  EXPECT_EQ(shadowed.m_subAnnots, nullptr);
  EXPECT_EQ(anchorsOf(Loaded({{"childs", one}})), std::vector<std::uint32_t>{0});
  EXPECT_EQ(anchorsOf(Loaded({{"children", list()}, {"childs", one}})), std::vector<std::uint32_t>{});
}

TEST(ChildrenField, IsPassedOverInSilenceWhenItIsNoList) {
  for (Variant const& value : oneOfEachKind()) {
    if (value.isList()) continue;
    Loaded const annotation({{"children", value}, {"metadata", Map{{"k", 1}}}});
    EXPECT_TRUE(annotation.outcome.isRead);
    EXPECT_TRUE(annotation.outcome.messages.empty());
    EXPECT_EQ(annotation.m_metadata.size(), 1U);
  }
}

TEST(ChildrenField, EndsTheReadingInSilenceAtAnElementThatIsNoMap) {
  Annotation annotation(Annotation::Unknown);
  annotation.m_metadata["old"] = 1;
  Outcome const outcome = read(annotation,
                               {{"children", list(Map{{"type", "text"}, {"anchorloc", "rb"}},
                                                  Map{{"type", "Text"}}, 5, Map{{"type", "raster"}})},
                                {"metadata", Map{{"k", 1}}}},
                               v6_22);
  EXPECT_FALSE(outcome.isRead);
  EXPECT_EQ(outcome.messages, Messages{"invalid annotation type"});
  EXPECT_EQ(anchorsOf(annotation), std::vector<std::uint32_t>{12});
  EXPECT_EQ(annotation.m_metadata.count("old"), 1U);
}

TEST(ChildrenField, SkipsChildrenOfUnknownType) {
  for (Map const& child :
       {Map{}, Map{{"type", "TEXT"}}, Map{{"type", "note"}}, Map{{"type", 1}}, Map{{"type", ""}}}) {
    Loaded const annotation({{"children", list(child, Map{{"type", "raster"}})}});
    EXPECT_TRUE(annotation.outcome.isRead);
    EXPECT_EQ(annotation.outcome.messages, Messages{"invalid annotation type"});
    EXPECT_EQ(anchorsOf(annotation).size(), 1U);
  }
}

TEST(ChildrenField, DropsAChildThatCannotBeRead) {
  std::size_t const objects = qv::qvObject::GetLiveObjects();
  Loaded const annotation({{"children", list(Map{{"type", "text"}, {"position", 5}},
                                             Map{{"type", "text"}, {"children", list(5)}})}});
  EXPECT_TRUE(annotation.outcome.isRead);
  EXPECT_EQ(annotation.outcome.messages, Messages{"invalid 'position' field"});
  EXPECT_EQ(annotation.m_subAnnots, nullptr);
  EXPECT_EQ(qv::qvObject::GetLiveObjects(), objects + 1);
}

TEST(ChildrenField, KnowsTwelveAnchorNamesAndReadsRbAsRt) {
  std::vector<std::pair<Variant, std::uint32_t>> const rows = {
      {"bl", 1}, {"bc", 2},  {"br", 3},  {"tl", 4},  {"tc", 5}, {"tr", 6}, {"lb", 7},     {"lc", 8},
      {"lt", 9}, {"rc", 11}, {"rt", 12}, {"rb", 12}, {"RT", 0}, {"cc", 0}, {"", 0},       {"rt ", 0},
      {12, 0},   {12.0, 0},  {true, 0},  {Map{}, 0}, {"lr", 0}, {"r", 0},  {Variant(), 0}};
  for (auto const& [name, anchor] : rows) {
    Loaded const annotation({{"children", list(Map{{"type", "text"}, {"anchorloc", name}})}});
    EXPECT_EQ(anchorsOf(annotation), std::vector<std::uint32_t>{anchor}) << name.toString();
  }
}

TEST(ChildrenField, AppendsToTheChildrenThatAreThere) {
  Annotation annotation(Annotation::Unknown);
  annotation.editSubAnnots().emplace_back();
  EXPECT_TRUE(read(annotation, {{"children", list(Map{{"type", "text"}})}}, v6_22).isRead);
  EXPECT_EQ(anchorsOf(annotation), (std::vector<std::uint32_t>{1, 0}));
}

// --- metadata

TEST(MetadataField, ReplacesTheMetadataFrom6_22On) {
  Annotation annotation(Annotation::Unknown);
  EXPECT_TRUE(read(annotation, {{"metadata", Map{{"k", 1}}}}, v6_22).isRead);
  EXPECT_EQ(annotation.m_metadata, (Map{{"k", 1}}));
  EXPECT_TRUE(read(annotation, {}, v6_22).isRead);
  EXPECT_TRUE(annotation.m_metadata.empty());
}

TEST(MetadataField, IsEmptyForOtherKinds) {
  for (Variant const& value : oneOfEachKind()) {
    if (value.isMap()) continue;
    Annotation annotation(Annotation::Unknown);
    annotation.m_metadata["old"] = 1;
    Outcome const outcome = read(annotation, {{"metadata", value}}, v6_22);
    EXPECT_TRUE(outcome.isRead);
    EXPECT_TRUE(outcome.messages.empty());
    EXPECT_TRUE(annotation.m_metadata.empty());
  }
}

}  // namespace
