// Loads an object stream and migrates its views; rasters come from a folder:
// migrateStream examples/binary/image_sheet_6.27.qvs examples/rasters

#include <cstddef>
#include <iostream>
#include <string>
#include <vector>

#include "annotationLegacy/library.h"
#include "annotationLegacy/qvAnnotationMigration.h"
#include "annotationLegacy/qvAnnotationView.h"
#include "qvAnnotation/qvCadAnnotationView.h"
#include "qvSystem/qvFileStream.h"
#include "qvSystem/qvStreamReader.h"

/// The raster callback; the user data is the folder. Names come from documents: none may lead out of it.
bool fetchRaster(std::string const& name, std::string& data, void* userData) {
  if (name.empty() || name == ".." || name.find('/') != std::string::npos) return false;
  std::vector<std::byte> bytes;
  std::string const path = *static_cast<std::string const*>(userData) + "/" + name;
  if (!qv::ReadWholeFile(path, 1 << 24, bytes).empty()) return false;
  data.assign(reinterpret_cast<char const*>(bytes.data()), bytes.size());
  return true;
}

/// False when something could not be read or migrated.
bool migrate(qv::qvLoadedDocument const& document, std::string& folder) {
  qvLegacy::qvAnnotationMigration migration(qvLegacy::qvAnnotationMigration::DropViewMetadata, fetchRaster,
                                            &folder, /*headSize*/ 3.0F);
  for (auto const& problem : document.m_problems) std::cerr << problem.m_text << '\n';
  bool isComplete = document.m_problems.empty();
  for (auto const& entry : document.m_objects) {
    qv::qvPointer<qvLegacy::qvAnnotationView> const view =
        dynamic_cast<qvLegacy::qvAnnotationView*>(entry.m_object.get());
    if (view == nullptr) continue;  // the list of the views, which links to them
    qv::qvPointer<qv::qvCadAnnotationView> cad;
    bool const isMigrated = migration.migrateAnnotationView(view, cad);
    std::cout << view->GetName() << ": ";
    if (isMigrated) std::cout << cad->m_annotations.size() << " annotations\n";
    if (!isMigrated) std::cout << "not migrated, the log says why\n";
    isComplete &= isMigrated;
  }
  return isComplete;
}

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  std::string folder = argv[2];
  std::vector<std::byte> bytes;
  if (std::string const problem = qv::ReadWholeFile(argv[1], 1 << 24, bytes); !problem.empty()) {
    std::cerr << problem << '\n';
    return 1;
  }
  qv::initializeQvAnnotationLegacyLibrary();
  bool const isComplete = migrate(qv::LoadObjectStream(bytes), folder);  // no object outlives this line
  qv::terminateQvAnnotationLegacyLibrary();
  return isComplete ? 0 : 1;
}
