#include "annotationLegacy/qvAnnotationRaster.h"
#include "readers/variant/fieldReader.h"

namespace qvLegacy {

using namespace readers;

namespace {

/// Width and height. The elements need not be numbers: every kind has a real form.
bool readSize(FieldReader& fields, Wm4::Vector2<float>& size) {
  ports::Variant const* const value = fields.find("sizeem");
  if (value == nullptr) return true;
  if (!ports::isList(*value)) return fields.invalid("invalid 'sizeem' field");
  ports::VariantList const& elements = ports::elements(*value);
  if (elements.size() != 2) return fields.invalid("invalid 'sizeem' length");
  size.X() = static_cast<float>(elements[0].toReal());
  size.Y() = static_cast<float>(elements[1].toReal());
  return true;
}

}  // namespace

bool qvAnnotationRaster::loadFromVariant(qv::qvVariant::qvVariantMapImpl const& map,
                                         qv::qvStreamVersion const& version,
                                         std::vector<std::string>& errors) {
  if (!qvAnnotationInterface::loadFromVariant(map, version, errors)) return false;
  FieldReader fields(map, version, errors);
  // KEEP: rasters have always reported the text's message, and hosts know it word for word.
  if (!fields.has(Since::variantMaps)) return fields.invalid("invalid version for text annotation");
  if (!readSize(fields, m_size)) return false;
  m_rasterName = TextForm(fields.at("rastername")).text();
  return true;
}

}  // namespace qvLegacy
