#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "annotationLegacy/library.h"
#include "annotationLegacy/qvAnnotationMigration.h"
#include "ports/cad.h"
#include "ports/svg.h"
#include "tests/migration/geometry.h"
#include "tests/support/recordingLog.h"

namespace migrationTest {

using CadView = qv::qvPointer<qv::qvCadAnnotationView>;
using Cad = qv::qvPointer<qv::qvCadAnnotation>;
using Annotation = qvLegacy::qvAnnotationInterface;
using Text = qvLegacy::qvAnnotationText;
using Raster = qvLegacy::qvAnnotationRaster;
using View = qvLegacy::qvAnnotationView;
using Log = std::vector<std::string>;

using qvTest::RecordingLog;

/// Rasters by name, and the names that were asked for.
struct RasterSource {
  std::map<std::string, std::string> rasters;
  std::vector<std::string> asked;
  bool dataStartedEmpty = true;

  static bool answer(std::string const& name, std::string& data, void* userData) {
    auto& source = *static_cast<RasterSource*>(userData);
    source.asked.push_back(name);
    source.dataStartedEmpty = source.dataStartedEmpty && data.empty();
    auto const found = source.rasters.find(name);
    if (found == source.rasters.end()) return false;
    data = found->second;
    return true;
  }
};

inline qv::qvPointer<Text> makeText(std::string const& text, std::string const& name = "a") {
  qv::qvPointer<Text> annotation(new Text);
  annotation->SetName(name);
  annotation->setText(text);
  return annotation;
}

inline qv::qvPointer<Raster> makeRaster(std::string const& rasterName, float width, float height,
                                        std::string const& name = "a") {
  qv::qvPointer<Raster> annotation(new Raster);
  annotation->SetName(name);
  annotation->m_rasterName = rasterName;
  annotation->m_size = {width, height};
  return annotation;
}

inline qv::qvPointer<View> makeView(std::vector<qv::qvPointer<Annotation>> const& annotations = {}) {
  qv::qvPointer<View> view(new View);
  view->SetName("v");
  view->m_annotations = annotations;
  return view;
}

inline void addSub(Annotation& parent, qv::qvPointer<Annotation> const& child, std::uint32_t anchor = 1) {
  Annotation::SubAnnot sub;
  sub.m_annot = child;
  sub.m_anchor = anchor;
  parent.editSubAnnots().push_back(sub);
}

inline Annotation::Leader leader(Point3 const& end, std::uint8_t head = 0) {
  Annotation::Leader result(end);
  result.m_head = head;
  return result;
}

inline Annotation::MeasureLeader measureLeader(Point3 const& pointA, Point3 const& pointB,
                                               Point3 const& offset, std::uint8_t direction = 1) {
  Annotation::MeasureLeader result;
  result.m_pointA = pointA;
  result.m_pointB = pointB;
  result.m_offset = offset;
  result.m_arrowDir = direction;
  return result;
}

/// A measure leader without any direction.
inline Annotation::MeasureLeader degenerateMeasureLeader() {
  return measureLeader({1, 1, 0}, {1, 1, 0}, {0, 0, 0});
}

/// The library ready, a recording process log, and a check that no counted object outlives the test.
class Migration : public ::testing::Test {
 protected:
  void SetUp() override {
    qv::initializeQvAnnotationLegacyLibrary();
    m_previousLog = std::exchange(qv::qvLog::msInstance, &m_log);
    m_liveBefore = qv::qvObject::GetLiveObjects();
  }
  void TearDown() override {
    EXPECT_EQ(qv::qvObject::GetLiveObjects(), m_liveBefore);
    qv::qvLog::msInstance = m_previousLog;
    qv::terminateQvAnnotationLegacyLibrary();
  }

  /// Null when the view fails.
  CadView migrate(qv::qvPointer<View> const& view, int options = 0, float headSize = 2) {
    qvLegacy::qvAnnotationMigration migration(options, &RasterSource::answer, &m_source, headSize);
    CadView result;
    bool const done = migration.migrateAnnotationView(view, result);
    EXPECT_EQ(done, result != nullptr);
    return result;
  }
  /// The one annotation of a view; null when the view fails.
  Cad migrateOne(qv::qvPointer<Annotation> const& annotation, int options = 0, float headSize = 2) {
    CadView const view = migrate(makeView({annotation}), options, headSize);
    return view != nullptr ? view->m_annotations.at(0) : Cad();
  }

  RecordingLog m_log;
  RasterSource m_source;

 private:
  qv::qvLog* m_previousLog = nullptr;
  std::size_t m_liveBefore = 0;
};

inline qvLegacy::ports::SvgItem& childAt(qv::svg::Node& node, std::size_t index) {
  return *node.editChildren().at(index);
}

template <class Item>
Item& childAs(qv::svg::Node& node, std::size_t index) {
  return dynamic_cast<Item&>(childAt(node, index));
}

inline qv::svg::Rect& frameOf(qv::qvCadAnnotation& cad) {
  return childAs<qv::svg::Rect>(*cad.m_svgRoot, 0);
}

/// The lines of a contour of straight pieces: its start and the end of each piece.
inline std::vector<Point> pointsOf(qv::svg::PathContour const& contour) {
  std::vector<Point> points{contour.m_start};
  for (qv::svg::PathSegment const& segment : contour.m_segments) points.push_back(segment.m_point);
  return points;
}

}  // namespace migrationTest
