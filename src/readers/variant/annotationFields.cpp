#include "annotationLegacy/qvAnnotationInterface.h"
#include "readers/variant/annotationElement.h"
#include "readers/variant/color.h"
#include "readers/variant/fieldReader.h"
#include "readers/variant/nameTables.h"

namespace qvLegacy {

using namespace readers;

namespace {

/// A list of leaders or of measure leaders, and the messages about it.
struct RecordListField {
  std::string_view key;
  char const* invalid;
  char const* invalidContent;
};

constexpr RecordListField leadersField{"leaders", "invalid 'leaders' field",
                                       "invalid 'leaders' field content"};
constexpr RecordListField measuresField{"measures", "invalid 'measures' field",
                                        "invalid 'measures' field content"};

/// Appends the elements of the list; the first one that fails ends it.
template <class Record>
void readRecords(FieldReader& fields, RecordListField const& field, std::vector<Record>& records) {
  ports::Variant const* const list = fields.find(field.key);
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
  ports::Variant const* const value = fields.find("color");
  if (value == nullptr) return;
  if (auto const parsed = parseColor(TextForm(*value).text())) {
    color = *parsed;
  } else {
    fields.invalid("invalid 'color' field");
  }
}

struct StyleFlag {
  std::string_view key;
  std::uint8_t bit;
};

constexpr std::array<StyleFlag, 3> styleFlags{{
    {"isframelocked", Annotation::FrameLocked},
    {"isscalelocked", Annotation::ScaleLocked},
    {"isignoreztest", Annotation::IgnoreZTest},
}};

/// The style byte, made of the flags and the frame shape alone.
std::uint8_t readStyle(FieldReader const& fields) {
  TextForm const shape(fields.at("frameshape"));
  unsigned style = valueOf(frameShapes, shape.text(), Annotation::Rectangle);
  for (StyleFlag const& flag : styleFlags) {
    if (fields.isTrue(flag.key)) style |= flag.bit;
  }
  return static_cast<std::uint8_t>(style);
}

/// The list of children. "childs" is the key that the first documents with children have; it counts only
/// where the other one is absent.
ports::Variant const* findChildren(FieldReader const& fields) {
  ports::Variant const* const children = fields.find("children");
  return children != nullptr ? children : fields.find("childs");
}

/// Reads one child and appends it; one that cannot be read is dropped.
void readChild(FieldReader& fields, ports::VariantMap const& element, qvAnnotationInterface& parent) {
  AnnotationPointer const child = readTypedAnnotation(fields, element);
  if (child.get() == nullptr) return;
  std::string const& anchor = ports::ownText(ports::at(element, "anchorloc"));
  qvAnnotationInterface::SubAnnot& node = parent.editSubAnnots().emplace_back();
  node.m_annot = child;
  // KEEP: a child without a known anchor is free here, while a new node's own default is bottom left.
  node.m_anchor = valueOf(anchors, anchor, Annotation::Free);
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
  if (!reaches(ports::packed(version), Since::heads)) return readVector(&value, m_position);
  if (!ports::isMap(value)) return false;
  Wm4::Vector3<float> position = Wm4::Vector3<float>::ZERO;
  // KEEP: a leader whose position is missing or malformed runs to the origin.
  static_cast<void>(readVector(ports::find(value.toMap(), "pos"), position));
  m_position = position;
  m_head = valueOf(leaderHeads, ports::ownText(ports::at(value.toMap(), "head")), NoHead);
  return true;
}

bool qvAnnotationInterface::MeasureLeader::loadFromVariant(qv::qvVariant const& value,
                                                           qv::qvStreamVersion const& version) {
  if (!ports::isMap(value)) return false;
  ports::VariantMap const& map = value.toMap();
  if (reaches(ports::packed(version), Since::arrowDirections)) {
    m_arrowDir = valueOf(arrowDirections, ports::ownText(ports::at(map, "arrowdir")), NoDirection);
  }
  return readVector(ports::find(map, "A"), m_pointA) && readVector(ports::find(map, "B"), m_pointB) &&
         readVector(ports::find(map, "V"), m_offset);
}

bool qvAnnotationInterface::loadFromVariant(qv::qvVariant::qvVariantMapImpl const& map,
                                            qv::qvStreamVersion const& version,
                                            std::vector<std::string>& errors) {
  FieldReader fields(map, version, errors);
  if (!fields.has(Since::variantMaps)) return fields.invalid("invalid version for annotation interface");
  SetName(TextForm(fields.at("name")).text());
  readColor(fields, m_color);
  if (!fields.vector("position", m_position, "invalid 'position' field")) return false;
  readRecords(fields, leadersField, m_leaders);
  readRecords(fields, measuresField, m_measures);
  m_style = readStyle(fields);
  if (fields.has(Since::children) && !readChildren(fields, *this)) return false;
  if (fields.has(Since::annotationMetadata)) m_metadata = fields.at("metadata").toMap();
  return true;
}

}  // namespace qvLegacy
