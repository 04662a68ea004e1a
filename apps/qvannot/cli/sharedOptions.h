#pragma once

#include <string>
#include <vector>

#include "qvToolkit/migration/fontSettings.h"
#include "qvToolkit/outcome/limits.h"
#include "qvannot/cli/option.h"

namespace qvannot {

// The rows that several commands have.

/// The document that a command reads.
Option makeFileOperand(std::vector<std::string>& files);
/// The documents that a command reads. None at all is no mistake: a pattern may have met none.
Option makeFilesOperand(std::vector<std::string>& files);
Option makeJobsOption(std::size_t& jobs);
Option makeStrictFlag(bool& isStrict);
/// Of a command that writes JSON where it is asked to.
Option makePrettyFlag(bool& isPretty);
/// A folder that is named by an option.
Option makeFolderOption(std::string_view names, std::string help, std::string& folder);
Options makeFontOptions(qvToolkit::FontOptions& fonts);
Options makeLimitOptions(qvToolkit::Limits& limits);

}  // namespace qvannot
