// The layout is part of the binary interface: hosts read and write the fields.

#include <cstddef>
#include <cstring>
#include <type_traits>

#include "tests/transform/transformTesting.h"

namespace transformTest {

namespace {

template <class Real>
constexpr bool fieldsStandInTheStatedOrder() {
  using T = Transformation<Real>;
  constexpr std::size_t size = sizeof(Real);
  return offsetof(T, m_matrix) == 0 && offsetof(T, m_translate) == 9 * size &&
         offsetof(T, m_scale) == 12 * size && offsetof(T, m_isIdentity) == 15 * size &&
         offsetof(T, m_isRSMatrix) == 15 * size + 1 && offsetof(T, m_isUniformScale) == 15 * size + 2 &&
         sizeof(T) == 16 * size;
}

template <class T>
constexpr bool isAPlainValue =
    std::is_standard_layout_v<T>&& std::is_trivially_copyable_v<T>&& std::is_trivially_destructible_v<T> &&
    !std::is_polymorphic_v<T>;

static_assert(fieldsStandInTheStatedOrder<float>());
static_assert(fieldsStandInTheStatedOrder<double>());
static_assert(isAPlainValue<Transformation<float>>);
static_assert(isAPlainValue<Transformation<double>>);

}  // namespace

TEST(TransformationLayout, ReadsAsFifteenNumbersAndThreeBytes) {
  Transformation<float> t = scaling<float>(5, 6, 7, {2.0F, 3.0F, 4.0F});
  float const* const numbers = t.m_matrix.data();
  float raw[15];
  std::memcpy(raw, static_cast<void const*>(&t), sizeof raw);
  EXPECT_EQ(raw[0], numbers[0]);
  EXPECT_EQ(raw[9], 2.0F);
  EXPECT_EQ(raw[11], 4.0F);
  EXPECT_EQ(raw[12], 5.0F);
  EXPECT_EQ(raw[14], 7.0F);
  unsigned char flags[3];
  std::memcpy(flags, reinterpret_cast<unsigned char const*>(&t) + 60, sizeof flags);
  EXPECT_EQ(flags[0], 0);
  EXPECT_EQ(flags[1], 1);
  EXPECT_EQ(flags[2], 0);
}

}  // namespace transformTest
