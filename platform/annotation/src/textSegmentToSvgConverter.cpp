#include "qvAnnotation/textSegmentToSvgConverter.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
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

bool isSameFont(TextProperties const& a, TextProperties const& b) {
  return a.m_bold == b.m_bold && a.m_italic == b.m_italic && a.m_fontName == b.m_fontName;
}

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
    if (m_lastFonts == nullptr || !isSameFont(properties, m_lastProperties)) {
      m_lastFonts = &m_catalog->getChain(properties.m_fontName, {properties.m_bold, properties.m_italic});
      m_lastProperties = properties;
    }
    return *m_lastFonts;
  }

  FontChain& getUsableFonts(TextProperties const& properties, TextProperties const& defaults) {
    FontChain& fonts = getFonts(properties);
    return fonts.getPrimary() != nullptr ? fonts : getFonts(defaults);
  }

  /// The runs with characters; they view texts that stay until the next line.
  void resolveRuns(TextArea::Line const& line, TextProperties const& defaults) {
    m_runs.clear();
    m_texts.resize(std::max(m_texts.size(), line.size()));
    auto text = m_texts.begin();
    for (TextSegment const& segment : line) {
      if (segment.getText().empty()) continue;
      TextProperties const& properties = segment.m_properties != nullptr ? *segment.m_properties : defaults;
      decodeForDisplay(segment.getText(), *text);
      m_runs.push_back({*text++, &getUsableFonts(properties, defaults), properties.m_size, segment.m_type});
    }
  }

  Lines layOut(TextArea const& area) {
    Lines lines;
    TextProperties const& defaults = area.m_defaultProperties;
    for (TextArea::Line const& line : area.m_lines) {
      resolveRuns(line, defaults);
      lines.push_back(m_runs.empty() ? makeEmptyLine(getFonts(defaults), defaults.m_size)
                                     : layoutLine(m_runs, m_shaper));
    }
    stackLines(lines);
    return lines;
  }

  std::shared_ptr<FontCatalog> m_catalog = FontCatalog::shared();
  RunShaper m_shaper{*m_catalog};
  FontChain* m_lastFonts = nullptr;  // the chain of the properties that follow
  TextProperties m_lastProperties;
  std::vector<LineRun> m_runs;
  std::vector<std::u32string> m_texts;  // what the runs view
};

TextSegmentToSvgConverter::TextSegmentToSvgConverter() = default;
TextSegmentToSvgConverter::~TextSegmentToSvgConverter() = default;

bool TextSegmentToSvgConverter::convertTextAreaToSvg(TextArea const& area, svg::Node& node,
                                                     Wm4::Vector2<float>* size, char const* name) {
  // Only now: a converter that is never used must not cost the reading of the fonts.
  if (m_impl == nullptr || m_impl->m_catalog->isSpoiled()) m_impl = std::make_unique<Impl>();
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
  // Another thread may have run out of memory in a face that both use.
  if (m_impl->m_catalog->isSpoiled()) throw std::bad_alloc();
  if (!group->getChildren().empty()) node.editChildren().push_back(std::move(group));
  if (size != nullptr) *size = box.getSize();
  return true;
}

}  // namespace qv::text
