#include "documentSteps.h"

#include <memory>
#include <utility>

#include "annotationLegacy/qvAnnotationMetaData.h"
#include "exampleDocuments.h"
#include "fuzz/support/memoryFaults.h"
#include "qvToolkit/images/rasterFolder.h"
#include "qvToolkit/model/documentTransform.h"
#include "qvToolkit/pages/svgPage.h"
#include "qvToolkit/reports/fontReport.h"
#include "qvToolkit/reports/inspection.h"
#include "qvToolkit/reports/legacyJson.h"
#include "qvToolkit/reports/migratedJson.h"
#include "qvToolkit/stream/streamDump.h"
#include "qvToolkit/stream/streamEncoder.h"

namespace qvFaults {

namespace {

using qvFuzz::FaultPause;
using qvLegacy::qvAnnotationMetaData;
using qvLegacy::qvAnnotationView;
using qvToolkit::Document;
using qvToolkit::MigratedView;
using qvToolkit::MigrationSession;
using qvToolkit::TextMode;

constexpr char const* Path = "document";

/// A document, and what its migration gave.
struct Migrated {
  Migrated(Document const& document, std::string const& rasterFolder)
      : m_document(document),
        m_rasters(rasterFolder),
        m_session(makeOptions(),
                  [this](qvToolkit::Finding finding) { m_findings.push_back(std::move(finding)); }),
        m_views(m_session.migrate(document)) {}

  qvToolkit::MigrationOptions makeOptions() const {
    qvToolkit::MigrationOptions options;
    options.m_rasters = [this](std::string const& name) { return m_rasters.find(name); };
    return options;
  }
  std::string format() const {
    return qvToolkit::formatMigratedDocument(m_document, m_session, m_views,
                                             std::vector<std::string>(m_views.size()), m_findings);
  }

