#include "toolkit/migrationSession.h"

#include <map>
#include <utility>

#include "migrationFindings.h"

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

void addLogRecords(MigratedView const& view, std::string const& address, FindingList& findings) {
  Severity const severity = view.m_view == nullptr ? Severity::Error : Severity::Warning;
  for (std::string const& text : view.m_log) {
    findings.add(FindingCode::MigrationMessage, severity, address, text);
  }
}

/// Whether any annotation has more than `limit` levels of sub-annotations. Goes level by level, so that depth
/// costs no stack.
bool isDeeperThan(qvLegacy::qvAnnotationView const& view, std::size_t limit) {
  using Level = std::vector<qvLegacy::qvAnnotationInterface const*>;
  Level level(view.m_annotations.begin(), view.m_annotations.end());
  for (std::size_t depth = 0; depth <= limit; ++depth) {
    Level next;
    for (auto const* annotation : level) {
      if (annotation == nullptr) continue;
      for (auto const& child : annotation->getSubAnnots()) next.push_back(child.m_annot);
    }
    level = std::move(next);
  }
  return !level.empty();
}

/// What stopped the view: the first record, or what the reader said last.
std::string findReason(LoadedView const& loaded, MigratedView const& view) {
  if (loaded.m_view != nullptr && isDeeperThan(*loaded.m_view, MigrationOptions::MaxDepth)) {
    return "its sub-annotations are nested more than 200 levels deep";
  }
  if (!view.m_log.empty()) return view.m_log.front();
  if (loaded.m_view != nullptr) return "the migration gave no reason";
  return loaded.m_messages.empty() ? "the reader refused it"
                                   : "the reader refused it: " + loaded.m_messages.back();
}

void addFailure(LoadedView const& loaded, MigratedView const& view, int dropped, FindingList& findings) {
  std::string text = "view '" + view.m_name + "' is not migrated: " + findReason(loaded, view);
  std::string options =
      loaded.m_view == nullptr ? std::string() : findMissingOptions(*loaded.m_view, dropped);
  if (!options.empty()) text += "; drop it with " + options;
  findings.add(FindingCode::ViewNotMigrated, Severity::Error, getViewAddress(view.m_index), std::move(text),
               std::move(options));
}

void addLosses(qvLegacy::qvAnnotationView const& legacy, RasterFolder const& rasters, MigratedView& view,
               FindingList& findings) {
  std::string const address = getViewAddress(view.m_index);
  auto const pairs = pairAnnotations(legacy, *view.m_view, address);
  for (AnnotationPair const& pair : pairs) {
    if (pair.m_root != nullptr)
      view.m_marks.emplace(pair.m_root, AnnotationMark{pair.m_legacy->GetName(), pair.m_address});
  }
  reportView(legacy, address, findings);
  for (AnnotationPair const& pair : pairs) {
    reportAnnotation(pair, findings);
    reportLeaders(pair, findings);
    reportContent(pair, view.m_marks, rasters, findings);
  }
}

}  // namespace

std::string getViewAddress(std::size_t index) {
  return "view/" + std::to_string(index);
}

MigrationSession::MigrationSession(MigrationOptions options)
    : m_options(std::move(options)), m_rasters(m_options.m_rasterFolder) {
}

std::vector<MigratedView> MigrationSession::migrate(Document const& document) {
  std::vector<MigratedView> views;
  std::map<qvLegacy::qvAnnotationView const*, std::size_t> known;
  for (std::size_t i = 0; i < document.m_views.size(); ++i) {
    LoadedView const& loaded = document.m_views[i];
    auto const [first, isNew] = known.emplace(loaded.m_view.get(), i);
    if (loaded.m_view == nullptr || isNew) {
      views.push_back(migrateView(loaded, i));
      continue;
    }
    MigratedView& repeated = views.emplace_back();
    repeated.m_index = i;
    repeated.m_name = loaded.m_name;
    repeated.m_sameAs = first->second;
  }
  return views;
}

MigratedView MigrationSession::migrateView(LoadedView const& loaded, std::size_t index) {
  MigratedView view;
  view.m_index = index;
  view.m_name = loaded.m_name;
  std::string const address = getViewAddress(index);
  FindingList findings;
  if (loaded.m_view != nullptr && !isDeeperThan(*loaded.m_view, MigrationOptions::MaxDepth)) {
    MigrationLog log;
    qvLegacy::qvAnnotationMigration migration(m_options.m_dropped, &RasterFolder::deliver, &m_rasters,
                                              m_options.m_headSize);
    static_cast<void>(migration.migrateAnnotationView(loaded.m_view, view.m_view));
    view.m_log = std::move(log.m_texts);
    m_rasters.rethrowError();
    reportRasters(*loaded.m_view, address, !m_options.m_rasterFolder.empty(), m_rasters, findings);
  }
  addLogRecords(view, address, findings);
  if (view.m_view == nullptr) {
    addFailure(loaded, view, m_options.m_dropped, findings);
  } else {
    addLosses(*loaded.m_view, m_rasters, view, findings);
  }
  view.m_findings = findings.takeFindings();
  return view;
}

}  // namespace qvToolkit
