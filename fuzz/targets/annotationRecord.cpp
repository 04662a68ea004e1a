/// The binary readers alone, at any version, over a stream that is bounded or not.

#include <optional>

#include "annotationLegacy/qvAnnotationMetaData.h"
#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "qvSystem/qvMemoryStream.h"
#include "qvToolkit/stream/streamEncoder.h"
#include "support/modelChecks.h"
#include "support/target.h"
#include "support/variantFromInput.h"
#include "tests/support/modelComparison.h"

namespace qvFuzz {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationMetaData;
using qvLegacy::qvAnnotationRaster;
using qvLegacy::qvAnnotationText;
using qvLegacy::qvAnnotationView;
using ViewPointer = qv::qvPointer<qvAnnotationView>;

/// What the record of an input is of. The numbers belong to the inputs that are kept.
enum class Record : std::uint8_t { View, Text, Raster, Interface, OldText, MetaData, Run, Properties };

struct Setting {
  std::uint32_t m_version;
  Record m_record;
  bool m_isBounded;
};

Setting takeSetting(InputCursor& input) {
  std::uint32_t const version = takeVersion(input);
  std::uint8_t const choice = input.takeByte();
  // A bare stream allows each announced record its failed reads: that takes its time.
  return {version, static_cast<Record>(choice % 8), choice < 224};
}

ViewPointer wrap(qv::qvPointer<qvAnnotationInterface> const& annotation) {
  ViewPointer view = new qvAnnotationView;
  view->m_annotations.push_back(annotation);
  return view;
}

ViewPointer wrap(qvAnnotationText::TextProperties const& properties) {
  qv::qvPointer<qvAnnotationText> const text = new qvAnnotationText;
  text->m_defaultTextProperties = properties;
  return wrap(qv::qvPointer<qvAnnotationInterface>(text.get()));
}

template <class Annotation>
ViewPointer loadAnnotation(qv::qvBaseStream& stream) {
  qv::qvPointer<Annotation> const annotation = new Annotation;
  annotation->load(stream);
  return wrap(qv::qvPointer<qvAnnotationInterface>(annotation.get()));
}

ViewPointer loadOldText(qv::qvBaseStream& stream) {
  qv::qvPointer<qvAnnotationText> const text = new qvAnnotationText;
  text->loadPrior_6_15(stream);
  return wrap(qv::qvPointer<qvAnnotationInterface>(text.get()));
}

ViewPointer loadRun(qv::qvBaseStream& stream) {
  qv::qvPointer<qvAnnotationText> const text = new qvAnnotationText;
  text->m_lines.emplace_back().emplace_back().load(stream);
  return wrap(qv::qvPointer<qvAnnotationInterface>(text.get()));
}

ViewPointer loadBase(qv::qvBaseStream& stream) {
  qv::qvPointer<qvAnnotationInterface> const annotation =
      new qvAnnotationInterface(qvAnnotationInterface::Unknown);
  annotation->load(stream);
  return wrap(annotation);
}

/// A view with what was loaded.
ViewPointer load(qv::qvBaseStream& stream, Record record) {
  switch (record) {
    case Record::View:
      break;
    case Record::Text:
      return loadAnnotation<qvAnnotationText>(stream);
    case Record::Raster:
      return loadAnnotation<qvAnnotationRaster>(stream);
    case Record::Interface:
      return loadBase(stream);
    case Record::OldText:
      return loadOldText(stream);
    case Record::MetaData: {
      // Its links wait in the stream, and go with it.
      qv::qvPointer<qvAnnotationMetaData> const metaData = new qvAnnotationMetaData;
      metaData->Load(stream);
      return new qvAnnotationView;
    }
    case Record::Run:
      return loadRun(stream);
    case Record::Properties: {
      qvAnnotationText::TextProperties properties;
      properties.load(stream);
      return wrap(properties);
    }
  }
  ViewPointer view = new qvAnnotationView;
  view->Load(stream);
  return view;
}

struct Loaded {
  ViewPointer m_view;
  std::uint64_t m_position;
  bool m_isGood;
};

Loaded loadFrom(std::span<std::uint8_t const> bytes, Setting const& setting) {
  qv::qvStreamLimits limits;
  limits.m_maxFailedReads = 2'000;
  qv::qvStreamGovernor governor(limits);
  qv::qvMemoryStream stream(std::as_bytes(bytes), setting.m_version);
  if (setting.m_isBounded) stream.SetGovernor(&governor);
  ViewPointer const view = load(stream, setting.m_record);
  return {view, stream.GetPosition(), !stream.hasStreamError()};
}

}  // namespace

void runTarget(InputCursor& input) {
  Setting const setting = takeSetting(input);
  auto const bytes = input.takeRest();
  Loaded const loaded = loadFrom(bytes, setting);
  requireEqualCopies(*loaded.m_view);
  if (!loaded.m_isGood) return;
  Loaded const again = loadFrom(bytes.first(static_cast<std::size_t>(loaded.m_position)), setting);
  require(again.m_isGood, "what was read without an error is all that it takes");
  requireNone(qvStreamTest::findDifference(*again.m_view, *loaded.m_view), "equal bytes give equal objects");
  // The newest version holds everything but annotations of no kind.
  requireRoundTrip(makeDocument(loaded.m_view), qvToolkit::getNewestWritableVersion(),
                   setting.m_record != Record::Interface);
}

}  // namespace qvFuzz
