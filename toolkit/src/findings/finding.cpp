#include "qvToolkit/findings/finding.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "qvToolkit/text/textEscape.h"

namespace qvToolkit {

namespace {

/// Messages of the library hold texts of the document in full.
constexpr std::size_t MaxShownText = 2000;

struct CodeText {
  FindingCode m_code;
  std::string_view m_text;
};

/// In the order of the enumeration; the texts are stable, scripts filter by them.
constexpr auto CodeTexts = std::to_array<CodeText>({
    {FindingCode::InputUnreadable, "input.unreadable"},
    {FindingCode::InputTooLarge, "input.too-large"},
    {FindingCode::FormatUnknown, "input.unknown-format"},
    {FindingCode::JsonBroken, "json.broken"},
    {FindingCode::JsonTooDeep, "json.too-deep"},
    {FindingCode::JsonDuplicateKey, "json.duplicate-key"},
    {FindingCode::JsonBigInteger, "json.big-integer"},
    {FindingCode::JsonByteOrderMark, "json.byte-order-mark"},
    {FindingCode::DocumentShape, "document.shape"},
    {FindingCode::NoViews, "document.no-views"},
    {FindingCode::StreamBroken, "stream.broken"},
    {FindingCode::StreamObjectId, "stream.object-id"},
    {FindingCode::StreamUnknownType, "stream.unknown-type"},
    {FindingCode::StreamOverRead, "stream.over-read"},
    {FindingCode::StreamRefused, "stream.refused"},
    {FindingCode::StreamUnderRead, "stream.under-read"},
    {FindingCode::StreamLink, "stream.link"},
    {FindingCode::StreamUnlistedView, "stream.unlisted-view"},
    {FindingCode::StreamTrailing, "stream.trailing-bytes"},
    {FindingCode::StreamVersion, "stream.version"},
    {FindingCode::StreamMore, "stream.more"},
    {FindingCode::StreamOffset, "stream.offset"},
    {FindingCode::ReaderMessage, "reader.message"},
    {FindingCode::ReaderRepeated, "reader.repeated"},
    {FindingCode::RecordLost, "reader.record-lost"},
    {FindingCode::KeyIgnored, "reader.key-ignored"},
    {FindingCode::ValueUnknown, "reader.value-unknown"},
    {FindingCode::MigrationMessage, "migration.message"},
    {FindingCode::ViewNotMigrated, "migration.view-not-migrated"},
    {FindingCode::MetadataDropped, "migration.metadata-dropped"},
    {FindingCode::PlaneDegenerate, "view.plane-degenerate"},
    {FindingCode::BlankLineSkipped, "text.blank-line-skipped"},
    {FindingCode::BlankRunSkipped, "text.blank-run-skipped"},
    {FindingCode::TextNoHeight, "text.no-height"},
    {FindingCode::TextLowContrast, "text.low-contrast"},
    {FindingCode::ShapeAsRectangle, "frame.shape-as-rectangle"},
    {FindingCode::FontNone, "font.none"},
    {FindingCode::FontMetricCompatible, "font.metric-compatible"},
    {FindingCode::FontSubstituted, "font.substituted"},
    {FindingCode::FontReplaced, "font.replaced"},
    {FindingCode::FontSynthesized, "font.synthesized"},
    {FindingCode::GlyphMissing, "font.glyph-missing"},
    {FindingCode::LeaderHeadUnknown, "leader.head-unknown"},
    {FindingCode::LeaderHeadCollapsed, "leader.head-collapsed"},
    {FindingCode::LeaderLost, "leader.lost"},
    {FindingCode::RasterUnavailable, "raster.unavailable"},
    {FindingCode::RasterUnreadable, "raster.unreadable"},
    {FindingCode::RasterSize, "raster.size"},
    {FindingCode::NumberNotFinite, "number.not-finite"},
    {FindingCode::TextRepaired, "text.repaired"},
    {FindingCode::EncodingLoss, "encoding.loss"},
    {FindingCode::EncodingOrder, "encoding.order"},
    {FindingCode::TransformSizeKept, "transform.size-kept"},
    {FindingCode::TransformPlaneKept, "transform.plane-kept"},
    {FindingCode::TransformOverflow, "transform.overflow"},
    {FindingCode::LimitMemory, "limit.memory"},
    {FindingCode::LimitFailedReads, "limit.failed-reads"},
    {FindingCode::LimitStack, "limit.stack"},
    {FindingCode::LimitTime, "limit.time"},
    {FindingCode::LimitDepth, "limit.depth"},
    {FindingCode::LimitViews, "limit.views"},
    {FindingCode::LimitNodes, "limit.nodes"},
    {FindingCode::LimitOutput, "limit.output"},
    {FindingCode::LimitRaster, "limit.raster"},
    {FindingCode::WorkerCrashed, "worker.crashed"},
    {FindingCode::WorkerKilled, "worker.killed"},
    {FindingCode::WorkerGarbage, "worker.garbage"},
    {FindingCode::OutputExists, "output.exists"},
    {FindingCode::OutputFailed, "output.failed"},
});

constexpr bool standInOrder() {
  for (std::size_t i = 0; i < CodeTexts.size(); ++i) {
    if (static_cast<std::size_t>(CodeTexts[i].m_code) != i || CodeTexts[i].m_text.empty()) return false;
  }
  return CodeTexts.back().m_code == FindingCode::OutputFailed;
}
static_assert(standInOrder());

void appendNumber(std::string& text, std::optional<std::uint64_t> const& number) {
  if (number.has_value()) text += std::to_string(*number) + ":";
}

void appendNote(std::string& notes, std::string_view note) {
  if (note.empty()) return;
  if (!notes.empty()) notes += ", ";
  notes += escapeTerminal(note);
}

}  // namespace

bool isLimit(FindingCode code) {
  if (code == FindingCode::InputTooLarge || code == FindingCode::JsonTooDeep) return true;
  return code >= FindingCode::LimitMemory && code <= FindingCode::WorkerGarbage;
}

std::string_view getCodeText(FindingCode code) {
  auto const index = static_cast<std::size_t>(code);
  return index < CodeTexts.size() ? CodeTexts[index].m_text : "unknown";
}

std::string_view getSeverityText(Severity severity) {
  switch (severity) {
    case Severity::Info:
      return "info";
    case Severity::Warning:
      return "warning";
    case Severity::Error:
      break;
  }
  return "error";
}

std::string formatFinding(std::string_view file, Finding const& finding) {
  std::string line = escapeTerminal(file);
  if (!line.empty()) line += ":";
  appendNumber(line, finding.m_place.m_line);
  appendNumber(line, finding.m_place.m_column);
  if (!line.empty()) line += " ";
  line += getSeverityText(finding.m_severity);
  line += ": " + escapeTerminal(shortenText(finding.m_text, MaxShownText));

  std::string notes;
  appendNote(notes, getCodeText(finding.m_code));
  appendNote(notes, finding.m_address);
  appendNote(notes, finding.m_option);
  return line + " [" + notes + "]";
}

std::optional<Severity> getHighestSeverity(Findings const& findings) {
  auto const isLighter = [](Finding const& a, Finding const& b) { return a.m_severity < b.m_severity; };
  auto const heaviest = std::max_element(findings.begin(), findings.end(), isLighter);
  if (heaviest == findings.end()) return std::nullopt;
  return heaviest->m_severity;
}

}  // namespace qvToolkit
