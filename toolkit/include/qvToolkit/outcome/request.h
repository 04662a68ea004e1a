#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "qvAnnotation/fontOptions.h"
#include "qvToolkit/export.h"
#include "qvToolkit/model/similarity.h"
#include "qvToolkit/outcome/limits.h"

namespace qvToolkit {

/// What can be done with a document.
enum class Action : std::uint8_t {
  Inspect,    ///< tell what it holds
  Migrate,    ///< a page for each view, and the migrated model
  Encode,     ///< write it as an object stream
  Transform,  ///< move it, then write it so
  Dump,       ///< show its bytes field by field
  Fonts,      ///< tell which fonts it asks for and which are drawn
};

/// How a page holds text.
enum class TextMode : std::uint8_t {
  Live,     ///< as characters: to be searched and copied, drawn with the fonts that the reader has
  Outline,  ///< as outlines of the glyphs, each defined once: looks the same without any font
  Both,     ///< as outlines that are seen, with characters on top that are not
};

/// What a page is written as.
enum class PageFormat : std::uint8_t {
  Svg,  ///< as `writeSvgPage` makes it
  Png,  ///< pixels, of the resolution that is asked
  Pdf,  ///< vectors, as large on paper as the page
};

/// The first stream version that can be written, packed: the first with views.
QVT_EXPORT std::uint32_t getOldestWritableVersion() noexcept;
/// The last stream version that can be written, packed: the newest layout.
QVT_EXPORT std::uint32_t getNewestWritableVersion() noexcept;

/// "inspect", "migrate", "encode", "transform", "dump" or "fonts".
QVT_EXPORT std::string_view getActionText(Action action);
/// "live", "outline" or "both".
QVT_EXPORT std::string_view getTextModeText(TextMode mode);
/// "svg", "png" or "pdf": the word for the format and the extension of its files.
QVT_EXPORT std::string_view getFormatText(PageFormat format);

/// What is to be done with each input of a run, and how; the same for all of them.
/// @code
/// Request request;
/// request.m_action = Action::Migrate;
/// request.m_pageFormat = PageFormat::Pdf;
/// request.m_fonts.m_directories = {"fonts"};
/// assert(getActionText(request.m_action) == "migrate");
/// @endcode
/// What an action does not know has its default. Inputs, names and places of results, and what counts as a
/// success are up to the client and no part of it.
struct Request {
  /// Size of leader heads and measure arrows in SVG units; on paper that is 3 mm, as on drawings with texts
  /// of 3.5 mm.
  static constexpr float DefaultHeadSize = 3.0F;
  static constexpr unsigned DefaultResolution = 150;  ///< fine enough for print on an office printer

  Action m_action = Action::Inspect;  ///< what is to be done
  bool m_asJson = false;              ///< of `Inspect` and `Fonts`: as JSON, not as text for people
  bool m_isFull = false;              ///< of `Inspect`: the whole legacy model
  bool m_isPretty = false;            ///< JSON is indented

  // of Migrate, and of Fonts as far as they concern it
  int m_dropped = 0;                          ///< bits of `qvLegacy::qvAnnotationMigration::Option`
  float m_headSize = DefaultHeadSize;         ///< in SVG units; finite
  std::string m_rasterFolder;                 ///< raw bytes; empty: no raster can be delivered
  qv::text::FontOptions m_fonts;              ///< folders and families are raw bytes
  TextMode m_textMode = TextMode::Live;       ///< of the pages
  PageFormat m_pageFormat = PageFormat::Svg;  ///< of the pages
  unsigned m_resolution = DefaultResolution;  ///< of PNG, in pixels per inch of paper

  // of Encode and Transform
  /// Packed: the major number times 65536 plus the minor.
  std::uint32_t m_streamVersion = getNewestWritableVersion();
  bool m_viewsOnly = false;     ///< no metadata object
  Similarity m_transformation;  ///< of `Transform`

  std::optional<std::uint64_t> m_offset;  ///< of `Dump`: only the field at this byte
  Limits m_limits;                        ///< of the work on each input
};

}  // namespace qvToolkit
