#include "readers/variant/values.h"

#include <algorithm>

#include "rules/values.h"

namespace qvLegacy::readers {

bool readVector(ports::Variant const* value, Wm4::Vector3<float>& vector) {
  if (value == nullptr || !ports::isList(*value)) return false;
  ports::VariantList const& elements = ports::elements(*value);
  if (elements.size() != 3 || !std::all_of(elements.begin(), elements.end(), ports::isNumber)) return false;
  for (std::size_t i = 0; i < 3; ++i) vector[i] = rules::toSingle(elements[i].toReal()).value;
  return true;
}

}  // namespace qvLegacy::readers