  Document const& m_document;
  qvToolkit::RasterFolder m_rasters;
  qvToolkit::Findings m_findings;
  MigrationSession m_session;
  std::vector<MigratedView> m_views;
};

/// A metadata object of all views of a document.
qv::qvPointer<qvAnnotationMetaData> listViews(Document const& document) {
  qv::qvPointer<qvAnnotationMetaData> metadata(new qvAnnotationMetaData);
  for (auto const& loaded : document.m_views) metadata->m_views.push_back(loaded.m_view);
  return metadata;
}

Document makeDocument(qvAnnotationMetaData const& metadata) {
  Document document;
  for (auto const& view : metadata.m_views) document.m_views.push_back({view, {}, {}, {}});
  return document;
}

StepResult load(std::string const& bytes) {
  Document const document = qvToolkit::readDocument(bytes, Path);
  FaultPause const pause;
  bool const isRefusal = qvToolkit::getFailure(document) == qvToolkit::ExitLimit &&
                         document.m_views.empty() &&
                         document.m_findings.back().m_code == qvToolkit::FindingCode::LimitMemory;
  return {isRefusal ? std::string() : describe(document), isRefusal};
}

StepResult copy(Document const& document) {
  qv::qvPointer<qvAnnotationMetaData> const source = [&] {
    FaultPause const pause;
    return listViews(document);
  }();
  qvAnnotationMetaData const metadata(*source);
  FaultPause const pause;
  return {describe(makeDocument(metadata))};
}

StepResult cloneMetadata(Document const& document) {
  qv::qvPointer<qvAnnotationMetaData> const source = [&] {
    FaultPause const pause;
    return listViews(document);
  }();
  qv::qvRttiInterface* target = nullptr;
  source->Clone(target);
  FaultPause const pause;
  std::unique_ptr<qvAnnotationMetaData> const clone(static_cast<qvAnnotationMetaData*>(target));
  return {describe(makeDocument(*clone))};
}

StepResult cloneAnnotations(Document const& document) {
  std::vector<qv::qvPointer<qvLegacy::qvAnnotationInterface>> clones;
  for (auto const& loaded : document.m_views) {
    for (auto const& annotation : loaded.m_view->m_annotations) {
      qv::qvPointer<qvLegacy::qvAnnotationInterface> const clone(annotation->cloneAnnotation());
      clones.push_back(clone);
    }
  }
  FaultPause const pause;
  qv::qvPointer<qvAnnotationView> const view(new qvAnnotationView);
  view->m_annotations.assign(clones.begin(), clones.end());
  Document result;
  result.m_views.push_back({view, {}, {}, {}});
  return {describe(result)};
}

/// Moves what is there, so each run has a document of its own.
StepResult transform(std::string const& bytes) {
  Document document = [&] {
    FaultPause const pause;
    return qvToolkit::readDocument(bytes, Path);
  }();
  qvToolkit::Similarity transformation;
  static_cast<void>(qvToolkit::readTransform(qvToolkit::TransformKind::Rotate, {"z", "90"}, transformation));
  static_cast<void>(qvToolkit::transformDocument(document, transformation));
  FaultPause const pause;
  return {describe(document)};
}

StepResult writePages(Migrated const& migrated, TextMode mode) {
  TextSink sink;
  for (MigratedView const& view : migrated.m_views) {
    if (view.m_view != nullptr) {
      static_cast<void>(qvToolkit::writeSvgPage(view, sink, mode));
    }
  }
  return {std::move(sink.m_text)};
}

StepResult encode(Document const& document) {
  qvToolkit::EncodedDocument encoded = qvToolkit::encodeDocument(document, {});
  return {std::move(encoded.m_bytes)};
}

StepResult inspect(Document const& document) {
  qvToolkit::Inspection const inspection = qvToolkit::inspectDocument(document);
  std::string text = qvToolkit::formatInspection(inspection);
  text += qvToolkit::formatInspectionsJson({inspection});
  return {std::move(text)};
}

StepResult dump(std::string const& bytes) {
  TextSink sink;
  static_cast<void>(qvToolkit::dumpStream(bytes, {}, [&](std::string_view text) { sink.write(text); }));
  return {std::move(sink.m_text)};
}

StepResult reportFonts(Migrated const& migrated) {
  return {qvToolkit::formatFontReport(migrated.m_document, qvToolkit::reportFonts(migrated.m_views))};
}

}  // namespace

std::string describe(Document const& document) {
  std::string text;
  for (auto const& finding : document.m_findings) text += qvToolkit::formatFinding(Path, finding) + '\n';
  qvToolkit::JsonWriter json;
  qvToolkit::writeLegacyDocument(json, document);
  return text + json.takeText();
}

StepResult migrate(Document const& document, std::string const& rasterFolder) {
  Migrated const migrated(document, rasterFolder);
  FaultPause const pause;
  return {migrated.format()};
}

std::vector<Step> makeSteps(std::string const& bytes) {
  auto const document = std::make_shared<Document const>(qvToolkit::readDocument(bytes, Path));
  auto const migrated = std::make_shared<Migrated const>(*document, getRasterFolder());
  return {{"load", [bytes] { return load(bytes); }},
          {"inspect", [document] { return inspect(*document); }},
          {"dump", [bytes] { return dump(bytes); }},
          {"copy", [document] { return copy(*document); }},
          {"clone", [document] { return cloneMetadata(*document); }},
          {"cloneAnnotations", [document] { return cloneAnnotations(*document); }},
          {"transform", [bytes] { return transform(bytes); }},
          {"encode", [document] { return encode(*document); }},
          {"migrate", [document] { return migrate(*document, getRasterFolder()); }},
          {"livePages", [document, migrated] { return writePages(*migrated, TextMode::Live); }},
          {"outlinePages", [document, migrated] { return writePages(*migrated, TextMode::Outline); }},
          {"model", [document, migrated] { return StepResult{migrated->format()}; }},
          {"fonts", [document, migrated] { return reportFonts(*migrated); }}};
}

}  // namespace qvFaults
