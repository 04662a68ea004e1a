#include "samplePage.h"

#include <charconv>
#include <memory>

#include "qvAnnotation/textSegmentToSvgConverter.h"
#include "qvSvg/text.h"
#include "samples.h"

namespace qvTest {

namespace {

using qvToolkit::Extent;
using qvToolkit::PagePoint;

constexpr std::size_t Columns = 4;
constexpr float ColumnWidth = 13.0F * SampleSize;
constexpr float RowHeight = 2.4F * SampleSize;
constexpr int StepsPerCurve = 32;

/// Adds the points of outlines, curves by many points on them.
class InkMeasure {
 public:
  /// A glyph for an em of 1 is drawn `size` large with its origin at (x, y), and `grown` on every side.
  InkMeasure(double size, double x, double y, double grown) : m_size(size), m_x(x), m_y(y), m_grown(grown) {}

  void add(qv::svg::Outline const& outline, Extent& ink) {
    PagePoint pen;
    for (qv::svg::OutlineCommand const& command : outline) {
      std::size_t const count = qv::svg::OutlineCommand::countPoints(command.m_kind);
      if (count == 0) continue;
      PagePoint points[4] = {pen};
      for (std::size_t i = 0; i < count; ++i) {
        points[i + 1] = {static_cast<double>(command.m_points[i].X()),
                         static_cast<double>(command.m_points[i].Y())};
      }
      // A move draws nothing, but its contour goes on from there.
      for (int step = 1; step <= StepsPerCurve; ++step) {
        bool const isMove = command.m_kind == qv::svg::OutlineCommand::Kind::Move;
        double const at = isMove ? 1.0 : static_cast<double>(step) / StepsPerCurve;
        addPoint(interpolate(points, count, at), ink);
      }
      pen = points[count];
    }
  }

 private:
  static PagePoint interpolate(PagePoint const (&points)[4], std::size_t degree, double at) {
    PagePoint level[4] = {points[0], points[1], points[2], points[3]};
    for (std::size_t end = degree; end > 0; --end) {
      for (std::size_t i = 0; i < end; ++i) {
        level[i] = {level[i].m_x + (level[i + 1].m_x - level[i].m_x) * at,
                    level[i].m_y + (level[i + 1].m_y - level[i].m_y) * at};
      }
    }
    return level[0];
  }

  void addPoint(PagePoint const& point, Extent& ink) const {
    double const x = m_x + point.m_x * m_size;
    double const y = m_y + point.m_y * m_size;
    ink.add(PagePoint{x - m_grown, y - m_grown});
    ink.add(PagePoint{x + m_grown, y + m_grown});
  }

  double m_size, m_x, m_y, m_grown;
};

void addText(qv::svg::Text const& text, Extent& ink, Extent& box) {
  auto const size = static_cast<double>(text.m_size);
  for (qv::svg::TextSpan const& span : text.m_spans) {
    double const grown =
        span.m_synthesis.m_bold ? size * static_cast<double>(qv::svg::FontSynthesis::BOLD_STROKE) / 2 : 0.0;
    for (qv::svg::Glyph const& glyph : span.m_glyphs) {
      InkMeasure measure(size, static_cast<double>(span.m_x + glyph.m_x),
                         static_cast<double>(text.m_baseline + glyph.m_y), grown);
      measure.add(span.m_glyphSource->getOutline(glyph.m_index), ink);
    }
  }
  box.add(PagePoint{static_cast<double>(text.m_box.getMinPoint().X()),
                    static_cast<double>(text.m_box.getMinPoint().Y())});
  box.add(PagePoint{static_cast<double>(text.m_box.getMaxPoint().X()),
                    static_cast<double>(text.m_box.getMaxPoint().Y())});
}

void addItems(qv::svg::Node const& node, Extent& ink, Extent& box) {
  for (auto const& item : node.getChildren()) {
    if (auto const* text = dynamic_cast<qv::svg::Text const*>(item.get())) addText(*text, ink, box);
    if (auto const* group = dynamic_cast<qv::svg::Node const*>(item.get())) addItems(*group, ink, box);
  }
}

/// From layout coordinates, y up, to those of the page.
Extent place(Extent const& extent, Wm4::Vector3<float> const& position) {
  auto const x = static_cast<double>(position.X());
  auto const y = -static_cast<double>(position.Y());
  return {extent.m_minX + x, y - extent.m_maxY, extent.m_maxX + x, y - extent.m_minY};
}

}  // namespace

SamplePage::SamplePage() {
  m_view.m_view = new qv::qvCadAnnotationView;
  qv::text::TextSegmentToSvgConverter converter;
  for (Sample const& sample : getSamples()) {
    std::size_t const index = m_samples.size();
    qv::qvCadAnnotation& annotation = *m_view.m_view->m_annotations.emplace_back(new qv::qvCadAnnotation);
    annotation.m_position = {static_cast<float>(index % Columns) * ColumnWidth,
                             -static_cast<float>(index / Columns) * RowHeight, 0.0F};
    annotation.m_svgRoot = std::make_shared<qv::svg::Node>();
    auto upright = std::make_shared<qv::svg::Node>();
    upright->m_transform = Wm4::Matrix3<float>(1, 0, 0, 0, -1, 0, 0, 0, 1);
    PlacedSample placed;
    placed.m_description = describe(sample);
    if (converter.convertTextAreaToSvg(makeTextArea(sample), *upright, nullptr, "text")) {
      addItems(*upright, placed.m_ink, placed.m_box);
    }
    placed.m_ink = place(placed.m_ink, annotation.m_position);
    placed.m_box = place(placed.m_box, annotation.m_position);
    annotation.m_svgRoot->editChildren().push_back(std::move(upright));
    m_samples.push_back(std::move(placed));
  }
}

std::string SamplePage::write(qvToolkit::TextMode mode) const {
  qvToolkit::TextSink sink;
  static_cast<void>(writeSvgPage(m_view, sink, mode));
  return sink.m_text;
}

qvToolkit::Extent readViewBox(std::string const& svg) {
  std::string_view text = svg;
  text.remove_prefix(text.find("viewBox=\"") + 9);
  double numbers[4] = {};
  for (double& number : numbers) {
    auto const result = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()) + 1);
  }
  return {numbers[0], numbers[1], numbers[0] + numbers[2], numbers[1] + numbers[3]};
}

}  // namespace qvTest
