#include <gtest/gtest.h>

#include <cstring>

#include "annotationLegacy/qvAnnotationMetaData.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "annotationLegacy/qvAnnotationView.h"

namespace {

using namespace qvLegacy;

TEST(TypeRecords, ViewDescendsFromTheObject) {
  EXPECT_STREQ(qvAnnotationView::TYPE.GetName(), "qvCore.qvAnnotationView");
  EXPECT_EQ(std::strlen(qvAnnotationView::TYPE.GetName()), 23U);
  EXPECT_EQ(qvAnnotationView::TYPE.GetParent(), &qv::qvObject::TYPE);
  EXPECT_EQ(&qvAnnotationView().GetType(), &qvAnnotationView::TYPE);
}

TEST(TypeRecords, MetadataDescendsFromTheMetadataInterface) {
  EXPECT_STREQ(qvAnnotationMetaData::TYPE.GetName(), "qvCore.qvAnnotationMetaData");
  EXPECT_EQ(std::strlen(qvAnnotationMetaData::TYPE.GetName()), 27U);
  EXPECT_EQ(qvAnnotationMetaData::TYPE.GetParent(), &qv::qvMetadataInterface::TYPE);
  EXPECT_EQ(&qvAnnotationMetaData().GetType(), &qvAnnotationMetaData::TYPE);
}

TEST(TypeRecords, AnnotationsHaveNoneOfTheirOwn) {
  EXPECT_EQ(&qvAnnotationText().GetType(), &qv::qvObject::TYPE);
}

TEST(TypeRecords, MetadataTypeIdentifierIsFive) {
  EXPECT_EQ(qvAnnotationMetaData::MetadataTypeId, 5U);
  EXPECT_EQ(qvAnnotationMetaData().GetMetadataTypeId(), 5U);
}

}  // namespace
