#include "qvToolkit/outcome/request.h"

#include "outcome/requestWords.h"

namespace qvToolkit {

std::string_view getActionText(Action action) {
  return getWord(ActionWords, action);
}

std::string_view getTextModeText(TextMode mode) {
  return getWord(TextModeWords, mode);
}

std::string_view getFormatText(PageFormat format) {
  return getWord(PageFormatWords, format);
}

}  // namespace qvToolkit
