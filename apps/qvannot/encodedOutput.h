#pragma once

#include <functional>

#include "commandLine.h"
#include "qvToolkit/model/document.h"
#include "reporter.h"

namespace qvannot {

/// Writes the document as the object stream that the command asks for, and reports what it could not take
/// along.
void writeEncoded(qvToolkit::Document const& document, EncodeCommand const& command, Reporter& reporter);

/// Runs the work of such a command under its limits.
void runEncoding(EncodeCommand const& command, std::function<void()> const& work, Reporter& reporter);

}  // namespace qvannot
