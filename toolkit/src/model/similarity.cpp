#include "qvToolkit/model/similarity.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace qvToolkit {

namespace {

using Matrix = Wm4::Matrix3<double>;
using Vector = Wm4::Vector3<double>;
using Columns = std::array<Vector, 3>;

/// Below it the volume that is left of a unit cube is rounding.
constexpr double SingularVolume = 1e-6;

constexpr char const* Instead = "; give a turn times one positive scale, with at least seven digits";

/// Digits enough to show what is beyond the tolerance.
std::string toText(double number) {
  std::array<char, 32> digits{};
  auto const result =
      std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::general, 7);
  return {digits.data(), result.ptr};
}

double getLength(Vector const& v) {
  return std::sqrt(v.SquaredLength());
}

Columns getColumns(Matrix const& matrix) {
  return {matrix.column(0), matrix.column(1), matrix.column(2)};
}

double getDeterminant(Columns const& columns) {
  return columns[0].Dot(columns[1].Cross(columns[2]));
}

Vector getLengths(Columns const& columns) {
  return {getLength(columns[0]), getLength(columns[1]), getLength(columns[2])};
}

bool isSingular(Columns const& columns) {
  Vector const lengths = getLengths(columns);
  // Written so that what is not a number is singular.
  return !(std::abs(getDeterminant(columns)) > SingularVolume * lengths[0] * lengths[1] * lengths[2]);
}

bool isPerpendicular(Vector const& a, Vector const& b) {
  return std::abs(a.Dot(b)) <= 2 * MatrixTolerance * getLength(a) * getLength(b);
}

bool areAtRightAngles(Columns const& columns) {
  return isPerpendicular(columns[0], columns[1]) && isPerpendicular(columns[1], columns[2]) &&
         isPerpendicular(columns[2], columns[0]);
}

/// The turn that keeps the first column's direction and the plane of the first two.
Matrix makeRotation(Columns const& columns) {
  Vector const x = columns[0] * (1 / getLength(columns[0]));
  Vector const across = x.Cross(columns[1]);
  Vector const z = across * (1 / getLength(across));
  Vector const y = z.Cross(x);
  return {x[0], y[0], z[0], x[1], y[1], z[1], x[2], y[2], z[2]};
}

/// The scale that brings the rotation nearest to the columns.
double getScale(Columns const& columns, Matrix const& rotation) {
  double sum = 0;
  for (std::size_t i = 0; i < 3; ++i) sum += columns[i].Dot(rotation.column(i));
  return sum / 3;
}

bool isNear(Matrix const& linear, Matrix const& rotation, double scale) {
  return std::equal(linear.data(), linear.data() + 9, rotation.data(), [scale](double entry, double turned) {
    return std::abs(entry - scale * turned) <= MatrixTolerance * scale;
  });
}

/// Stretched before or after a turn, a cube keeps right angles among columns or among rows.
std::string nameUnevenness(Matrix const& linear) {
  for (Columns const& axes : {getColumns(linear), getColumns(linear.Transpose())}) {
    if (!areAtRightAngles(axes)) continue;
    Vector const lengths = getLengths(axes);
    return "the matrix scales non-uniformly, by " + toText(lengths[0]) + ", " + toText(lengths[1]) + " and " +
           toText(lengths[2]) + " along its axes, but texts and planes have one scale" + Instead;
  }
  return std::string("the matrix shears: right angles do not stay right") + Instead;
}

}  // namespace

std::string checkScale(double scale) {
  if (scale >= MinScale && scale <= MaxScale) return {};
  return "the scale " + toText(scale) + " is out of range; it goes from 1e-12 to 1e+12";
}

std::string takeApart(Matrix const& linear, Similarity& similarity) {
  Columns const columns = getColumns(linear);
  if (isSingular(columns)) return std::string("the matrix is singular: it flattens the model") + Instead;
  double const determinant = getDeterminant(columns);
  if (determinant < 0) {
    return "the matrix mirrors (its determinant is " + toText(determinant) +
           "), but texts and planes cannot be mirrored; to see them from behind, turn by 180 degrees";
  }
  Matrix const rotation = makeRotation(columns);
  // A scale of 1 first: a matrix of few digits stands for a mere turn.
  for (double const scale : {1.0, getScale(columns, rotation)}) {
    if (!isNear(linear, rotation, scale)) continue;
    std::string problem = checkScale(scale);
    if (!problem.empty()) return problem;
    similarity.m_rotation = rotation;
    similarity.m_scale = scale;
    return {};
  }
  return nameUnevenness(linear);
}

}  // namespace qvToolkit
