// The paths that only an operation's refusal reaches: here no path builder makes an item, and no leaders can
// be made.

#include <gtest/gtest.h>

#include "tests/migration/migrationFixture.h"

std::shared_ptr<qv::svg::Path> qv::svg::PathBuilder::createPathItem(bool) {
  return nullptr;
}

namespace {

bool leadersFail = true;

}  // namespace

bool qvLegacy::qvAnnotationMigration::createLeaders(std::vector<qvAnnotationInterface::Leader> const&,
                                                    qv::qvCadAnnotation&, Wm4::Vector3<float> const&,
                                                    Wm4::Vector2<float> const&) {
  return !leadersFail;
}

namespace {

using namespace migrationTest;

class MigrationRefusal : public Migration {
 protected:
  void SetUp() override {
    Migration::SetUp();
    leadersFail = true;
  }
};

TEST_F(MigrationRefusal, LeadersThatFailFailTheView) {
  EXPECT_EQ(migrateOne(makeText("10x4")), nullptr);
  EXPECT_EQ(m_log.texts(), Log{"Fail to migrate leaders of annotation 'a' of view 'v'"});
}

TEST_F(MigrationRefusal, LeadersOfASubAnnotationThatFailAreLoggedAndPassedOver) {
  qvLegacy::qvAnnotationMigration migration(0, nullptr, nullptr, 1);
  auto const parent = makeText("10x4");
  addSub(*parent, makeText("4x2"));
  Cad cad;
  qv::svg::BoundingBox box;
  EXPECT_TRUE(migration.createAnnotationFrame(parent, cad, box));
  EXPECT_EQ(m_log.texts(), Log{"Fail to migrate sub annot leaders"});
}

TEST_F(MigrationRefusal, APolygonFrameWithoutAnItemFailsWithoutARecordOfItsOwn) {
  leadersFail = false;
  for (int const shape : {5, 6, 7, 8}) {
    m_log.records.clear();
    auto const text = makeText("10x4");
    text->m_style = static_cast<std::uint8_t>(shape);
    EXPECT_EQ(migrateOne(text), nullptr) << shape;
    EXPECT_EQ(m_log.texts(), Log{"Fail to migrate annotation 'a' of view 'v'"}) << shape;
  }
}

TEST_F(MigrationRefusal, ARectangleFrameNeedsNoPathBuilder) {
  leadersFail = false;
  EXPECT_NE(migrateOne(makeText("10x4")), nullptr);
}

}  // namespace
