/// Sequences of operations on transformations: arrays against points bit for bit, points against the plain
/// formula in a wider type.

#include "transform/qvGenericTransformation.h"

#include <cmath>
#include <limits>
#include <vector>

#include "support/target.h"

namespace qvFuzz {

namespace {

template <class Real>
struct Wider;
template <>
struct Wider<float> {
  using Type = double;
};
template <>
struct Wider<double> {
  using Type = long double;
};

template <class Real>
class Check {
 public:
  explicit Check(InputCursor& input) : m_input(input) {}
  void run();

 private:
  using Transformation = qv::qvGenericTransformation<Real>;
  using Vector = Wm4::Vector3<Real>;
  using Matrix = Wm4::Matrix3<Real>;
  using Wide = typename Wider<Real>::Type;
  using Limits = std::numeric_limits<Real>;

  Real take() { return m_input.takeReal<Real>(); }
  Vector takeVector() { return {take(), take(), take()}; }
  Matrix takeMatrix();
  Matrix takeRotation();
  Transformation& pick() { return m_operands[m_input.takeByte() % m_operands.size()]; }
  void change(Transformation& transformation);
  void compose();
  void takeHomogeneous();
  void useOnce(Transformation const& transformation);
  void checkState(Transformation const& transformation);
  void checkForward(Transformation const& transformation, bool withTranslation);
  void checkInverse(Transformation const& transformation);
  void checkFormula(Transformation const& transformation, Vector const& point, Vector const& result,
                    bool withTranslation);

  InputCursor& m_input;
  std::array<Transformation, 4> m_operands;
  std::vector<Vector> m_points;
};

template <class Real>
bool isSame(Real a, Real b) {
  return a == b ? std::signbit(a) == std::signbit(b) : std::isnan(a) && std::isnan(b);
}

template <class Real>
bool isSame(Wm4::Vector3<Real> const& a, Wm4::Vector3<Real> const& b) {
  return isSame(a[0], b[0]) && isSame(a[1], b[1]) && isSame(a[2], b[2]);
}

template <class Real>
bool isSame(std::vector<Wm4::Vector3<Real>> const& a, std::vector<Wm4::Vector3<Real>> const& b) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (!isSame(a[i], b[i])) return false;
  }
  return a.size() == b.size();
}

template <class Real>
auto Check<Real>::takeMatrix() -> Matrix {
  Matrix matrix;
  for (std::size_t i = 0; i < 9; ++i) matrix.data()[i] = take();
  return matrix;
}

template <class Real>
auto Check<Real>::takeRotation() -> Matrix {
  Real const angle = static_cast<Real>(m_input.takeByte()) / Real(16);
  Real const c = std::cos(angle);
  Real const s = std::sin(angle);
  Matrix const aboutZ(c, -s, 0, s, c, 0, 0, 0, 1);
  Matrix const aboutX(1, 0, 0, 0, c, -s, 0, s, c);
  return m_input.takeFlag() ? aboutZ : aboutX * aboutZ;
}

template <class Real>
void Check<Real>::change(Transformation& transformation) {
  switch (m_input.takeBelow(8)) {
    case 0:
      return transformation.MakeIdentity();
    case 1:
      return transformation.MakeUnitScale();
    case 2:
      return transformation.SetRotate(takeRotation());
    case 3:
      return transformation.SetRotate(takeMatrix());
    case 4:
      return transformation.SetMatrix(takeMatrix());
    case 5:
      return transformation.SetTranslate(takeVector());
    case 6:
      return transformation.SetScale(takeVector());
    default:
      return transformation.SetUniformScale(take());
  }
}

template <class Real>
void Check<Real>::compose() {
  switch (m_input.takeBelow(3)) {
    case 0: {
      // The target may be an operand.
      Transformation const& a = pick();
      Transformation const& b = pick();
      return pick().Product(a, b);
    }
    case 1:
      return pick().Inverse(pick());
    default:
      return takeHomogeneous();
  }
}

template <class Real>
void Check<Real>::takeHomogeneous() {
  Wm4::Matrix4<Real> matrix;
  pick().GetHomogeneous(matrix);
  if (m_input.takeFlag()) matrix(m_input.takeBelow(4), m_input.takeBelow(4)) = take();
  pick().FromHomogeneousMatrix(matrix, m_input.takeFlag());
}

/// What has no counterpart to be held against: it must only come back.
template <class Real>
void Check<Real>::useOnce(Transformation const& transformation) {
  static_cast<void>(transformation.GetNorm());
  static_cast<void>(transformation.IsFinite());
  static_cast<void>(transformation.Equals(pick()));
  static_cast<void>(transformation.ApplyNormal(takeVector()));
  static_cast<void>(transformation.ApplyForward(Wm4::Plane3<Real>(takeVector(), take())));
}

