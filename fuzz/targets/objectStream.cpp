/// Whole documents in the object stream's own form: opened, shown byte by byte, reported, written again.

#include "qvToolkit/stream/streamDump.h"
#include "support/modelChecks.h"
#include "support/target.h"

namespace qvFuzz {

namespace {

/// The fields cover each byte exactly once, whatever the document is.
void requireFullDump(std::string const& bytes) {
  std::uint64_t next = 0;
  qvToolkit::walkObjectStream(bytes, [&next](qvToolkit::StreamField const& field) {
    require(field.m_offset == next, "each field begins where the one before ends");
    require(field.m_state != qvToolkit::StreamField::State::Absent || field.m_size == 0,
            "an absent field has no bytes");
    requirePrintable(field.m_path);
    requirePrintable(field.m_value);
    next += field.m_size;
  });
  require(next == bytes.size(), "the fields cover all bytes");
}

/// Four bytes of a document can announce a text of megabytes. To show it takes its time, and shows nothing
/// new.
constexpr std::size_t MaxShownBytes = 256 * 1024;

}  // namespace

void runTarget(InputCursor& input) {
  std::size_t const liveBefore = MemoryFaults::getLiveBytes();
  std::string const bytes = input.takeRestAsText();
  requireFullDump(bytes);
  qvToolkit::OpenLimits limits;
  limits.m_maxFailedReads = 2'000;
  qvToolkit::Document const document = qvToolkit::readDocument(bytes, "input", limits);
  require(qvToolkit::getFailure(document) == qvToolkit::ExitDone || document.m_views.empty(),
          "a failure leaves no view");
  if (MemoryFaults::getLiveBytes() - liveBefore <= MaxShownBytes) requireReports(document);
  for (qvToolkit::LoadedView const& loaded : document.m_views) {
    if (loaded.m_view == nullptr) return;
    requireEqualCopies(*loaded.m_view);
  }
  if (document.m_views.empty()) return;
  // A version holds what was read from it.
  requireRoundTrip(document, document.m_views.front().m_version.GetPacked(), document.m_findings.empty());
}

}  // namespace qvFuzz
