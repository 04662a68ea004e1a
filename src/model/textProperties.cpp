#include <algorithm>

#include "annotationLegacy/qvAnnotationText.h"

namespace qvLegacy {

qvAnnotationText::TextProperties::TextProperties() = default;

qvAnnotationText::TextProperties::TextProperties(std::string const& font, float height)
    : m_fontName(font), m_height(quantizeHeight(height)) {
}

std::uint16_t qvAnnotationText::TextProperties::quantizeHeight(float height) {
  if (!(height > 0.0F)) return 0;  // NaN as well
  // KEEP: 655.35 is not exact in single precision, so the largest result is 65534.
  return static_cast<std::uint16_t>(std::min(height, 655.35F) * 100.0F);
}

}  // namespace qvLegacy
