// With the toolkit: lists every text of a document of either encoding with its address:
// listTexts examples/label_tree_6.27.json

#include <iostream>
#include <string>

#include "annotationLegacy/qvAnnotationText.h"
#include "qvToolkit/model/annotationWalk.h"
#include "qvToolkit/reading/openDocument.h"
#include "qvToolkit/text/textEscape.h"
#include "qvToolkit/work/session.h"

void showText(qvToolkit::WalkedAnnotation const& place) {
  auto const* const text = dynamic_cast<qvLegacy::qvAnnotationText const*>(place.m_annotation);
  if (text == nullptr) return;  // an image, or an empty entry
  std::string content;
  text->toString(content);
  std::cout << place.m_address.getText() << ": " << qvToolkit::escapeTerminal(content) << '\n';
}

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: listTexts DOCUMENT\n";
    return qvToolkit::ExitUsage;
  }
  qvToolkit::Session const session;  // documents are gone before it
  qvToolkit::Document const document = qvToolkit::openDocument(argv[1]);
  for (qvToolkit::Finding const& finding : document.m_findings)
    std::cerr << formatFinding(argv[1], finding) << '\n';
  walkAnnotations(document, showText);
  return getFailure(document);
}
