#include "qvToolkit/model/treeLimits.h"

#include <algorithm>
#include <limits>
#include <unordered_map>
#include <utility>
#include <vector>

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;

/// An annotation with everything below it.
struct TreeSize {
  std::uint64_t m_depth = 0;  ///< levels below it
  std::uint64_t m_nodes = 1;

  void addChild(TreeSize const& child) {
    m_depth = std::max(m_depth, child.m_depth + 1);
    // Saturates: forty levels of two shared children are more than 64 bits of nodes soon.
    bool const fits = m_nodes <= std::numeric_limits<std::uint64_t>::max() - child.m_nodes;
    m_nodes = fits ? m_nodes + child.m_nodes : std::numeric_limits<std::uint64_t>::max();
  }
};

/// Measures trees bottom-up and remembers what may be met again.
class TreeMeasure {
 public:
  explicit TreeMeasure(TreeLimits const& limits) : m_limits(limits) {}

  TreeSize measure(qvAnnotationInterface const& root) {
    enter(root);
    for (;;) {
      Level& level = m_levels.back();
      if (level.m_next != level.m_end && !exceeds(level.m_size)) {
        step(level);
        continue;
      }
      TreeSize const size = leave();
      if (m_levels.empty()) return size;
      m_levels.back().m_size.addChild(size);
    }
  }
  bool exceeds(TreeSize const& size) const {
    return size.m_depth > m_limits.m_maxDepth || size.m_nodes > m_limits.m_maxNodes;
  }

 private:
  using Children = qvAnnotationInterface::SubAnnotList;
  struct Level {
    qvAnnotationInterface const* m_annotation;
    Children::const_iterator m_next;
    Children::const_iterator m_end;
    TreeSize m_size;
  };

  void enter(qvAnnotationInterface const& annotation) {
    Children const& children = annotation.getSubAnnots();
    m_levels.push_back({&annotation, children.begin(), children.end(), {}});
  }

  void step(Level& level) {
    qvAnnotationInterface const* const child = (level.m_next++)->m_annot.get();
    if (child == nullptr) return;
    auto const known = m_shared.find(child);
    if (known != m_shared.end()) return level.m_size.addChild(known->second);
    // Deep enough to be refused: what is below need not be known.
    if (m_levels.size() > m_limits.m_maxDepth) return level.m_size.addChild({});
    enter(*child);
  }

  TreeSize leave() {
    Level const level = m_levels.back();
    m_levels.pop_back();
    if (level.m_annotation->GetReferences() > 1) m_shared.emplace(level.m_annotation, level.m_size);
    return level.m_size;
  }

  TreeLimits const& m_limits;
  std::vector<Level> m_levels;
  std::unordered_map<qvAnnotationInterface const*, TreeSize> m_shared;
};

Finding refuseDepth(Address const& address, TreeLimits const& limits) {
  return makeFinding(
      FindingCode::LimitDepth,
      "its sub-annotations are nested more than " + std::to_string(limits.m_maxDepth) + " levels deep",
      address.getText());
}

Finding refuseNodes(Address const& address, TreeLimits const& limits) {
  return makeFinding(FindingCode::LimitNodes,
                     "it has more than " + std::to_string(limits.m_maxNodes) + " annotations at all levels",
                     address.getText());
}

}  // namespace

std::optional<Finding> checkTrees(qvLegacy::qvAnnotationView const& view, Address const& address,
                                  TreeLimits const& limits) {
  TreeMeasure trees(limits);
  TreeSize all{0, 0};
  for (std::size_t i = 0; i < view.m_annotations.size(); ++i) {
    if (view.m_annotations[i] == nullptr) continue;
    TreeSize const size = trees.measure(*view.m_annotations[i]);
    if (size.m_depth > limits.m_maxDepth) return refuseDepth(address.getChild(i), limits);
    all.addChild(size);
    if (all.m_nodes > limits.m_maxNodes) return refuseNodes(address, limits);
  }
  return std::nullopt;
}

std::optional<Finding> checkTrees(Document const& document, TreeLimits const& limits) {
  for (std::size_t i = 0; i < document.m_views.size(); ++i) {
    if (document.m_views[i].m_view == nullptr) continue;
    auto problem = checkTrees(*document.m_views[i].m_view, Address::ofView(i), limits);
    if (problem.has_value()) return problem;
  }
  return std::nullopt;
}

}  // namespace qvToolkit
