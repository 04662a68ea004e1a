#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "annotationLegacy/qvAnnotationView.h"

namespace qvToolkit {

/// An annotation on a walk through a view.
struct WalkedAnnotation {
  qvLegacy::qvAnnotationInterface const* m_annotation;  ///< null for an empty entry or node
  std::string const& m_address;                         ///< "view/3/annot/7/sub/0"
  std::size_t m_depth;                                  ///< 0 for the view's own annotations
  std::optional<std::uint32_t> m_anchor;  ///< on its parent; none for the view's own annotations
};

/// Calls `visit(WalkedAnnotation const&)` for each annotation of a view, parents before their children, in
/// document order; empty entries included, since they count in the addresses. Depth costs no call stack.
template <class Visit>
void walkAnnotations(qvLegacy::qvAnnotationView const& view, std::string const& viewAddress, Visit visit) {
  using qvLegacy::qvAnnotationInterface;
  struct Level {
    qvAnnotationInterface::SubAnnotList::const_iterator m_next;
    qvAnnotationInterface::SubAnnotList::const_iterator m_end;
    std::size_t m_index;
    std::size_t m_addressLength;
  };
  std::vector<Level> levels;
  std::string address;
  auto const enter = [&](qvAnnotationInterface const* annotation, std::optional<std::uint32_t> anchor) {
    visit(WalkedAnnotation{annotation, address, levels.size(), anchor});
    if (annotation == nullptr) return;
    auto const& children = annotation->getSubAnnots();
    levels.push_back({children.begin(), children.end(), 0, address.size()});
  };
  for (std::size_t i = 0; i < view.m_annotations.size(); ++i) {
    address = viewAddress + "/annot/" + std::to_string(i);
    enter(view.m_annotations[i].get(), std::nullopt);
    while (!levels.empty()) {
      Level& level = levels.back();
      address.resize(level.m_addressLength);
      if (level.m_next == level.m_end) {
        levels.pop_back();
        continue;
      }
      address += "/sub/" + std::to_string(level.m_index++);
      qvAnnotationInterface::SubAnnot const& node = *level.m_next++;
      enter(node.m_annot.get(), node.m_anchor);
    }
  }
}

}  // namespace qvToolkit
