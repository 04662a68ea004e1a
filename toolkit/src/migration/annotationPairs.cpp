#include "migration/annotationPairs.h"

#include <algorithm>

#include "qvToolkit/model/annotationWalk.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;

std::size_t countChildren(qvAnnotationInterface const& annotation) {
  auto const& children = annotation.getSubAnnots();
  auto const isPresent = [](qvAnnotationInterface::SubAnnot const& child) {
    return child.m_annot != nullptr;
  };
  return static_cast<std::size_t>(std::count_if(children.begin(), children.end(), isPresent));
}

/// The content of an annotation's sub-annotations. The migration appends it, in list order, behind everything
/// else of their parent.
class ChildRoots {
 public:
  ChildRoots(qvAnnotationInterface const& annotation, qv::svg::Node const* root) : m_root(root) {
    std::size_t const items = root == nullptr ? 0 : root->getChildren().size();
    m_next = items - std::min(items, countChildren(annotation));
  }

  /// Of the next child; null when it has none.
  qv::svg::Node const* take() {
    std::size_t const item = m_next++;
    if (m_root == nullptr || item >= m_root->getChildren().size()) return nullptr;
    return dynamic_cast<qv::svg::Node const*>(m_root->getChildren()[item].get());
  }

 private:
  qv::svg::Node const* m_root;
  std::size_t m_next;
};

}  // namespace

std::vector<AnnotationPair> pairAnnotations(qvLegacy::qvAnnotationView const& legacy,
                                            qv::qvCadAnnotationView const& migrated,
                                            Address const& viewAddress) {
  std::vector<AnnotationPair> pairs;
  std::vector<ChildRoots> parents;  // of the annotation at hand, outermost first
  qv::qvCadAnnotation const* cad = nullptr;
  auto next = migrated.m_annotations.begin();
  walkAnnotations(legacy, viewAddress, [&](WalkedAnnotation const& walked) {
    if (walked.m_annotation == nullptr) return;
    bool const isTop = walked.m_depth == 0;
    if (isTop) cad = next == migrated.m_annotations.end() ? nullptr : (next++)->get();
    if (cad == nullptr) return;
    parents.erase(parents.begin() + static_cast<std::ptrdiff_t>(walked.m_depth), parents.end());
    qv::svg::Node const* const root = isTop ? cad->m_svgRoot.get() : parents.back().take();
    parents.emplace_back(*walked.m_annotation, root);
    pairs.push_back({walked.m_annotation, root, cad, walked.m_depth, walked.m_address.getText()});
  });
  return pairs;
}

}  // namespace qvToolkit
