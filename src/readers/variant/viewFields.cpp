#include "annotationLegacy/qvAnnotationView.h"
#include "readers/variant/annotationElement.h"
#include "readers/variant/fieldReader.h"

namespace qvLegacy {

using namespace readers;

namespace {

/// A list of annotations and the messages about it.
struct AnnotationListField {
  rules::Field const& list;
  rules::Message const& missing;
  rules::Message const& invalid;
  rules::Message const& invalidContent;
};

namespace messages = rules::messages;

constexpr AnnotationListField annotationsField{rules::view::annotations, messages::missingAnnotations,
                                               messages::invalidAnnotations,
                                               messages::invalidAnnotationsContent};
constexpr AnnotationListField textsField{rules::view::texts, messages::missingTexts, messages::invalidTexts,
                                         messages::invalidAnnotationsContent};
constexpr AnnotationListField rastersField{rules::view::rasters, messages::missingRasters,
                                           messages::invalidRasters, messages::invalidRastersContent};

/// Appends to the view what `readElement` makes of each map in the list; an element that is no map is
/// reported, one that cannot be read is passed over. False when there is no such list.
template <class ReadElement>
bool readAnnotations(FieldReader& fields, AnnotationListField const& field, qvAnnotationView& view,
                     ReadElement const& readElement) {
  ports::Variant const* const list = fields.find(field.list);
  if (list == nullptr) return fields.invalid(field.missing);
  if (!ports::isList(*list)) return fields.invalid(field.invalid);
  for (ports::Variant const& element : ports::elements(*list)) {
    if (!ports::isMap(element)) {
      fields.invalid(field.invalidContent);
      continue;
    }
    AnnotationPointer const annotation = readElement(element.toMap());
    if (annotation.get() != nullptr) view.m_annotations.push_back(annotation);
  }
  return true;
}

/// One list of every kind, each element naming its own.
bool readOneList(FieldReader& fields, qvAnnotationView& view) {
  return readAnnotations(fields, annotationsField, view, [&](ports::VariantMap const& element) {
    return readTypedAnnotation(fields, element);
  });
}

/// One list for each kind: all texts come before all rasters.
bool readTwoLists(FieldReader& fields, qvAnnotationView& view) {
  auto const readAs = [&fields](qvAnnotationInterface::Type type) {
    return
        [&fields, type](ports::VariantMap const& element) { return readAnnotation(fields, element, type); };
  };
  return readAnnotations(fields, textsField, view, readAs(qvAnnotationInterface::Text)) &&
         readAnnotations(fields, rastersField, view, readAs(qvAnnotationInterface::Raster));
}

/// The view's metadata, which a document that can have it must have.
void readMetadata(FieldReader& fields, qv::qvVariant::qvVariantMapImpl& metadata) {
  ports::Variant const& value = fields.at(rules::view::metadata);
  if (ports::isMap(value)) {
    metadata = value.toMap();
  } else {
    fields.invalid(messages::invalidMetadata);
  }
}

}  // namespace

qv::qvPointer<qvAnnotationView> qvAnnotationView::FromVariantMap(qv::qvVariant::qvVariantMapImpl const& map,
                                                                 std::vector<std::string>& errors) {
  TextForm const versionText(ports::at(map, rules::view::version.key));
  qv::qvStreamVersion const version(versionText.text());
  FieldReader fields(map, version, errors);
  if (!fields.has(rules::Since::variantMaps)) {
    errors.push_back(messages::invalidVersion.text + versionText.text());
    return nullptr;
  }
  qv::qvPointer<qvAnnotationView> view = new qvAnnotationView;
  view->SetName(TextForm(fields.at(rules::view::name)).text());
  fields.vector(rules::view::origin, view->m_planeOrigin, messages::invalidOrigin);
  fields.vector(rules::view::normal, view->m_planeNormal, messages::invalidNormal);
  fields.vector(rules::view::axis, view->m_planeXAxis, messages::invalidAxis);
  if (fields.has(rules::view::metadata)) readMetadata(fields, view->m_metadata);
  bool const isRead =
      fields.has(rules::Since::oneAnnotationList) ? readOneList(fields, *view) : readTwoLists(fields, *view);
  return isRead ? view : nullptr;
}

}  // namespace qvLegacy
