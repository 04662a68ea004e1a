#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "layOut.h"
#include "qvAnnotation/fontOptions.h"

namespace qv::text {

// The fonts of tests/environment, by family.
constexpr char const* LIBERATION_FOLDER = QVA_TEST_FONTS "/liberation2";
constexpr char const* DEJAVU_FOLDER = QVA_TEST_FONTS "/dejavu";
constexpr char const* NOTO_FOLDER = QVA_TEST_FONTS "/noto";

/// Font options that hold until they go out of scope.
class WithFonts {
 public:
  explicit WithFonts(FontOptions const& options) { setFontOptions(options); }
  ~WithFonts() { setFontOptions({}); }
  WithFonts(WithFonts const&) = delete;
  WithFonts& operator=(WithFonts const&) = delete;
};

/// A variable of the environment that holds until it goes out of scope.
class WithVariable {
 public:
  WithVariable(char const* name, std::string const& value) : m_name(name) {
    if (char const* const before = std::getenv(name)) m_before = before;
    setenv(name, value.c_str(), 1);
  }
  ~WithVariable() {
    if (m_before) {
      setenv(m_name, m_before->c_str(), 1);
    } else {
      unsetenv(m_name);
    }
  }
  WithVariable(WithVariable const&) = delete;
  WithVariable& operator=(WithVariable const&) = delete;

 private:
  char const* m_name;
  std::optional<std::string> m_before;
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
