#include "qvAnnotation/textSegmentToSvgConverter.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fontCatalog.h"
#include "fontChain.h"
#include "lineLayout.h"
#include "qvSvg/boundingBox.h"
#include "qvSvg/text.h"
#include "runShaper.h"
#include "utf8.h"

namespace qv::text {

namespace {

using Lines = std::vector<LineLayout>;

/// A line without characters takes the room of the font's line.
LineLayout makeEmptyLine(FontChain const& fonts, float size) {
  FontFace const& face = *fonts.getPrimary()->m_face;
  LineLayout line;
  line.m_box = {{0.0F, face.getDescender() * size}, {0.0F, face.getAscender() * size}};
  line.m_lineGap = face.getLineGap() * size;
  return line;
}

void lower(LineLayout& line, float offset) {
  line.m_box.translate({0.0F, offset});
  for (std::shared_ptr<svg::Text> const& item : line.m_items) {
    item->m_baseline += offset;
    item->m_box.translate({0.0F, offset});
  }
}

/// Puts each line below the one before it, with the larger gap that their fonts want between them.
void stackLines(Lines& lines) {
  for (std::size_t i = 1; i < lines.size(); ++i) {
    float const gap = std::max(lines[i - 1].m_lineGap, lines[i].m_lineGap);
    lower(lines[i], lines[i - 1].m_box.getMinPoint().Y() - gap - lines[i].m_box.getMaxPoint().Y());
  }
}

}  // namespace

struct TextSegmentToSvgConverter::Impl {
  FontChain& getFonts(TextProperties const& properties) {
    FontStyle const style{properties.m_bold, properties.m_italic};
    auto const key = std::pair(properties.m_fontName, style);
    return m_fonts.try_emplace(key, *m_catalog, properties.m_fontName, style).first->second;
  }

  std::vector<LineRun> resolveRuns(TextArea::Line const& line, TextProperties const& defaults) {
    std::vector<LineRun> runs;
    for (TextSegment const& segment : line) {
      if (segment.getText().empty()) continue;
      TextProperties const& properties = segment.m_properties != nullptr ? *segment.m_properties : defaults;
      runs.push_back(
          {decodeForDisplay(segment.getText()), &getFonts(properties), properties.m_size, segment.m_type});
    }
    return runs;
  }

  Lines layOut(TextArea const& area) {
    Lines lines;
    TextProperties const& defaults = area.m_defaultProperties;
    for (TextArea::Line const& line : area.m_lines) {
      std::vector<LineRun> const runs = resolveRuns(line, defaults);
      lines.push_back(runs.empty() ? makeEmptyLine(getFonts(defaults), defaults.m_size)
                                   : layoutLine(runs, m_shaper));
    }
    stackLines(lines);
    return lines;
  }

  std::shared_ptr<FontCatalog> m_catalog = FontCatalog::shared();
  std::map<std::pair<std::string, FontStyle>, FontChain> m_fonts;
  RunShaper m_shaper;
};

TextSegmentToSvgConverter::TextSegmentToSvgConverter() = default;
TextSegmentToSvgConverter::~TextSegmentToSvgConverter() = default;

bool TextSegmentToSvgConverter::convertTextAreaToSvg(TextArea const& area, svg::Node& node,
                                                     Wm4::Vector2<float>* size, char const* name) {
  // Only now: a converter that is never used must not cost the reading of the fonts.
  if (m_impl == nullptr) m_impl = std::make_unique<Impl>();
  if (m_impl->getFonts(area.m_defaultProperties).getPrimary() == nullptr) return false;
  auto group = std::make_shared<svg::Node>();
  if (name != nullptr) group->m_class = name;
  svg::BoundingBox box;
  for (LineLayout& line : m_impl->layOut(area)) {
    for (std::shared_ptr<svg::Text>& item : line.m_items) {
      box.addBox(item->m_box);
      group->editChildren().push_back(std::move(item));
    }
  }
  if (!group->getChildren().empty()) node.editChildren().push_back(std::move(group));
  if (size != nullptr) *size = box.getSize();
  return true;
}

}  // namespace qv::text