/// The flags are a cache of what the numbers say.
template <class Real>
void Check<Real>::checkState(Transformation const& transformation) {
  Transformation fresh(transformation);
  fresh.recomputeIsIdentity();
  require(fresh.IsIdentity() || !transformation.IsIdentity(), "an identity is one");
  require(transformation.IsRSMatrix() || !transformation.IsUniformScale(),
          "general matrices have no uniform scale");
  require(!transformation.IsFinite() || transformation == transformation, "what is finite equals itself");
}

template <class Real>
void Check<Real>::checkFormula(Transformation const& transformation, Vector const& point,
                               Vector const& result, bool withTranslation) {
  // Beyond it the narrow type overflows in its own ways.
  constexpr Wide Large = static_cast<Wide>(Limits::max()) / 16;
  constexpr Wide Small = static_cast<Wide>(Limits::min());
  for (std::size_t i = 0; i < 3; ++i) {
    Wide sum = withTranslation ? static_cast<Wide>(transformation.GetTranslate()[i]) : Wide(0);
    Wide size = std::abs(sum);
    Wide rounding = Small;
    for (std::size_t j = 0; j < 3; ++j) {
      Wide const entry = static_cast<Wide>(transformation.GetMatrix()(i, j));
      Wide const scale =
          transformation.IsRSMatrix() ? static_cast<Wide>(transformation.GetScale()[j]) : Wide(1);
      Wide const scaled = scale * static_cast<Wide>(point[j]);
      if (!(std::abs(scaled) < Large)) return;
      sum += entry * scaled;
      size += std::abs(entry * scaled);
      rounding += Small * std::abs(entry);
    }
    if (!(size < Large)) return;
    Wide const error = std::abs(static_cast<Wide>(result[i]) - sum);
    require(error <= 16 * static_cast<Wide>(Limits::epsilon()) * size + rounding,
            "a point's image is what the formula says");
  }
}

template <class Real>
void Check<Real>::checkForward(Transformation const& transformation, bool withTranslation) {
  int const count = static_cast<int>(m_points.size());
  std::vector<Vector> images(m_points.size());
  transformation.ApplyForward(count, m_points.data(), images.data(), withTranslation);
  for (std::size_t i = 0; i < m_points.size(); ++i) {
    Vector const image = transformation.ApplyForward(m_points[i], withTranslation);
    require(isSame(images[i], image), "arrays give what points give");
    checkFormula(transformation, m_points[i], image, withTranslation);
  }
  std::vector<Vector> inPlace(m_points);
  transformation.ApplyForward(count, inPlace.data(), inPlace.data(), withTranslation);
  require(isSame(inPlace, images), "in place gives the same");
}

template <class Real>
void Check<Real>::checkInverse(Transformation const& transformation) {
  int const count = static_cast<int>(m_points.size());
  std::vector<Vector> images(m_points.size());
  transformation.ApplyInverse(count, m_points.data(), images.data());
  // The point form alone knows a value for this case.
  bool const isCollapsed = !transformation.IsIdentity() && transformation.IsUniformScale() &&
                           transformation.GetUniformScale() == 0;
  for (std::size_t i = 0; i < m_points.size(); ++i) {
    Vector const image = transformation.ApplyInverse(m_points[i], true);
    require(isCollapsed || isSame(images[i], image), "arrays give what points give");
    require(isSame(transformation.InvertVector(m_points[i]), transformation.ApplyInverse(m_points[i], false)),
            "vectors have no translation");
  }
  std::vector<Vector> inPlace(m_points);
  transformation.ApplyInverse(count, inPlace.data(), inPlace.data());
  require(isSame(inPlace, images), "in place gives the same");
}

template <class Real>
void Check<Real>::run() {
  m_points.resize(m_input.takeBelow(20));
  for (Vector& point : m_points) point = takeVector();
  for (unsigned step = 0; step < 64 && !m_input.isAtEnd(); ++step) {
    if (m_input.takeBelow(3) == 0) {
      compose();
    } else {
      change(pick());
    }
    for (Transformation const& transformation : m_operands) checkState(transformation);
    Transformation const& used = pick();
    checkForward(used, m_input.takeFlag());
    checkInverse(used);
    useOnce(used);
  }
}

}  // namespace

void runTarget(InputCursor& input) {
  if (input.takeFlag()) {
    Check<float>(input).run();
  } else {
    Check<double>(input).run();
  }
}

}  // namespace qvFuzz
