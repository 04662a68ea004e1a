#include <array>

#include "annotationLegacy/qvAnnotationInterface.h"
#include "readers/variant/annotationElement.h"
#include "readers/variant/fieldReader.h"
#include "rules/values.h"

namespace qvLegacy {

using namespace readers;

namespace {

/// A list of leaders or of measure leaders, and the messages about it.
struct RecordListField {
  rules::Field const& list;
  rules::Message const& invalid;
  rules::Message const& invalidContent;
};

constexpr RecordListField leadersField{rules::annotation::leaders, rules::messages::invalidLeaders,
                                       rules::messages::invalidLeadersContent};
constexpr RecordListField measuresField{rules::annotation::measures, rules::messages::invalidMeasures,
                                        rules::messages::invalidMeasuresContent};

/// Appends the elements of the list; the first one that fails ends it.
template <class Record>
void readRecords(FieldReader& fields, RecordListField const& field, std::vector<Record>& records) {
  ports::Variant const* const list = fields.find(field.list);
  if (list == nullptr) return;
  if (!ports::isList(*list)) {
    fields.invalid(field.invalid);
    return;
  }
  for (ports::Variant const& element : ports::elements(*list)) {
    Record record;
    if (!record.loadFromVariant(element, fields.version())) {
      fields.invalid(field.invalidContent);
      return;
    }
    records.push_back(record);
  }
}

void readColor(FieldReader& fields, Wm4::Vector3<unsigned char>& color) {
  ports::Variant const* const value = fields.find(rules::annotation::color);
  if (value == nullptr) return;
  if (auto const parsed = rules::toColor(TextForm(*value).text())) {
    auto const [red, green, blue] = parsed->value;
    color = {red, green, blue};
  } else {
    fields.invalid(rules::messages::invalidColor);
  }
}

struct StyleFlag {
  rules::Field const& field;
  std::uint8_t bit;
};

constexpr std::array<StyleFlag, 3> styleFlags{{
    {rules::annotation::frameLocked, qvAnnotationInterface::FrameLocked},
    {rules::annotation::scaleLocked, qvAnnotationInterface::ScaleLocked},
    {rules::annotation::ignoreZTest, qvAnnotationInterface::IgnoreZTest},
}};

/// The style byte, made of the flags and the frame shape alone.
std::uint8_t readStyle(FieldReader const& fields) {
  TextForm const shape(fields.at(rules::annotation::frameShape));
  unsigned style = rules::frameShapes.valueOf(shape.text());
  for (StyleFlag const& flag : styleFlags) {
    if (fields.isTrue(flag.field)) style |= flag.bit;
  }
  return static_cast<std::uint8_t>(style);
}

/// The list of children; the older key counts only where the other one is absent.
ports::Variant const* findChildren(FieldReader const& fields) {
  ports::Variant const* const children = fields.find(rules::annotation::children);
  return children != nullptr ? children : fields.find(rules::annotation::childs);
}

/// Reads one child and appends it; one that cannot be read is dropped.
void readChild(FieldReader& fields, ports::VariantMap const& element, qvAnnotationInterface& parent) {
  AnnotationPointer const child = readTypedAnnotation(fields, element);
  if (child.get() == nullptr) return;
  std::string const& anchor = ports::ownText(ports::at(element, rules::annotation::anchor.key));
  qvAnnotationInterface::SubAnnot& node = parent.editSubAnnots().emplace_back();
  node.m_annot = child;
  // KEEP: a child without a known anchor is free here, while a new node's own default is bottom left.
  node.m_anchor = rules::anchors.valueOf(anchor);
}

/// False, without a message, as soon as an element is no map.
bool readChildren(FieldReader& fields, qvAnnotationInterface& parent) {
  ports::Variant const* const children = findChildren(fields);
  // KEEP: children that are no list are passed over in silence.
  if (children == nullptr) return true;
  for (ports::Variant const& element : ports::elements(*children)) {
    if (!ports::isMap(element)) return false;
    readChild(fields, element.toMap(), parent);
  }
  return true;
}

}  // namespace

bool qvAnnotationInterface::Leader::loadFromVariant(qv::qvVariant const& value,
                                                    qv::qvStreamVersion const& version) {
  if (!rules::reaches(ports::packed(version), rules::leader::head.inVariants))
    return readVector(&value, m_position);
  if (!ports::isMap(value)) return false;
  Wm4::Vector3<float> position = Wm4::Vector3<float>::ZERO;
  // KEEP: a leader whose position is missing or malformed runs to the origin.
  static_cast<void>(readVector(ports::find(value.toMap(), rules::leader::position.key), position));
  m_position = position;
  m_head = rules::leaderHeads.valueOf(ports::ownText(ports::at(value.toMap(), rules::leader::head.key)));
  return true;
}

bool qvAnnotationInterface::MeasureLeader::loadFromVariant(qv::qvVariant const& value,
                                                           qv::qvStreamVersion const& version) {
  if (!ports::isMap(value)) return false;
  ports::VariantMap const& map = value.toMap();
  if (rules::reaches(ports::packed(version), rules::measure::arrowDirection.inVariants)) {
    m_arrowDir =
        rules::arrowDirections.valueOf(ports::ownText(ports::at(map, rules::measure::arrowDirection.key)));
  }
  return readVector(ports::find(map, rules::measure::pointA.key), m_pointA) &&
         readVector(ports::find(map, rules::measure::pointB.key), m_pointB) &&
         readVector(ports::find(map, rules::measure::offset.key), m_offset);
}

bool qvAnnotationInterface::loadFromVariant(qv::qvVariant::qvVariantMapImpl const& map,
                                            qv::qvStreamVersion const& version,
                                            std::vector<std::string>& errors) {
  FieldReader fields(map, version, errors);
  if (!fields.has(rules::Since::variantMaps))
    return fields.invalid(rules::messages::invalidAnnotationVersion);
  SetName(TextForm(fields.at(rules::annotation::name)).text());
  readColor(fields, m_color);
  if (!fields.vector(rules::annotation::position, m_position, rules::messages::invalidPosition)) return false;
  readRecords(fields, leadersField, m_leaders);
  readRecords(fields, measuresField, m_measures);
  m_style = readStyle(fields);
  if (fields.has(rules::annotation::children) && !readChildren(fields, *this)) return false;
  if (fields.has(rules::annotation::metadata)) m_metadata = fields.at(rules::annotation::metadata).toMap();
  return true;
}

}  // namespace qvLegacy
