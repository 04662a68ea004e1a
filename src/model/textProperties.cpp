#include "annotationLegacy/qvAnnotationText.h"
#include "rules/values.h"

namespace qvLegacy {

qvAnnotationText::TextProperties::TextProperties() = default;

qvAnnotationText::TextProperties::TextProperties(std::string const& font, float height)
    : m_fontName(font), m_height(quantizeHeight(height)) {
}

std::uint16_t qvAnnotationText::TextProperties::quantizeHeight(float height) {
  return rules::toHundredths(height).value;
}

}  // namespace qvLegacy
