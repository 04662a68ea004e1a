#pragma once

#include <string>
#include <vector>

#include "pages/affine.h"
#include "qvSvg/node.h"
#include "qvToolkit/migration/migrationSession.h"
#include "qvToolkit/pages/svgPage.h"

namespace qvTest {

/// One sample on the page, in page coordinates.
struct PlacedSample {
  std::string m_description;
  qvToolkit::Extent m_ink;  ///< of the outlines of its glyphs
  qvToolkit::Extent m_box;  ///< as the layout states it
};

/// All samples, laid out and placed on one page with room between them.
struct SamplePage {
  std::vector<PlacedSample> m_samples;
  qvToolkit::MigratedView m_view;

  SamplePage();
  /// The page's markup.
  std::string write(qvToolkit::TextMode mode) const;
};

/// The part of a page that its view box shows.
qvToolkit::Extent readViewBox(std::string const& svg);

}  // namespace qvTest
