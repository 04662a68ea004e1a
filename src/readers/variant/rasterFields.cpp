#include "annotationLegacy/qvAnnotationRaster.h"
#include "readers/variant/fieldReader.h"
#include "rules/values.h"

namespace qvLegacy {

using namespace readers;

namespace {

/// Width and height. The elements need not be numbers: every kind has a real form.
bool readSize(FieldReader& fields, Wm4::Vector2<float>& size) {
  ports::Variant const* const value = fields.find(rules::raster::size);
  if (value == nullptr) return true;
  if (!ports::isList(*value)) return fields.invalid(rules::messages::invalidSize);
  ports::VariantList const& elements = ports::elements(*value);
  if (elements.size() != 2) return fields.invalid(rules::messages::invalidSizeLength);
  size.X() = rules::toSingle(elements[0].toReal()).value;
  size.Y() = rules::toSingle(elements[1].toReal()).value;
  return true;
}

}  // namespace

bool qvAnnotationRaster::loadFromVariant(qv::qvVariant::qvVariantMapImpl const& map,
                                         qv::qvStreamVersion const& version,
                                         std::vector<std::string>& errors) {
  if (!qvAnnotationInterface::loadFromVariant(map, version, errors)) return false;
  FieldReader fields(map, version, errors);
  if (!fields.has(rules::Since::variantMaps)) return fields.invalid(rules::messages::invalidTextVersion);
  if (!readSize(fields, m_size)) return false;
  m_rasterName = TextForm(fields.at(rules::raster::name)).text();
  return true;
}

}  // namespace qvLegacy
