#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "qvToolkit/export.h"
#include "qvToolkit/images/rasterSource.h"

namespace qvToolkit {

/// Answers for images from the files of one folder.
/// @code
/// RasterFolder const rasters("rasters");
/// Raster const mark = rasters.find("mark");
/// if (mark.m_image != nullptr) std::cout << mark.m_image->getBytes().size() << " bytes\n";
/// MigrationOptions options;
/// options.m_rasters = [&rasters](std::string const& name) { return rasters.find(name); };
/// @endcode
/// A raster name is a path below the folder: NUL characters, absolute paths, empty names, names beyond
/// `MaxNameBytes` and ".." are refused, symbolic links are not followed, and only regular files are read.
/// Where no file has the name itself, the name with ".png", ".jpg", ".jpeg", ".gif" and ".webp" behind it is
/// tried, in this order.
class QVT_EXPORT RasterFolder {
 public:
  /// Of one file, unless another limit is given: 64 MiB.
  static constexpr std::uint64_t MaxFileBytes = std::uint64_t{64} << 20;
  /// Longer names are refused unread: no path of the system is longer.
  static constexpr std::size_t MaxNameBytes = 4096;

  /// Opens the folder, which is never looked up by its path again. An empty `folder` answers no name at all,
  /// nor does one that cannot be used, for which `getFolderProblem` has the reason.
  explicit RasterFolder(std::string const& folder, std::uint64_t maxFileBytes = MaxFileBytes);
  ~RasterFolder();
  RasterFolder(RasterFolder const&) = delete;
  RasterFolder& operator=(RasterFolder const&) = delete;

  /// Why the folder cannot be used; empty when it can, or when none was given.
  std::string const& getFolderProblem() const noexcept { return m_folderProblem; }

  /// Reads the image of that name, each time anew. Throws `std::bad_alloc` only.
  Raster find(std::string const& name) const;

 private:
  Raster read(int file) const;

  std::uint64_t m_maxFileBytes;
  int m_folder = -1;
  std::string m_folderProblem;
};

}  // namespace qvToolkit
