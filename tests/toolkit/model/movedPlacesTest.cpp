/// Where the points of a document lie in model space, told by a computation of its own: after a move they lie
/// where the transformation puts them.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "qvToolkit/model/documentTransform.h"
#include "qvToolkit/work/session.h"
#include "transform/qvGenericTransformation.h"

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationRaster;
using qvLegacy::qvAnnotationText;
using qvLegacy::qvAnnotationView;
using qvToolkit::TransformKind;
using Vector = Wm4::Vector3<float>;
using Point = std::array<double, 3>;

Point toPoint(Vector const& v) {
  return {double(v[0]), double(v[1]), double(v[2])};
}

Point add(Point const& a, Point const& b) {
  return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}

/// What tells an error from a rounding: the size of the terms whose sum a place is.
struct Place {
  Point m_point;
  double m_size;
};

/// Columns and origin of a view's own plane transform, in double precision.
Place toModel(qvAnnotationView const& view, Point const& p) {
  qv::qvGenericTransformation<float> plane;
  view.getPlaneTransform(plane);
  Place place{toPoint(plane.GetTranslate()), 0};
  for (double const number : place.m_point) place.m_size += std::abs(number);
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) {
      double const term = static_cast<double>(plane.GetMatrix()(i, j)) * p[j];
      place.m_point[i] += term;
      place.m_size += std::abs(term);
    }
  }
  return place;
}

/// The places below one annotation whose own place is `base`.
void collect(qvAnnotationView const& view, qvAnnotationInterface const& annotation, Point const& base,
             std::vector<Place>& places) {
  places.push_back(toModel(view, base));
  for (auto const& leader : annotation.m_leaders) {
    places.push_back(toModel(view, toPoint(leader.m_position)));
  }
  for (auto const& measure : annotation.m_measures) {
    for (Vector const& measured : {measure.m_pointA, measure.m_pointB}) {
      places.push_back(toModel(view, toPoint(measured)));
      places.push_back(toModel(view, add(toPoint(measured), toPoint(measure.m_offset))));
    }
  }
  for (auto const& sub : annotation.getSubAnnots()) {
    if (sub.m_anchor != qvAnnotationInterface::Free) continue;
    collect(view, *sub.m_annot, add(base, toPoint(sub.m_annot->m_position)), places);
  }
}

std::vector<Place> collect(qvToolkit::Document const& document) {
  std::vector<Place> places;
  for (auto const& loaded : document.m_views) {
    places.push_back(toModel(*loaded.m_view, {0, 0, 0}));
    for (auto const& annotation : loaded.m_view->m_annotations) {
      collect(*loaded.m_view, *annotation, toPoint(annotation->m_position), places);
    }
  }
  return places;
}

class Generator {
 public:
  explicit Generator(unsigned seed) : m_random(seed) {}

  double take(double size) { return std::uniform_real_distribution<double>(-size, size)(m_random); }
  int takeBelow(int end) { return std::uniform_int_distribution<int>(0, end - 1)(m_random); }
  Vector takeVector(double size) {
    return {static_cast<float>(take(size)), static_cast<float>(take(size)), static_cast<float>(take(size))};
  }

  qvToolkit::Document makeDocument() {
    qvToolkit::Document document;
    for (int i = takeBelow(3); i >= 0; --i) document.m_views.push_back({makeView(), {}, {}, {}});
    return document;
  }

 private:
  qv::qvPointer<qvAnnotationView> makeView() {
    qv::qvPointer<qvAnnotationView> const view(new qvAnnotationView);
    view->m_planeOrigin = takeVector(1000);
    // Neither of unit length nor at right angles; now and then there is no plane at all.
    if (takeBelow(4) != 0) view->m_planeNormal = takeVector(2);
    if (takeBelow(4) != 0) view->m_planeXAxis = takeVector(2);
    if (takeBelow(8) == 0) view->m_planeNormal = Vector::ZERO;
    if (takeBelow(8) == 0) view->m_planeXAxis = view->m_planeNormal;
    for (int i = takeBelow(4); i > 0; --i) view->m_annotations.push_back(makeAnnotation(0));
    return view;
  }

