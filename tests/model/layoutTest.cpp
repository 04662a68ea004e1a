#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstddef>
#include <vector>

#include "annotationLegacy/iterateOverAnnotationTree.h"
#include "annotationLegacy/qvAnnotationMetaData.h"
#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "annotationLegacy/qvAnnotationView.h"
#include "annotationLegacy/qvLogObject.h"

// The binary interface: where fields stand and which slot a virtual operation has.

namespace {

using namespace qvLegacy;
using TextProperties = qvAnnotationText::TextProperties;
using TextSegment = qvAnnotationText::TextSegment;

static_assert(sizeof(qvAnnotationInterface::Leader) == 16);
static_assert(sizeof(qvAnnotationInterface::MeasureLeader) == 40);
static_assert(sizeof(qvAnnotationInterface::SubAnnot) == 16);
static_assert(sizeof(TextSegment) == 24);
static_assert(sizeof(qvAnnotationInterface::Type) == 1);
static_assert(sizeof(qvAnnotationInterface::AnchorLocation) == 4);
static_assert(sizeof(TextSegment::SegmentType) == 1);
static_assert(sizeof(annotation::IterateOverAnnotationTreeFunctorInterface) == sizeof(void*));

/// Slot of a virtual operation in its class's table, as the Itanium C++ ABI encodes it; 0 and 1 are the
/// destructors.
template <class Method>
std::ptrdiff_t slotOf(Method method) {
  auto const encoded = std::bit_cast<std::array<std::ptrdiff_t, 2>>(method)[0];
  EXPECT_EQ(encoded % 2, 1) << "not virtual";
  return (encoded - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

template <class Class>
std::vector<std::ptrdiff_t> slotsOfObject() {
  return {slotOf(&Class::GetType),
          slotOf(&Class::IncrementReferences),
          slotOf(&Class::DecrementReferences),
          slotOf(&Class::GetReferences),
          slotOf(&Class::Load),
          slotOf(&Class::PostLink),
          slotOf(&Class::Save),
          slotOf(&Class::Equals),
          slotOf(&Class::Clone),
          slotOf(&Class::GetControllerQuantity),
          slotOf(&Class::GetController),
          slotOf(&Class::SetControllerQuantity),
          slotOf(&Class::SetController),
          slotOf(&Class::AttachController),
          slotOf(&Class::DetachController),
          slotOf(&Class::DetachAllControllers),
          slotOf(&Class::GetObjectByName),
          slotOf(&Class::GetAllObjectsByName),
          slotOf(&Class::GetObjectByID),
          slotOf(&Class::SetName),
          slotOf(&Class::GetName),
          slotOf(&Class::debugObject)};
}

std::vector<std::ptrdiff_t> const OBJECT_SLOTS = {2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12,
                                                  13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23};

TEST(Layout, ObjectsHaveTheirOperationsInTheStatedSlots) {
  EXPECT_EQ(slotsOfObject<qvAnnotationInterface>(), OBJECT_SLOTS);
  EXPECT_EQ(slotsOfObject<qvAnnotationView>(), OBJECT_SLOTS);
  EXPECT_EQ(slotsOfObject<qvAnnotationMetaData>(), OBJECT_SLOTS);
}

TEST(Layout, AnnotationsAddTheirReadersAtTheEnd) {
  EXPECT_EQ(slotOf(&qvAnnotationInterface::load), 24);
  EXPECT_EQ(slotOf(&qvAnnotationInterface::loadFromVariant), 25);
  EXPECT_EQ(slotOf(&qvAnnotationText::load), 24);
  EXPECT_EQ(slotOf(&qvAnnotationText::loadFromVariant), 25);
  EXPECT_EQ(slotOf(&qvAnnotationRaster::load), 24);
  EXPECT_EQ(slotOf(&qvAnnotationRaster::loadFromVariant), 25);
}

TEST(Layout, VisitorsAreAskedAtTheStartBeforeTheEnd) {
  using Visitor = annotation::IterateOverAnnotationTreeFunctorInterface;
  EXPECT_EQ(slotOf(&Visitor::startProcessingAnnot), 2);
  EXPECT_EQ(slotOf(&Visitor::endProcessingAnnot), 3);
}

/// Fails unless the fields follow each other in the given order behind the start of the object.
template <class Object, class... Fields>
void expectFieldsInOrder(Object const& object, Fields const&... fields) {
  auto const* previous = reinterpret_cast<std::byte const*>(&object) - 1;
  std::size_t index = 0;
  for (void const* field : {static_cast<void const*>(&fields)...}) {
    auto const* const position = static_cast<std::byte const*>(field);
    EXPECT_LT(previous, position) << "field " << index;
    previous = position;
    ++index;
  }
  EXPECT_LT(previous, reinterpret_cast<std::byte const*>(&object + 1));
}

TEST(Layout, FieldsOfAnnotationsStandInTheStatedOrder) {
  qvAnnotationInterface const a(qvAnnotationInterface::Unknown);
  expectFieldsInOrder(a, a.m_leaders, a.m_measures, a.m_position, a.m_color, a.m_name, a.m_metadata,
                      a.m_subAnnots, a.m_type, a.m_style);
  qvAnnotationText const text;
  expectFieldsInOrder(text, text.m_style, text.m_defaultTextProperties, text.m_lines);
  qvAnnotationRaster const raster;
  expectFieldsInOrder(raster, raster.m_style, raster.m_rasterName, raster.m_size);
}

TEST(Layout, FieldsOfRecordsStandInTheStatedOrder) {
  qvAnnotationInterface::Leader const leader;
  expectFieldsInOrder(leader, leader.m_position, leader.m_head);
  qvAnnotationInterface::MeasureLeader const measure;
  expectFieldsInOrder(measure, measure.m_pointA, measure.m_pointB, measure.m_offset, measure.m_arrowDir);
  qvAnnotationInterface::SubAnnot const node;
  expectFieldsInOrder(node, node.m_annot, node.m_anchor);
  TextSegment const run;
  expectFieldsInOrder(run, run.m_text, run.m_textProperties, run.m_length, run.m_type);
}

TEST(Layout, HeightAndStyleOfATextAreOneWordWithTheHeightInItsLowHalf) {
  TextProperties const properties;
  expectFieldsInOrder(properties, properties.m_fontName, properties.m_height, properties.m_styleFlags);
  EXPECT_EQ(&properties.m_styleFlags, &properties.m_height + 1);
}

TEST(Layout, FieldsOfViewsAndMetadataStandInTheStatedOrder) {
  qvAnnotationView const view;
  expectFieldsInOrder(view, view.m_name, view.m_planeOrigin, view.m_planeNormal, view.m_planeXAxis,
                      view.m_annotations, view.m_metadata);
  qvAnnotationMetaData const metadata;
  expectFieldsInOrder(metadata, metadata.m_views);
}

TEST(Layout, FieldsOfLogRecordsStandInTheStatedOrder) {
  qv::qvLogObject const record(qv::qvLogInfo, nullptr, nullptr, nullptr, false);
  expectFieldsInOrder(record, record.m_threadId, record.m_category, record.m_systemLogTag, record.m_targetLog,
                      record.m_text, record.m_type, record.m_time, record.m_flag);
}

}  // namespace
