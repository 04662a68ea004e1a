#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "qvToolkit/export.h"

namespace qvToolkit {

/// Answers a migration's raster callback from the files of one folder.
/// @code
/// RasterFolder rasters("rasters");
/// qvLegacy::qvAnnotationMigration migration(0, &RasterFolder::deliver, &rasters, 3.0F);
/// std::string data;
/// if (RasterFolder::deliver("mark", data, &rasters))
///   std::cout << rasters.resolve(data).size() << " bytes\n";
/// @endcode
/// A raster name is a path below the folder: NUL characters, absolute paths, empty names, names beyond
/// `MaxNameBytes` and ".." are refused, symbolic links are not followed, and only regular files are read.
/// Where no file has the name itself, the name with ".png", ".jpg", ".jpeg", ".gif" and ".webp" behind it is
/// tried, in this order.
///
/// Each name is looked up once. What the callback delivers is a short token; `resolve` gives the bytes, so
/// that any number of annotations that show one image hold its bytes once. The folder keeps them as long as
/// it lives. For one thread at a time.
class QVT_EXPORT RasterFolder {
 public:
  /// Of one file, unless another limit is given: 64 MiB.
  static constexpr std::uint64_t MaxFileBytes = std::uint64_t{64} << 20;
  /// Of all files that one folder has read: 512 MiB. What goes beyond is not delivered.
  static constexpr std::uint64_t MaxTotalBytes = std::uint64_t{512} << 20;
  /// Longer names are refused unread: no path of the system is longer.
  static constexpr std::size_t MaxNameBytes = 4096;

  /// Opens the folder. An empty `folder` answers no name at all, nor does one that cannot be used, for which
  /// `getFolderProblem` has the reason.
  explicit RasterFolder(std::string const& folder, std::uint64_t maxFileBytes = MaxFileBytes);
  ~RasterFolder();
  RasterFolder(RasterFolder const&) = delete;
  RasterFolder& operator=(RasterFolder const&) = delete;

  /// Why the folder cannot be used; empty when it can, or when none was given.
  std::string const& getFolderProblem() const noexcept { return m_folderProblem; }

  /// The raster callback; `folder` is a `RasterFolder`. False when the name cannot be delivered, for which
  /// `findProblem` has the reason. Never throws: what is thrown inside is kept for `rethrowError`.
  static bool deliver(std::string const& name, std::string& data, void* folder) noexcept;
  /// Throws what a callback had to swallow, such as `std::bad_alloc`, once.
  void rethrowError();

  /// The bytes that delivered data stand for, valid as long as the folder; data that did not come from this
  /// folder stand for themselves.
  std::string_view resolve(std::string_view data) const;
  /// True when `name` could not be delivered because its file is too large.
  bool isTooLarge(std::string const& name) const;
  /// Why `name` could not be delivered; null when it was, or was never asked for.
  std::string const* findProblem(std::string const& name) const;

 private:
  struct Entry {
    std::size_t m_image = 0;
    std::string m_problem;
    bool m_isTooLarge = false;
  };

  bool fetch(std::string const& name, std::string& data);
  Entry look(std::string const& name);
  Entry read(int file);

  std::uint64_t m_maxFileBytes;
  int m_folder = -1;
  std::string m_folderProblem;
  std::map<std::string, Entry> m_entries;
  std::vector<std::string> m_images;
  std::uint64_t m_totalBytes = 0;
  std::exception_ptr m_error;
};

}  // namespace qvToolkit
