#pragma once

namespace qvFaults {

/// True while a log record is being written. An executable that links this has its own destructor of log
/// records in front of the library's.
bool isWritingLogRecord() noexcept;

}  // namespace qvFaults
