#include "tests/support/modelGenerator.h"

#include <bit>
#include <random>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"

namespace qvStreamTest {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationRaster;
using qvLegacy::qvAnnotationText;
using qvLegacy::qvAnnotationView;
using Run = qvAnnotationText::TextSegment;

/// The distributions of the standard library differ between its implementations; these do not.
class Generator {
 public:
  explicit Generator(std::uint64_t seed) : m_random(seed) {}

  qv::qvPointer<qvAnnotationView> makeView();

 private:
  std::uint64_t below(std::uint64_t limit) { return m_random() % limit; }
  std::uint8_t byte() { return static_cast<std::uint8_t>(m_random()); }
  /// Mostly round numbers, now and then any bits, NaN and infinity included.
  float real() {
    if (below(8) == 0) return std::bit_cast<float>(static_cast<std::uint32_t>(m_random()));
    return static_cast<float>(below(2000)) / 8.0F - 100.0F;
  }
  Wm4::Vector3<float> point() {
    float const x = real();
    float const y = real();
    return {x, y, real()};
  }
  std::string text(std::size_t maxLength);
  qv::qvVariant value(int depth);
  qv::qvVariant::qvVariantMapImpl map(int depth);
  void fillShared(qvAnnotationInterface& annotation, int depth);
  void fillChildren(qvAnnotationInterface& annotation, int depth);
  void fillRun(Run& run);
  qvAnnotationText::TextProperties properties();
  qv::qvPointer<qvAnnotationInterface> makeAnnotation(int depth);

  std::mt19937_64 m_random;
};

std::string Generator::text(std::size_t maxLength) {
  std::string bytes(below(maxLength + 1), '\0');
  bool const isPlain = below(3) != 0;
  for (char& c : bytes) c = isPlain ? static_cast<char>('a' + below(26)) : static_cast<char>(byte());
  return bytes;
}

qv::qvVariant Generator::value(int depth) {
  switch (below(depth > 0 ? 7 : 5)) {
    case 0:
      return {};
    case 1:
      return std::bit_cast<std::int64_t>(m_random());
    case 2:
      return std::bit_cast<double>(m_random());
    case 3:
      return text(20);
    case 4:
      return below(2) == 0;
    case 5:
      return map(depth - 1);
    default: {
      qv::qvVariant::qvVariantListImpl list(below(4));
      for (qv::qvVariant& element : list) element = value(depth - 1);
      return list;
    }
  }
}

qv::qvVariant::qvVariantMapImpl Generator::map(int depth) {
  qv::qvVariant::qvVariantMapImpl entries;
  if (below(2) == 0) return entries;
  for (std::uint64_t i = below(4); i > 0; --i) entries.insert_or_assign(text(6), value(depth));
  return entries;
}

qvAnnotationText::TextProperties Generator::properties() {
  qvAnnotationText::TextProperties result;
  result.m_fontName = text(12);
  result.m_height = static_cast<std::uint16_t>(m_random());
  result.m_styleFlags = static_cast<std::uint16_t>(m_random());
  return result;
}

void Generator::fillRun(Run& run) {
  std::string const content = below(100) == 0 ? std::string(65535, 'x') : text(10);
  // A length of 0 means something else to `setText`.
  if (!content.empty()) run.setText(content.data(), content.size());
  run.m_type = static_cast<Run::SegmentType>(below(4) == 0 ? byte() : below(3));
  if (below(3) == 0) run.setTextProperties(properties());
}

void Generator::fillChildren(qvAnnotationInterface& annotation, int depth) {
  for (std::uint64_t i = below(3); i > 0; --i) {
    auto& node = annotation.editSubAnnots().emplace_back();
    node.m_anchor = byte();
    if (below(4) != 0) node.m_annot = makeAnnotation(depth - 1);
  }
}

void Generator::fillShared(qvAnnotationInterface& annotation, int depth) {
  annotation.m_name = text(10);
  annotation.m_position = point();
  annotation.m_color.X() = byte();
  annotation.m_color.Y() = byte();
  annotation.m_color.Z() = byte();
  annotation.m_style = below(2) == 0 ? byte() : static_cast<std::uint8_t>(below(2));
  annotation.m_leaders.resize(below(3));
  for (auto& leader : annotation.m_leaders) {
    leader.m_position = point();
    leader.m_head = below(3) == 0 ? byte() : std::uint8_t{0};
  }
  if (below(3) == 0) annotation.m_measures.resize(below(3));
  for (auto& measure : annotation.m_measures) {
    measure.m_pointA = point();
    measure.m_pointB = point();
    measure.m_offset = point();
    measure.m_arrowDir = below(3) == 0 ? byte() : std::uint8_t{0};
  }
  if (below(3) == 0) annotation.m_metadata = map(4);
  if (depth > 0 && below(2) == 0) fillChildren(annotation, depth);
}

qv::qvPointer<qvAnnotationInterface> Generator::makeAnnotation(int depth) {
  if (below(4) == 0) {
    qv::qvPointer<qvAnnotationRaster> const raster = new qvAnnotationRaster;
    fillShared(*raster, depth);
    raster->m_rasterName = text(12);
    raster->m_size = {real(), real()};
    return raster;
  }
  qv::qvPointer<qvAnnotationText> const result = new qvAnnotationText;
  fillShared(*result, depth);
  if (below(2) == 0) result->m_defaultTextProperties = properties();
  result->m_lines.resize(below(4));
  for (auto& line : result->m_lines) {
    line.resize(below(4));
    for (Run& run : line) fillRun(run);
  }
  return result;
}

qv::qvPointer<qvAnnotationView> Generator::makeView() {
  qv::qvPointer<qvAnnotationView> view = new qvAnnotationView;
  view->m_name = text(10);
  view->m_planeOrigin = point();
  view->m_planeNormal = point();
  view->m_planeXAxis = point();
  for (std::uint64_t i = below(4); i > 0; --i) view->m_annotations.push_back(makeAnnotation(3));
  if (below(2) == 0) view->m_metadata = map(4);
  return view;
}

}  // namespace

qvToolkit::Document generateDocument(std::uint64_t seed) {
  Generator generator(seed);
  qvToolkit::Document document;
  for (std::uint64_t i = seed % 3; i <= 2; ++i) {
    qvToolkit::LoadedView loaded;
    loaded.m_view = generator.makeView();
    document.m_views.push_back(std::move(loaded));
  }
  return document;
}

}  // namespace qvStreamTest
