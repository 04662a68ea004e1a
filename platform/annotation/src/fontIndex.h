#pragma once

#include <fontconfig/fontconfig.h>

#include <compare>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "qvAnnotation/fontOptions.h"
#include "qvSvg/text.h"

namespace qv::text {

/// What a run asks of a family's faces.
struct FontStyle {
  bool m_bold = false;
  bool m_italic = false;

  friend auto operator<=>(FontStyle const&, FontStyle const&) = default;
};

/// Where a face lies: a file, and the face's number in it.
struct FaceLocation {
  std::string m_path;
  unsigned m_index = 0;

  friend auto operator<=>(FaceLocation const&, FaceLocation const&) = default;
};

/// A face that was found, the family name it was found under, and what it lacks of the style that was asked
/// for.
struct FontSource {
  FaceLocation m_location;
  std::string m_family;
  svg::FontSynthesis m_synthesis;
};

/// The outline fonts that the options admit: those in the given directories, and those that fontconfig lists
/// as installed. Answers depend on the set of fonts only, never on the order in which fontconfig lists them,
/// nor on its rules of substitution. Constant after construction, so threads may share it.
class FontIndex {
 public:
  /// Reads the directories, and the system's font configuration unless the options forbid it.
  explicit FontIndex(FontOptions const& options);
  ~FontIndex();

  bool isEmpty() const noexcept;
  /// The face of the family that is closest to the style; names are compared without case and blanks.
  std::optional<FontSource> findFamily(std::string_view family, FontStyle style) const;
  /// A face of any family that has all characters of the cluster, ignorable ones aside. None for private
  /// characters.
  std::optional<FontSource> findCluster(std::u32string_view cluster, FontStyle style) const;

  struct Entry;

 private:
  struct ConfigDeleter {
    void operator()(FcConfig* config) const { FcConfigDestroy(config); }
  };

  void addDirectory(std::string const& directory);
  void addFonts(FcFontSet const* fonts, int first);
  void sortFonts();

  std::unique_ptr<FcConfig, ConfigDeleter> m_config;
  int m_rank = 0;  // of the fonts that are being added
  std::vector<Entry> m_entries;
  std::multimap<std::string, Entry const*> m_families;  // by folded name
};

}  // namespace qv::text
