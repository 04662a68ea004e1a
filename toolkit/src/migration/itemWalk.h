#pragma once

#include <optional>

#include "qvSvg/node.h"
#include "qvToolkit/migration/migrationSession.h"

namespace qvToolkit {

/// Walks an item of a migrated view and what lies in it, parents before their children, in list order; empty
/// entries are passed over.
///
/// `visitor.enter(item, context)` gets what its parent handed down, and returns what the item hands to its
/// own children; nothing when they are not to be visited. Of a group whose children were,
/// `visitor.leave(item)` is told behind the last one.
template <class Visitor, class Context>
void walkItems(qv::svg::ItemInterface const& item, Visitor& visitor, Context const& context) {
  std::optional<Context> const inner = visitor.enter(item, context);
  if (!inner.has_value() || item.getKind() != qv::svg::ItemKind::Node) return;
  for (auto const& child : static_cast<qv::svg::Node const&>(item).getChildren()) {
    if (child != nullptr) walkItems(*child, visitor, *inner);
  }
  visitor.leave(item);
}

/// The annotation whose content the item is the root of; null for any other item.
inline AnnotationMark const* findMark(AnnotationMarks const& marks, qv::svg::ItemInterface const* item) {
  if (item == nullptr || item->getKind() != qv::svg::ItemKind::Node) return nullptr;
  auto const mark = marks.find(static_cast<qv::svg::Node const*>(item));
  return mark == marks.end() ? nullptr : &mark->second;
}

}  // namespace qvToolkit
