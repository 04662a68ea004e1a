// Values are plain arrays of numbers: hosts and files see them as such.

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <type_traits>

#include <wm4/line2.h>
#include <wm4/math.h>
#include <wm4/matrix3.h>
#include <wm4/matrix4.h>
#include <wm4/plane3.h>
#include <wm4/vector2.h>
#include <wm4/vector3.h>

namespace {

template <class Value, class Real, std::size_t count>
constexpr bool isPlainArray =
    sizeof(Value) == count * sizeof(Real) &&
    alignof(Value) == alignof(Real) && std::is_trivially_copyable_v<Value>&& std::is_standard_layout_v<Value>;

template <class Real>
constexpr bool valuesArePlainArrays() {
  return isPlainArray<Wm4::Vector2<Real>, Real, 2> && isPlainArray<Wm4::Vector3<Real>, Real, 3> &&
         isPlainArray<Wm4::Matrix3<Real>, Real, 9> && isPlainArray<Wm4::Matrix4<Real>, Real, 16> &&
         isPlainArray<Wm4::Line2<Real>, Real, 4> && isPlainArray<Wm4::Plane3<Real>, Real, 4>;
}

static_assert(valuesArePlainArrays<float>());
static_assert(valuesArePlainArrays<double>());
static_assert(isPlainArray<Wm4::Vector3<unsigned char>, unsigned char, 3>, "colours are vectors, too");

static_assert(Wm4::Math<float>::ZERO_TOLERANCE == 1e-6F);
static_assert(Wm4::Math<double>::ZERO_TOLERANCE == 1e-8);
static_assert(Wm4::Math<float>::MAX_REAL == std::numeric_limits<float>::max());
static_assert(Wm4::Math<double>::MAX_REAL == std::numeric_limits<double>::max());
static_assert(Wm4::Math<float>::WM4_PI == 3.14159265358979323846F);
static_assert(Wm4::Math<double>::WM4_PI == 3.14159265358979323846);

}  // namespace

TEST(Wm4Layout, MatricesAreStoredRowByRow) {
  Wm4::Matrix3<float> const m3(0, 1, 2, 3, 4, 5, 6, 7, 8);
  for (std::size_t i = 0; i < 9; ++i) {
    EXPECT_EQ(m3(i / 3, i % 3), static_cast<float>(i));
    EXPECT_EQ(m3.data()[i], static_cast<float>(i));
  }
  Wm4::Matrix4<double> const m4(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
  for (std::size_t i = 0; i < 16; ++i) {
    EXPECT_EQ(m4(i / 4, i % 4), static_cast<double>(i));
    EXPECT_EQ(m4.data()[i], static_cast<double>(i));
  }
}

TEST(Wm4Layout, VectorsAreStoredComponentByComponent) {
  Wm4::Vector3<float> const v(1, 2, 3);
  float const* const numbers = reinterpret_cast<float const*>(&v);
  EXPECT_EQ(numbers[0], v.X());
  EXPECT_EQ(numbers[1], v.Y());
  EXPECT_EQ(numbers[2], v.Z());
}
