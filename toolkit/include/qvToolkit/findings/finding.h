#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "qvToolkit/export.h"
#include "qvToolkit/findings/catalogue.h"

namespace qvToolkit {

/// Where a finding belongs in its input.
struct SourcePlace {
  std::optional<std::uint64_t> m_byteOffset;  ///< from 0
  std::optional<std::uint64_t> m_line;        ///< from 1
  std::optional<std::uint64_t> m_column;      ///< from 1, in bytes
  std::string m_jsonPointer;                  ///< empty when unknown
};

/// One thing that a user should know.
/// @code
/// Finding const finding = makeFinding(FindingCode::KeyIgnored, "the key 'heigth' is not read", "view/0");
/// assert(getHighestSeverity({finding}) == getRow(FindingCode::KeyIgnored).m_severity);
/// std::cerr << formatFinding("bracket.json", finding) << '\n';
/// @endcode
/// What is said of a code always is in its row, what is said here is of this document.
struct Finding {
  FindingCode m_code = FindingCode::ReaderMessage;  ///< names its row of the catalogue
  Severity m_severity = Severity::Error;            ///< the row's, unless this case weighs more or less
  std::string m_text;  ///< what was found, what was expected, what to do; raw bytes of the document stay raw
  std::string m_address;             ///< "view/3/annot/7/sub/0", indices from 0; empty for the whole document
  SourcePlace m_place;               ///< empty when it is not known
  std::vector<OptionKey> m_options;  ///< those that tolerate it; empty when none does
};

/// In the order met, unless said otherwise.
using Findings = std::vector<Finding>;
/// Takes findings one by one, in the order met; what it throws ends the work and propagates.
using FindingSink = std::function<void(Finding)>;

/// A finding with the severity and the option of its row. The text says what was found, what was expected and
/// what to do; it spells no option.
QVT_EXPORT Finding makeFinding(FindingCode code, std::string text, std::string address = {},
                               SourcePlace place = {});
/// One that weighs more or less than its row says.
QVT_EXPORT Finding makeFinding(FindingCode code, Severity severity, std::string text,
                               std::string address = {}, SourcePlace place = {});
/// The finding with these options instead of the one of its row.
QVT_EXPORT Finding withOptions(Finding finding, std::vector<OptionKey> options);

/// "FILE:LINE:COLUMN: error: TEXT [CODE, ADDRESS, OPTIONS]" on one line, safe for a terminal: control
/// characters and invalid bytes are shown as escapes, and of the text at most 2,000 bytes. Parts that are not
/// known are left out, and so are options without a spelling for them.
QVT_EXPORT std::string formatFinding(std::string_view file, Finding const& finding,
                                     OptionSpelling spelling = nullptr);

/// The spellings of a finding's options, with a blank between them; empty without any.
QVT_EXPORT std::string spellOptions(Finding const& finding, OptionSpelling spelling);

/// What a finding counts for: the exit code of its class where that ends the work on a document, otherwise
/// `ExitFindings` at or above the threshold. Where nothing is left of a document, see `getFailure`.
QVT_EXPORT ExitCode getExitCode(Finding const& finding, Severity threshold);

/// The heaviest severity in the list; nothing for an empty one.
QVT_EXPORT std::optional<Severity> getHighestSeverity(Findings const& findings);

}  // namespace qvToolkit
