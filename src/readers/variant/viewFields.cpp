#include "annotationLegacy/qvAnnotationView.h"
#include "readers/variant/annotationElement.h"
#include "readers/variant/fieldReader.h"

namespace qvLegacy {

using namespace readers;

namespace {

/// A list of annotations and the messages about it.
struct AnnotationListField {
  std::string_view key;
  char const* missing;
  char const* invalid;
  char const* invalidContent;
};

constexpr AnnotationListField annotationsField{"annotations", "missing 'annotations' field",
                                               "invalid 'annotations' field",
                                               "invalid 'annotations' field content"};
constexpr AnnotationListField textsField{"textannotations", "missing 'textannotations' field",
                                         "invalid 'textannotations' field",
                                         // KEEP: the established message names the other list.
                                         "invalid 'annotations' field content"};
constexpr AnnotationListField rastersField{"rasterannotations", "missing 'rasterannotations' field",
                                           "invalid 'rasterannotations' field",
                                           "invalid 'rasterannotations' field content"};

/// Appends to the view what `readElement` makes of each map in the list; an element that is no map is
/// reported, one that cannot be read is passed over. False when there is no such list.
template <class ReadElement>
bool readAnnotations(FieldReader& fields, AnnotationListField const& field, qvAnnotationView& view,
                     ReadElement const& readElement) {
  ports::Variant const* const list = fields.find(field.key);
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
  ports::Variant const& value = fields.at("metadata");
  if (ports::isMap(value)) {
    metadata = value.toMap();
  } else {
    fields.invalid("invalid 'metadata' field");
  }
}

}  // namespace

qv::qvPointer<qvAnnotationView> qvAnnotationView::FromVariantMap(qv::qvVariant::qvVariantMapImpl const& map,
                                                                 std::vector<std::string>& errors) {
  TextForm const versionText(ports::at(map, "ver"));
  qv::qvStreamVersion const version(versionText.text());
  FieldReader fields(map, version, errors);
  if (!fields.has(Since::variantMaps)) {
    errors.push_back("invalid version " + versionText.text());
    return nullptr;
  }
  qv::qvPointer<qvAnnotationView> view = new qvAnnotationView;
  view->SetName(TextForm(fields.at("name")).text());
  fields.vector("origin", view->m_planeOrigin, "invalid 'origin' field");
  fields.vector("normal", view->m_planeNormal, "invalid 'normal' field");
  fields.vector("axis", view->m_planeXAxis, "invalid 'axis' field");
  if (fields.has(Since::viewMetadata)) readMetadata(fields, view->m_metadata);
  bool const isRead =
      fields.has(Since::oneAnnotationList) ? readOneList(fields, *view) : readTwoLists(fields, *view);
  return isRead ? view : nullptr;
}

}  // namespace qvLegacy