  qv::qvPointer<qvAnnotationInterface> makeAnnotation(int depth) {
    qv::qvPointer<qvAnnotationInterface> annotation;
    if (takeBelow(2) == 0) {
      annotation = new qvAnnotationText;
    } else {
      annotation = new qvAnnotationRaster;
    }
    annotation->m_position = takeVector(500);
    for (int i = takeBelow(3); i > 0; --i) annotation->m_leaders.emplace_back(takeVector(500));
    for (int i = takeBelow(3); i > 0; --i) {
      auto& measure = annotation->m_measures.emplace_back();
      measure.m_pointA = takeVector(500);
      measure.m_pointB = takeVector(500);
      measure.m_offset = takeVector(50);
    }
    for (int i = depth < 3 ? takeBelow(3) : 0; i > 0; --i) {
      auto& sub = annotation->editSubAnnots().emplace_back();
      sub.m_annot = makeAnnotation(depth + 1);
      sub.m_anchor = takeBelow(3) == 0 ? static_cast<unsigned>(takeBelow(13)) : qvAnnotationInterface::Free;
    }
    return annotation;
  }

  std::mt19937 m_random;
};

/// A matrix of words, and the same numbers to compute with.
struct Words {
  std::vector<std::string> m_words;
  std::array<double, 12> m_numbers{};

  Point map(Point const& p) const {
    Point image{};
    for (std::size_t i = 0; i < 3; ++i) {
      double const* const row = m_numbers.data() + 4 * i;
      image[i] = row[0] * p[0] + row[1] * p[1] + row[2] * p[2] + row[3];
    }
    return image;
  }
};

/// A turn about each axis in turn, a scale and a move.
Words makeMatrix(Generator& generator) {
  double const a = generator.take(4), b = generator.take(4), c = generator.take(4);
  double const scale = generator.takeBelow(3) == 0 ? 1 : std::exp(generator.take(6));
  std::array<double, 9> const turn{std::cos(a) * std::cos(b),
                                   std::cos(a) * std::sin(b) * std::sin(c) - std::sin(a) * std::cos(c),
                                   std::cos(a) * std::sin(b) * std::cos(c) + std::sin(a) * std::sin(c),
                                   std::sin(a) * std::cos(b),
                                   std::sin(a) * std::sin(b) * std::sin(c) + std::cos(a) * std::cos(c),
                                   std::sin(a) * std::sin(b) * std::cos(c) - std::cos(a) * std::sin(c),
                                   -std::sin(b),
                                   std::cos(b) * std::sin(c),
                                   std::cos(b) * std::cos(c)};
  int const digits = 7 + generator.takeBelow(4);
  Words words;
  for (std::size_t i = 0; i < 12; ++i) {
    double const number = i % 4 == 3 ? generator.take(1000) : scale * turn[i / 4 * 3 + i % 4];
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.*g", digits, number);
    words.m_words.emplace_back(text.data());
    words.m_numbers[i] = std::strtod(text.data(), nullptr);
  }
  return words;
}

double getSizeOfImage(Words const& words, Place const& place) {
  double size = 0;
  for (std::size_t i = 0; i < 12; ++i) {
    size = std::max(size, std::abs(words.m_numbers[i]) * (i % 4 == 3 ? 1 : place.m_size));
  }
  return size;
}

TEST(MovedPlaces, LieWhereTheTransformationPutsThem) {
  qvToolkit::Session const library;
  std::size_t count = 0;
  for (unsigned seed = 0; seed < 500; ++seed) {
    Generator generator(seed);
    qvToolkit::Document document = generator.makeDocument();
    Words const words = makeMatrix(generator);
    qvToolkit::Similarity transformation;
    ASSERT_EQ(readTransform(TransformKind::Matrix, words.m_words, transformation), "");

    std::vector<Place> const before = collect(document);
    ASSERT_TRUE(transformDocument(document, transformation).m_isMoved);
    std::vector<Place> const after = collect(document);
    ASSERT_EQ(before.size(), after.size());
    for (std::size_t i = 0; i < before.size(); ++i) {
      Point const expected = words.map(before[i].m_point);
      double const tolerance = 1e-5 * getSizeOfImage(words, before[i]);
      for (std::size_t k = 0; k < 3; ++k) {
        ASSERT_NEAR(after[i].m_point[k], expected[k], tolerance) << "seed " << seed << ", place " << i;
      }
    }
    count += before.size();
  }
  EXPECT_GT(count, 10000U);
}

TEST(MovedPlaces, ComeBackByTheOppositeMoveToTheLastBit) {
  qvToolkit::Session const library;
  qvToolkit::Document document = Generator(1).makeDocument();
  std::vector<Place> const before = collect(document);
  for (char const* const degrees : {"90", "-90"}) {
    qvToolkit::Similarity turn;
    ASSERT_EQ(readTransform(TransformKind::Rotate, {"y", degrees}, turn), "");
    ASSERT_TRUE(transformDocument(document, turn).m_isMoved);
  }
  std::vector<Place> const after = collect(document);
  for (std::size_t i = 0; i < before.size(); ++i) EXPECT_EQ(before[i].m_point, after[i].m_point);
}

}  // namespace
