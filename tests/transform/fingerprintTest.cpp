// One number over the bits of many results: it must come out the same with every compiler and at every
// optimisation.

#include "tests/transform/transformTesting.h"

namespace transformTest {

namespace {

/// FNV-1a over the bits of numbers, all NaN being one.
class Fingerprint {
 public:
  template <class Real>
  void add(Real number) {
    auto const word = static_cast<std::uint64_t>(bits(std::isnan(number) ? nan<Real> : number));
    for (int shift = 0; shift < 64; shift += 8) {
      m_hash = (m_hash ^ (word >> shift & 0xFF)) * 0x100000001B3;
    }
  }
  template <class Real>
  void add(Vector<Real> const& v) {
    for (std::size_t i = 0; i < 3; ++i) add(v[i]);
  }
  template <class Real>
  void add(Transformation<Real> const& t) {
    for (std::size_t i = 0; i < 9; ++i) add(t.m_matrix.data()[i]);
    add(t.m_translate);
    add(t.m_scale);
    add(Real(4 * t.m_isIdentity + 2 * t.m_isRSMatrix + t.m_isUniformScale));
  }

  std::uint64_t value() const { return m_hash; }

 private:
  std::uint64_t m_hash = 0xCBF29CE484222325;
};

template <class Real>
void addMaps(Fingerprint& print, Transformation<Real> const& t, Random& random) {
  std::vector<Vector<Real>> points(23);
  for (auto& p : points) p = randomVector<Real>(random);
  print.add(t.ApplyForward(points[0], true));
  print.add(t.ApplyInverse(points[1], true));
  print.add(t.ApplyNormal(points[2]));
  auto const plane = t.ApplyForward(Wm4::Plane3<Real>(points[3], points[4].X()));
  print.add(plane.Normal);
  print.add(plane.Constant);
  print.add(t.GetNorm());
  t.ApplyForward(23, points.data(), points.data(), true);
  t.ApplyInverse(17, points.data(), points.data());
  for (auto const& p : points) print.add(p);
}

template <class Real>
std::uint64_t fingerprintOfManyResults() {
  Fingerprint print;
  Random random(61);
  for (int round = 0; round < 200; ++round) {
    auto const kinds = oneOfEachKind<Real>(random);
    for (auto const& a : kinds) {
      addMaps(print, a, random);
      Transformation<Real> result;
      a.Inverse(result);
      print.add(result);
      Wm4::Matrix4<Real> homogeneous;
      a.GetHomogeneous(homogeneous);
      result.FromHomogeneousMatrix(homogeneous, true);
      print.add(result);
      for (auto const& b : kinds) {
        result.Product(a, b);
        print.add(result);
      }
    }
  }
  return print.value();
}

}  // namespace

TEST(TransformationFingerprint, IsTheSameWithEveryCompiler) {
  EXPECT_EQ(fingerprintOfManyResults<float>(), 6044872701160988982U);
  EXPECT_EQ(fingerprintOfManyResults<double>(), 7911092320109633573U);
}

}  // namespace transformTest
