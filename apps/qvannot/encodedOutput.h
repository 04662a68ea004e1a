#pragma once

#include <functional>
#include <string>

#include "cli/option.h"
#include "qvToolkit/model/document.h"
#include "qvToolkit/outcome/limits.h"
#include "qvToolkit/stream/streamEncoder.h"
#include "reporter.h"

namespace qvannot {

/// What a command that writes one object stream is told.
struct EncodedOutput {
  std::string m_file;
  std::string m_output;
  qvToolkit::EncodingOptions m_options;
  bool m_force = false;
  qvToolkit::Limits m_limits;
};

/// The rows for it, but for the limits and the version.
Options makeEncodedOutputOptions(EncodedOutput& settings);
Option makeStreamVersionOption(qvToolkit::EncodingOptions& options);

/// Writes the document as the object stream that is asked for, and reports what it could not take along.
void writeEncoded(qvToolkit::Document const& document, EncodedOutput const& settings, Reporter& reporter);

/// Runs the work of such a command under its limits.
void runEncoding(EncodedOutput const& settings, std::function<void()> const& work, Reporter& reporter);

}  // namespace qvannot
