#include "qvToolkit/findings/catalogue.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "findings/migrationRows.h"
#include "findings/openingRows.h"
#include "findings/workRows.h"
#include "text/wordTable.h"

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

constexpr auto ClassRows = std::to_array<ClassRow>({
    {FindingClass::Done, "done", ExitDone, "by design: all is there and looks as it should"},
    {FindingClass::Look, "look", ExitDone, "changed in look, or hard to see"},
    {FindingClass::Lost, "lost", ExitFindings, "something of the document is not there any more"},
    {FindingClass::Usage, "usage", ExitUsage, "what was asked for cannot be asked of this document"},
    {FindingClass::Unopenable, "unopenable", ExitInputUnreadable, "the input cannot be opened or read"},
    {FindingClass::Broken, "broken", ExitInputBroken,
     "the input is of no known format or broken beyond reading"},
    {FindingClass::Output, "output", ExitOutputFailed, "an output cannot be written"},
    {FindingClass::Limit, "limit", ExitLimit, "a limit was hit, or a worker died"},
    {FindingClass::Bug, "bug", ExitBug, "the tool itself is wrong"},
});

static_assert(std::ranges::is_sorted(ClassRows, {}, &ClassRow::m_class));
static_assert(ClassRows.size() == static_cast<std::size_t>(FindingClass::Bug) + 1);

constexpr WordTable<Severity, 3> SeverityWords = {{
    {Severity::Info, "info"},
    {Severity::Warning, "warning"},
    {Severity::Error, "error"},
}};

}  // namespace

std::span<CatalogueRow const> getCatalogue() noexcept {
  return Rows;
}

std::span<ClassRow const> getClasses() noexcept {
  return ClassRows;
}

CatalogueRow const& getRow(FindingCode code) noexcept {
  return Rows[static_cast<std::size_t>(code)];
}

std::string_view getCodeText(FindingCode code) {
  return static_cast<std::size_t>(code) < Rows.size() ? getRow(code).m_text : "unknown";
}

std::string_view getSeverityText(Severity severity) {
  return getWord(SeverityWords, severity);
}

std::optional<FindingCode> findCode(std::string_view text) {
  auto const row = std::ranges::find(Rows, text, &CatalogueRow::m_text);
  return row == Rows.end() ? std::nullopt : std::optional(row->m_code);
}

std::optional<Severity> findSeverity(std::string_view text) {
  return findValue(SeverityWords, text);
}

ClassRow const& getRow(FindingClass findingClass) noexcept {
  return ClassRows[static_cast<std::size_t>(findingClass)];
}

bool isLimit(FindingCode code) {
  return getRow(code).m_class == FindingClass::Limit;
}

}  // namespace qvToolkit
