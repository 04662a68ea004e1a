#pragma once

#include "qvSystem/qvLog.h"

namespace qv::impl {

/// The log that writes to standard error; made at first use and never destroyed, so that it serves static
/// objects while they are constructed and destroyed.
qvLog& defaultLog();

}  // namespace qv::impl
