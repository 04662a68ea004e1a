// Loads an object stream and migrates its views; rasters come from a folder:
// migrateStream examples/binary/image_sheet_6.27.qvs examples/rasters

#include <cstddef>
#include <iostream>
#include <string>
#include <vector>

#include "annotationLegacy/library.h"
#include "annotationLegacy/qvAnnotationMetaData.h"
#include "annotationLegacy/qvAnnotationMigration.h"
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

void migrate(std::vector<qv::qvPointer<qvLegacy::qvAnnotationView>> const& views, std::string& folder) {
  qvLegacy::qvAnnotationMigration migration(qvLegacy::qvAnnotationMigration::DropViewMetadata, fetchRaster,
                                            &folder, /*headSize*/ 3.0F);
  for (auto const& view : views) {
    qv::qvPointer<qv::qvCadAnnotationView> cad;
    if (migration.migrateAnnotationView(view, cad)) {
      std::cout << cad->GetName() << ": " << cad->m_annotations.size() << " annotations\n";
    } else if (view != nullptr) {
      std::cout << view->GetName() << ": not migrated, the log says why\n";
    }
  }
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
  {
    qv::qvLoadedDocument const document = qv::LoadObjectStream(bytes);
    for (auto const& problem : document.m_problems) std::cerr << problem.m_text << '\n';
    for (auto const& entry : document.m_objects) {
      if (auto* metadata = dynamic_cast<qvLegacy::qvAnnotationMetaData*>(entry.m_object.get()))
        migrate(metadata->getViews(), folder);
    }
  }  // no object may outlive the library
  qv::terminateQvAnnotationLegacyLibrary();
}
