#include "qvToolkit/pages/svgPage.h"

#include <algorithm>
#include <cmath>

#include "pages/itemMarkup.h"
#include "pages/markup.h"
#include "pages/pageMeasure.h"
#include "pages/svgItems.h"
#include "qvToolkit/findings/address.h"

namespace qvToolkit {

namespace {

/// Free space around everything, in mm.
constexpr double Margin = 5.0;
/// No side of a page is longer on paper, in mm; a larger view is shown smaller.
constexpr double MaxPaperSize = 2000.0;
/// Nor shorter, so that a view of extreme proportions stays visible.
constexpr double MinPaperSize = 10.0;

/// A length or coordinate of the page without the noise of its computation; the margin has room for it.
double roundLength(double length) {
  return std::round(length * 1000.0) / 1000.0;
}

Extent getPageBox(Extent const& content) {
  Extent const box = content.isEmpty() ? Extent{0.0, 0.0, 0.0, 0.0} : content;
  return {roundLength(box.m_minX - Margin), roundLength(box.m_minY - Margin),
          roundLength(box.m_maxX + Margin), roundLength(box.m_maxY + Margin)};
}

class SvgPage {
 public:
  SvgPage(MigratedView const& view, PageMeasure const& measure, TextMode mode, OutputSink& sink)
      : m_view(view),
        m_box(getPageBox(measure.getExtent())),
        m_markup(sink),
        m_items(view, measure, mode, m_markup) {}

  [[nodiscard]] bool write() {
    openPage();
    m_items.writeDefinitions();
    writeLayer("leaders", &SvgItems::writeLeaders);
    writeLayer("annotations", &SvgItems::writeContent);
    m_markup.close();
    return m_markup.finish();
  }

 private:
  void openPage() {
    double const width = roundLength(m_box.m_maxX - m_box.m_minX);
    double const height = roundLength(m_box.m_maxY - m_box.m_minY);
    double const scale = std::min(1.0, MaxPaperSize / std::max(width, height));
    std::string const x = formatNumber(m_box.m_minX);
    std::string const y = formatNumber(m_box.m_minY);
    m_markup.open("svg").rawAttribute("xmlns", "http://www.w3.org/2000/svg");
    m_markup.rawAttribute("width", formatNumber(std::max(roundLength(width * scale), MinPaperSize)) + "mm");
    m_markup.rawAttribute("height", formatNumber(std::max(roundLength(height * scale), MinPaperSize)) + "mm");
    m_markup.rawAttribute("viewBox", x + ' ' + y + ' ' + formatNumber(width) + ' ' + formatNumber(height));
    m_markup.open("title").text(m_view.m_name).close();
    m_markup.open("desc").text(Address::ofView(m_view.m_index).getText()).close();
    m_markup.open("rect").rawAttribute("class", "ground").rawAttribute("x", x).rawAttribute("y", y);
    m_markup.rawAttribute("width", formatNumber(width)).rawAttribute("height", formatNumber(height));
    m_markup.rawAttribute("fill", "#FFFFFF").close();
  }

  void writeLayer(char const* name, void (SvgItems::*part)(qv::qvCadAnnotation const&)) {
    // Advances as designed: without it, renderers round them to pixels.
    m_markup.open("g").rawAttribute("class", name).rawAttribute("text-rendering", "geometricPrecision");
    for (auto const& annotation : m_view.m_view->m_annotations) {
      if (m_markup.hasFailed()) break;
      if (annotation != nullptr) (m_items.*part)(*annotation);
    }
    m_markup.close();
  }

  MigratedView const& m_view;
  Extent m_box;
  Markup m_markup;
  SvgItems m_items;
};

}  // namespace

Findings writeSvgPage(MigratedView const& view, OutputSink& sink, TextMode mode) {
  PageMeasure measure(view, mode != TextMode::Live);
  SvgPage page(view, measure, mode, sink);
  if (sink.write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>")) static_cast<void>(page.write());
  return measure.listFindings();
}

}  // namespace qvToolkit
