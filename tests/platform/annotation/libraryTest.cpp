#include "qvAnnotation/qvAnnotationLibrary.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "fontFolders.h"

namespace qv {
namespace {

/// Restarts the library on the fonts of one folder only, until it goes out of scope.
class OnlyFontsOf {
 public:
  explicit OnlyFontsOf(std::string const& fonts)
      : m_folder(std::filesystem::path(testing::TempDir()) / ("onlyFontsOf." + std::to_string(getpid()))) {
    std::filesystem::create_directory(m_folder);
    std::string const file = m_folder / "fonts.conf";
    std::ofstream(file) << "<fontconfig><dir>" << fonts << "</dir><cachedir>" << m_folder.string()
                        << "</cachedir></fontconfig>";
    m_configuration.emplace("FONTCONFIG_FILE", file);
    forgetFonts();
  }
  ~OnlyFontsOf() {
    m_configuration.reset();
    forgetFonts();
    std::filesystem::remove_all(m_folder);
  }
  OnlyFontsOf(OnlyFontsOf const&) = delete;
  OnlyFontsOf& operator=(OnlyFontsOf const&) = delete;

 private:
  static void forgetFonts() {
    initializeQvAnnotationLibrary(false);
    terminateQvAnnotationLibrary();
  }

  std::filesystem::path m_folder;
  std::optional<text::WithVariable> m_configuration;
};

text::TextArea makeArea(std::string const& content) {
  text::TextArea area;
  area.m_lines.push_back({text::normal(content)});
  return area;
}

svg::Text const& getFirstItem(svg::Node const& node) {
  auto const& group = static_cast<svg::Node const&>(*node.getChildren().at(0));
  return static_cast<svg::Text const&>(*group.getChildren().at(0));
}

TEST(AnnotationLibrary, ConverterFailsWithoutAnyFont) {
  OnlyFontsOf const fonts(testing::TempDir() + "noSuchFolder");
  text::TextSegmentToSvgConverter converter;
  svg::Node node;
  EXPECT_FALSE(converter.convertTextAreaToSvg(makeArea("A"), node, nullptr, ""));
  EXPECT_TRUE(node.getChildren().empty());
}

TEST(AnnotationLibrary, SignsThatNoInstalledFontHasAreReplacedVisibly) {
  OnlyFontsOf const fonts(text::LIBERATION_FOLDER);
  text::TextSegmentToSvgConverter converter;
  svg::Node node;
  ASSERT_TRUE(converter.convertTextAreaToSvg(makeArea("\u2300 12"), node, nullptr, ""));
  svg::TextSpan const& span = getFirstItem(node).m_spans.at(0);
  EXPECT_EQ(span.m_match, svg::FontMatch::Missing);
  EXPECT_EQ(span.m_original, "\u2300");
  EXPECT_EQ(span.m_text, "?");
  EXPECT_EQ(span.m_family, "Liberation Sans");
}

TEST(AnnotationLibrary, AnyInstalledFontServesWhenTheUsualOnesAreNot) {
  OnlyFontsOf const fonts(text::NOTO_FOLDER);
  text::TextSegmentToSvgConverter converter;
  svg::Node node;
  ASSERT_TRUE(converter.convertTextAreaToSvg(makeArea("A"), node, nullptr, ""));
  svg::TextSpan const& span = getFirstItem(node).m_spans.at(0);
  EXPECT_EQ(span.m_match, svg::FontMatch::Substitute);
  EXPECT_EQ(span.m_family, "Noto Sans");
}

TEST(AnnotationLibrary, ConverterOutlivesTheLibrary) {
  initializeQvAnnotationLibrary(true);
  text::TextSegmentToSvgConverter converter;
  text::TextArea const area = makeArea("A");
  svg::Node node;
  ASSERT_TRUE(converter.convertTextAreaToSvg(area, node, nullptr, ""));
  terminateQvAnnotationLibrary();
  EXPECT_TRUE(converter.convertTextAreaToSvg(area, node, nullptr, ""));
  EXPECT_EQ(node.getChildren().size(), 2U);
}

TEST(AnnotationLibrary, LaysTextOutAfterANewStart) {
  for (bool const loadFonts : {true, false}) {
    initializeQvAnnotationLibrary(loadFonts);
    initializeQvAnnotationLibrary(false);
    terminateQvAnnotationLibrary();
    text::TextSegmentToSvgConverter converter;
    svg::Node node;
    EXPECT_TRUE(converter.convertTextAreaToSvg(makeArea("A"), node, nullptr, ""));
    terminateQvAnnotationLibrary();
  }
}

/// Ends the library when the process ends.
struct LastUser {
  LastUser() { initializeQvAnnotationLibrary(false); }
  ~LastUser() { terminateQvAnnotationLibrary(); }
};

TEST(AnnotationLibraryDeathTest, MayBeEndedByAStaticObject) {
  auto const useAndExit = [] {
    static LastUser const user;
    static_cast<void>(text::layOut({{text::normal("A")}}));
    std::exit(0);
  };
  EXPECT_EXIT(useAndExit(), testing::ExitedWithCode(0), "");
}

TEST(AnnotationLibrary, TerminationWithoutInitialisationDoesNothing) {
  terminateQvAnnotationLibrary();
  EXPECT_FALSE(text::layOut({{text::normal("A")}}).empty());
}

TEST(AnnotationLibrary, ConvertersOfDifferentThreadsAreIndependent) {
  float const expected = text::measure(text::normal("Bohrung \xE2\x8C\x80 12"));
  std::vector<float> widths(4, 0.0F);
  std::vector<std::thread> threads;
  for (float& width : widths) {
    threads.emplace_back([&width] {
      text::TextSegmentToSvgConverter converter;
      text::TextArea const area = makeArea("Bohrung \xE2\x8C\x80 12");
      for (int i = 0; i < 50; ++i) {
        svg::Node node;
        Wm4::Vector2<float> size;
        if (converter.convertTextAreaToSvg(area, node, &size, "")) width = size.X();
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(widths, std::vector<float>(4, expected));
}

}  // namespace
}  // namespace qv
