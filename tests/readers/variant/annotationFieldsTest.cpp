#include <gtest/gtest.h>

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
  return Loaded(Map{{"frameshape", frameShape}}).m_style;
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
  EXPECT_EQ(Loaded(Map{{"name", "n"}}).m_name, "n");
  EXPECT_EQ(Loaded(Map{{"name", 7}}).m_name, "7");
  EXPECT_EQ(Loaded(Map{{"name", true}}).m_name, "true");
  EXPECT_EQ(Loaded(Map{{"name", list(1)}}).m_name, "");
  EXPECT_EQ(Loaded(Map{{"name", std::string("a\0b", 3)}}).m_name, std::string("a\0b", 3));
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
  Loaded const annotation(Map{{"position", list(1, 2, 3)}, {"children", list(Map{{"type", "text"}})}}, v6_17);
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
  EXPECT_EQ(Loaded(Map{{"color", "FF8000"}}).m_color, Color(255, 128, 0));
  EXPECT_EQ(Loaded(Map{{"color", "ff8001"}}).m_color, Color(255, 128, 1));
  EXPECT_EQ(Loaded(Map{{"color", "aBcDeF"}}).m_color, Color(0xAB, 0xCD, 0xEF));
  EXPECT_EQ(Loaded(Map{{"color", "000001"}}).m_color, Color(0, 0, 1));
  EXPECT_EQ(Loaded(Map{{"color", "000000"}}).m_color, Color(0, 0, 0));
}

TEST(ColorField, EndsAtTheFirstCharacterThatIsNoDigit) {
  EXPECT_EQ(Loaded(Map{{"color", "ff80zz"}}).m_color, Color(0, 0xFF, 0x80));
  EXPECT_EQ(Loaded(Map{{"color", "1-2345"}}).m_color, Color(0, 0, 1));
  EXPECT_EQ(Loaded(Map{{"color", std::string("a\0bcde", 6)}}).m_color, Color(0, 0, 10));
}

TEST(ColorField, TakesTheStringFormOfOtherKinds) {
  EXPECT_EQ(Loaded(Map{{"color", 123456}}).m_color, Color(0x12, 0x34, 0x56));
  EXPECT_EQ(Loaded(Map{{"color", 12345.0}}).outcome.messages, Messages{"invalid 'color' field"});
}

TEST(ColorField, IsReportedAndPassedOverWhenItIsNoColour) {
  for (char const* const text : {"zzzzzz", "#FF8000", "#FF800", "", "00000g", "0000000", "00000", "0x1234",
                                 "+12345", "-12345", " 12345", "\t12345", "0X00ff", "-00000"}) {
    Loaded const annotation(Map{{"color", text}, {"position", list(1, 2, 3)}});
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
    EXPECT_EQ(Loaded(Map{{"color", text}}).outcome.messages, Messages{"invalid 'color' field"}) << byte;
  }
}

TEST(ColorField, IsReportedForKindsWithoutSixCharacters) {
  for (Variant const& value : oneOfEachKind()) {
    EXPECT_EQ(Loaded(Map{{"color", value}}).outcome.messages, Messages{"invalid 'color' field"});
  }
}

// --- position

TEST(PositionField, TakesIntegersAndReals) {
  EXPECT_EQ(Loaded(Map{{"position", list(1, 2.5, -3)}}).m_position, Vector(1, 2.5F, -3));
}

TEST(PositionField, BecomesInfiniteBeyondSinglePrecision) {
  EXPECT_EQ(Loaded(Map{{"position", list(1e39, -1e39, 0)}}).m_position.X(),
            std::numeric_limits<float>::infinity());
}

TEST(PositionField, StopsTheReadingWhenItIsNoVector) {
  std::vector<Variant> values = oneOfEachKind();
  values.insert(values.end(), {list(), list(1, 2), list(1, 2, "3"), list(1, 2, 3, 4), list(true, 2, 3),
                               list(1, Variant(), 3), list(1, 2, list(3))});
  for (Variant const& value : values) {
    Loaded const annotation(Map{{"name", "n"},
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

// --- style

TEST(StyleFields, SetOneBitForEachFlag) {
  EXPECT_EQ(Loaded(Map{{"isframelocked", true}}).m_style, 0x81);
  EXPECT_EQ(Loaded(Map{{"isscalelocked", true}}).m_style, 0x41);
  EXPECT_EQ(Loaded(Map{{"isignoreztest", true}}).m_style, 0x21);
  EXPECT_EQ(Loaded(Map{{"isframelocked", false}, {"isscalelocked", 0}, {"isignoreztest", "x"}}).m_style,
            0x01);
  EXPECT_EQ(Loaded(Map{{"isframelocked", 1}, {"isscalelocked", "true"}, {"isignoreztest", 0.5}}).m_style,
            0xE1);
  EXPECT_EQ(Loaded(Map{{"isframelocked", true},
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
      Map{{"children", list(Map{{"type", "text"}, {"name", "t"}, {"anchorloc", "rb"}, {"text", "a\nb"}},
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
  Loaded const annotation(Map{{"children", list(child)}});
  EXPECT_EQ(annotation.outcome.messages, Messages{"invalid 'color' field"});
  Annotation const& read = *annotation.m_subAnnots->front().m_annot;
  EXPECT_EQ(anchorsOf(read), std::vector<std::uint32_t>{4});
  EXPECT_EQ(read.m_subAnnots->front().m_annot->m_name, "g");
}

TEST(ChildrenField, IsTakenUnderItsOlderKeyOnlyWhereItIsAbsent) {
  Variant const one = list(Map{{"type", "text"}});
  Loaded const shadowed(Map{{"children", "x"}, {"childs", one}});
  EXPECT_TRUE(shadowed.outcome.isRead);
  EXPECT_TRUE(shadowed.outcome.messages.empty());
  EXPECT_EQ(shadowed.m_subAnnots, nullptr);
  EXPECT_EQ(anchorsOf(Loaded(Map{{"childs", one}})), std::vector<std::uint32_t>{0});
  EXPECT_EQ(anchorsOf(Loaded(Map{{"children", list()}, {"childs", one}})), std::vector<std::uint32_t>{});
}

TEST(ChildrenField, IsPassedOverInSilenceWhenItIsNoList) {
  for (Variant const& value : oneOfEachKind()) {
    if (value.isList()) continue;
    Loaded const annotation(Map{{"children", value}, {"metadata", Map{{"k", 1}}}});
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
    Loaded const annotation(Map{{"children", list(child, Map{{"type", "raster"}})}});
    EXPECT_TRUE(annotation.outcome.isRead);
    EXPECT_EQ(annotation.outcome.messages, Messages{"invalid annotation type"});
    EXPECT_EQ(anchorsOf(annotation).size(), 1U);
  }
}

TEST(ChildrenField, DropsAChildThatCannotBeRead) {
  std::size_t const objects = qv::qvObject::GetLiveObjects();
  Loaded const annotation(Map{{"children", list(Map{{"type", "text"}, {"position", 5}},
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
    Loaded const annotation(Map{{"children", list(Map{{"type", "text"}, {"anchorloc", name}})}});
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
