#include "annotationLegacy/qvAnnotationText.h"
#include "readers/variant/fieldReader.h"
#include "rules/values.h"

namespace qvLegacy {

using namespace readers;

namespace {

using TextProperties = qvAnnotationText::TextProperties;
using TextSegment = qvAnnotationText::TextSegment;

/// Sets or clears one style bit where the key is present.
void readStyleFlag(ports::VariantMap const& map, rules::Field const& field, TextProperties::StyleFlag flag,
                   std::uint16_t& flags) {
  ports::Variant const* const value = ports::find(map, field.key);
  if (value == nullptr) return;
  flags = static_cast<std::uint16_t>(value->toBool() ? flags | flag : flags & ~flag);
}

bool areEqual(TextProperties const& a, TextProperties const& b) {
  return a.m_height == b.m_height && a.m_styleFlags == b.m_styleFlags && a.m_fontName == b.m_fontName;
}

/// Reads a run on top of the annotation's default properties; it keeps its own only where they differ from
/// these.
void readSegment(FieldReader const& fields, TextProperties const& defaults, TextSegment& segment) {
  segment.setText(TextForm(fields.at(rules::run::text)).text());
  TextProperties properties(defaults);
  properties.loadFromVariant(fields.map(), fields.version());
  if (!areEqual(properties, defaults)) segment.setTextProperties(properties);
  segment.m_type = static_cast<TextSegment::SegmentType>(
      rules::segmentTypes.valueOf(TextForm(fields.at(rules::run::type)).text()));
}

/// Reads the elements of one line; one that is no map is reported and leaves no run behind.
void readLine(FieldReader& fields, ports::VariantList const& elements, TextProperties const& defaults,
              qvAnnotationText::Line& line) {
  for (ports::Variant const& element : elements) {
    if (!ports::isMap(element)) {
      fields.invalid(rules::messages::invalidSegment);
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
      fields.invalid(rules::messages::invalidLine);
      continue;
    }
    readLine(fields, ports::elements(element), text.m_defaultTextProperties, text.m_lines.emplace_back());
  }
}

void readDefaultProperties(FieldReader& fields, TextProperties& properties) {
  ports::Variant const* const value = fields.find(rules::text::defaultProperties);
  if (value == nullptr) return;
  if (ports::isMap(*value)) {
    properties.loadFromVariant(value->toMap(), fields.version());
  } else {
    fields.invalid(rules::messages::invalidDefaultProperties);
  }
}

}  // namespace

void qvAnnotationText::TextProperties::loadFromVariant(qv::qvVariant::qvVariantMapImpl const& map,
                                                       qv::qvStreamVersion const&) {
  ports::Variant const* const height = ports::find(map, rules::properties::height.key);
  // KEEP: a height that is not given is quantised anew, which lowers one in fourteen by a hundredth.
  float const ems =
      height != nullptr ? rules::toSingle(height->toReal()).value : static_cast<float>(m_height) / 100.0F;
  m_height = quantizeHeight(ems);
  readStyleFlag(map, rules::properties::bold, Bold, m_styleFlags);
  readStyleFlag(map, rules::properties::italic, Italic, m_styleFlags);
  ports::Variant const* const font = ports::find(map, rules::properties::font.key);
  if (font != nullptr) m_fontName = TextForm(*font).text();
}

bool qvAnnotationText::loadFromVariant(qv::qvVariant::qvVariantMapImpl const& map,
                                       qv::qvStreamVersion const& version, std::vector<std::string>& errors) {
  if (!qvAnnotationInterface::loadFromVariant(map, version, errors)) return false;
  FieldReader fields(map, version, errors);
  // KEEP: the shared reader refuses these versions first; this check guards the text's own keys all the same.
  if (!fields.has(rules::Since::variantMaps)) return fields.invalid(rules::messages::invalidTextVersion);
  readDefaultProperties(fields, m_defaultTextProperties);
  ports::Variant const& lines = fields.at(rules::text::lines);
  if (ports::isList(lines)) {
    readLines(fields, ports::elements(lines), *this);
  } else {
    setText(TextForm(fields.at(rules::text::plain)).text());
  }
  return true;
}

}  // namespace qvLegacy
