#pragma once

#include <functional>
#include <memory>
#include <string>

#include "qvToolkit/images/image.h"

namespace qvToolkit {

/// What the name of a raster stands for: an image, or the reason why there is none.
struct Raster {
  std::shared_ptr<Image const> m_image;  ///< null when there is none
  std::string m_problem;                 ///< why there is none; empty when there is one
  bool m_isTooLarge = false;             ///< why there is none: its file is larger than it may be
};

/// Answers for the images that documents name. It is asked once for each name of a document, on the migrating
/// thread; what it throws ends the migration and propagates.
/// @code
/// RasterSource const squares = [](std::string const& name) -> Raster {
///   if (name != "square") return {nullptr, "there are squares only"};
///   return {std::make_shared<Image const>("GIF89a\x01\x01\x01\x01"), {}};
/// };
/// MigrationOptions options;
/// options.m_rasters = squares;
/// @endcode
using RasterSource = std::function<Raster(std::string const& name)>;

}  // namespace qvToolkit
