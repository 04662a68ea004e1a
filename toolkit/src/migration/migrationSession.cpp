#include "qvToolkit/migration/migrationSession.h"

#include <exception>
#include <map>
#include <string_view>
#include <utility>

#include "images/documentRasters.h"
#include "migration/migrationFindings.h"
#include "migration/migrationRefusal.h"
#include "qvAnnotation/fontOptions.h"
#include "qvToolkit/text/textEscape.h"
#include "rules/migrationMessages.h"

namespace qvToolkit {

namespace {

/// Stands in for the process log while it lives, and keeps the texts.
class MigrationLog : public qv::qvLog {
 public:
  MigrationLog() : m_previous(std::exchange(msInstance, this)) {}
  ~MigrationLog() override { msInstance = m_previous; }

  void Write(LogEntry& entry, bool) override { m_texts.push_back(entry.m_text); }

  std::vector<std::string> m_texts;

 private:
  qv::qvLog* m_previous;
};

/// Answers the library's raster callback. What an image item gets as its data is the name of its raster.
class ImageDelivery {
 public:
  ImageDelivery(DocumentRasters& rasters, MigratedImages& images) : m_rasters(rasters), m_images(images) {}

  /// The callback must not throw: what is thrown inside is kept for `rethrowError`.
  static bool deliver(std::string const& name, std::string& data, void* delivery) noexcept {
    auto& self = *static_cast<ImageDelivery*>(delivery);
    try {
      return self.take(name, data);
    } catch (...) {
      self.m_error = std::current_exception();
      return false;
    }
  }
  void rethrowError() const {
    if (m_error) std::rethrow_exception(m_error);
  }

 private:
  bool take(std::string const& name, std::string& data) {
    Raster const& raster = m_rasters.ask(name);
    if (raster.m_image == nullptr) return false;
    m_images.emplace(name, raster.m_image);
    data = name;
    return true;
  }

  DocumentRasters& m_rasters;
  MigratedImages& m_images;
  std::exception_ptr m_error;
};

void addLogRecords(MigratedView const& view, std::string const& address, FindingList& findings) {
  using qvLegacy::rules::migrationMessages::costOf;
  for (std::string const& text : view.m_log) {
    findings.add(FindingCode::MigrationMessage,
                 costOf(text) == qvLegacy::rules::Cost::Look ? Severity::Warning : Severity::Error, text,
                 address);
  }
}

std::string describeRefusal(LoadedView const& loaded) {
  return loaded.m_messages.empty() ? "the reader refused it"
                                   : "the reader refused it: " + loaded.m_messages.back();
}

void addFailure(MigratedView const& view, std::string const& reason, FindingList& findings,
                std::vector<OptionKey> options = {}) {
  Finding failure = makeFinding(FindingCode::ViewNotMigrated,
                                "view '" + shortenText(view.m_name) + "' is not migrated: " + reason,
                                Address::ofView(view.m_index).getText());
  findings.add(withOptions(std::move(failure), std::move(options)));
}

/// Names the options that the view's metadata need, even where something else failed first.
void addRefusal(MigratedView const& view, Refusal const& refusal, std::vector<OptionKey> options,
                FindingList& findings) {
  std::string reason = refusal.m_reason;
  if (!refusal.m_place.empty()) reason += ", at " + refusal.m_place;
  if (!options.empty()) {
    reason += refusal.m_isMetadata ? "; it can be dropped" : "; its metadata need to be dropped, too";
  }
  addFailure(view, reason, findings, std::move(options));
}

/// The log says only that an annotation could not be migrated.
void reportMissedFonts(std::string const& address, FindingList& findings) {
  if (!qv::text::hasMissedEveryFont()) return;
  findings.add(
      FindingCode::FontNone,
      "there is no font to draw text with; install the package fonts-liberation2, or name a folder that "
      "has fonts",
      address);
}

void addLosses(qvLegacy::qvAnnotationView const& legacy, MigratedView& view, FindingList& findings) {
  Address const address = Address::ofView(view.m_index);
  auto const pairs = pairAnnotations(legacy, *view.m_view, address);
  for (AnnotationPair const& pair : pairs) {
    if (pair.m_root != nullptr)
      view.m_marks.emplace(pair.m_root, AnnotationMark{pair.m_legacy->GetName(), pair.m_address});
  }
  reportView(legacy, address.getText(), findings);
  for (AnnotationPair const& pair : pairs) {
    reportAnnotation(pair, findings);
    reportText(pair, findings);
    reportLeaders(pair, findings);
    reportContent(pair, view, findings);
  }
}

MigratedView repeatView(LoadedView const& loaded, std::size_t index, std::size_t first) {
  MigratedView view;
  view.m_index = index;
  view.m_name = loaded.m_name;
  view.m_sameAs = first;
  return view;
}

}  // namespace

void MigrationSession::migrate(Document const& document, ViewTaker const& take) {
  DocumentRasters rasters(m_options.m_rasters);
  std::map<qvLegacy::qvAnnotationView const*, std::size_t> known;
  for (std::size_t i = 0; i < document.m_views.size(); ++i) {
    LoadedView const& loaded = document.m_views[i];
    auto const [first, isNew] = known.emplace(loaded.m_view.get(), i);
    bool const isRepeated = loaded.m_view != nullptr && !isNew;
    if (!take(isRepeated ? repeatView(loaded, i, first->second) : migrateView(loaded, i, rasters))) return;
  }
}

std::vector<MigratedView> MigrationSession::migrate(Document const& document) {
  std::vector<MigratedView> views;
  migrate(document, [&views](MigratedView&& view) {
    views.push_back(std::move(view));
    return true;
  });
  return views;
}

MigratedView MigrationSession::migrateView(LoadedView const& loaded, std::size_t index,
                                           DocumentRasters& rasters) {
  MigratedView view;
  view.m_index = index;
  view.m_name = loaded.m_name;
  FindingList findings;
  if (loaded.m_view == nullptr) {
    addFailure(view, describeRefusal(loaded), findings);
  } else if (auto const refusal = checkTrees(*loaded.m_view, Address::ofView(index), m_options.m_trees)) {
    Finding failure = *refusal;
    failure.m_text = "view '" + shortenText(view.m_name) + "' is not migrated: " + refusal->m_text;
    findings.add(std::move(failure));
  } else {
    migrateModel(loaded.m_view, view, rasters, findings);
  }
  if (m_tell) {
    for (Finding& finding : findings.takeFindings()) m_tell(std::move(finding));
  }
  return view;
}

void MigrationSession::migrateModel(qv::qvPointer<qvLegacy::qvAnnotationView> const& legacy,
                                    MigratedView& view, DocumentRasters& rasters, FindingList& findings) {
  MigrationLog log;
  ImageDelivery images(rasters, view.m_images);
  qvLegacy::qvAnnotationMigration migration(m_options.m_dropped, &ImageDelivery::deliver, &images,
                                            m_options.m_headSize);
  static_cast<void>(migration.migrateAnnotationView(legacy, view.m_view));
  view.m_log = std::move(log.m_texts);
  images.rethrowError();
  Address const address = Address::ofView(view.m_index);
  reportRasters(*legacy, address, rasters, findings);
  addLogRecords(view, address.getText(), findings);
  if (view.m_view != nullptr) {
    addLosses(*legacy, view, findings);
  } else {
    view.m_images.clear();
    reportMissedFonts(address.getText(), findings);
    addRefusal(view, explainRefusal({*legacy, address, view.m_log, m_options.m_dropped, rasters}),
               findMissingOptions(*legacy, m_options.m_dropped), findings);
  }
}

}  // namespace qvToolkit
