#pragma once

#include <fontconfig/fontconfig.h>

#include <compare>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv::text {

/// What a run asks of a family's faces.
struct FontStyle {
  bool m_bold = false;
  bool m_italic = false;

  friend auto operator<=>(FontStyle const&, FontStyle const&) = default;
};

/// Where a face lies: a file, the face's number in it, and the family name it was found under.
struct FontSource {
  std::string m_path;
  unsigned m_index = 0;
  std::string m_family;
};

/// The outline fonts that fontconfig knows. Answers depend on the set of fonts only, never on the order in
/// which fontconfig lists them. Constant after construction, so threads may share it.
class FontIndex {
 public:
  /// Reads the font configuration of the process's environment; without one the index is empty.
  FontIndex();
  ~FontIndex();

  /// The face of the family that is closest to the style; names are compared without case and blanks.
  std::optional<FontSource> findFamily(std::string_view family, FontStyle style) const;
  /// Families with the same advance widths as `family`, best first, installed or not.
  std::vector<std::string> findMetricAliases(std::string const& family) const;
  /// A face of any family that has the character.
  std::optional<FontSource> findCharacter(char32_t character, FontStyle style) const;

  struct Entry;

 private:
  struct ConfigDeleter {
    void operator()(FcConfig* config) const { FcConfigDestroy(config); }
  };

  void readFonts();

  std::unique_ptr<FcConfig, ConfigDeleter> m_config;
  std::vector<Entry> m_entries;
  std::multimap<std::string, Entry const*> m_families;  // by folded name
};

}  // namespace qv::text
