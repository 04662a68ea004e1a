#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "qvToolkit/migration/migrationSession.h"
#include "qvToolkit/model/document.h"
#include "qvToolkit/reports/fontReport.h"
#include "qvToolkit/work/steps.h"

namespace qvToolkit {

/// What the steps of one request work with, and what they have come to.
struct Work {
  Session& m_session;
  Request const& m_request;
  Task const& m_task;
  Results& m_results;
  MemoryHooks const& m_hooks;
  Outcome m_outcome;
};

// Each action is a choice of steps.
void inspect(Work& work);
void migrate(Work& work);
void encode(Work& work);
void transform(Work& work);
void dump(Work& work);
void listFonts(Work& work);

// Steps; what they find they tell in the outcome.

/// The bytes of the input; nothing where it cannot be read.
std::optional<std::string> readInput(Work& work);
/// Has the limits follow from the input's size.
void limitBySize(Work const& work, std::uint64_t inputBytes);
/// Reads a document of either encoding, and audits what was read. It has no views where there is nothing to
/// work on.
Document openInput(Work& work);
/// Prints what may be printed as a whole only.
void print(Work& work, std::string_view text);
/// Begins the next file.
[[nodiscard]] bool beginFile(Work& work, std::string const& name);
/// Nothing of the results counts, and why.
void fail(Work& work, Finding problem);
/// How the request has views migrated.
MigrationOptions makeMigrationOptions(Work const& work);

void tell(Work& work, Finding finding);
void tell(Work& work, Findings const& findings);
/// The fonts that texts were drawn with.
void tell(Work& work, FontReport const& fonts);

}  // namespace qvToolkit
