#include "qvToolkit/work/steps.h"

#include <algorithm>
#include <array>
#include <new>
#include <tuple>
#include <utility>

#include "qvToolkit/findings/limitFinding.h"
#include "work/work.h"

namespace qvToolkit {

namespace {

struct ActionRow {
  void (*m_perform)(Work&);
  bool m_needsViews;  ///< without any view there is nothing to do
};

/// In the order of the enumeration.
constexpr std::array<ActionRow, 6> Actions = {{
    {inspect, true},
    {migrate, true},
    {encode, true},
    {transform, true},
    {dump, false},
    {listFonts, true},
}};

Conclusion concludeWork(Outcome const& outcome, bool needsViews) {
  Conclusion const conclusion = conclude(ExitDone, outcome.m_findings, Severity::Error);
  bool const isNothing = needsViews && outcome.m_views.empty() && conclusion <= ExitFindings;
  return isNothing ? ExitNothingToDo : conclusion;
}

}  // namespace

void tell(Work& work, Finding finding) {
  work.m_outcome.m_findings.push_back(std::move(finding));
}

void tell(Work& work, Findings const& findings) {
  Findings& all = work.m_outcome.m_findings;
  all.insert(all.end(), findings.begin(), findings.end());
}

void tell(Work& work, FontReport const& fonts) {
  auto const name = [](FontIdentity const& font) {
    return std::tie(font.m_family, font.m_version, font.m_sha256, font.m_faceIndex);
  };
  std::vector<FontIdentity>& told = work.m_outcome.m_fonts;
  for (FontUse const& use : fonts.m_uses) {
    if (!use.m_sha256.empty())
      told.push_back({use.m_family, use.m_version, use.m_sha256, use.m_faceIndex.value_or(0)});
  }
  std::ranges::sort(told, {}, name);
  auto const isSame = [name](auto const& a, auto const& b) { return name(a) == name(b); };
  told.erase(std::unique(told.begin(), told.end(), isSame), told.end());
}

void print(Work& work, std::string_view text) {
  if (!work.m_results.getText().write(text)) fail(work, work.m_results.getProblem());
}

bool beginFile(Work& work, std::string const& name) {
  work.m_outcome.m_outputs.push_back({name, 0, {}});
  return work.m_results.open(name);
}

void fail(Work& work, Finding problem) {
  tell(work, std::move(problem));
  work.m_results.withdraw();
  work.m_outcome.m_outputs.clear();
  for (ViewOutcome& view : work.m_outcome.m_views) view.m_page.clear();
}

Outcome performRequest(Session& session, Request const& request, Task const& task, Results& results,
                       MemoryHooks const& hooks) {
  Work work{session, request, task, results, hooks, {}};
  work.m_outcome.m_source.m_path = task.m_path;
  ActionRow const& action = Actions[static_cast<std::size_t>(request.m_action)];
  try {
    action.m_perform(work);
  } catch (std::bad_alloc const& error) {
    fail(work, makeLimitFinding(error));
  }
  work.m_outcome.m_conclusion = concludeWork(work.m_outcome, action.m_needsViews);
  return std::move(work.m_outcome);
}

}  // namespace qvToolkit
