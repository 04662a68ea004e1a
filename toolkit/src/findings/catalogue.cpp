#include "qvToolkit/findings/catalogue.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "findings/migrationRows.h"
#include "findings/openingRows.h"
#include "findings/workRows.h"

namespace qvToolkit {

namespace {

template <std::size_t... Counts>
constexpr auto join(std::array<CatalogueRow, Counts> const&... parts) {
  std::array<CatalogueRow, (Counts + ...)> all{};
  auto next = all.begin();
  ((next = std::copy(parts.begin(), parts.end(), next)), ...);
  return all;
}

constexpr auto Rows = join(OpeningRows, MigrationRows, WorkRows);

constexpr bool standInOrder() {
  for (std::size_t i = 0; i < Rows.size(); ++i) {
    if (static_cast<std::size_t>(Rows[i].m_code) != i || Rows[i].m_text.empty()) return false;
  }
  return Rows.back().m_code == FindingCode::OutputFailed;
}
static_assert(standInOrder());

}  // namespace

std::span<CatalogueRow const> getCatalogue() noexcept {
  return Rows;
}

CatalogueRow const& getRow(FindingCode code) noexcept {
  return Rows[static_cast<std::size_t>(code)];
}

std::string_view getCodeText(FindingCode code) {
  return static_cast<std::size_t>(code) < Rows.size() ? getRow(code).m_text : "unknown";
}

std::string_view getSeverityText(Severity severity) {
  constexpr std::array<std::string_view, 3> Texts = {"info", "warning", "error"};
  return Texts[static_cast<std::size_t>(severity)];
}

std::string_view getClassText(FindingClass findingClass) {
  constexpr std::array<std::string_view, 9> Texts = {"done",   "look",   "lost",  "usage", "unopenable",
                                                     "broken", "output", "limit", "bug"};
  return Texts[static_cast<std::size_t>(findingClass)];
}

bool isLimit(FindingCode code) {
  return getRow(code).m_class == FindingClass::Limit;
}

ExitCode getExitCode(FindingClass findingClass) {
  constexpr std::array Codes = {
      ExitDone,        ExitDone,         ExitFindings, ExitUsage, ExitInputUnreadable,
      ExitInputBroken, ExitOutputFailed, ExitLimit,    ExitBug};
  return Codes[static_cast<std::size_t>(findingClass)];
}

}  // namespace qvToolkit
