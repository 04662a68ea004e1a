#include "migration/annotationPairs.h"

#include <algorithm>
#include <memory>

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

/// Pairs one tree. The migration appends the content of the sub-annotations, in list order, behind everything
/// else of their parent.
class TreeWalk {
 public:
  explicit TreeWalk(std::vector<AnnotationPair>& pairs) : m_pairs(pairs) {}

  void visit(AnnotationPair const& pair) {
    m_pairs.push_back(pair);
    std::size_t const count = countChildren(*pair.m_legacy);
    std::size_t const items = pair.m_root == nullptr ? 0 : pair.m_root->getChildren().size();
    std::size_t item = items - std::min(items, count);
    std::size_t index = 0;
    for (auto const& child : pair.m_legacy->getSubAnnots()) {
      std::string address = pair.m_address + "/sub/" + std::to_string(index++);
      if (child.m_annot == nullptr) continue;
      visit({child.m_annot, getNode(pair.m_root, item++), pair.m_cad, pair.m_depth + 1, std::move(address)});
    }
  }

 private:
  static qv::svg::Node const* getNode(qv::svg::Node const* parent, std::size_t index) {
    if (parent == nullptr || index >= parent->getChildren().size()) return nullptr;
    return dynamic_cast<qv::svg::Node const*>(parent->getChildren()[index].get());
  }

  std::vector<AnnotationPair>& m_pairs;
};

}  // namespace

std::vector<AnnotationPair> pairAnnotations(qvLegacy::qvAnnotationView const& legacy,
                                            qv::qvCadAnnotationView const& migrated,
                                            std::string const& viewAddress) {
  std::vector<AnnotationPair> pairs;
  TreeWalk walk(pairs);
  auto cad = migrated.m_annotations.begin();
  for (std::size_t i = 0; i < legacy.m_annotations.size() && cad != migrated.m_annotations.end(); ++i) {
    if (legacy.m_annotations[i] == nullptr) continue;
    walk.visit({legacy.m_annotations[i], (*cad)->m_svgRoot.get(), cad->get(), 0,
                viewAddress + "/annot/" + std::to_string(i)});
    ++cad;
  }
  return pairs;
}

}  // namespace qvToolkit
