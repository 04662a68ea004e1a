// The loops for each kind of processor against one point at a time, both ways of storing.

#include "transform/kernels.h"

#include "tests/transform/transformTesting.h"

namespace transformTest {

using qv::transform::Kernels;
using qv::transform::StoreWay;

template <class Real>
class TransformationKernels : public ::testing::Test {
 protected:
  static std::vector<Real> mixedNumbers(Random& random, std::size_t count) {
    std::vector<Real> const special = specialNumbers<Real>();
    std::vector<Real> numbers(count);
    for (Real& n : numbers) {
      n = random() % 4 == 0 ? special[random() % special.size()] : number<Real>(random, -1000, 1000);
    }
    return numbers;
  }

  template <class Formula>
  static std::vector<Real> mappedOneByOne(Formula const& formula, std::vector<Real> numbers) {
    for (std::size_t i = 0; i + 2 < numbers.size(); i += 3)
      formula(numbers[i], numbers[i + 1], numbers[i + 2]);
    return numbers;
  }

  /// Output at every offset of a number from an alignment of 64 bytes.
  template <class Formula>
  static void expectEqualsPoints(Kernels<Real> const& kernels, Formula const& formula, StoreWay way) {
    Random random(31);
    constexpr std::size_t offsets = 64 / sizeof(Real);
    constexpr std::size_t most = 160;  // beyond the count from which outputs are aligned first
    for (std::size_t count = 0; count <= most; ++count) {
      auto const in = mixedNumbers(random, 3 * count);
      auto const expected = mappedOneByOne(formula, in);
      std::size_t const offset = random() % offsets;
      alignas(64) Real out[3 * most + offsets + 1];
      out[offset + 3 * count] = Real(42);
      kernels.of(formula)(formula, count, in.data(), out + offset, way);
      ASSERT_EQ(out[offset + 3 * count], Real(42)) << "written beyond the end";
      for (std::size_t i = 0; i < 3 * count; ++i) {
        ASSERT_TRUE(sameNumber(out[offset + i], expected[i]))
            << "number " << i << " of " << count << " points";
      }
    }
  }

  static void expectEveryFormulaEqualsPoints(Kernels<Real> const& kernels) {
    using namespace qv::transform;
    Random random(32);
    Scale<Real> const scale(randomVector<Real>(random));
    Multiply<Real> const multiply(randomMatrix<Real>(random));
    Add<Real> const add(randomVector<Real>(random));
    Subtract<Real> const subtract(randomVector<Real>(random));
    Divide<Real> const divide(randomVector<Real>(random));
    for (StoreWay const way : {StoreWay::cached, StoreWay::streamed}) {
      for (int round = 0; round < 20; ++round) {
        expectEqualsPoints(kernels, Chain{scale, multiply}, way);
        expectEqualsPoints(kernels, Chain{scale, multiply, add}, way);
        expectEqualsPoints(kernels, Chain{multiply}, way);
        expectEqualsPoints(kernels, Chain{multiply, add}, way);
        expectEqualsPoints(kernels, Chain{subtract, multiply, scale}, way);
        expectEqualsPoints(kernels, Chain{subtract, multiply, divide}, way);
        expectEqualsPoints(kernels, Chain{subtract, multiply}, way);
      }
    }
  }
};
TYPED_TEST_SUITE(TransformationKernels, Precisions);

TYPED_TEST(TransformationKernels, OfTheBaselineEqualThePointForm) {
  this->expectEveryFormulaEqualsPoints(qv::transform::Baseline<TypeParam>::kernels);
}

TYPED_TEST(TransformationKernels, OfAvx2EqualThePointForm) {
  if (!__builtin_cpu_supports("avx2")) GTEST_SKIP() << "this processor has no AVX2";
  this->expectEveryFormulaEqualsPoints(qv::transform::Avx2<TypeParam>::kernels);
}

}  // namespace transformTest
