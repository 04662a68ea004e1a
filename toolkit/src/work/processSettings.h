#pragma once

#include <memory>

#include "qvToolkit/work/session.h"

namespace qvToolkit {

/// Fonts and log of the process. Several may live and end in any order: those of the one that was begun last
/// hold, and once all have ended those of before the first.
class ProcessSettings {
 public:
  ProcessSettings(FontOptions const& fonts, LogSink const& log);
  ~ProcessSettings();
  ProcessSettings(ProcessSettings const&) = delete;
  ProcessSettings& operator=(ProcessSettings const&) = delete;

  FontOptions const& getFonts() const noexcept { return m_fonts; }

 private:
  class Log;
  static void useLog();

  FontOptions m_fonts;
  std::unique_ptr<Log> m_log;  ///< null where records go where they went
};

}  // namespace qvToolkit
