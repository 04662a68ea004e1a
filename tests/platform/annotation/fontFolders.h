#pragma once

#include <string>
#include <utility>
#include <vector>

#include "layOut.h"
#include "qvAnnotation/fontOptions.h"

namespace qv::text {

// Where the packages that the tests require put their fonts.
constexpr char const* LIBERATION_FOLDER = "/usr/share/fonts/truetype/liberation2";
constexpr char const* DEJAVU_FOLDER = "/usr/share/fonts/truetype/dejavu";
constexpr char const* NOTO_FOLDER = "/usr/share/fonts/truetype/noto";

/// Font options that hold until they go out of scope.
class WithFonts {
 public:
  explicit WithFonts(FontOptions const& options) { setFontOptions(options); }
  ~WithFonts() { setFontOptions({}); }
  WithFonts(WithFonts const&) = delete;
  WithFonts& operator=(WithFonts const&) = delete;
};

/// Options for the fonts of the folders and no others.
inline FontOptions onlyFontsOf(std::vector<std::string> folders) {
  return {.m_directories = std::move(folders), .m_replacements = {}, .m_useSystemFonts = false};
}

/// The spans of the text with the font options of this moment.
inline std::vector<svg::TextSpan> layOutAnew(std::string const& text,
                                             TextProperties const& properties = makeProperties()) {
  TextSegmentToSvgConverter converter;
  auto const items = layOut({{normal(text, properties)}}, converter);
  return items.empty() ? std::vector<svg::TextSpan>() : items[0]->m_spans;
}

}  // namespace qv::text
