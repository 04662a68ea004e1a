#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "pages/markup.h"
#include "pages/pageMeasure.h"
#include "pages/svgTexts.h"

namespace qvToolkit {

/// Writes SVG items as markup.
class SvgItems {
 public:
  SvgItems(MigratedView const& view, PageMeasure const& measure, TextMode mode, Markup& markup)
      : m_view(view), m_measure(measure), m_markup(markup), m_texts(mode, measure.getGlyphs(), markup) {}

  /// Definitions of the glyphs, and of the images that the page shows more than once.
  void writeDefinitions();
  /// The content of one annotation, placed; `color` is that of what sets none.
  void writeContent(qv::qvCadAnnotation const& annotation);
  /// The leader lines and heads of one annotation.
  void writeLeaders(qv::qvCadAnnotation const& annotation);

  /// For `walkItems`: writes an item, with the fill of what sets none.
  std::optional<std::string const*> enter(qv::svg::ItemInterface const& item, std::string const* fill);
  void leave(qv::svg::ItemInterface const& item);

 private:
  void writeSymbol(std::size_t image);
  void openColored(qv::qvCadAnnotation const& annotation);
  void writeItem(qv::svg::ItemInterface const& item);
  void openNode(qv::svg::ItemInterface const& node);
  void writeRect(qv::svg::ItemInterface const& item, Wm4::Vector2<float> const& origin,
                 Wm4::Vector2<float> const& size);
  void writeImage(qv::svg::Image const& image);
  void writePath(qv::svg::ItemInterface const& item);
  void writeSegments(qv::qvCadAnnotation const& annotation);
  void writePresentation(qv::svg::ItemInterface const& item);
  void writeBox(Wm4::Vector2<float> const& origin, Wm4::Vector2<float> const& size, float factor);

  MigratedView const& m_view;
  PageMeasure const& m_measure;
  Markup& m_markup;
  SvgTexts m_texts;
  std::string m_fill;  ///< of the annotation at hand
};

}  // namespace qvToolkit
