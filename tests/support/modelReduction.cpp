#include "tests/support/modelReduction.h"

#include <algorithm>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"

namespace qvStreamTest {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationText;
using Run = qvAnnotationText::TextSegment;

/// Sets a value and tells whether it was another one.
template <class T>
bool reset(T& value, T const& to) {
  bool const isChanged = value != to;
  value = to;
  return isChanged;
}

template <class Container>
bool empty(Container& container) {
  bool const isChanged = !container.empty();
  container.clear();
  return isChanged;
}

/// Before 6.17.
bool reduceRun(Run& run) {
  bool isChanged = reset(run.m_type, Run::Normal);
  std::string const text(run.getText());
  if (text.size() != run.m_length) {
    run.setText(text);
    isChanged = true;
  }
  return isChanged;
}

bool reduceAnnotation(qvAnnotationInterface& annotation, std::uint32_t version) {
  bool isChanged = false;
  if (version < 0x6000E) {
    isChanged |= empty(annotation.m_name);
    isChanged |= reset(annotation.m_style, std::uint8_t{(annotation.m_style & 0x0F) != 0});
  }
  if (version < 0x60011) {
    isChanged |= empty(annotation.m_measures);
    if (auto* const text = dynamic_cast<qvAnnotationText*>(&annotation)) {
      for (auto& line : text->m_lines)
        for (Run& run : line) isChanged |= reduceRun(run);
    }
  }
  if (version < 0x60016) {
    for (auto& leader : annotation.m_leaders) isChanged |= reset(leader.m_head, std::uint8_t{0});
    for (auto& measure : annotation.m_measures) isChanged |= reset(measure.m_arrowDir, std::uint8_t{0});
    isChanged |= annotation.getSubAnnotsCount() > 0;
    annotation.removeSubAnnots();
    isChanged |= empty(annotation.m_metadata);
  }
  return isChanged;
}

}  // namespace

bool reduceTo(qvLegacy::qvAnnotationView& view, std::uint32_t version) {
  auto& annotations = view.m_annotations;
  auto const isText = [](auto const& annotation) {
    return annotation->m_type == qvAnnotationInterface::Text;
  };
  auto const firstRaster = std::stable_partition(annotations.begin(), annotations.end(), isText);
  bool isChanged = version < 0x6000F && firstRaster != annotations.end();
  if (version < 0x6000F) annotations.erase(firstRaster, annotations.end());
  for (auto& annotation : annotations) isChanged |= reduceAnnotation(*annotation, version);
  if (version < 0x6001B) isChanged |= empty(view.m_metadata);
  return isChanged;
}

}  // namespace qvStreamTest
