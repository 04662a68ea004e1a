#include <gtest/gtest.h>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "annotationLegacy/qvAnnotationView.h"
#include "tests/readers/variant/variants.h"

namespace {

using namespace readersTest;
using Raster = qvLegacy::qvAnnotationRaster;
using Text = qvLegacy::qvAnnotationText;
using Vector = Wm4::Vector3<float>;
using View = qvLegacy::qvAnnotationView;

struct Loaded {
  explicit Loaded(Map const& map) : view(View::FromVariantMap(map, messages)) {}
  Messages messages;
  qv::qvPointer<View> view;
};

/// A view map of the given version with empty lists of annotations in the version's own form.
Map viewMap(char const* version, Map const& fields = {}) {
  Map map{{"ver", version},
          {"textannotations", list()},
          {"rasterannotations", list()},
          {"annotations", list()},
          {"metadata", Map{}}};
  for (auto const& [key, value] : fields) map[key] = value;
  return map;
}

Map without(Map map, char const* key) {
  map.erase(key);
  return map;
}

std::vector<std::string> namesOf(View const& view) {
  std::vector<std::string> names;
  for (auto const& annotation : view.m_annotations) names.push_back(annotation->m_name);
  return names;
}

// --- version

TEST(ViewFields, AreRefusedBefore6_17WithTheVersionAsItStands) {
  for (char const* const version :
       {"6.16", "6.0", "5.99", "0.0", "", "6.022x", "six", "6", " 6.22", "6.22 ", "-6.22"}) {
    Loaded const loaded(viewMap(version));
    EXPECT_EQ(loaded.view.get(), nullptr) << version;
    EXPECT_EQ(loaded.messages, Messages{std::string("invalid version ") + version}) << version;
  }
}

TEST(ViewFields, AreRefusedWithoutAVersion) {
  Loaded const loaded(without(viewMap("6.22"), "ver"));
  EXPECT_EQ(loaded.view.get(), nullptr);
  EXPECT_EQ(loaded.messages, Messages{"invalid version "});
}

TEST(ViewFields, TakeTheStringFormOfTheVersion) {
  Loaded const accepted(viewMap("", {{"ver", 6.22}}));
  EXPECT_NE(accepted.view.get(), nullptr);
  Loaded const refused(viewMap("", {{"ver", 6}}));
  EXPECT_EQ(refused.messages, Messages{"invalid version 6"});
}

TEST(ViewFields, GiveAnEmptyViewForEmptyLists) {
  Loaded const loaded(Map{{"ver", "6.17"}, {"textannotations", list()}, {"rasterannotations", list()}});
  ASSERT_NE(loaded.view.get(), nullptr);
  EXPECT_TRUE(loaded.messages.empty());
  EXPECT_EQ(loaded.view->m_name, "");
  EXPECT_EQ(loaded.view->m_planeOrigin, Vector(0, 0, 0));
  EXPECT_EQ(loaded.view->m_planeNormal, Vector(0, 0, 1));
  EXPECT_EQ(loaded.view->m_planeXAxis, Vector(1, 0, 0));
  EXPECT_TRUE(loaded.view->m_annotations.empty());
  EXPECT_EQ(loaded.view->GetReferences(), 1);
}

// --- name and plane

TEST(ViewFields, HoldNameAndPlane) {
  Loaded const loaded(viewMap(
      "6.22",
      {{"name", "v"}, {"origin", list(1, 2, 3.5)}, {"normal", list(0, 1, 0)}, {"axis", list(0, 0, 1)}}));
  ASSERT_NE(loaded.view.get(), nullptr);
  EXPECT_EQ(loaded.view->m_name, "v");
  EXPECT_EQ(loaded.view->m_planeOrigin, Vector(1, 2, 3.5F));
  EXPECT_EQ(loaded.view->m_planeNormal, Vector(0, 1, 0));
  EXPECT_EQ(loaded.view->m_planeXAxis, Vector(0, 0, 1));
}

TEST(ViewFields, TakeTheStringFormOfTheName) {
  EXPECT_EQ(Loaded(viewMap("6.22", {{"name", 7}})).view->m_name, "7");
}

TEST(ViewFields, ReportEachMalformedVectorAndKeepItsValue) {
  std::vector<Variant> values = oneOfEachKind();
  values.insert(values.end(), {list(1, 2), list("1", "2", "3"), list(5, 5, 5, 5), list(5, 5, true), list()});
  for (Variant const& value : values) {
    Loaded const loaded(viewMap("6.22", {{"axis", value}, {"normal", value}, {"origin", value}}));
    ASSERT_NE(loaded.view.get(), nullptr);
    EXPECT_EQ(loaded.messages,
              (Messages{"invalid 'origin' field", "invalid 'normal' field", "invalid 'axis' field"}));
    EXPECT_EQ(loaded.view->m_planeOrigin, Vector(0, 0, 0));
    EXPECT_EQ(loaded.view->m_planeNormal, Vector(0, 0, 1));
    EXPECT_EQ(loaded.view->m_planeXAxis, Vector(1, 0, 0));
  }
}

// --- metadata

TEST(ViewMetadataField, IsNotLookedAtBefore6_27) {
  for (Variant const& value : oneOfEachKind()) {
    Loaded const loaded(viewMap("6.26", {{"metadata", value}}));
    ASSERT_NE(loaded.view.get(), nullptr);
    EXPECT_TRUE(loaded.view->m_metadata.empty());
    EXPECT_TRUE(loaded.messages.empty());
  }
}

TEST(ViewMetadataField, IsCopiedFrom6_27On) {
  Loaded const loaded(viewMap("6.27", {{"metadata", Map{{"a", 1}}}}));
  EXPECT_EQ(loaded.view->m_metadata, (Map{{"a", 1}}));
  EXPECT_TRUE(loaded.messages.empty());
}

TEST(ViewMetadataField, IsReportedWhenItIsAbsentOrNoMap) {
  std::vector<Map> maps = {without(viewMap("6.27"), "metadata")};
  for (Variant const& value : oneOfEachKind()) {
    if (!value.isMap()) maps.push_back(viewMap("6.27", {{"metadata", value}}));
  }
  for (Map const& map : maps) {
    Loaded const loaded(map);
    EXPECT_NE(loaded.view.get(), nullptr);
    EXPECT_EQ(loaded.messages, Messages{"invalid 'metadata' field"});
  }
}

// --- two lists

TEST(TwoLists, HoldTextsThenRasters) {
  for (char const* const version : {"6.17", "6.21"}) {
    Loaded const loaded(viewMap(version, {{"textannotations", list(Map{{"name", "t1"}}, Map{{"name", "t2"}})},
                                          {"rasterannotations", list(Map{{"name", "r1"}, {"type", "text"}})},
                                          {"annotations", 5}}));
    ASSERT_NE(loaded.view.get(), nullptr);
    EXPECT_TRUE(loaded.messages.empty());
    EXPECT_EQ(namesOf(*loaded.view), (std::vector<std::string>{"t1", "t2", "r1"}));
    EXPECT_NE(dynamic_cast<Text const*>(loaded.view->m_annotations[1].get()), nullptr);
    EXPECT_NE(dynamic_cast<Raster const*>(loaded.view->m_annotations[2].get()), nullptr);
    EXPECT_EQ(loaded.view->m_annotations[0]->GetReferences(), 1);
  }
}

TEST(TwoLists, AreBothNeeded) {
  std::size_t const objects = qv::qvObject::GetLiveObjects();
  Map const map = viewMap("6.21", {{"textannotations", list(Map{{"name", "t"}})}});
  EXPECT_EQ(Loaded(without(map, "textannotations")).messages, Messages{"missing 'textannotations' field"});
  EXPECT_EQ(Loaded(without(map, "textannotations")).view.get(), nullptr);
  EXPECT_EQ(Loaded(without(map, "rasterannotations")).messages,
            Messages{"missing 'rasterannotations' field"});
  EXPECT_EQ(Loaded(without(map, "rasterannotations")).view.get(), nullptr);
  EXPECT_EQ(Loaded(without(without(map, "rasterannotations"), "textannotations")).messages,
            Messages{"missing 'textannotations' field"});
  EXPECT_EQ(qv::qvObject::GetLiveObjects(), objects);
}

TEST(TwoLists, MustBeLists) {
  for (Variant const& value : oneOfEachKind()) {
    if (value.isList()) continue;
    Loaded const texts(viewMap("6.21", {{"textannotations", value}}));
    EXPECT_EQ(texts.view.get(), nullptr);
    EXPECT_EQ(texts.messages, Messages{"invalid 'textannotations' field"});
    Loaded const rasters(viewMap("6.21", {{"rasterannotations", value}}));
    EXPECT_EQ(rasters.view.get(), nullptr);
    EXPECT_EQ(rasters.messages, Messages{"invalid 'rasterannotations' field"});
  }
}

TEST(TwoLists, SkipElementsThatAreNoMaps) {
  for (Variant const& value : oneOfEachKind()) {
    if (value.isMap()) continue;
    Loaded const loaded(viewMap("6.21", {{"textannotations", list(value, Map{{"name", "t"}})},
                                         {"rasterannotations", list(value, Map{{"name", "r"}})}}));
    ASSERT_NE(loaded.view.get(), nullptr);
    EXPECT_EQ(loaded.messages,
              (Messages{"invalid 'annotations' field content", "invalid 'rasterannotations' field content"}));
    EXPECT_EQ(namesOf(*loaded.view), (std::vector<std::string>{"t", "r"}));
  }
}

TEST(TwoLists, DropAnnotationsThatCannotBeRead) {
  Loaded const loaded(viewMap("6.21", {{"textannotations", list(Map{{"position", 5}}, Map{{"name", "t"}})},
                                       {"rasterannotations", list(Map{{"sizeem", 5}}, Map{{"name", "r"}})}}));
  EXPECT_EQ(loaded.messages, (Messages{"invalid 'position' field", "invalid 'sizeem' field"}));
  EXPECT_EQ(namesOf(*loaded.view), (std::vector<std::string>{"t", "r"}));
}

// --- one list

TEST(OneList, HoldsAnnotationsOfEveryTypeInTheirOrder) {
  for (char const* const version : {"6.22", "6.27", "7.0"}) {
    Loaded const loaded(viewMap(version, {{"annotations", list(Map{{"type", "raster"}, {"name", "r"}},
                                                               Map{{"type", "text"}, {"name", "t"}})},
                                          {"textannotations", 5},
                                          {"rasterannotations", 5}}));
    ASSERT_NE(loaded.view.get(), nullptr) << version;
    EXPECT_TRUE(loaded.messages.empty());
    EXPECT_EQ(namesOf(*loaded.view), (std::vector<std::string>{"r", "t"}));
    EXPECT_NE(dynamic_cast<Raster const*>(loaded.view->m_annotations[0].get()), nullptr);
    EXPECT_EQ(loaded.view->m_annotations[0]->GetReferences(), 1);
  }
}

TEST(OneList, IsNeeded) {
  Loaded const loaded(without(viewMap("6.22"), "annotations"));
  EXPECT_EQ(loaded.view.get(), nullptr);
  EXPECT_EQ(loaded.messages, Messages{"missing 'annotations' field"});
}

TEST(OneList, MustBeAList) {
  for (Variant const& value : oneOfEachKind()) {
    if (value.isList()) continue;
    Loaded const loaded(viewMap("6.22", {{"annotations", value}}));
    EXPECT_EQ(loaded.view.get(), nullptr);
    EXPECT_EQ(loaded.messages, Messages{"invalid 'annotations' field"});
  }
}

TEST(OneList, SkipsWhatIsNoMapOrHasNoKnownType) {
  Loaded const loaded(viewMap("6.22", {{"annotations", list(7, Map{{"type", "note"}},
                                                            Map{{"type", "text"}, {"text", "a"}}, Map{})}}));
  ASSERT_NE(loaded.view.get(), nullptr);
  EXPECT_EQ(loaded.view->m_annotations.size(), 1U);
  EXPECT_EQ(loaded.messages, (Messages{"invalid 'annotations' field content", "invalid annotation type",
                                       "invalid annotation type"}));
}

TEST(OneList, ComparesTypesExactly) {
  for (Variant const& type :
       {Variant("TEXT"), Variant("Text"), Variant("text "), Variant(""), Variant(1), Variant()}) {
    Loaded const loaded(viewMap("6.22", {{"annotations", list(Map{{"type", type}})}}));
    EXPECT_TRUE(loaded.view->m_annotations.empty());
    EXPECT_EQ(loaded.messages, Messages{"invalid annotation type"});
  }
}

TEST(OneList, DropsAnnotationsThatCannotBeRead) {
  std::size_t const objects = qv::qvObject::GetLiveObjects();
  Loaded const loaded(viewMap("6.22", {{"annotations", list(Map{{"type", "text"}, {"position", list(1)}})}}));
  ASSERT_NE(loaded.view.get(), nullptr);
  EXPECT_TRUE(loaded.view->m_annotations.empty());
  EXPECT_EQ(loaded.messages, Messages{"invalid 'position' field"});
  EXPECT_EQ(qv::qvObject::GetLiveObjects(), objects + 1);
}

TEST(OneList, AppendsItsMessagesToTheCallersList) {
  Messages messages = {"earlier"};
  qv::qvPointer<View> const view = View::FromVariantMap(without(viewMap("6.22"), "annotations"), messages);
  EXPECT_EQ(messages, (Messages{"earlier", "missing 'annotations' field"}));
}

}  // namespace
