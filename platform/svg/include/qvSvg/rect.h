#pragma once

#include "qvSvg/itemInterface.h"
#include "wm4/vector2.h"

namespace qv::svg {

/// An axis-parallel rectangle: the corner with the smallest coordinates, and the size.
class QV_EXPORT Rect : public ItemInterface {
 public:
  Rect(Wm4::Vector2<float> const& origin, Wm4::Vector2<float> const& size);
  ~Rect() override;
  ItemKind getKind() const noexcept override;

  Wm4::Vector2<float> m_origin;
  Wm4::Vector2<float> m_size;
};

}  // namespace qv::svg
