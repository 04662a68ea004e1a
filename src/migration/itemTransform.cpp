#include "migration/itemTransform.h"

#include <cmath>

namespace qvLegacy::migration {

namespace {

bool changesNothing(ItemTransform const& transform) {
  return transform.translation == Wm4::Vector2<float>::ZERO && transform.angle == 0.0F &&
         transform.scale == Wm4::Vector2<float>::ONE;
}

Wm4::Matrix3<float> matrixOf(ItemTransform const& transform) {
  float const sine = std::sin(transform.angle);
  float const cosine = std::cos(transform.angle);
  Wm4::Vector2<float> const& t = transform.translation;
  Wm4::Vector2<float> const& s = transform.scale;
  // KEEP: the scale multiplies the diagonal only. A turned item that is scaled is sheared, as it always was.
  return {s.X() * cosine, -sine, t.X(), sine, s.Y() * cosine, t.Y(), 0.0F, 0.0F, 1.0F};
}

}  // namespace

std::optional<Wm4::Matrix3<float>> transformed(std::optional<Wm4::Matrix3<float>> const& existing,
                                               ItemTransform const& transform) {
  if (changesNothing(transform)) return existing;
  Wm4::Matrix3<float> const matrix = matrixOf(transform);
  if (!existing) return matrix;
  return transform.order == ItemTransform::Order::NewTimesExisting ? matrix * *existing : *existing * matrix;
}

}  // namespace qvLegacy::migration
