#include <gtest/gtest.h>

#include "annotationLegacy/qvAnnotationInterface.h"
#include "tests/readers/variant/variants.h"

namespace {

using namespace readersTest;
using Annotation = qvLegacy::qvAnnotationInterface;
using Vector = Wm4::Vector3<float>;

/// A base annotation after reading one map into it.
struct Loaded : Annotation {
  explicit Loaded(Map const& map, qv::qvStreamVersion const& version = v6_22)
      : Annotation(Unknown), outcome(read(*this, map, version)) {}
  Outcome outcome;
};

// --- leaders

TEST(LeadersField, HoldsPositionsBefore6_22) {
  Loaded const annotation(Map{{"leaders", list(list(1, 2, 3), list(4, 5, 6))}}, v6_21);
  ASSERT_EQ(annotation.m_leaders.size(), 2U);
  EXPECT_EQ(annotation.m_leaders[0].m_position, Vector(1, 2, 3));
  EXPECT_EQ(annotation.m_leaders[1].m_position, Vector(4, 5, 6));
  EXPECT_EQ(annotation.m_leaders[1].m_head, 0);
  EXPECT_TRUE(annotation.outcome.messages.empty());
}

TEST(LeadersField, HoldsMapsFrom6_22On) {
  Loaded const annotation(Map{{"leaders", list(Map{{"pos", list(1, 2, 3)}, {"head", "arrow"}}, Map{})}});
  ASSERT_EQ(annotation.m_leaders.size(), 2U);
  EXPECT_EQ(annotation.m_leaders[0].m_position, Vector(1, 2, 3));
  EXPECT_EQ(annotation.m_leaders[0].m_head, Annotation::ArrowHead);
  EXPECT_EQ(annotation.m_leaders[1].m_position, Vector(0, 0, 0));
  EXPECT_EQ(annotation.m_leaders[1].m_head, 0);
  EXPECT_TRUE(annotation.outcome.messages.empty());
}

TEST(LeadersField, TakesNeitherVersionsFormInTheOther) {
  Loaded const older(Map{{"leaders", list(Map{{"pos", list(1, 2, 3)}})}}, v6_21);
  Loaded const newer(Map{{"leaders", list(list(1, 2, 3))}}, v6_22);
  for (Loaded const* const annotation : {&older, &newer}) {
    EXPECT_TRUE(annotation->m_leaders.empty());
    EXPECT_TRUE(annotation->outcome.isRead);
    EXPECT_EQ(annotation->outcome.messages, Messages{"invalid 'leaders' field content"});
  }
}

TEST(LeadersField, EndsAtTheFirstElementThatFails) {
  Loaded const annotation(
      Map{{"leaders", list(list(1, 2, 3), 5, list(4, 5, 6), "x")}, {"measures", 5}, {"frameshape", "circle"}},
      v6_17);
  EXPECT_EQ(annotation.m_leaders.size(), 1U);
  EXPECT_EQ(annotation.outcome.messages,
            (Messages{"invalid 'leaders' field content", "invalid 'measures' field"}));
  EXPECT_EQ(annotation.m_style, 11);
}

TEST(LeadersField, IsReportedWhenItIsNoList) {
  for (Variant const& value : oneOfEachKind()) {
    if (value.isList()) continue;
    Loaded const annotation(Map{{"leaders", value}, {"frameshape", "circle"}});
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
    Loaded const annotation(Map{{"measures", list(measureMap())}}, version);
    ASSERT_EQ(annotation.m_measures.size(), 1U);
    EXPECT_EQ(annotation.m_measures[0].m_pointA, Vector(1, 2, 3));
    EXPECT_EQ(annotation.m_measures[0].m_pointB, Vector(4, 5, 6));
    EXPECT_EQ(annotation.m_measures[0].m_offset, Vector(7, 8, 9));
    EXPECT_EQ(annotation.m_measures[0].m_arrowDir, version >= v6_22 ? 3 : 0);
    EXPECT_TRUE(annotation.outcome.messages.empty());
  }
}

TEST(MeasuresField, EndsAtTheFirstElementThatFails) {
  Loaded const annotation(
      Map{{"measures", list(measureMap(), Map{}, measureMap())}, {"frameshape", "circle"}});
  EXPECT_TRUE(annotation.outcome.isRead);
  EXPECT_EQ(annotation.m_measures.size(), 1U);
  EXPECT_EQ(annotation.outcome.messages, Messages{"invalid 'measures' field content"});
  EXPECT_EQ(annotation.m_style, 11);
}

TEST(MeasuresField, IsReportedWhenItIsNoList) {
  for (Variant const& value : oneOfEachKind()) {
    if (value.isList()) continue;
    Loaded const annotation(Map{{"measures", value}});
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
    if (value.isMap()) continue;
    EXPECT_FALSE(Annotation::MeasureLeader().loadFromVariant(value, v6_17));
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

}  // namespace
