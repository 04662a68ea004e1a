#include "qvSceneGraph/qvMetadataInterface.h"

#include <gtest/gtest.h>

#include "qvSystem/qvMemoryStream.h"
#include "tests/platform/system/byteWriter.h"

namespace {

using qv::qvMetadataInterface;
using qvTest::ByteWriter;

class OtherMetadata : public qvMetadataInterface {
 public:
  static qv::qvRtti const TYPE;
  OtherMetadata() : qvMetadataInterface(5) {}
  qv::qvRtti const& GetType() const override { return TYPE; }
};

qv::qvRtti const OtherMetadata::TYPE("test.metadata", &qvMetadataInterface::TYPE);

TEST(MetadataInterface, KeepsTheTypeItIsMadeWith) {
  EXPECT_EQ(qvMetadataInterface(5).GetMetadataTypeId(), 5U);
  EXPECT_TRUE(qvMetadataInterface::TYPE.IsDerived(qv::qvObject::TYPE));
}

TEST(MetadataInterface, LoadsANameAndTheMetadataType) {
  ByteWriter const bytes = ByteWriter().text("ignored").u32(9);
  qv::qvMemoryStream in(bytes.bytes(), 0);
  qvMetadataInterface object(5);
  object.Load(in);
  EXPECT_EQ(object.GetMetadataTypeId(), 9U);
  EXPECT_EQ(object.GetName(), "");
  EXPECT_EQ(in.GetBytesLeft(), 0U);
  EXPECT_FALSE(in.hasStreamError());
}

TEST(MetadataInterface, AShortMetadataTypeKeepsTheOldOne) {
  ByteWriter const bytes = ByteWriter().text("").raw("\1\2");
  qv::qvMemoryStream in(bytes.bytes(), 0);
  qvMetadataInterface object(5);
  object.Load(in);
  EXPECT_EQ(object.GetMetadataTypeId(), 5U);
  EXPECT_TRUE(in.hasStreamError());
}

TEST(MetadataInterface, EqualsComparesClassAndMetadataType) {
  qvMetadataInterface const five(5);
  qvMetadataInterface const alsoFive(5);
  qvMetadataInterface const six(6);
  OtherMetadata const otherClass;
  EXPECT_TRUE(five.Equals(&alsoFive));
  EXPECT_FALSE(five.Equals(&six));
  EXPECT_FALSE(five.Equals(&otherClass));
  EXPECT_FALSE(five.Equals(nullptr));
}

TEST(MetadataInterface, CloneCopiesTheBasePartIntoMetadataOnly) {
  qvMetadataInterface const source(6);
  OtherMetadata metadata;
  qv::qvRttiInterface* target = &metadata;
  EXPECT_TRUE(source.Clone(target));
  EXPECT_EQ(metadata.GetMetadataTypeId(), 6U);
  qv::qvController noMetadata;
  target = &noMetadata;
  EXPECT_FALSE(source.Clone(target));
  target = nullptr;
  EXPECT_FALSE(source.Clone(target));
  EXPECT_EQ(target, nullptr);
}

}  // namespace
