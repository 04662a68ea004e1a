/// The variant readers alone: maps that no document could hold, at any version.

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "qvToolkit/stream/streamEncoder.h"
#include "support/modelChecks.h"
#include "support/target.h"
#include "support/variantFromInput.h"
#include "tests/support/modelComparison.h"

namespace qvFuzz {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationRaster;
using qvLegacy::qvAnnotationText;
using qvLegacy::qvAnnotationView;
using Map = qv::qvVariant::qvVariantMapImpl;

constexpr int MaxDepth = 8;

struct Loaded {
  qv::qvPointer<qvAnnotationView> m_view = new qvAnnotationView;
  std::vector<std::string> m_errors;
  bool m_isUsable = false;
};

Loaded loadAnnotation(qv::qvPointer<qvAnnotationInterface> const& annotation, Map const& map,
                      qv::qvStreamVersion version) {
  Loaded loaded;
  loaded.m_isUsable = annotation->loadFromVariant(map, version, loaded.m_errors);
  loaded.m_view->m_annotations.push_back(annotation);
  return loaded;
}

/// The parts of an annotation, each alone: they take any value.
Loaded loadParts(Map const& map, qv::qvStreamVersion version) {
  Loaded loaded;
  qv::qvPointer<qvAnnotationText> const text = new qvAnnotationText;
  text->m_defaultTextProperties.loadFromVariant(map, version);
  bool const isLeader = text->m_leaders.emplace_back().loadFromVariant(map, version);
  bool const isMeasure = text->m_measures.emplace_back().loadFromVariant(map, version);
  loaded.m_isUsable = isLeader || isMeasure;
  for (auto const& [key, value] : map) {
    text->m_leaders.emplace_back().loadFromVariant(value, version);
    text->m_measures.emplace_back().loadFromVariant(value, version);
  }
  loaded.m_view->m_annotations.emplace_back(text.get());
  return loaded;
}

/// With a version of its own in most cases, since without one there is no view.
Loaded loadView(Map map, qv::qvStreamVersion version) {
  map.try_emplace("ver", version.toString());
  Loaded loaded;
  auto const view = qvAnnotationView::FromVariantMap(map, loaded.m_errors);
  loaded.m_isUsable = view != nullptr;
  if (view != nullptr) loaded.m_view = view;
  return loaded;
}

Loaded load(unsigned kind, Map const& map, qv::qvStreamVersion version) {
  switch (kind) {
    case 0:
      return loadAnnotation(new qvAnnotationText, map, version);
    case 1:
      return loadAnnotation(new qvAnnotationRaster, map, version);
    case 2:
      return loadAnnotation(new qvAnnotationInterface(qvAnnotationInterface::Unknown), map, version);
    case 3:
      return loadParts(map, version);
    default:
      return loadView(map, version);
  }
}

}  // namespace

void runTarget(InputCursor& input) {
  unsigned const kind = input.takeBelow(8);
  qv::qvStreamVersion const version(takeVersion(input));
  Map const map = takeVariantMap(input, MaxDepth);
  Loaded const loaded = load(kind, map, version);
  Loaded const again = load(kind, map, version);
  require(again.m_isUsable == loaded.m_isUsable && again.m_errors == loaded.m_errors,
          "equal maps give equal answers");
  requireNone(qvStreamTest::findDifference(*again.m_view, *loaded.m_view), "equal maps give equal objects");
  requireEqualCopies(*loaded.m_view);
  requireRoundTrip(makeDocument(loaded.m_view), qvToolkit::getNewestWritableVersion(), false);
}

}  // namespace qvFuzz
