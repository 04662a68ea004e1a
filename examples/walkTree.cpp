// Reads a view from a variant map and walks its annotation trees: walkTree

#include <cstddef>
#include <iostream>
#include <string>
#include <vector>

#include "annotationLegacy/iterateOverAnnotationTree.h"
#include "annotationLegacy/library.h"
#include "annotationLegacy/qvAnnotationView.h"

using Map = qv::qvVariant::qvVariantMapImpl;
using List = qv::qvVariant::qvVariantListImpl;

/// Prints each annotation's name, indented by its level, with its place on its parent.
class Outline : public qvLegacy::annotation::IterateOverAnnotationTreeFunctorInterface {
 public:
  void startProcessingAnnot(qvLegacy::qvAnnotationInterface::SubAnnot const& node, bool isRoot) override {
    std::cout << std::string(2 * m_level++, ' ') << node.m_annot->GetName();
    if (!isRoot) std::cout << " at anchor " << node.m_anchor;
    std::cout << '\n';
  }
  void endProcessingAnnot(qvLegacy::qvAnnotationInterface::SubAnnot const&, bool) override { --m_level; }

 private:
  std::size_t m_level = 0;
};

Map makeViewMap() {
  Map const finish{{"type", "text"}, {"name", "finish"}, {"text", "Ra 3.2"}, {"anchorloc", "bc"}};
  Map const size{{"type", "text"}, {"name", "size"}, {"text", "M8"}, {"anchorloc", "tl"}};
  Map const note{{"type", "text"},
                 {"name", "note"},
                 {"text", "drill"},
                 {"color", "green"},
                 {"children", List{size, finish}}};
  return {{"ver", "6.27"},
          {"name", "Top"},
          {"metadata", Map{}},
          {"annotations", List{note, Map{{"type", "sound"}}}}};
}

void work() {
  std::vector<std::string> problems;
  auto const view = qvLegacy::qvAnnotationView::FromVariantMap(makeViewMap(), problems);
  for (std::string const& problem : problems) std::cout << "problem: " << problem << '\n';
  if (view == nullptr) return;
  Outline().iterateOverAnnotationTree(view->m_annotations);
  unsigned int count = 0;
  qvLegacy::annotation::CountAnnotationFunctor(count).iterateOverAnnotationTree(view->m_annotations);
  std::cout << count << " annotations\n";
}

int main() {
  qv::initializeQvAnnotationLegacyLibrary();
  work();
  qv::terminateQvAnnotationLegacyLibrary();
}
