#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "annotationLegacy/qvAnnotationView.h"
#include "qvToolkit/export.h"
#include "qvToolkit/findings/address.h"
#include "qvToolkit/findings/finding.h"
#include "qvToolkit/model/document.h"

namespace qvToolkit {

/// What the annotation trees of a view may be, so that it is copied, migrated or written: copies and
/// migrations go down each path of a tree by recursion, and streams hold a shared annotation at each of its
/// places. Reading and looking at a document take any tree.
/// @code
/// Document const document = openDocument("bracket.json");
/// if (auto const refusal = checkTrees(document, TreeLimits{})) std::cerr << refusal->m_text << '\n';
/// @endcode
struct TreeLimits {
  /// Levels of sub-annotations: common readers of XML refuse a page beyond 256 nested groups.
  std::uint64_t m_maxDepth = 200;
  /// Annotations at all levels; one that several share counts once for each.
  std::uint64_t m_maxNodes = 10'000'000;
};

/// Why the view is refused; nothing when it is not. `address` is the view's, and begins the finding's. Each
/// annotation is looked at once, however many share it, and the look costs no call stack.
QVT_EXPORT std::optional<Finding> checkTrees(qvLegacy::qvAnnotationView const& view, Address const& address,
                                             TreeLimits const& limits);
/// The first refusal among the views of a document; views that the reader refused are passed over.
QVT_EXPORT std::optional<Finding> checkTrees(Document const& document, TreeLimits const& limits);

}  // namespace qvToolkit
