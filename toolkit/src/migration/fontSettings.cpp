#include "qvToolkit/migration/fontSettings.h"

#include <filesystem>
#include <system_error>

#include "qvToolkit/text/textEscape.h"

namespace qvToolkit {

namespace {

std::string makeAbsolute(std::string const& path) {
  std::error_code error;
  std::filesystem::path const absolute = std::filesystem::absolute(path, error);
  return error ? path : absolute.string();
}

}  // namespace

std::string formatFontConfiguration(FontOptions const& options) {
  if (options.m_directories.empty() && options.m_useSystemFonts) return {};
  std::string text = "<?xml version=\"1.0\"?>\n<!DOCTYPE fontconfig SYSTEM \"fonts.dtd\">\n<fontconfig>\n";
  for (std::string const& folder : options.m_directories) {
    text += "<dir>" + escapeXml(makeAbsolute(folder)) + "</dir>\n";
  }
  if (options.m_useSystemFonts) text += "<include ignore_missing=\"yes\">/etc/fonts/fonts.conf</include>\n";
  return text + "</fontconfig>\n";
}

}  // namespace qvToolkit
