#include "tests/migration/statedSizeConverter.h"

#include <charconv>
#include <memory>
#include <utility>

#include "ports/svg.h"

namespace migrationTest {

namespace {

/// "10x4" gives (10, 4); any other text gives (1, 1).
Wm4::Vector2<float> statedSize(std::string const& text) {
  Wm4::Vector2<float> size;
  char const* const end = text.data() + text.size();
  auto const [cross, widthError] = std::from_chars(text.data(), end, size.X());
  if (widthError != std::errc() || cross == end || *cross != 'x') return Wm4::Vector2<float>::ONE;
  auto const [stop, heightError] = std::from_chars(cross + 1, end, size.Y());
  return heightError == std::errc() ? size : Wm4::Vector2<float>::ONE;
}

}  // namespace

std::optional<ConverterCall>& lastConverterCall() {
  static std::optional<ConverterCall> call;
  return call;
}

}  // namespace migrationTest

/// Stands in for the platform's: the first run says what the layout yields: "none" nothing, "fail" false, and
/// "10x4" one rectangle of that size with its corner at the origin.
bool qv::text::TextSegmentToSvgConverter::convertTextAreaToSvg(TextArea const& area, svg::Node& node,
                                                               Wm4::Vector2<float>* size, char const* name) {
  std::string const text = area.m_lines.front().front().getText();
  migrationTest::lastConverterCall() = {area, node.m_backgroundColor, node.editChildren().empty(),
                                        size != nullptr, name};
  if (text == "fail") return false;
  if (text == "none") return true;
  node.editChildren().push_back(
      std::make_shared<svg::Rect>(Wm4::Vector2<float>::ZERO, migrationTest::statedSize(text)));
  return true;
}
