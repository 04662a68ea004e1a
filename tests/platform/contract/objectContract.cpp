#include <gtest/gtest.h>

#include "platformUnderTest.h"
#include "ports/stream.h"

namespace {

/// Tells when it is deleted, and keeps its name.
class Watched : public qv::qvObject {
 public:
  explicit Watched(bool& deleted) : m_deleted(deleted) {}
  Watched(Watched const&) = default;
  ~Watched() override { m_deleted = true; }
  void SetName(std::string const& name) override { m_name = name; }
  std::string m_name;

 private:
  bool& m_deleted;
};

TEST(ObjectContract, AnObjectBeginsWithoutReferencesAndIsDeletedAtTheLast) {
  bool deleted = false;
  auto* const object = new Watched(deleted);
  EXPECT_EQ(object->GetReferences(), 0);
  object->IncrementReferences();
  object->IncrementReferences();
  object->DecrementReferences();
  EXPECT_EQ(object->GetReferences(), 1);
  EXPECT_FALSE(deleted);
  object->DecrementReferences();
  EXPECT_TRUE(deleted);
}

TEST(ObjectContract, APointerHoldsOneReferenceAndIsLaidOutAsAPlainOne) {
  static_assert(sizeof(qv::qvPointer<Watched>) == sizeof(Watched*));
  bool deleted = false;
  {
    qv::qvPointer<Watched> const first(new Watched(deleted));
    qv::qvPointer<qv::qvObject> second(first);
    EXPECT_EQ(first->GetReferences(), 2);
    second = nullptr;
    EXPECT_EQ(first->GetReferences(), 1);
  }
  EXPECT_TRUE(deleted);
}

TEST(ObjectContract, ACopyIsANewObjectWithoutReferences) {
  bool deleted = false;
  qv::qvPointer<Watched> const original(new Watched(deleted));
  qv::qvPointer<Watched> const copy(new Watched(*original));
  EXPECT_EQ(copy->GetReferences(), 1);
}

TEST(ObjectContract, TheBaseReadsItsNameAndHandsItToTheVirtualSetter) {
  qvContract::Bytes const bytes = qvContract::Bytes().countedString("Top view").u32(0xABCD);
  qvContract::MemoryStream stream(bytes.get(), 0x60016);
  bool deleted = false;
  qv::qvPointer<Watched> const object(new Watched(deleted));
  object->qvObject::Load(stream);
  EXPECT_EQ(object->m_name, "Top view");
  std::uint32_t next = 0;
  stream.readle(4, 1, &next);
  EXPECT_EQ(next, 0xABCDU) << "not a byte more";
}

TEST(ObjectContract, ABaseWithoutNameAndControllersAnswersForItself) {
  bool deleted = false;
  qv::qvPointer<Watched> const object(new Watched(deleted));
  EXPECT_EQ(object->GetControllerQuantity(), 0);
  EXPECT_EQ(object->GetObjectByName("nobody"), nullptr);
  EXPECT_TRUE(qv::qvRttiInterface::sEmptyString.empty());
  EXPECT_TRUE(object->GetType().IsExactly(qv::qvObject::TYPE));
}

TEST(ObjectContract, MetadataReadTheirNameAndTheirType) {
  qvContract::Bytes const bytes = qvContract::Bytes().countedString("").u32(5).u32(0xABCD);
  qvContract::MemoryStream stream(bytes.get(), 0x60016);
  qv::qvPointer<qv::qvMetadataInterface> const metadata(new qv::qvMetadataInterface(5));
  metadata->Load(stream);
  std::uint32_t next = 0;
  stream.readle(4, 1, &next);
  EXPECT_EQ(next, 0xABCDU);
}

TEST(ObjectContract, MetadataCopyTheirBasePartOnlyIntoMetadata) {
  qv::qvPointer<qv::qvMetadataInterface> const source(new qv::qvMetadataInterface(5));
  qv::qvPointer<qv::qvMetadataInterface> const metadata(new qv::qvMetadataInterface(5));
  bool deleted = false;
  qv::qvPointer<Watched> const other(new Watched(deleted));
  qv::qvRttiInterface* target = metadata.get();
  EXPECT_TRUE(source->Clone(target));
  target = other.get();
  EXPECT_FALSE(source->Clone(target));
  EXPECT_TRUE(source->Equals(metadata.get()));
}

TEST(ObjectContract, TypeRecordsKnowTheirAncestors) {
  qv::qvRtti const base("contract.Base", nullptr);
  qv::qvRtti const derived("contract.Derived", &base);
  EXPECT_STREQ(derived.GetName(), "contract.Derived");
  EXPECT_TRUE(derived.IsDerived(base));
  EXPECT_TRUE(derived.IsDerived(derived));
  EXPECT_FALSE(base.IsDerived(derived));
  EXPECT_TRUE(qv::qvMetadataInterface::TYPE.IsDerived(qv::qvObject::TYPE));
  EXPECT_EQ(qv::qvRtti(nullptr, &base).GetName(), nullptr);
}

}  // namespace
