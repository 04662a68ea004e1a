#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "qvToolkit/files/outputSink.h"
#include "qvToolkit/migration/migrationSession.h"
#include "qvToolkit/model/document.h"

namespace qvFaults {

/// What a step gave: all of it as text, so that two runs can be compared.
struct StepResult {
  std::string m_text;
  bool m_isRefusal = false;  ///< it says itself that there is not enough memory, and gives nothing else
};

/// One thing that is done with a document. Throws `std::bad_alloc` only. Telling the result takes no part in
/// planned failures.
struct Step {
  std::string m_name;
  std::function<StepResult()> m_run;
};

/// Everything that is done with a document, from opening to each of its outputs.
std::vector<Step> makeSteps(std::string const& bytes);

/// Migrates a document, its images from that folder, and tells all of it.
StepResult migrate(qvToolkit::Document const& document, std::string const& rasterFolder);

/// The findings and the whole model of a document as text.
std::string describe(qvToolkit::Document const& document);

using qvToolkit::TextSink;

}  // namespace qvFaults
