#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "qvToolkit/images/rasterSource.h"

namespace qvToolkit {

/// What a source answered for the rasters of one document. Each name is asked for once, so that any number of
/// annotations that show one image hold its bytes once.
class DocumentRasters {
 public:
  /// Of all images together: 512 MiB. What goes beyond is not there.
  static constexpr std::uint64_t MaxTotalBytes = std::uint64_t{512} << 20;

  /// Without a source there is no image at all.
  explicit DocumentRasters(RasterSource source) : m_source(std::move(source)) {}

  bool hasSource() const noexcept { return m_source != nullptr; }
  /// The answer for that name; valid as long as this object. Throws what the source throws.
  Raster const& ask(std::string const& name);
  /// The answer for a name that there is no image for; null where there is one, or nobody has asked.
  Raster const* findRefusal(std::string const& name) const;

 private:
  Raster look(std::string const& name);

  RasterSource m_source;
  std::map<std::string, Raster> m_answers;
  std::uint64_t m_totalBytes = 0;
};

}  // namespace qvToolkit
