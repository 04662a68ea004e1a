#include "modelChecks.h"

#include <algorithm>
#include <string_view>

#include "annotationLegacy/qvAnnotationText.h"
#include "json/jsonReader.h"
#include "qvToolkit/json/jsonWriter.h"
#include "qvToolkit/model/treeLimits.h"
#include "qvToolkit/reports/inspection.h"
#include "qvToolkit/reports/legacyJson.h"
#include "qvToolkit/stream/streamEncoder.h"
#include "target.h"
#include "tests/support/modelComparison.h"

namespace qvFuzz {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationText;
using qvLegacy::qvAnnotationView;
using qvStreamTest::findDifference;

constexpr std::size_t MaxContainers = 1000;

/// Texts that a copy does not keep as they are: it ends each run at its first zero character, and a run that
/// holds no character before has no text then.
bool isCutByCopying(qvAnnotationText::TextSegment const& run) {
  if (run.m_text == nullptr) return false;
  return run.m_length == 0 ||
         std::string_view(run.getText(), run.m_length).find('\0') != std::string_view::npos;
}

bool isCutByCopying(qvAnnotationInterface const& annotation) {
  auto const isCut = [](auto const& node) {
    return node.m_annot != nullptr && isCutByCopying(*node.m_annot);
  };
  if (std::ranges::any_of(annotation.getSubAnnots(), isCut)) return true;
  auto const* const text = dynamic_cast<qvAnnotationText const*>(&annotation);
  if (text == nullptr) return false;
  return std::ranges::any_of(text->m_lines, [](qvAnnotationText::Line const& line) {
    return std::ranges::any_of(line, [](auto const& run) { return isCutByCopying(run); });
  });
}

/// Besides, an annotation of no kind is dropped.
bool isChangedByCopying(qvAnnotationView const& view) {
  return std::ranges::any_of(view.m_annotations, [](auto const& annotation) {
    if (annotation == nullptr) return false;
    return annotation->m_type == qvAnnotationInterface::Unknown || isCutByCopying(*annotation);
  });
}

bool isWritable(qvToolkit::Document const& document, std::uint32_t version) {
  return version >= qvToolkit::getOldestWritableVersion() &&
         version <= qvToolkit::getNewestWritableVersion() && !qvToolkit::checkTrees(document, {}).has_value();
}

std::string describeFirst(qvToolkit::Findings const& findings) {
  return findings.empty() ? std::string() : qvToolkit::formatFinding("input", findings.front());
}

}  // namespace

qvToolkit::Document makeDocument(qv::qvPointer<qvAnnotationView> const& view) {
  qvToolkit::Document document;
  document.m_format = qvToolkit::Format::ObjectStream;
  qvToolkit::LoadedView& loaded = document.m_views.emplace_back();
  loaded.m_view = view;
  loaded.m_name = view->m_name;
  return document;
}

void requireEqualCopies(qvAnnotationView const& view) {
  qv::qvPointer<qvAnnotationView> const copy = new qvAnnotationView(view);
  qv::qvPointer<qvAnnotationView> const second = new qvAnnotationView(*copy);
  requireNone(findDifference(*second, *copy), "a copy of a copy equals it");
  if (!isChangedByCopying(view)) requireNone(findDifference(*copy, view), "a copy equals its source");
}

void requireRoundTrip(qvToolkit::Document const& document, std::uint32_t version, bool isLossless) {
  if (!isWritable(document, version)) return;
  qvToolkit::EncodedDocument const encoded = qvToolkit::encodeDocument(document, {version, false});
  if (isLossless) requireNone(describeFirst(encoded.m_findings), "nothing is lost");
  if (!encoded.m_findings.empty()) return;
  qvToolkit::Document const back = qvToolkit::readDocument(encoded.m_bytes, "input");
  // Opening copes with exhausted memory by itself.
  if (MemoryFaults::haveStruck()) return;
  requireNone(document.m_views.empty() ? std::string() : describeFirst(back.m_findings),
              "what was written reads without a finding");
  require(back.m_views.size() == document.m_views.size(), "all views come back");
  for (std::size_t i = 0; i < back.m_views.size(); ++i) {
    requireNone(findDifference(*back.m_views[i].m_view, *document.m_views[i].m_view),
                "a view comes back the same");
  }
  require(qvToolkit::encodeDocument(back, {version, false}).m_bytes == encoded.m_bytes,
          "what came back is written the same");
}

void requireReports(qvToolkit::Document const& document) {
  qvToolkit::Inspection const inspection = qvToolkit::inspectDocument(document);
  requirePrintable(qvToolkit::formatInspection(inspection));
  for (qvToolkit::Finding const& finding : document.m_findings) {
    requirePrintable(qvToolkit::formatFinding("input", finding));
  }
  requireJson(qvToolkit::formatInspectionsJson({inspection}));
  qvToolkit::JsonWriter json;
  qvToolkit::writeLegacyDocument(json, document);
  requireJson(json.takeText());
}

void requireJson(std::string text) {
  qvToolkit::JsonReading const reading = qvToolkit::readJson(text, MaxContainers);
  requireNone(describeFirst(reading.m_findings), "JSON is well-formed");
}

}  // namespace qvFuzz
