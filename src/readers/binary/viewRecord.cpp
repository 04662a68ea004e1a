#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "annotationLegacy/qvAnnotationView.h"
#include "readers/binary/recordReader.h"

namespace qvLegacy {

using readers::RecordReader;
using rules::Since;

namespace {

using AnnotationVector = std::vector<qv::qvPointer<qvAnnotationInterface>>;

/// Reads `count` annotations of one class and appends each of them, whatever the stream's state is by then.
template <class Annotation>
void appendAnnotations(qv::qvBaseStream& stream, std::uint32_t count, AnnotationVector& annotations) {
  for (std::uint32_t i = 0; i < count; ++i) {
    // Held from the start, so that an exception out of the load releases it.
    qv::qvPointer<Annotation> const annotation = new Annotation;
    annotation->load(stream);
    annotations.push_back(annotation);
  }
}

/// Reads the texts, then the rasters; what is in the list stays in front. An exception brings the list back
/// to what it held.
void appendAnnotations(qv::qvBaseStream& stream, std::uint32_t texts, std::uint32_t rasters,
                       AnnotationVector& annotations) {
  std::size_t const before = annotations.size();
  annotations.reserve(before + std::size_t{texts} + std::size_t{rasters});
  try {
    appendAnnotations<qvAnnotationText>(stream, texts, annotations);
    appendAnnotations<qvAnnotationRaster>(stream, rasters, annotations);
  } catch (...) {
    annotations.resize(before);
    throw;
  }
}

}  // namespace

void qvAnnotationView::Load(qv::qvBaseStream& stream) {
  RecordReader in(stream);
  if (!in.has(Since::views)) return in.fail();
  qv::qvObject::Load(stream);
  in.vector(m_planeOrigin);
  in.vector(m_planeNormal);
  in.vector(m_planeXAxis);
  std::uint32_t const texts = in.count();
  std::uint32_t const rasters = in.has(rules::view::rasters) ? in.count() : 0;
  appendAnnotations(stream, texts, rasters, m_annotations);
  if (in.has(rules::view::metadata)) in.metadata(m_metadata);
}

}  // namespace qvLegacy
