#include "progress.h"

#include <unistd.h>

#include <cstdio>
#include <string_view>

#include "qvToolkit/text/textEscape.h"

namespace qvannot {

namespace {

constexpr std::size_t MaxShownPath = 60;

void write(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
}

}  // namespace

Progress::Progress(std::size_t total) : m_total(total), m_isShown(total > 1 && isatty(STDERR_FILENO) != 0) {
}

Progress::~Progress() {
  clear();
}

void Progress::show(std::size_t index, std::string const& path) const {
  if (!m_isShown) return;
  // A cut within a character leaves a byte that is escaped, too.
  write("\r\x1b[K[" + std::to_string(index + 1) + "/" + std::to_string(m_total) + "] " +
        qvToolkit::escapeTerminal(path.substr(0, MaxShownPath)));
}

void Progress::clear() const {
  if (m_isShown) write("\r\x1b[K");
}

}  // namespace qvannot
