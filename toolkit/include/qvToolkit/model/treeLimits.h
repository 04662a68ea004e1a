#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "annotationLegacy/qvAnnotationView.h"
#include "qvToolkit/findings/address.h"
#include "qvToolkit/findings/finding.h"
#include "qvToolkit/model/document.h"

namespace qvToolkit {

/// What the annotation trees of a view may be, so that it is copied, migrated, moved or written. These go
/// down each path of a tree by recursion; reading and looking at a document do not, and take any tree.
struct TreeLimits {
  /// Levels of sub-annotations: common readers of XML refuse a page beyond 256 nested groups.
  std::uint64_t m_maxDepth = 200;
  /// Annotations at all levels; one that several share counts once for each.
  std::uint64_t m_maxNodes = 10'000'000;
};

/// Why the view is refused; nothing when it is not. `address` is the view's. Each annotation is looked at
/// once, however many share it, and the look costs no call stack.
std::optional<Finding> checkTrees(qvLegacy::qvAnnotationView const& view, Address const& address,
                                  TreeLimits const& limits);
/// The first refusal among the views of a document.
std::optional<Finding> checkTrees(Document const& document, TreeLimits const& limits);

}  // namespace qvToolkit
