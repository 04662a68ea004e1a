#include <gtest/gtest.h>

#include <limits>

#include "tests/migration/migrationFixture.h"
#include "tests/migration/statedSizeConverter.h"

namespace {

using namespace migrationTest;

class MigratedAnnotation : public Migration {
 protected:
  /// The log of an annotation "a" with these metadata keys, and whether it migrates.
  bool passes(std::vector<std::string> const& keys, int options) {
    auto const text = makeText("10x4");
    for (std::string const& key : keys) text->m_metadata[key] = "value";
    m_log.records.clear();
    return migrateOne(text, options) != nullptr;
  }
};

TEST_F(MigratedAnnotation, TakesOverNameAndPosition) {
  auto const text = makeText("10x4", "note 1");
  text->m_position = {1, 2, 3};
  Cad const cad = migrateOne(text);
  ASSERT_NE(cad, nullptr);
  EXPECT_EQ(cad->GetName(), "note 1");
  EXPECT_EQ(cad->m_position, Point3(1, 2, 3));
  EXPECT_EQ(cad->m_rotationAngle, 0.0F);
  EXPECT_EQ(cad->m_scale, 1.0F);
}

TEST_F(MigratedAnnotation, IsBlackWhateverTheLegacyColour) {
  auto const text = makeText("10x4");
  text->m_color = {9, 9, 9};
  Cad const cad = migrateOne(text);
  ASSERT_NE(cad, nullptr);
  EXPECT_EQ(cad->m_color, (Wm4::Vector3<unsigned char>(0, 0, 0)));
  EXPECT_EQ(cad->m_svgRoot->m_borderColor, "#000000");
  EXPECT_EQ(cad->m_svgRoot->m_backgroundColor, "#000000");
  EXPECT_FALSE(cad->m_svgRoot->m_transform.has_value());
}

TEST_F(MigratedAnnotation, KnownMetadataFailsWithATextThatLacksABlank) {
  EXPECT_FALSE(passes({"NOA"}, 0));
  EXPECT_EQ(m_log.texts(),
            (Log{"Found CT metadata NOAin annotation", "Fail to migrate annotation 'a' of view 'v'"}));
}

TEST_F(MigratedAnnotation, UnknownMetadataFailsWithATextOfItsOwn) {
  EXPECT_FALSE(passes({"colour"}, 0));
  EXPECT_EQ(m_log.texts(), (Log{"Found unexpected metadata colour in annotation",
                                "Fail to migrate annotation 'a' of view 'v'"}));
}

TEST_F(MigratedAnnotation, EachOptionBitDropsItsOwnKindOfMetadata) {
  EXPECT_TRUE(passes({"NOA"}, 2));
  EXPECT_FALSE(passes({"NOA"}, 4));
  EXPECT_FALSE(passes({"colour"}, 2));
  EXPECT_TRUE(passes({"colour"}, 4));
  EXPECT_FALSE(passes({"NOA", "colour"}, 2));
  EXPECT_EQ(m_log.texts().at(0), "Found unexpected metadata colour in annotation");
  EXPECT_TRUE(passes({"NOA", "colour"}, 6));
  EXPECT_EQ(m_log.texts(), Log{});
}

TEST_F(MigratedAnnotation, KeysThatDifferInCaseOrBlanksAreUnknown) {
  for (std::string const key : {"noa", "NOA ", "NOA_Hidden text"}) {
    EXPECT_FALSE(passes({key}, 2));
    EXPECT_EQ(m_log.texts().at(0), "Found unexpected metadata " + key + " in annotation");
  }
  EXPECT_TRUE(passes({"NOA_Hidden Text"}, 2));
}

TEST_F(MigratedAnnotation, MetadataIsScreenedInTheOrderOfItsKeysUpToTheFirstThatFails) {
  EXPECT_FALSE(passes({"b", "NOA", "a"}, 0));
  EXPECT_EQ(m_log.texts().at(0), "Found CT metadata NOAin annotation");
  EXPECT_EQ(m_log.records.size(), 2U);
  EXPECT_FALSE(passes({"b", "NOA", "a"}, 2));
  EXPECT_EQ(m_log.texts().at(0), "Found unexpected metadata a in annotation");
}

TEST_F(MigratedAnnotation, MetadataIsScreenedBeforeTheContent) {
  auto const raster = makeRaster("n", 1, 1);
  raster->m_metadata["k"] = 1;
  EXPECT_EQ(migrateOne(raster), nullptr);
  EXPECT_TRUE(m_source.asked.empty());
}

TEST_F(MigratedAnnotation, OfAnUnknownKindFailsWithoutARecordOfItsOwn) {
  qv::qvPointer<Annotation> const unknown(new Annotation(Annotation::Unknown));
  unknown->SetName("u");
  EXPECT_EQ(migrateOne(unknown), nullptr);
  EXPECT_EQ(m_log.texts(), Log{"Fail to migrate annotation 'u' of view 'v'"});
}

TEST_F(MigratedAnnotation, ATextGetsAMarginOfTwoOnBothSidesOfEachAxisAndIsCentred) {
  Cad const cad = migrateOne(makeText("10x4"));
  ASSERT_NE(cad, nullptr);
  ASSERT_EQ(cad->m_svgRoot->editChildren().size(), 2U);
  EXPECT_EQ(frameOf(*cad).m_origin, Point(-7, -4));
  EXPECT_EQ(frameOf(*cad).m_size, Point(14, 8));
  // The text lies from (0, -4) to (10, 0) after its mirror; its centre goes to the origin.
  expectMatrix(*childAt(*cad->m_svgRoot, 1).m_transform, {1, 0, -5, 0, -1, 2, 0, 0, 1});
}

TEST_F(MigratedAnnotation, ARasterGetsNoMargin) {
  m_source.rasters["r"] = "data";
  Cad const cad = migrateOne(makeRaster("r", 4, 2));
  ASSERT_NE(cad, nullptr);
  expectPoint(frameOf(*cad).m_origin, {-6.35F, -3.175F});
  expectPoint(frameOf(*cad).m_size, {12.7F, 6.35F});
}

TEST_F(MigratedAnnotation, EveryItemOfTheContentIsMovedToTheCentre) {
  m_source.rasters["r"] = "data";
  Cad const cad = migrateOne(makeRaster("r", 4, 2));
  ASSERT_NE(cad, nullptr);
  for (std::size_t const index : {1U, 2U}) {
    auto const& transform = childAt(*cad->m_svgRoot, index).m_transform;
    ASSERT_TRUE(transform.has_value()) << index;
    expectMatrix(*transform, {1, 0, -6.35F, 0, 1, -3.175F, 0, 0, 1});
  }
}

TEST_F(MigratedAnnotation, ContentThatIsCentredAlreadyGetsNoTransform) {
  m_source.rasters["r"] = "data";
  Cad const cad = migrateOne(makeRaster("r", 0, 0));
  ASSERT_NE(cad, nullptr);
  EXPECT_FALSE(childAt(*cad->m_svgRoot, 1).m_transform.has_value());
  EXPECT_FALSE(childAt(*cad->m_svgRoot, 2).m_transform.has_value());
}

TEST_F(MigratedAnnotation, WithoutAnyItemFailsAsAnEmptyFrame) {
  EXPECT_EQ(migrateOne(makeText("none")), nullptr);
  EXPECT_EQ(m_log.texts(), (Log{"Empty frame", "Fail to migrate annotation 'a' of view 'v'"}));
}

TEST_F(MigratedAnnotation, OfASizeThatIsNoNumberFailsAsAnEmptyFrame) {
  m_source.rasters["r"] = "data";
  for (float const size : {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
    m_log.records.clear();
    EXPECT_EQ(migrateOne(makeRaster("r", size, 1)), nullptr);
    EXPECT_EQ(m_log.texts().at(0), "Empty frame");
  }
}

TEST_F(MigratedAnnotation, TextIsInTheContrastColour) {
  auto const text = makeText("10x4");
  text->m_color = {0, 0, 0};
  ASSERT_NE(migrateOne(text), nullptr);
  EXPECT_EQ(lastConverterCall()->area.m_textColor, (Wm4::Vector3<unsigned char>(255, 255, 255)));
  text->m_color = {1, 0, 0};
  ASSERT_NE(migrateOne(text), nullptr);
  EXPECT_EQ(lastConverterCall()->area.m_textColor, (Wm4::Vector3<unsigned char>(0, 0, 0)));
}

TEST_F(MigratedAnnotation, TakesItsFlagsFromTheStyleByte) {
  struct Row {
    std::uint8_t style;
    std::uint8_t flags;
  };
  for (Row const& row :
       {Row{0x01, 0x90}, Row{0x21, 0xB0}, Row{0x41, 0xC0}, Row{0x81, 0x10}, Row{0xEB, 0x60}}) {
    auto const text = makeText("10x4");
    text->m_style = row.style;
    Cad const cad = migrateOne(text);
    ASSERT_NE(cad, nullptr);
    EXPECT_EQ(cad->m_flags, row.flags) << int{row.style};
  }
}

TEST_F(MigratedAnnotation, ReplacesWhatTheResultHeldAndReportsItsFrameBox) {
  qvLegacy::qvAnnotationMigration migration(0, nullptr, nullptr, 1);
  Cad result(new qv::qvCadAnnotation);
  qv::svg::BoundingBox box;
  EXPECT_TRUE(migration.createAnnotationFrame(makeText("10x4", "new"), result, box));
  EXPECT_EQ(result->GetName(), "new");
  EXPECT_EQ(result->GetReferences(), 1);
  EXPECT_EQ(box.getMinPoint(), Point(-7, -4));
  EXPECT_EQ(box.getMaxPoint(), Point(7, 4));
}

TEST_F(MigratedAnnotation, LeavesTheResultUntouchedWhenItFails) {
  qvLegacy::qvAnnotationMigration migration(0, nullptr, nullptr, 1);
  Cad const before(new qv::qvCadAnnotation);
  Cad result = before;
  qv::svg::BoundingBox box;
  EXPECT_FALSE(migration.createAnnotationFrame(makeText("none"), result, box));
  EXPECT_EQ(result, before);
  EXPECT_FALSE(migration.createAnnotationFrame(nullptr, result, box));
  EXPECT_EQ(result, before);
}

TEST_F(MigratedAnnotation, MakesNoLeadersOfItsOwn) {
  qvLegacy::qvAnnotationMigration migration(0, nullptr, nullptr, 1);
  auto const text = makeText("10x4");
  text->m_leaders = {leader({1, 2, 3}, 3)};
  Cad result;
  qv::svg::BoundingBox box;
  EXPECT_TRUE(migration.createAnnotationFrame(text, result, box));
  EXPECT_TRUE(result->m_lineSegments.empty());
  EXPECT_TRUE(result->m_shapes.empty());
}

}  // namespace
