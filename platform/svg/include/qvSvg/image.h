#pragma once

#include <string>

#include "qvSvg/itemInterface.h"
#include "wm4/vector2.h"

namespace qv::svg {

/// An image stretched over a rectangle. The data are the bytes of an encoded image (PNG, JPEG, ...), kept as
/// they came.
class QV_EXPORT Image : public ItemInterface {
 public:
  Image();
  ~Image() override;
  ItemKind getKind() const noexcept override;

  Wm4::Vector2<float> m_position;  ///< corner with the smallest coordinates; (0, 0) by default
  Wm4::Vector2<float> m_size;      ///< (0, 0) by default
  std::string m_data;
};

}  // namespace qv::svg
