#pragma once

#include <string>
#include <string_view>

#include "qvToolkit/export.h"
#include "qvToolkit/json/jsonWriter.h"
#include "qvToolkit/outcome/outcome.h"
#include "qvToolkit/outcome/request.h"

namespace qvToolkit {

/// What the JSON form of a request calls itself in its member "format".
constexpr std::string_view RequestFormat = "qvannot.request";
/// The same of an outcome.
constexpr std::string_view OutcomeFormat = "qvannot.outcome";
/// The member "formatVersion" of both: grows when a member changes its meaning or goes, not when one is
/// added.
constexpr int OutcomeFormatVersion = 1;

/// Writes an outcome as one JSON object, docs/outcome-json.md; docs/schemas has a schema for it.
/// @code
/// Outcome outcome;
/// outcome.m_source.m_path = "bracket.json";
/// JsonWriter json;
/// writeOutcome(json, outcome);
/// Outcome back;
/// std::string const problem = readOutcome(json.takeText(), back);
/// assert(problem.empty() && back.m_source.m_path == "bracket.json");
/// @endcode
/// No member is ever left out: null stands for what is not there. What is raw bytes stands as a text, and
/// beside it under the key + "Hex" where the text cannot hold it. A count that 63 bits do not hold is a text
/// of its digits. What is read back is what was written, member for member; numbers must be finite.
QVT_EXPORT void writeOutcome(JsonWriter& json, Outcome const& outcome);
/// The same for a request. Options stand under stable names, however a tool spells them.
QVT_EXPORT void writeRequest(JsonWriter& json, Request const& request);
/// The same for what differs from run to run; it has no format of its own, since it stands beside an outcome.
QVT_EXPORT void writeRunFacts(JsonWriter& json, RunFacts const& facts);

/// Reads what `writeOutcome` wrote, from anybody: returns what is wrong with it, such as "/views/0/name:
/// found null, expected a text"; the empty string when nothing is. Every member must be there and of its
/// kind, members that are not known are passed over. `outcome` stays as it was when something is wrong. Takes
/// time in proportion to the text. Throws `std::bad_alloc` only.
QVT_EXPORT std::string readOutcome(std::string json, Outcome& outcome);
/// The same for a request; a transformation must be a proper one, too.
QVT_EXPORT std::string readRequest(std::string json, Request& request);
/// The same for what differs from run to run.
QVT_EXPORT std::string readRunFacts(std::string json, RunFacts& facts);

}  // namespace qvToolkit
