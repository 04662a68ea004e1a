#include "qvAnnotation/textArea.h"

namespace qv::text {

TextArea::TextArea() = default;
TextArea::~TextArea() = default;

}  // namespace qv::text
