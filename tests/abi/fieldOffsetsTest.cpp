// Where the fields of the public classes stand: hosts read and write them, so none may move.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include "annotationLegacy/iterateOverAnnotationTree.h"
#include "annotationLegacy/qvAnnotationMetaData.h"
#include "annotationLegacy/qvAnnotationMigration.h"
#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "annotationLegacy/qvAnnotationView.h"
#include "annotationLegacy/qvLogObject.h"
#include "transform/qvGenericTransformation.h"

// The compilers lay classes with a base out as the Itanium C++ ABI says, and know the offsets.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

namespace {

using namespace qvLegacy;
using Annotation = qvAnnotationInterface;
using TextProperties = qvAnnotationText::TextProperties;
using TextSegment = qvAnnotationText::TextSegment;
using Transformation = qv::qvGenericTransformation<float>;
using DoubleTransformation = qv::qvGenericTransformation<double>;

constexpr std::size_t POINT = 3 * sizeof(float);
constexpr std::size_t VECTOR = sizeof(std::vector<int>);
constexpr std::size_t STRING = sizeof(std::string);
constexpr std::size_t MAP = sizeof(qv::qvVariant::qvVariantMapImpl);

// What the standard library and the platform bring along.
static_assert(VECTOR == 24 && STRING == 32 && MAP == 48);
static_assert(sizeof(Wm4::Vector3<float>) == POINT && sizeof(Wm4::Vector3<unsigned char>) == 3);
static_assert(sizeof(qv::qvPointer<Annotation>) == sizeof(void*));

// Persisted numbers have the stated width.
static_assert(sizeof(Annotation::Type) == 1 && sizeof(Annotation::LeaderHead) == 1);
static_assert(sizeof(Annotation::MeasureArrowDirection) == 1 && sizeof(Annotation::FrameShape) == 1);
static_assert(sizeof(Annotation::AnchorLocation) == 4 && sizeof(TextSegment::SegmentType) == 1);
static_assert(sizeof(qv::qvLogType) == 4 && sizeof(qvAnnotationView::AnnotationCopyMode) == 4);

// Leader.
static_assert(offsetof(Annotation::Leader, m_position) == 0);
static_assert(offsetof(Annotation::Leader, m_head) == POINT);
static_assert(sizeof(Annotation::Leader) == 16 && std::is_standard_layout_v<Annotation::Leader>);

// Measure leader.
static_assert(offsetof(Annotation::MeasureLeader, m_pointA) == 0);
static_assert(offsetof(Annotation::MeasureLeader, m_pointB) == POINT);
static_assert(offsetof(Annotation::MeasureLeader, m_offset) == 2 * POINT);
static_assert(offsetof(Annotation::MeasureLeader, m_arrowDir) == 3 * POINT);
static_assert(sizeof(Annotation::MeasureLeader) == 40 &&
              std::is_standard_layout_v<Annotation::MeasureLeader>);

// Node of a child list.
static_assert(offsetof(Annotation::SubAnnot, m_annot) == 0);
static_assert(offsetof(Annotation::SubAnnot, m_anchor) == 8);
static_assert(sizeof(Annotation::SubAnnot) == 16);

// Annotation.
constexpr std::size_t A = sizeof(qv::qvObject);
static_assert(offsetof(Annotation, m_leaders) == A);
static_assert(offsetof(Annotation, m_measures) == A + VECTOR);
static_assert(offsetof(Annotation, m_position) == A + 2 * VECTOR);
static_assert(offsetof(Annotation, m_color) == A + 2 * VECTOR + POINT);
static_assert(offsetof(Annotation, m_name) == A + 2 * VECTOR + POINT + 4);
static_assert(offsetof(Annotation, m_metadata) == A + 2 * VECTOR + POINT + 4 + STRING);
static_assert(offsetof(Annotation, m_subAnnots) == A + 2 * VECTOR + POINT + 4 + STRING + MAP);
static_assert(offsetof(Annotation, m_type) == A + 2 * VECTOR + POINT + 4 + STRING + MAP + 8);
static_assert(offsetof(Annotation, m_style) == A + 2 * VECTOR + POINT + 4 + STRING + MAP + 9);
static_assert(sizeof(Annotation) == A + 2 * VECTOR + POINT + 4 + STRING + MAP + 16);

// Text properties: height and style flags are the two halves of one word.
static_assert(offsetof(TextProperties, m_fontName) == 0);
static_assert(offsetof(TextProperties, m_height) == STRING);
static_assert(offsetof(TextProperties, m_styleFlags) == STRING + 2);
static_assert(sizeof(TextProperties) == STRING + 8);

// Run of text.
static_assert(offsetof(TextSegment, m_text) == 0 && offsetof(TextSegment, m_textProperties) == 8);
static_assert(offsetof(TextSegment, m_length) == 16 && offsetof(TextSegment, m_type) == 18);
static_assert(sizeof(TextSegment) == 24);

// Text: a linked list is three words, its length among them.
static_assert(sizeof(qvAnnotationText::Line) == 24 && sizeof(qvAnnotationText::LineList) == 24);
static_assert(offsetof(qvAnnotationText, m_defaultTextProperties) == sizeof(Annotation));
static_assert(offsetof(qvAnnotationText, m_lines) == sizeof(Annotation) + sizeof(TextProperties));
static_assert(sizeof(qvAnnotationText) == sizeof(Annotation) + sizeof(TextProperties) + 24);

// Raster.
static_assert(offsetof(qvAnnotationRaster, m_rasterName) == sizeof(Annotation));
static_assert(offsetof(qvAnnotationRaster, m_size) == sizeof(Annotation) + STRING);
static_assert(sizeof(qvAnnotationRaster) == sizeof(Annotation) + STRING + 2 * sizeof(float));

// View.
constexpr std::size_t V = sizeof(qv::qvObject);
static_assert(offsetof(qvAnnotationView, m_name) == V);
static_assert(offsetof(qvAnnotationView, m_planeOrigin) == V + STRING);
static_assert(offsetof(qvAnnotationView, m_planeNormal) == V + STRING + POINT);
static_assert(offsetof(qvAnnotationView, m_planeXAxis) == V + STRING + 2 * POINT);
static_assert(offsetof(qvAnnotationView, m_annotations) == V + STRING + 3 * POINT + 4);
static_assert(offsetof(qvAnnotationView, m_metadata) == V + STRING + 3 * POINT + 4 + VECTOR);
static_assert(sizeof(qvAnnotationView) == V + STRING + 3 * POINT + 4 + VECTOR + MAP);

// Metadata.
static_assert(offsetof(qvAnnotationMetaData, m_views) == sizeof(qv::qvMetadataInterface));
static_assert(sizeof(qvAnnotationMetaData) == sizeof(qv::qvMetadataInterface) + VECTOR);

// Log record.
static_assert(offsetof(qv::qvLogObject, m_threadId) == 0 && offsetof(qv::qvLogObject, m_category) == STRING);
static_assert(offsetof(qv::qvLogObject, m_systemLogTag) == STRING + 8);
static_assert(offsetof(qv::qvLogObject, m_targetLog) == STRING + 16);
static_assert(offsetof(qv::qvLogObject, m_text) == STRING + 24);
static_assert(offsetof(qv::qvLogObject, m_type) == STRING + 32);
static_assert(offsetof(qv::qvLogObject, m_time) == STRING + 40);
static_assert(offsetof(qv::qvLogObject, m_flag) == STRING + 48 && sizeof(qv::qvLogObject) == STRING + 56);

// Migration.
static_assert(offsetof(qvAnnotationMigration, m_options) == 0);
static_assert(offsetof(qvAnnotationMigration, m_rasterCallback) == 8);
static_assert(offsetof(qvAnnotationMigration, m_userData) == 16);
static_assert(offsetof(qvAnnotationMigration, m_headSize) == 24);
static_assert(offsetof(qvAnnotationMigration, m_textConverter) == 32 && sizeof(qvAnnotationMigration) == 40);

// Transform.
static_assert(offsetof(Transformation, m_matrix) == 0 && offsetof(Transformation, m_translate) == 36);
static_assert(offsetof(Transformation, m_scale) == 48 && offsetof(Transformation, m_isIdentity) == 60);
static_assert(offsetof(Transformation, m_isRSMatrix) == 61 &&
              offsetof(Transformation, m_isUniformScale) == 62);
static_assert(sizeof(Transformation) == 64);
static_assert(offsetof(DoubleTransformation, m_translate) == 72 &&
              offsetof(DoubleTransformation, m_scale) == 96);
static_assert(offsetof(DoubleTransformation, m_isIdentity) == 120 && sizeof(DoubleTransformation) == 128);

// Visitors: the interface has no field, the counter one reference.
static_assert(sizeof(annotation::IterateOverAnnotationTreeFunctorInterface) == sizeof(void*));
static_assert(sizeof(annotation::CountAnnotationFunctor) == 2 * sizeof(void*));

/// The compiler's offsets are what it uses: a value that is written through an offset is read by its name.
TEST(FieldOffsets, LeadWhereTheNamesLead) {
  qvAnnotationText text;
  *(reinterpret_cast<std::uint8_t*>(&text) + offsetof(Annotation, m_style)) = 0xA5;
  EXPECT_EQ(text.m_style, 0xA5);
  EXPECT_EQ(text.m_type, Annotation::Text);
}

TEST(FieldOffsets, CountersOfVisitorsFollowTheTable) {
  unsigned int count = 0;
  annotation::CountAnnotationFunctor const counter(count);
  unsigned int* const* const field = reinterpret_cast<unsigned int* const*>(&counter) + 1;
  EXPECT_EQ(*field, &count);
}

}  // namespace
