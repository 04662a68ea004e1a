#include "qvToolkit/migration/fontSettings.h"

#include <gtest/gtest.h>

namespace {

using namespace qvToolkit;

TEST(FontSettings, NeedNoConfigurationForTheSystemsOwnFonts) {
  EXPECT_EQ(formatFontConfiguration({}), "");
}

TEST(FontSettings, LetAnotherProgramFindTheSameFonts) {
  FontOptions options;
  options.m_directories = {"/fonts/a&b", "relative"};
  std::string const text = formatFontConfiguration(options);
  EXPECT_NE(text.find("<dir>/fonts/a&amp;b</dir>\n<dir>/"), std::string::npos) << text;
  EXPECT_NE(text.find("/relative</dir>"), std::string::npos) << text;
  EXPECT_NE(text.find("/etc/fonts/fonts.conf"), std::string::npos) << text;
  options.m_useSystemFonts = false;
  EXPECT_EQ(formatFontConfiguration(options).find("/etc/fonts"), std::string::npos);
}

}  // namespace
