#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "qvToolkit/export.h"
#include "qvToolkit/files/outputFile.h"
#include "qvToolkit/findings/exitCode.h"
#include "qvToolkit/findings/finding.h"
#include "qvToolkit/model/legacyCounts.h"
#include "qvToolkit/model/source.h"

namespace qvToolkit {

/// The gravest thing that happened to an input: as a word in JSON, as an exit code for the tool.
using Conclusion = ExitCode;

/// "done", "findings", "usage", "unreadable", "broken", "outputFailed", "limit", "nothing" or "bug".
QVT_EXPORT std::string_view getConclusionText(Conclusion conclusion);
/// The conclusion that the word stands for; nothing for any other word.
QVT_EXPORT std::optional<Conclusion> findConclusion(std::string_view text);

/// What became of one view.
struct ViewOutcome {
  std::string m_address;             ///< "view/3"
  std::string m_name;                ///< raw bytes; known also for a refused view
  std::string m_version;             ///< that the view was written in, such as "6.22"; empty when not known
  bool m_isRead = false;             ///< false when the reader refused the view
  std::optional<bool> m_isMigrated;  ///< none where the action migrates nothing
  std::string m_sameAs;   ///< address of the view that it is, too, and that tells the rest; or empty
  std::string m_page;     ///< name of the output that shows it, or empty
  LegacyCounts m_counts;  ///< of the view and all below it; zero for a refused view
};

/// A font that texts were really drawn with, told apart from others wherever its file lies.
struct FontIdentity {
  std::string m_family;   ///< as the file calls it; raw bytes
  std::string m_version;  ///< as the file has it; raw bytes
  std::string
      m_sha256;  ///< of the whole file, 64 lower-case hexadecimal digits; empty where it cannot be read
  unsigned m_faceIndex = 0;  ///< in the file
};

/// What became of one input: the same for the same input, request, tool and fonts, wherever and whenever.
/// @code
/// Document const document = openDocument("bracket.json");
/// Outcome outcome;
/// outcome.m_source = document.m_source;
/// outcome.m_findings = document.m_findings;
/// outcome.m_conclusion = conclude(getFailure(document), outcome.m_findings, Severity::Error);
/// assert(getConclusionText(outcome.m_conclusion) == "done");
/// @endcode
struct Outcome {
  Source m_source;                     ///< of the input
  Conclusion m_conclusion = ExitDone;  ///< by the threshold `Severity::Error`
  Findings m_findings;                 ///< in the order met
  std::vector<ViewOutcome> m_views;    ///< in document order
  std::vector<OutputFile> m_outputs;   ///< in the order in which they were begun
  std::vector<FontIdentity> m_fonts;   ///< each once, by family, version, hash and face
};

/// What a threshold makes of findings: the highest exit code among `reached`, which is what the work came to
/// without them, and each finding's own.
QVT_EXPORT Conclusion conclude(ExitCode reached, Findings const& findings, Severity threshold);

/// What differs from run to run; beside an outcome, never in it.
struct RunFacts {
  std::string m_givenPath;         ///< of the input; raw bytes
  std::string m_started;           ///< in UTC as RFC 3339 has it, such as "2026-02-28T23:59:59.125Z"
  std::string m_ended;             ///< likewise
  double m_processorSeconds = 0;   ///< of all processes for this input
  double m_wallSeconds = 0;        ///< by a clock that is never set
  std::uint64_t m_peakMemory = 0;  ///< bytes resident at once, of the largest process
  std::string m_host;              ///< its name; raw bytes
  std::int64_t m_process = 0;      ///< id of the one that did the work
};

}  // namespace qvToolkit
