#pragma once

#include <string>
#include <vector>

#include "qvToolkit/export.h"
#include "qvToolkit/model/document.h"
#include "qvToolkit/model/similarity.h"

namespace qvToolkit {

/// What became of a document that was to be moved.
struct TransformOutcome {
  bool m_isMoved = true;  ///< false: the document is as it was
  Findings m_findings;    ///< why it was not moved, or what stayed where or as large as it was
};

/// Moves a whole document in model space: what has a place of its own comes to lie where the transformation
/// puts that place, as the plane transforms of the views tell before and after.
/// @code
/// Document document = openDocument("bracket.json");
/// Similarity lift;
/// std::string const problem = readTransform(TransformKind::Translate, {"0", "0", "100"}, lift);
/// assert(problem.empty() && transformDocument(document, lift).m_isMoved);
/// @endcode
/// - A plane takes turn and move: its origin becomes the origin's image; normal and X axis are turned and not
///   scaled. That holds for planes that are no frames, too, such as one without normal or with a skew X axis.
///   A plane with a number that is not finite stays as it is, which is an error finding.
/// - Positions are coordinates in their view's plane, so nothing but the scale reaches them, z included:
///   those of the view's annotations, offsets of free children from their parents, ends of leaders, measured
///   points and the offsets of measure leaders. What is not finite stays so.
/// - Texts, images, frames and heads keep their size, and an anchored child its place at its parent; its
///   stored position places nothing and stays. An info finding says so when the scale is not 1.
///
/// A view or an annotation that the document holds several times is moved once. When a number would leave
/// single precision nothing is moved, and an error finding names one such place. Computed in double precision
/// and rounded once. Takes time and memory in proportion to the annotations, and no call stack for depth.
QVT_EXPORT TransformOutcome transformDocument(Document& document, Similarity const& transformation);

/// Ways to name a transformation.
enum class TransformKind {
  Matrix,     ///< 12 numbers, the upper three rows of a 4x4 matrix for column vectors, or all 16
  Translate,  ///< 3 numbers, in units of the model
  Scale,      ///< 1 number for all axes
  Rotate,     ///< an axis x, y or z and an angle in degrees, counter-clockwise seen from the axis' tip
};

/// Reads a transformation from its words, in which numbers have a decimal point in every locale. Quarter
/// turns are exact. Returns what is wrong with the words, and what to write instead; the empty string when
/// nothing is. `transformation` stays as it was when something is.
QVT_EXPORT std::string readTransform(TransformKind kind, std::vector<std::string> const& words,
                                     Similarity& transformation);

}  // namespace qvToolkit
