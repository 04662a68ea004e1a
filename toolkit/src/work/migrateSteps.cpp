#include <utility>

#include "qvToolkit/files/outputSet.h"
#include "qvToolkit/findings/address.h"
#include "qvToolkit/pages/svgPage.h"
#include "qvToolkit/reports/fontCollector.h"
#include "qvToolkit/reports/migratedJson.h"
#include "work/modelSpool.h"
#include "work/work.h"

namespace qvToolkit {

namespace {

/// Each view makes a file, and files cost more than the few bytes that an empty view takes in a document.
bool admitViews(Work& work, Document const& document) {
  std::uint64_t const limit = work.m_request.m_limits.get(Limit::Views);
  std::size_t const count = document.m_views.size();
  if (count <= limit) return true;
  tell(work, makeFinding(FindingCode::LimitViews,
                         "it has " + std::to_string(count) + " views, more than the limit of " +
                             std::to_string(limit) + "; nothing is migrated",
                         Address::ofView(limit).getText()));
  return false;
}

PageConversion makeConversion(Work const& work) {
  return {work.m_request.m_pageFormat, work.m_request.m_resolution, work.m_hooks.m_getLeft};
}

/// Writes page and model of one view after the other.
class ViewWriter {
 public:
  ViewWriter(Work& work, Document const& document, MigrationOptions const& options)
      : m_work(work),
        m_document(document),
        m_converter(makeConversion(work), work.m_session.getFonts()),
        m_spool(work.m_request.m_limits.get(Limit::OutputFile)),
        m_model(m_spool, toJsonStyle(work.m_request.m_isPretty)),
        m_fonts(work.m_session.getFontHashes()) {
    m_model.begin(document, options);
  }

  /// False when it is all in vain.
  [[nodiscard]] bool take(MigratedView const& view) {
    ViewOutcome& outcome = m_work.m_outcome.m_views[view.m_index];
    outcome.m_isMigrated = view.m_view != nullptr;
    if (view.m_sameAs.has_value()) outcome.m_sameAs = Address::ofView(*view.m_sameAs).getText();
    if (view.m_view != nullptr && !writePage(view, outcome.m_page)) return false;
    m_model.addView(m_document.m_views[view.m_index], view, outcome.m_page);
    m_fonts.add(view);
    return true;
  }

  void finish() {
    if (m_hasFailed || !writeModel())
      fail(m_work,
           m_converter.findProblem().value_or(m_spool.findProblem().value_or(m_work.m_results.getProblem())));
  }

 private:
  bool writePage(MigratedView const& view, std::string& name) {
    name = getPageName(m_work.m_task.m_stem, view.m_index, getFormatText(m_work.m_request.m_pageFormat));
    m_hasFailed = !beginFile(m_work, name) || !drawPage(view);
    return !m_hasFailed;
  }

  bool drawPage(MigratedView const& view) {
    Request const& request = m_work.m_request;
    OutputSink& file = m_work.m_results.getFile();
    if (request.m_pageFormat == PageFormat::Svg) {
      tell(m_work, writeSvgPage(view, file, request.m_textMode));
      // What a sink has not taken it does not take later, either.
      return file.write({});
    }
    TextSink page;
    tell(m_work, writeSvgPage(view, page, request.m_textMode));
    return m_converter.convert(page.m_text, file);
  }

  bool writeModel() {
    FontReport const fonts = m_fonts.makeReport();
    // A spool that takes no more knows why, or is copied for the results to refuse it.
    static_cast<void>(m_model.finish(fonts, m_work.m_outcome.m_findings, m_work.m_session.getSpelling()));
    tell(m_work, fonts);
    return !m_spool.findProblem().has_value() && beginFile(m_work, getModelName(m_work.m_task.m_stem)) &&
           m_spool.copyTo(m_work.m_results.getFile());
  }

  Work& m_work;
  Document const& m_document;
  PageConverter m_converter;
  ModelSpool m_spool;
  MigratedJson m_model;
  FontCollector m_fonts;
  bool m_hasFailed = false;
};

}  // namespace

MigrationOptions makeMigrationOptions(Work const& work) {
  MigrationOptions options;
  options.m_dropped = work.m_request.m_dropped;
  options.m_headSize = work.m_request.m_headSize;
  options.m_rasters = work.m_session.getRasters();
  options.m_trees = makeTreeLimits(work.m_request.m_limits);
  options.m_fonts = work.m_session.getFonts();
  return options;
}

void migrate(Work& work) {
  Document const document = openInput(work);
  if (document.m_views.empty() || !admitViews(work, document)) return;
  MigrationOptions const options = makeMigrationOptions(work);
  ViewWriter writer(work, document, options);
  MigrationSession migration(options, [&work](Finding finding) { tell(work, std::move(finding)); });
  migration.migrate(document, [&writer](MigratedView const& view) { return writer.take(view); });
  writer.finish();
}

}  // namespace qvToolkit
