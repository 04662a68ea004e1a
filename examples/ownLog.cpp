// Installs a log of the host's own and shows what the migration writes to it: ownLog

#include <iostream>
#include <string>
#include <vector>

#include "annotationLegacy/library.h"
#include "annotationLegacy/qvAnnotationMigration.h"
#include "qvAnnotation/qvCadAnnotationView.h"

/// Keeps the texts of errors.
class ErrorList : public qv::qvLog {
 public:
  void Write(LogEntry& entry, bool) override {
    if (entry.m_type == qv::qvLogError) m_texts.push_back(entry.m_text);
  }
  std::vector<std::string> m_texts;
};

/// The process log for as long as it lives; the one before returns afterwards.
class InstalledLog {
 public:
  explicit InstalledLog(qv::qvLog& log) : m_before(qv::qvLog::msInstance) { qv::qvLog::msInstance = &log; }
  ~InstalledLog() { qv::qvLog::msInstance = m_before; }
  InstalledLog(InstalledLog const&) = delete;
  InstalledLog& operator=(InstalledLog const&) = delete;

 private:
  qv::qvLog* m_before;
};

void work() {
  qv::qvPointer<qvLegacy::qvAnnotationView> const view = new qvLegacy::qvAnnotationView;
  view->SetName("Sheet");
  qv::qvPointer<qvLegacy::qvAnnotationRaster> const logo = new qvLegacy::qvAnnotationRaster;
  logo->SetName("logo");
  logo->m_rasterName = "logo.png";
  view->m_annotations.emplace_back(logo.get());

  ErrorList log;
  InstalledLog const installed(log);
  qvLegacy::qvAnnotationMigration migration(0, /*rasterCallback*/ nullptr, nullptr, 3.0F);
  qv::qvPointer<qv::qvCadAnnotationView> cad;
  bool const done = migration.migrateAnnotationView(view, cad);
  std::cout << (done ? "migrated" : "not migrated") << '\n';
  for (std::string const& text : log.m_texts) std::cout << text << '\n';
}

int main() {
  qv::initializeQvAnnotationLegacyLibrary();
  work();
  qv::terminateQvAnnotationLegacyLibrary();
}
