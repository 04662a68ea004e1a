// A host outside the project: loads an object stream, moves its views, migrates them and checks what comes
// out. It sees nothing but the public headers. Usage: host DOCUMENT.qvs

#include <annotationLegacy/library.h>
#include <annotationLegacy/qvAnnotationMigration.h>
#include <annotationLegacy/qvAnnotationView.h>
#include <qvAnnotation/qvCadAnnotation.h>
#include <qvAnnotation/qvCadAnnotationView.h>
#include <qvSystem/qvFileStream.h>
#include <qvSystem/qvStreamReader.h>
#include <transform/qvGenericTransformation.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace {

void require(bool holds, std::string const& what) {
  if (holds) return;
  std::cerr << "host: " << what << '\n';
  std::exit(1);
}

std::vector<std::byte> readDocument(std::string const& path) {
  constexpr std::uint64_t MaxBytes = 1 << 20;
  std::vector<std::byte> bytes;
  std::string const problem = qv::ReadWholeFile(path, MaxBytes, bytes);
  require(problem.empty(), problem);
  return bytes;
}

void moveView(qvLegacy::qvAnnotationView& view) {
  Wm4::Vector3<float> const before = view.m_planeOrigin;
  qv::qvGenericTransformation<float> transformation;
  transformation.SetTranslate(Wm4::Vector3<float>(1.0F, 2.0F, 3.0F));
  view.transform(transformation);
  require(view.m_planeOrigin[2] == before[2] + 3.0F, "the plane did not move");
}

qv::qvPointer<qv::qvCadAnnotationView> migrate(qv::qvPointer<qvLegacy::qvAnnotationView> const& view) {
  using qvLegacy::qvAnnotationMigration;
  constexpr int DropAll = qvAnnotationMigration::DropViewMetadata | qvAnnotationMigration::DropKnownMetadata |
                          qvAnnotationMigration::DropUnknownMetadata;
  qvAnnotationMigration migration(DropAll, nullptr, nullptr, 3.0F);
  qv::qvPointer<qv::qvCadAnnotationView> cad;
  require(migration.migrateAnnotationView(view, cad), "'" + view->GetName() + "' is not migrated");
  require(cad->m_annotations.size() == view->m_annotations.size(), "annotations got lost");
  for (auto const& annotation : cad->m_annotations) {
    require(annotation->m_svgRoot != nullptr, "an annotation has no content");
  }
  return cad;
}

int work(std::string const& path) {
  int count = 0;
  qv::qvLoadedDocument const document = qv::LoadObjectStream(readDocument(path));
  require(document.m_problems.empty(), "the document has problems");
  for (qv::qvLoadedObject const& object : document.m_objects) {
    auto* const view = dynamic_cast<qvLegacy::qvAnnotationView*>(object.m_object.get());
    if (view == nullptr) continue;
    moveView(*view);
    std::cout << migrate(view)->GetName() << '\n';
    ++count;
  }
  return count;
}

}  // namespace

int main(int count, char** arguments) {
  require(count == 2, "usage: host DOCUMENT.qvs");
  qv::initializeQvAnnotationLegacyLibrary();
  int const views = work(arguments[1]);
  qv::terminateQvAnnotationLegacyLibrary();
  std::cout << "host: moved and migrated " << views << " views\n";
}
