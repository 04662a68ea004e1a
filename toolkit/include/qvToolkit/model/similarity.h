#pragma once

#include <string>

#include "annotationLegacy/platform.h"
#include "qvToolkit/export.h"

namespace qvToolkit {

/// A turn about the origin, then one scale for all axes, then a move: what keeps the shape of a drawing.
/// @code
/// Similarity twice;
/// assert(takeApart({2, 0, 0, 0, 2, 0, 0, 0, 2}, twice).empty() && twice.m_scale == 2);
/// assert(!takeApart({-1, 0, 0, 0, 1, 0, 0, 0, 1}, twice).empty());  // mirrors
/// @endcode
/// The point p of model space becomes scale * (rotation * p) + translation. The identity by default.
struct Similarity {
  Wm4::Matrix3<double> m_rotation = Wm4::Matrix3<double>::IDENTITY;  ///< orthonormal, determinant 1
  double m_scale = 1;                                                ///< from `MinScale` to `MaxScale`
  Wm4::Vector3<double> m_translation = Wm4::Vector3<double>::ZERO;   ///< finite, in units of the model
};

/// Scales below are mistakes, and leave too little of single precision.
inline constexpr double MinScale = 1e-12;
/// Scales above are so, too.
inline constexpr double MaxScale = 1e12;
/// How far a number of a matrix may lie from those of the turn times scale that it stands for, as a part of
/// the scale. Seven significant digits are near enough.
inline constexpr double MatrixTolerance = 3e-6;

/// What is wrong with one scale for all axes, such as a NaN or one beyond the limits; the empty string when
/// nothing is.
QVT_EXPORT std::string checkScale(double scale);

/// Takes a linear part for column vectors apart into rotation and scale; the translation stays as it is. What
/// is no proper turn times one positive scale, to `MatrixTolerance`, is refused: returns whether it is
/// singular, mirrors, scales the axes differently or shears, and what to give instead; `similarity` stays as
/// it was then.
QVT_EXPORT std::string takeApart(Wm4::Matrix3<double> const& linear, Similarity& similarity);

}  // namespace qvToolkit
