// The array forms against the point forms, which they must equal bit for bit.

#include <climits>
#include <cstring>

#include "tests/transform/transformTesting.h"

namespace transformTest {

/// One of the three array maps, with its point form.
enum class Direction { forward, forwardWithoutTranslation, inverse };
constexpr Direction allDirections[] = {Direction::forward, Direction::forwardWithoutTranslation,
                                       Direction::inverse};

template <class Real>
class TransformationArrayMap : public ::testing::Test {
 protected:
  using T = Transformation<Real>;
  using V = Vector<Real>;

  static void map(T const& t, Direction direction, int count, V const* in, V* out) {
    if (direction == Direction::inverse) {
      t.ApplyInverse(count, in, out);
    } else {
      t.ApplyForward(count, in, out, direction == Direction::forward);
    }
  }

  static V mapPoint(T const& t, Direction direction, V const& p) {
    return direction == Direction::inverse ? t.ApplyInverse(p, true)
                                           : t.ApplyForward(p, direction == Direction::forward);
  }

  /// Random points among which about one number in four is special.
  static std::vector<V> mixedPoints(Random& random, std::size_t count) {
    std::vector<Real> const special = specialNumbers<Real>();
    std::vector<V> points(count);
    for (V& p : points) {
      for (std::size_t i = 0; i < 3; ++i) {
        p[i] = random() % 4 == 0 ? special[random() % special.size()] : number<Real>(random, -1000, 1000);
      }
    }
    return points;
  }

  static void expectSame(std::vector<V> const& actual, std::vector<V> const& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i) {
      ASSERT_TRUE(sameVector(actual[i], expected[i])) << "point " << i << " of " << actual.size();
    }
  }

  static std::vector<V> mappedOneByOne(T const& t, Direction direction, std::vector<V> const& points) {
    std::vector<V> mapped;
    for (V const& p : points) mapped.push_back(mapPoint(t, direction, p));
    return mapped;
  }

  void expectArrayEqualsPoints(T const& t, std::vector<V> const& points) {
    for (Direction const direction : allDirections) {
      std::vector<V> out(points.size());
      map(t, direction, static_cast<int>(points.size()), points.data(), out.data());
      expectSame(out, mappedOneByOne(t, direction, points));
    }
  }

  Random random{21};
};
TYPED_TEST_SUITE(TransformationArrayMap, Precisions);

TYPED_TEST(TransformationArrayMap, EqualsThePointFormForEveryCountUpTo67) {
  for (int round = 0; round < 8; ++round) {
    for (auto const& t : oneOfEachKind<TypeParam>(this->random)) {
      for (std::size_t count = 0; count <= 67; ++count) {
        this->expectArrayEqualsPoints(t, this->mixedPoints(this->random, count));
      }
    }
  }
}

