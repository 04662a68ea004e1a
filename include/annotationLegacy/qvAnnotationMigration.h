#pragma once

#include <memory>
#include <string>
#include <vector>

#include "annotationLegacy/export.h"
#include "annotationLegacy/platform.h"
#include "annotationLegacy/qvAnnotationInterface.h"
#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "annotationLegacy/qvAnnotationView.h"

namespace qvLegacy {

/// Turns legacy views into CAD annotation views whose annotations carry SVG content.
///
/// Failures are written to the process log (`qv::qvLog::msInstance`, type `qvLogError`) and reported as
/// `false`; bad content never throws. A null view and a `result` that is not null are `false` alone. One
/// object migrates any number of views, on one thread at a time; separate objects are independent.
class QVA_EXPORT qvAnnotationMigration {
 public:
  /// Option bits: what may be dropped. Without them any metadata makes the migration of its view fail.
  enum Option : int {
    DropViewMetadata = 1,     ///< of the view
    DropKnownMetadata = 2,    ///< of annotations, under known keys such as "AnnotationGroup" and "NOA"
    DropUnknownMetadata = 4,  ///< of annotations, under all other keys
  };

  /// Delivers the image data of a raster by its name into `data`, which starts empty; false when it cannot.
  /// Called once for each raster annotation, on the migrating thread; must not throw.
  using RasterCallback = bool (*)(std::string const& name, std::string& data, void* userData);

  /// `rasterCallback` may be null when no raster is expected; `userData` is handed to it unchanged.
  /// `headSize` is the size of leader heads and measure arrows in SVG units.
  qvAnnotationMigration(int options, RasterCallback rasterCallback, void* userData, float headSize);
  ~qvAnnotationMigration();
  qvAnnotationMigration(qvAnnotationMigration const&) = delete;
  qvAnnotationMigration& operator=(qvAnnotationMigration const&) = delete;

  /// Migrates one view. `result` must be null and is written only on success; the first annotation that
  /// cannot be migrated makes the whole view fail. Hosts include `qvAnnotation/qvCadAnnotationView.h`.
  bool migrateAnnotationView(qv::qvPointer<qvAnnotationView> const& view,
                             qv::qvPointer<qv::qvCadAnnotationView>& result);

  /// Migrates one annotation with its tree of sub-annotations, without its own leaders. On success `result`
  /// holds the new annotation and `box` what its frame covers, in SVG coordinates around the annotation's
  /// position.
  bool createAnnotationFrame(qvAnnotationInterface const* annotation,
                             qv::qvPointer<qv::qvCadAnnotation>& result, qv::svg::BoundingBox& box);

  /// Appends the text, laid out and centred nowhere yet, to `root`; `color` is the colour of the glyphs.
  bool migrateTextAnnotation(qvAnnotationText const* annotation, qv::svg::Node& root,
                             Wm4::Vector3<unsigned char> const& color);
  /// Appends a black rectangle and the image to `root`.
  bool migrateRasterAnnotation(qvAnnotationRaster const* annotation, qv::svg::Node& root);

  /// Appends one line segment and anchor for each leader, and a shape for each head, to `cad`. `origin` is
  /// where the leaders begin, in view-plane coordinates; `offset` the same place relative to the annotation,
  /// in SVG coordinates.
  bool createLeaders(std::vector<qvAnnotationInterface::Leader> const& leaders, qv::qvCadAnnotation& cad,
                     Wm4::Vector3<float> const& origin, Wm4::Vector2<float> const& offset);
  /// Appends dimension line, arrows and extension lines of each measure leader to `cad`. False at the first
  /// one that has no direction; what was appended before stays.
  bool createMeasureLeaders(std::vector<qvAnnotationInterface::MeasureLeader> const& measures,
                            qv::qvCadAnnotation& cad, Wm4::Vector3<float> const& origin,
                            Wm4::Vector2<float> const& offset);

  int m_options;                                                         ///< bits of `Option`
  RasterCallback m_rasterCallback;                                       ///< may be null
  void* m_userData;                                                      ///< not owned
  float m_headSize;                                                      ///< in SVG units
  std::unique_ptr<qv::text::TextSegmentToSvgConverter> m_textConverter;  ///< keeps fonts between texts

 private:
  // driver.cpp
  QVA_HIDDEN bool migrateTopLevelAnnotation(qvAnnotationInterface const& annotation,
                                            std::string const& viewName, qv::qvCadAnnotationView& cadView);
  // annotation.cpp
  QVA_HIDDEN bool createFramedContent(qvAnnotationInterface const& annotation,
                                      std::shared_ptr<qv::svg::Node>& root, qv::svg::BoundingBox& frameBox);
  QVA_HIDDEN bool migrateContent(qvAnnotationInterface const& annotation, qv::svg::Node& root,
                                 Wm4::Vector3<unsigned char> const& contrastColor,
                                 Wm4::Vector2<float>& margin);
  // metadata.cpp
  QVA_HIDDEN bool screenMetadata(qvAnnotationInterface const& annotation) const;
  // frame.cpp: adds the frame of a `FrameShape` behind what `root` holds; writes the box that it covers.
  QVA_HIDDEN bool createFrame(int shape, qv::svg::BoundingBox const& contentBox,
                              qv::svg::BoundingBox& frameBox, std::shared_ptr<qv::svg::Node>& root,
                              Wm4::Vector3<unsigned char> const& color,
                              Wm4::Vector3<unsigned char> const& contrastColor);
  // subAnnotations.cpp
  QVA_HIDDEN bool migrateSubAnnotations(qvAnnotationInterface const& annotation, qv::qvCadAnnotation& cad,
                                        qv::svg::BoundingBox const& frameBox);
  QVA_HIDDEN bool migrateSubAnnotation(qvAnnotationInterface const& parent,
                                       qvAnnotationInterface::SubAnnot const& sub, qv::qvCadAnnotation& cad,
                                       qv::svg::BoundingBox const& frameBox);
};

}  // namespace qvLegacy
