#include <utility>
#include <vector>

#include "files/inputFile.h"
#include "qvToolkit/findings/address.h"
#include "qvToolkit/model/legacyCounts.h"
#include "qvToolkit/reading/openDocument.h"
#include "work/work.h"

namespace qvToolkit {

namespace {

std::vector<ViewOutcome> describeViews(Document const& document) {
  std::vector<ViewOutcome> views;
  for (LoadedView const& loaded : document.m_views) {
    ViewOutcome view;
    view.m_address = Address::ofView(views.size()).getText();
    view.m_name = loaded.m_name;
    if (loaded.m_version.GetPacked() != 0) view.m_version = loaded.m_version.toString();
    view.m_isRead = loaded.m_view != nullptr;
    if (view.m_isRead) view.m_counts = countView(*loaded.m_view);
    views.push_back(std::move(view));
  }
  return views;
}

/// A document that nothing could be read of.
Document makeUnread(Work const& work) {
  Document document;
  document.m_path = work.m_task.m_givenPath;
  document.m_source = work.m_outcome.m_source;
  document.m_findings = work.m_outcome.m_findings;
  return document;
}

}  // namespace

std::optional<std::string> readInput(Work& work) {
  InputFile input = readInputFile(work.m_task.m_input, work.m_request.m_limits.get(Limit::Input));
  if (!input.m_problem.has_value()) return std::move(input.m_bytes);
  tell(work, std::move(*input.m_problem));
  return {};
}

void limitBySize(Work const& work, std::uint64_t inputBytes) {
  if (work.m_hooks.m_onInput) work.m_hooks.m_onInput(inputBytes);
  Limits const& limits = work.m_request.m_limits;
  work.m_results.limit(limits.getOutput(inputBytes), limits.get(Limit::OutputFile));
}

Document openInput(Work& work) {
  std::optional<std::string> bytes = readInput(work);
  if (!bytes.has_value()) return makeUnread(work);
  OpenLimits limits = makeOpenLimits(work.m_request.m_limits);
  limits.m_onInput = [&work](std::uint64_t size) { limitBySize(work, size); };
  Document document = readDocument(std::move(*bytes), work.m_task.m_givenPath, limits);
  document.m_source.m_path = work.m_task.m_path;
  work.m_outcome.m_source = document.m_source;
  tell(work, document.m_findings);
  work.m_outcome.m_views = describeViews(document);
  return document;
}

}  // namespace qvToolkit
