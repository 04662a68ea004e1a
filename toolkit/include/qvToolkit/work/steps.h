#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "qvToolkit/export.h"
#include "qvToolkit/outcome/outcome.h"
#include "qvToolkit/outcome/request.h"
#include "qvToolkit/pages/pageConverter.h"
#include "qvToolkit/reports/reportList.h"
#include "qvToolkit/work/results.h"
#include "qvToolkit/work/session.h"
#include "qvToolkit/work/task.h"

namespace qvToolkit {

/// What the work on one input asks of the memory that its program counts; each may be empty.
struct MemoryHooks {
  /// The input has that many bytes, which are in memory by now, and what memory the rest may take follows.
  std::function<void(std::uint64_t inputBytes)> m_onInput;
  std::function<MemoryLeft()> m_getLeft;  ///< for a program that converts pages
};

/// Does what a request asks for with one input: opens it, and then migrates, draws, encodes, moves, dumps or
/// reports it.
/// @code
/// Request request;
/// request.m_action = Action::Migrate;
/// request.m_rasterFolder = "rasters";
/// Session session(makeSessionOptions(request));
/// std::FILE* const file = std::fopen("image_sheet.json", "r");
/// MemoryResults results;
/// Outcome const outcome = performRequest(session, request, {"image_sheet.json", "image_sheet.json",
///                                                           "image_sheet", fileno(file)}, results);
/// std::fclose(file);
/// assert(outcome.m_conclusion == ExitDone);
/// assert(results.getFiles()[1].m_name == "image_sheet.migrated.json");
/// @endcode
/// The session must be one of `makeSessionOptions(request)`. `Inspect`, `Dump` and `Fonts` print, the others
/// write files: `Migrate` a page for each view that could be migrated, and the model behind them. Nothing is
/// opened by a name but images beneath the session's folder. One migrated view is in memory at a time.
///
/// Of the outcome's outputs only the names are told, in the order of the files: sizes and hashes are up to
/// who makes them appear, which is only right where the conclusion is at most `ExitFindings`. With `m_asJson`
/// the text is one entry of the list that the client writes; without any text there `formatFailedEntry` gives
/// it.
///
/// Throws what the hooks, the sinks and the log throw; memory that runs out is an outcome.
QVT_EXPORT Outcome performRequest(Session& session, Request const& request, Task const& task,
                                  Results& results, MemoryHooks const& hooks = {});

/// The list that the entries of a request with `m_asJson` stand in.
QVT_EXPORT ReportList makeReportList(Request const& request);

/// The entry of that list for an input that no work came to its end with: it cannot be opened, memory ran
/// out, a process died. Source and findings are the outcome's.
QVT_EXPORT std::string formatFailedEntry(Request const& request, Outcome const& outcome,
                                         OptionSpelling spelling = nullptr);

}  // namespace qvToolkit
