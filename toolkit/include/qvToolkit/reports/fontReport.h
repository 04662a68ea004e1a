#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "qvSvg/text.h"
#include "qvToolkit/export.h"
#include "qvToolkit/json/jsonWriter.h"
#include "qvToolkit/migration/migrationSession.h"
#include "qvToolkit/model/document.h"

namespace qvToolkit {

/// A font that documents ask for, and one that some of its text is drawn with.
struct FontUse {
  std::string m_askedFamily;  ///< as documents name it; Arial where they name none
  bool m_bold = false;        ///< asked
  bool m_italic = false;      ///< asked
  qv::svg::FontMatch m_match = qv::svg::FontMatch::Asked;  ///< how near the drawn font comes
  std::string m_family;                                    ///< that is drawn; empty when there is none
  std::string m_file;                   ///< path of the drawn font's file; empty when there is none
  std::string m_version;                ///< as the drawn font states it; empty when it states none
  std::string m_sha256;                 ///< of the drawn font's file; empty when there is none
  std::optional<unsigned> m_faceIndex;  ///< in the file, as `qv::svg::GlyphSource` counts faces
  qv::svg::FontSynthesis m_synthesis;   ///< bold or slant that is made up
  std::uint64_t m_characters = 0;       ///< drawn with it
  /// The Debian package that has the asked family, or one as wide, when neither is there; empty when none is
  /// known or needed.
  std::string m_package;
};

/// A character that no font has.
struct MissingCharacter {
  char32_t m_character = 0;              ///< code point; U+FFFD for bytes that are none
  std::string m_package;                 ///< Debian package that has it; empty when none is known
  std::vector<std::string> m_addresses;  ///< of the annotations that hold it
};

/// The fonts of a document. Both lists are sorted and hold nothing twice.
struct FontReport {
  std::vector<FontUse> m_uses;              ///< by asked family, then style
  std::vector<MissingCharacter> m_missing;  ///< by code point
  std::uint64_t m_viewsLeftOut = 0;         ///< that are not migrated, so that their fonts are not known
};

/// The fonts that texts of migrated views ask for, and what they are drawn with.
/// @code
/// MigrationSession session(MigrationOptions{});
/// FontReport const report = reportFonts(session.migrate(openDocument("bracket.json")));
/// for (std::string const& package : listPackages(report)) std::cout << "apt install " << package << '\n';
/// @endcode
/// Views that were not migrated are only counted. Looks at each character once. Views that do not live at one
/// time are left to a `FontCollector`.
QVT_EXPORT FontReport reportFonts(std::vector<MigratedView> const& views);

/// The Debian packages to install, sorted.
QVT_EXPORT std::vector<std::string> listPackages(FontReport const& report);

/// Of the findings of views those that tell about fonts and characters, or why a view has no text here.
QVT_EXPORT Findings selectFontFindings(Findings const& findings);

/// The report of one document as text for people, safe for a terminal; "PATH: not read" when it could not be
/// opened.
QVT_EXPORT std::string formatFontReport(Document const& document, FontReport const& report);

/// Writes the members "fonts" and "missingCharacters" into the object that `json` is in.
QVT_EXPORT void writeFontReport(JsonWriter& json, FontReport const& report);

/// The report of one document as a JSON object, an entry of a list of `ReportFormat::Fonts`;
/// docs/fonts-json.md describes it field by field. `findings` are those of the document, opening included.
QVT_EXPORT void writeDocumentFonts(JsonWriter& json, Document const& document, FontReport const& report,
                                   Findings const& findings, OptionSpelling spelling = nullptr);

}  // namespace qvToolkit
