#include "qvAnnotation/textLibraries.h"

#include <fontconfig/fontconfig.h>
#include <fribidi.h>
#include <hb.h>

namespace qv::text {

namespace {

/// Major, minor and revision number are parts of one number.
std::string formatFontconfigVersion(int version) {
  return std::to_string(version / 10000) + '.' + std::to_string(version / 100 % 100) + '.' +
         std::to_string(version % 100);
}

/// The text begins with "(GNU FriBidi) 1.0.8" on a line of its own.
std::string findFribidiVersion(std::string_view text) {
  text = text.substr(0, text.find('\n'));
  return std::string(text.substr(text.rfind(' ') + 1));
}

}  // namespace

std::vector<TextLibrary> listTextLibraries() {
  return {{"HarfBuzz", hb_version_string()},
          {"fontconfig", formatFontconfigVersion(FcGetVersion())},
          {"FriBidi", findFribidiVersion(fribidi_version_info)}};
}

}  // namespace qv::text
