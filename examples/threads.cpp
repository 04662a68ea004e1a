// Migrates views on several threads, with one migration object and views of its own on each: threads

#include <array>
#include <cstddef>
#include <iostream>
#include <string>
#include <thread>

#include "annotationLegacy/library.h"
#include "annotationLegacy/qvAnnotationMigration.h"
#include "qvAnnotation/qvCadAnnotationView.h"

constexpr int VIEWS_PER_THREAD = 20;

qv::qvPointer<qvLegacy::qvAnnotationView> makeView(std::string const& name) {
  qv::qvPointer<qvLegacy::qvAnnotationView> view = new qvLegacy::qvAnnotationView;
  view->SetName(name);
  qv::qvPointer<qvLegacy::qvAnnotationText> const text = new qvLegacy::qvAnnotationText;
  text->setText(name);
  view->m_annotations.emplace_back(text.get());
  return view;
}

/// Reference counts are plain numbers: every object here belongs to this thread alone.
int migrateViews(std::size_t thread) {
  qvLegacy::qvAnnotationMigration migration(0, nullptr, nullptr, 3.0F);
  int migrated = 0;
  for (int i = 0; i < VIEWS_PER_THREAD; ++i) {
    auto const view = makeView("thread " + std::to_string(thread) + ", view " + std::to_string(i));
    qv::qvPointer<qv::qvCadAnnotationView> cad;
    if (migration.migrateAnnotationView(view, cad)) ++migrated;
  }
  return migrated;
}

int main() {
  qv::initializeQvAnnotationLegacyLibrary();  // once, before the threads begin
  std::array<int, 4> migrated{};
  {
    std::array<std::jthread, 4> threads;
    for (std::size_t i = 0; i < threads.size(); ++i)
      threads[i] = std::jthread([i, &migrated] { migrated[i] = migrateViews(i); });
  }
  qv::terminateQvAnnotationLegacyLibrary();  // once, after the last one has ended
  for (int const count : migrated) std::cout << count << " views migrated\n";
}
