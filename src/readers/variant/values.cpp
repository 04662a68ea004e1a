#include "readers/variant/values.h"

#include <algorithm>

namespace qvLegacy::readers {

bool readVector(ports::Variant const* value, Wm4::Vector3<float>& vector) {
  if (value == nullptr || !ports::isList(*value)) return false;
  ports::VariantList const& elements = ports::elements(*value);
  if (elements.size() != 3 || !std::all_of(elements.begin(), elements.end(), ports::isNumber)) return false;
  for (std::size_t i = 0; i < 3; ++i) vector[i] = static_cast<float>(elements[i].toReal());
  return true;
}

}  // namespace qvLegacy::readers
