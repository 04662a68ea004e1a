// Lists every text of a document with its address: listTexts examples/label_tree_6.27.json

#include <cstddef>
#include <iostream>
#include <string>
#include <vector>

#include "annotationLegacy/iterateOverAnnotationTree.h"
#include "annotationLegacy/library.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "qvToolkit/reading/openDocument.h"
#include "qvToolkit/text/textEscape.h"

using qvLegacy::qvAnnotationInterface;

/// Prints texts and keeps the address of the node that the walk is in.
class TextLister : public qvLegacy::annotation::IterateOverAnnotationTreeFunctorInterface {
 public:
  explicit TextLister(std::string viewAddress) : m_path{{std::move(viewAddress), 0}} {}

  void startProcessingAnnot(qvAnnotationInterface::SubAnnot const& node, bool isRoot) override {
    Level& parent = m_path.back();
    m_path.push_back(
        {parent.m_address + (isRoot ? "/annot/" : "/sub/") + std::to_string(parent.m_next++), 0});
    if (node.m_annot->m_type != qvAnnotationInterface::Text) return;
    std::string text;
    static_cast<qvLegacy::qvAnnotationText const&>(*node.m_annot).toString(text);
    std::cout << m_path.back().m_address << ": " << qvToolkit::escapeTerminal(text) << '\n';
  }
  void endProcessingAnnot(qvAnnotationInterface::SubAnnot const&, bool) override { m_path.pop_back(); }

 private:
  struct Level {
    std::string m_address;
    std::size_t m_next;
  };
  std::vector<Level> m_path;
};

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: listTexts DOCUMENT\n";
    return qvToolkit::ExitUsage;
  }
  qv::initializeQvAnnotationLegacyLibrary();
  qvToolkit::Document document = qvToolkit::openDocument(argv[1]);
  for (qvToolkit::Finding const& finding : document.m_findings) {
    std::cerr << formatFinding(argv[1], finding) << '\n';
  }
  for (std::size_t i = 0; i < document.m_views.size(); ++i) {
    auto const& view = document.m_views[i].m_view;
    if (view != nullptr)
      TextLister("view/" + std::to_string(i)).iterateOverAnnotationTree(view->m_annotations);
  }
  qvToolkit::ExitCode const failure = qvToolkit::getFailure(document);
  document = {};  // no annotation may outlive the library
  qv::terminateQvAnnotationLegacyLibrary();
  return failure;
}
