#include "annotationLegacy/qvAnnotationText.h"
#include "readers/variant/fieldReader.h"
#include "readers/variant/nameTables.h"

namespace qvLegacy {

using namespace readers;

namespace {

using TextProperties = qvAnnotationText::TextProperties;
using TextSegment = qvAnnotationText::TextSegment;

/// Sets or clears one style bit where the key is present.
void readStyleFlag(ports::VariantMap const& map, std::string_view key, TextProperties::StyleFlag flag,
                   std::uint16_t& flags) {
  ports::Variant const* const value = ports::find(map, key);
  if (value == nullptr) return;
  flags = static_cast<std::uint16_t>(value->toBool() ? flags | flag : flags & ~flag);
}

bool areEqual(TextProperties const& a, TextProperties const& b) {
  return a.m_height == b.m_height && a.m_styleFlags == b.m_styleFlags && a.m_fontName == b.m_fontName;
}

/// Reads a run on top of the annotation's default properties; it keeps its own only where they differ from
/// these.
void readSegment(FieldReader const& fields, TextProperties const& defaults, TextSegment& segment) {
  segment.setText(TextForm(fields.at("text")).text());
  TextProperties properties(defaults);
  properties.loadFromVariant(fields.map(), fields.version());
  if (!areEqual(properties, defaults)) segment.setTextProperties(properties);
  segment.m_type = valueOf(segmentTypes, TextForm(fields.at("type")).text(), TextSegment::Normal);
}

/// Reads the elements of one line; one that is no map is reported and leaves no run behind.
void readLine(FieldReader& fields, ports::VariantList const& elements, TextProperties const& defaults,
              qvAnnotationText::Line& line) {
  for (ports::Variant const& element : elements) {
    if (!ports::isMap(element)) {
      fields.invalid("invalid segment");
      continue;
    }
    // Filled in place: a copied run would end at its first zero character.
    readSegment(FieldReader(element.toMap(), fields.version(), fields.errors()), defaults,
                line.emplace_back());
  }
}

/// Appends the lines; one that is no list is reported and leaves no line behind.
void readLines(FieldReader& fields, ports::VariantList const& elements, qvAnnotationText& text) {
  for (ports::Variant const& element : elements) {
    if (!ports::isList(element)) {
      fields.invalid("invalid line");
      continue;
    }
    readLine(fields, ports::elements(element), text.m_defaultTextProperties, text.m_lines.emplace_back());
  }
}

void readDefaultProperties(FieldReader& fields, TextProperties& properties) {
  ports::Variant const* const value = fields.find("defaulttextprop");
  if (value == nullptr) return;
  if (ports::isMap(*value)) {
    properties.loadFromVariant(value->toMap(), fields.version());
  } else {
    fields.invalid("invalid 'defaulttextprop' field");
  }
}

}  // namespace

void qvAnnotationText::TextProperties::loadFromVariant(qv::qvVariant::qvVariantMapImpl const& map,
                                                       qv::qvStreamVersion const&) {
  ports::Variant const* const height = ports::find(map, "heightem");
  // KEEP: a height that is not given is quantised anew, which lowers one in fourteen by a hundredth.
  float const ems =
      height != nullptr ? static_cast<float>(height->toReal()) : static_cast<float>(m_height) / 100.0F;
  m_height = quantizeHeight(ems);
  readStyleFlag(map, "bold", Bold, m_styleFlags);
  readStyleFlag(map, "italic", Italic, m_styleFlags);
  ports::Variant const* const font = ports::find(map, "font");
  if (font != nullptr) m_fontName = TextForm(*font).text();
}

bool qvAnnotationText::loadFromVariant(qv::qvVariant::qvVariantMapImpl const& map,
                                       qv::qvStreamVersion const& version, std::vector<std::string>& errors) {
  if (!qvAnnotationInterface::loadFromVariant(map, version, errors)) return false;
  FieldReader fields(map, version, errors);
  // KEEP: the shared reader refuses these versions first; this check guards the text's own keys all the same.
  if (!fields.has(Since::variantMaps)) return fields.invalid("invalid version for text annotation");
  readDefaultProperties(fields, m_defaultTextProperties);
  ports::Variant const& lines = fields.at("lines");
  if (ports::isList(lines)) {
    readLines(fields, ports::elements(lines), *this);
  } else {
    setText(TextForm(fields.at("text")).text());
  }
  return true;
}

}  // namespace qvLegacy
