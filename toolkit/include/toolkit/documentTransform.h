#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "toolkit/document.h"
#include "transform/qvGenericTransformation.h"

namespace qvToolkit {

/// Moves a whole document: the plane of each view and all its annotations, children included, by the same
/// transformation. An object that the document holds several times is moved once.
///
/// The position of a free child is an offset from its parent, so it moves as a vector; all other points move
/// with the translation. Text heights and raster sizes stay.
void transformDocument(Document& document, qv::qvGenericTransformation<float> const& transformation);

/// Ways to name a transformation.
enum class TransformKind {
  Matrix,     ///< 12 numbers, the upper three rows of a 4x4 matrix for column vectors, or all 16
  Translate,  ///< 3 numbers
  Scale,      ///< 1 number for all axes, or 3
  Rotate,     ///< an axis x, y or z and an angle in degrees, counter-clockwise seen from the axis' tip
};

/// Reads a transformation from its words. Quarter turns are exact. Returns what is wrong with the words, the
/// empty string when nothing is.
std::string readTransform(TransformKind kind, std::vector<std::string> const& words,
                          qv::qvGenericTransformation<float>& transformation);

}  // namespace qvToolkit
