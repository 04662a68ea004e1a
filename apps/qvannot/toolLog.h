#pragma once

#include "qvSystem/qvLog.h"

namespace qvannot {

/// Takes what the libraries log: to standard error, escaped, so that nothing of it reaches standard output.
void writeLogRecord(qv::qvLog::LogEntry const& record);

}  // namespace qvannot
