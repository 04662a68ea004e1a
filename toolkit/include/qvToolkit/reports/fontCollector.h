#pragma once

#include <map>
#include <memory>
#include <string>

#include "qvSvg/glyphSource.h"
#include "qvToolkit/export.h"
#include "qvToolkit/migration/migrationSession.h"
#include "qvToolkit/reports/fontReport.h"

namespace qvToolkit {

/// The SHA-256 of the files of fonts in use.
/// @code
/// FontHashes hashes;
/// assert(hashes.get(nullptr).empty());
/// @endcode
/// Each file is hashed once; so one object is to serve all documents of a process.
class QVT_EXPORT FontHashes {
 public:
  /// Of the file that the source draws from, 64 hexadecimal digits; empty for null. Takes time in proportion
  /// to the file when it is asked for first.
  std::string const& get(std::shared_ptr<qv::svg::GlyphSource const> const& source);

 private:
  struct Known {
    std::weak_ptr<qv::svg::GlyphSource const> m_source;  ///< while it lives the path stands for its bytes
    std::string m_sha256;
  };
  std::map<std::string, Known> m_files;  ///< by path
};

/// Collects the fonts of views, one view after the other: none need live longer than its call.
/// @code
/// MigrationSession session(MigrationOptions{});
/// FontHashes hashes;
/// FontCollector fonts(hashes);
/// for (MigratedView const& view : session.migrate(openDocument("bracket.json"))) fonts.add(view);
/// for (FontUse const& use : fonts.makeReport().m_uses) std::cout << use.m_family << '\n';
/// @endcode
class QVT_EXPORT FontCollector {
 public:
  /// The hashes must outlive the collector.
  explicit FontCollector(FontHashes& hashes);
  ~FontCollector();
  FontCollector(FontCollector const&) = delete;
  FontCollector& operator=(FontCollector const&) = delete;

  /// Looks at each character of the view once. A view that was not migrated is only counted.
  void add(MigratedView const& view);
  /// What all views up to now ask for and are drawn with.
  FontReport makeReport() const;

 private:
  class Found;
  std::unique_ptr<Found> m_found;
};

}  // namespace qvToolkit
