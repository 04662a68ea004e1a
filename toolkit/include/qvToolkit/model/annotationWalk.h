#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "annotationLegacy/qvAnnotationView.h"
#include "qvToolkit/findings/address.h"
#include "qvToolkit/model/document.h"

namespace qvToolkit {

/// An annotation on a walk through a view; valid for the time of the visit.
struct WalkedAnnotation {
  qvLegacy::qvAnnotationInterface const* m_annotation;  ///< null for an empty entry or node
  Address const& m_address;                             ///< as findings spell it
  std::size_t m_depth;                                  ///< 0 for the view's own annotations
  std::optional<std::uint32_t> m_anchor;  ///< on its parent; none for the view's own annotations
};

/// Calls `visit(WalkedAnnotation const&)` for each annotation of a view, parents before their children, in
/// document order; empty entries included, since they count in the addresses. `viewAddress` begins them.
/// @code
/// Document const document = openDocument("bracket.json");
/// auto const show = [](WalkedAnnotation const& place) {
///   if (place.m_annotation == nullptr) return;  // an empty entry
///   std::cout << place.m_address.getText() << ": " << place.m_annotation->GetName() << '\n';
/// };
/// walkAnnotations(document, show);
/// walkAnnotations(*document.m_views[0].m_view, Address::ofView(0), show);  // of one view only
/// @endcode
/// An annotation that several share is visited at each place. Depth costs no call stack; what `visit` throws
/// ends the walk and propagates.
template <class Visit>
void walkAnnotations(qvLegacy::qvAnnotationView const& view, Address const& viewAddress, Visit visit) {
  using qvLegacy::qvAnnotationInterface;
  struct Level {
    qvAnnotationInterface::SubAnnotList::const_iterator m_next;
    qvAnnotationInterface::SubAnnotList::const_iterator m_end;
    std::size_t m_index;
  };
  std::vector<Level> levels;
  Address address = viewAddress;
  /// The address is that of the annotation until its children are through.
  auto const enter = [&](qvAnnotationInterface const* annotation, std::optional<std::uint32_t> anchor,
                         std::size_t index) {
    address.enter(index);
    visit(WalkedAnnotation{annotation, address, levels.size(), anchor});
    if (annotation == nullptr) return address.leave();
    auto const& children = annotation->getSubAnnots();
    levels.push_back({children.begin(), children.end(), 0});
  };
  for (std::size_t i = 0; i < view.m_annotations.size(); ++i) {
    enter(view.m_annotations[i].get(), std::nullopt, i);
    while (!levels.empty()) {
      Level& level = levels.back();
      if (level.m_next == level.m_end) {
        levels.pop_back();
        address.leave();
        continue;
      }
      qvAnnotationInterface::SubAnnot const& node = *level.m_next++;
      enter(node.m_annot.get(), node.m_anchor, level.m_index++);
    }
  }
}

/// The same for all views of a document, in order; those that the reader refused are passed over.
template <class Visit>
void walkAnnotations(Document const& document, Visit visit) {
  for (std::size_t i = 0; i < document.m_views.size(); ++i) {
    auto const& view = document.m_views[i].m_view;
    if (view != nullptr) walkAnnotations(*view, Address::ofView(i), visit);
  }
}

}  // namespace qvToolkit
