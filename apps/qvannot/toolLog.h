#pragma once

#include "qvSystem/qvLog.h"

namespace qvannot {

/// The process log of the tool: records go to standard error, escaped, so that nothing of the libraries
/// reaches standard output. It is installed for as long as it lives.
class ToolLog : public qv::qvLog {
 public:
  ToolLog();
  ~ToolLog() override;
  void Write(LogEntry& entry, bool flush) override;

 private:
  qv::qvLog* m_previous;
};

}  // namespace qvannot
