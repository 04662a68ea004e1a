#include <gtest/gtest.h>

#include <memory>

#include "annotationLegacy/platform.h"
#include "ports/cad.h"

namespace {

using Point = Wm4::Vector3<float>;
namespace ports = qvLegacy::ports;

TEST(CadContract, AViewTakesNamePlaneAndAnnotations) {
  qv::qvPointer<qv::qvCadAnnotationView> const view(new qv::qvCadAnnotationView);
  view->SetName("Top");
  EXPECT_EQ(view->GetName(), "Top");
  ports::setPlane(*view, Point(1.0F, 2.0F, 3.0F), Point::UNIT_Z, Point::UNIT_X);
  qv::qvPointer<qv::qvCadAnnotation> const annotation(new qv::qvCadAnnotation);
  ports::appendAnnotation(*view, annotation);
  EXPECT_EQ(annotation->GetReferences(), 2);
}

TEST(CadContract, AnAnnotationBeginsEmptyUnturnedAndUnscaled) {
  qv::qvPointer<qv::qvCadAnnotation> const annotation(new qv::qvCadAnnotation);
  EXPECT_EQ(ports::editSvgRoot(*annotation), nullptr);
  EXPECT_EQ(ports::getPosition(*annotation), Point());
  EXPECT_EQ(ports::getRotationAngle(*annotation), 0.0F);
  EXPECT_EQ(ports::getScale(*annotation), 1.0F);
  EXPECT_EQ(ports::getFlags(*annotation), 0);
  EXPECT_FALSE(ports::hasLeaderDrawing(*annotation));
}

TEST(CadContract, AnAnnotationKeepsWhatItIsGiven) {
  qv::qvPointer<qv::qvCadAnnotation> const annotation(new qv::qvCadAnnotation);
  annotation->SetName("note");
  EXPECT_EQ(annotation->GetName(), "note");
  ports::setPosition(*annotation, Point(1.0F, 2.0F, 3.0F));
  EXPECT_EQ(ports::getPosition(*annotation), Point(1.0F, 2.0F, 3.0F));
  ports::setFlags(*annotation, 0xF0);
  EXPECT_EQ(ports::getFlags(*annotation), 0xF0);
  auto const root = std::make_shared<qv::svg::Node>();
  ports::editSvgRoot(*annotation) = root;
  EXPECT_EQ(root.use_count(), 2) << "shared, not copied";
}

TEST(CadContract, LeaderLinesAndLeaderHeadsAreLeaderDrawing) {
  qv::qvPointer<qv::qvCadAnnotation> const lines(new qv::qvCadAnnotation);
  ports::appendLineSegment(*lines, Point(), Point::UNIT_X);
  EXPECT_TRUE(ports::hasLeaderDrawing(*lines));
  qv::qvPointer<qv::qvCadAnnotation> const heads(new qv::qvCadAnnotation);
  ports::appendLeaderAnchor(*heads, Point(), Wm4::Vector2<float>());
  EXPECT_FALSE(ports::hasLeaderDrawing(*heads));
  ports::appendShape(*heads, std::make_shared<qv::svg::Node>(), Point());
  EXPECT_TRUE(ports::hasLeaderDrawing(*heads));
}

}  // namespace
