#include "qvToolkit/outcome/request.h"

#include "outcome/requestWords.h"
#include "rules/gates.h"

namespace qvToolkit {

std::uint32_t getOldestWritableVersion() noexcept {
  return qvLegacy::rules::oldestVersion;
}

std::uint32_t getNewestWritableVersion() noexcept {
  return qvLegacy::rules::newestVersion;
}

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