TYPED_TEST(TransformationArrayMap, EqualsThePointFormOverAMillionPoints) {
  for (auto const& t : oneOfEachKind<TypeParam>(this->random)) {
    this->expectArrayEqualsPoints(t, this->mixedPoints(this->random, 160'000));
  }
}

TYPED_TEST(TransformationArrayMap, EqualsThePointFormForOutputsLargerThanTheCaches) {
  constexpr int count = 3'500'000;
  auto const t = rotation<TypeParam>(randomRotation<TypeParam>(this->random), 3, vector<TypeParam>(1, 2, 3));
  std::vector<Vector<TypeParam>> in(count);
  for (auto& p : in) p = randomVector<TypeParam>(this->random);
  std::vector<Vector<TypeParam>> out(count);
  t.ApplyForward(count, in.data(), out.data(), true);
  for (std::size_t i = 0; i < in.size(); ++i)
    ASSERT_TRUE(sameVector(out[i], t.ApplyForward(in[i], true))) << i;
  t.ApplyForward(count, in.data(), in.data(), true);
  EXPECT_EQ(std::memcmp(in.data(), out.data(), in.size() * sizeof(in[0])), 0) << "in place";
}

TYPED_TEST(TransformationArrayMap, EqualsThePointFormForSpecialOperands) {
  auto const special = specialNumbers<TypeParam>();
  auto const points = this->mixedPoints(this->random, 64);
  for (int round = 0; round < 400; ++round) {
    for (auto t : oneOfEachKind<TypeParam>(this->random)) {
      TypeParam const number = special[this->random() % special.size()];
      std::size_t const field = this->random() % 15;
      if (field < 9)
        t.m_matrix.data()[field] = number;
      else if (field < 12)
        t.m_translate[field - 9] = number;
      else
        t.m_scale[field - 12] = number;
      if (t.m_isRSMatrix && t.m_isUniformScale && t.m_scale[0] == TypeParam(0)) t.m_scale[0] = TypeParam(1);
      t.recomputeIsIdentity();
      this->expectArrayEqualsPoints(t, points);
    }
  }
}

TYPED_TEST(TransformationArrayMap, EqualsThePointFormAtEveryAlignment) {
  auto const points = this->mixedPoints(this->random, 67);
  constexpr std::size_t most = 64 / sizeof(TypeParam);
  alignas(64) TypeParam in[3 * 67 + most];
  alignas(64) TypeParam out[3 * 67 + most];
  for (auto const& t : oneOfEachKind<TypeParam>(this->random)) {
    auto const expected = this->mappedOneByOne(t, Direction::forward, points);
    for (std::size_t from = 0; from < most; ++from) {
      for (std::size_t to = 0; to < most; ++to) {
        std::memcpy(in + from, points.data(), sizeof(TypeParam) * 3 * 67);
        auto const* const source = reinterpret_cast<Vector<TypeParam> const*>(in + from);
        auto* const target = reinterpret_cast<Vector<TypeParam>*>(out + to);
        t.ApplyForward(67, source, target, true);
        this->expectSame({target, target + 67}, expected);
      }
    }
  }
}

TYPED_TEST(TransformationArrayMap, MapsInPlace) {
  for (auto const& t : oneOfEachKind<TypeParam>(this->random)) {
    for (std::size_t count = 0; count <= 67; ++count) {
      for (Direction const direction : allDirections) {
        auto points = this->mixedPoints(this->random, count);
        auto const expected = this->mappedOneByOne(t, direction, points);
        this->map(t, direction, static_cast<int>(count), points.data(), points.data());
        this->expectSame(points, expected);
      }
    }
  }
}

TYPED_TEST(TransformationArrayMap, TreatsPartialOverlapAsAnAscendingLoop) {
  constexpr std::ptrdiff_t count = 40;
  constexpr std::ptrdiff_t room = 3 * 20;
  auto const points = this->mixedPoints(this->random, count + 2 * 20);
  auto const* const numbers = reinterpret_cast<TypeParam const*>(points.data());
  auto const asPoint = [](TypeParam* p) { return reinterpret_cast<Vector<TypeParam>*>(p); };
  for (auto const& t : oneOfEachKind<TypeParam>(this->random)) {
    for (std::ptrdiff_t shift = -room; shift <= room; ++shift) {
      for (Direction const direction : allDirections) {
        std::vector<TypeParam> expected(numbers, numbers + 3 * points.size());
        for (std::ptrdiff_t i = room; i < room + 3 * count; i += 3) {
          auto const p = *asPoint(expected.data() + i);
          *asPoint(expected.data() + i + shift) = this->mapPoint(t, direction, p);
        }
        std::vector<TypeParam> actual(numbers, numbers + 3 * points.size());
        this->map(t, direction, count, asPoint(actual.data() + room), asPoint(actual.data() + room + shift));
        for (std::size_t i = 0; i < actual.size(); ++i) {
          ASSERT_TRUE(sameNumber(actual[i], expected[i])) << "shift " << shift << ", number " << i;
        }
      }
    }
  }
}

TYPED_TEST(TransformationArrayMap, ReadsAndWritesNothingForCountsOfZeroOrLess) {
  for (auto const& t : oneOfEachKind<TypeParam>(this->random)) {
    for (int const count : {0, -1, INT_MIN}) {
      for (Direction const direction : allDirections) this->map(t, direction, count, nullptr, nullptr);
      auto out = vector<TypeParam>(7, 8, 9);
      auto const in = vector<TypeParam>(1, 2, 3);
      for (Direction const direction : allDirections) this->map(t, direction, count, &in, &out);
      EXPECT_EQ(out, vector<TypeParam>(7, 8, 9));
    }
  }
}

TYPED_TEST(TransformationArrayMap, WritesNothingBeyondItsCount) {
  auto const guard = vector<TypeParam>(7, 8, 9);
  auto const points = this->mixedPoints(this->random, 67);
  for (auto const& t : oneOfEachKind<TypeParam>(this->random)) {
    for (std::size_t count = 0; count <= 67; ++count) {
      std::vector<Vector<TypeParam>> out(count + 2, guard);
      t.ApplyForward(static_cast<int>(count), points.data(), out.data() + 1, true);
      EXPECT_EQ(out.front(), guard);
      EXPECT_EQ(out.back(), guard);
    }
  }
}

TYPED_TEST(TransformationArrayMap, InverseAlwaysRemovesTheTranslation) {
  auto const t = translation<TypeParam>(1, 2, 3);
  std::vector<Vector<TypeParam>> points(9, vector<TypeParam>(5, 7, 9));
  t.ApplyInverse(9, points.data(), points.data());
  for (auto const& p : points) EXPECT_EQ(p, vector<TypeParam>(4, 5, 6));
}

TYPED_TEST(TransformationArrayMap, InverseOfAZeroUniformScaleIsInfiniteHereOnly) {
  Transformation<TypeParam> t;
  t.SetUniformScale(TypeParam(0));
  std::vector<Vector<TypeParam>> points(9, vector<TypeParam>(1, -1, 0));
  t.ApplyInverse(9, points.data(), points.data());
  for (auto const& p : points) {
    EXPECT_EQ(p.X(), infinity<TypeParam>);
    EXPECT_EQ(p.Y(), -infinity<TypeParam>);
    EXPECT_TRUE(std::isnan(p.Z()));
  }
  EXPECT_EQ(t.ApplyInverse(vector<TypeParam>(1, -1, 0), true).X(), std::numeric_limits<TypeParam>::max());
}

TYPED_TEST(TransformationArrayMap, InverseOfASingularMatrixIsTheOrigin) {
  auto const t = general(diagonal<TypeParam>(2, 1, -1), vector<TypeParam>(1, 2, 3));
  std::vector<Vector<TypeParam>> points(9, vector<TypeParam>(5, 7, 9));
  t.ApplyInverse(9, points.data(), points.data());
  for (auto const& p : points) EXPECT_EQ(p, Vector<TypeParam>::ZERO);
}

}  // namespace transformTest
