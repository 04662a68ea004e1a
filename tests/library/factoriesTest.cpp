#include <gtest/gtest.h>
#include <qvSystem/qvMemoryStream.h>

#include "annotationLegacy/library.h"
#include "annotationLegacy/qvAnnotationMetaData.h"
#include "annotationLegacy/qvAnnotationView.h"

namespace {

using namespace qvLegacy;

qv::qvRttiInterface::FactoryFunction factoryOf(char const* typeName) {
  return qv::qvRttiInterface::FindFactoryFunction(typeName);
}

constexpr char const* VIEW = "qvCore.qvAnnotationView";
constexpr char const* REGISTERED_METADATA = "qvCore.qvAnnotationMetadata";
constexpr char const* RECORDED_METADATA = "qvCore.qvAnnotationMetaData";

TEST(Factories, InitialisationRegistersTheMetadataWithALowerCaseLetter) {
  qv::initializeQvAnnotationLegacyLibrary();
  EXPECT_EQ(factoryOf(VIEW), &qvAnnotationView::Factory);
  EXPECT_EQ(factoryOf(REGISTERED_METADATA), &qvAnnotationMetaData::Factory);
  EXPECT_EQ(factoryOf(RECORDED_METADATA), nullptr);
  qv::terminateQvAnnotationLegacyLibrary();
  EXPECT_EQ(factoryOf(VIEW), nullptr);
  EXPECT_EQ(factoryOf(REGISTERED_METADATA), nullptr);
}

TEST(Factories, MetadataRegistersItselfUnderItsTypeRecordsNameAndOutlivesTheLibrary) {
  qv::initializeQvAnnotationLegacyLibrary();
  qvAnnotationMetaData::RegisterFactory();
  EXPECT_EQ(factoryOf(RECORDED_METADATA), &qvAnnotationMetaData::Factory);
  qv::terminateQvAnnotationLegacyLibrary();
  EXPECT_EQ(factoryOf(RECORDED_METADATA), &qvAnnotationMetaData::Factory);
  qvAnnotationMetaData::UnRegisterFactory();
  EXPECT_EQ(factoryOf(RECORDED_METADATA), nullptr);
}

TEST(Factories, ViewRegistersItselfUnderTheSameNameAsTheLibraryDoes) {
  qvAnnotationView::RegisterFactory();
  EXPECT_EQ(factoryOf(VIEW), &qvAnnotationView::Factory);
  qvAnnotationView::UnRegisterFactory();
  EXPECT_EQ(factoryOf(VIEW), nullptr);
}

TEST(Factories, NestedInitialisationLastsUntilTheLastTermination) {
  qv::initializeQvAnnotationLegacyLibrary();
  qv::initializeQvAnnotationLegacyLibrary();
  qv::terminateQvAnnotationLegacyLibrary();
  EXPECT_NE(factoryOf(VIEW), nullptr);
  qv::terminateQvAnnotationLegacyLibrary();
  EXPECT_EQ(factoryOf(VIEW), nullptr);
}

TEST(Factories, TerminationWithoutInitialisationDoesNotSpoilTheCount) {
  qv::terminateQvAnnotationLegacyLibrary();
  qv::initializeQvAnnotationLegacyLibrary();
  EXPECT_NE(factoryOf(VIEW), nullptr);
  qv::terminateQvAnnotationLegacyLibrary();
  EXPECT_EQ(factoryOf(VIEW), nullptr);
}

template <class Object>
void expectObjectInSpiteOfStreamError() {
  qv::qvMemoryStream stream({}, 0x6001B);
  std::unique_ptr<qv::qvRttiInterface> const object(Object::Factory(stream));
  ASSERT_NE(object, nullptr);
  EXPECT_EQ(&object->GetType(), &Object::TYPE);
  EXPECT_EQ(object->GetReferences(), 0);
  EXPECT_TRUE(stream.hasStreamError());
}

TEST(Factories, ReturnTheObjectThatAnEmptyStreamCouldNotFill) {
  expectObjectInSpiteOfStreamError<qvAnnotationView>();
  expectObjectInSpiteOfStreamError<qvAnnotationMetaData>();
}

/// A stream that gives out in the middle of a load.
class ThrowingStream : public qv::qvBaseStream {
 public:
  ThrowingStream() : qvBaseStream(0x6001B) {}
  std::size_t ReadRaw(std::size_t, void*) override { throw std::bad_alloc(); }
};

TEST(Factories, ReleaseTheObjectWhenItsLoadThrows) {
  std::size_t const before = qv::qvObject::GetLiveObjects();
  ThrowingStream stream;
  EXPECT_THROW(qvAnnotationView::Factory(stream), std::bad_alloc);
  EXPECT_THROW(qvAnnotationMetaData::Factory(stream), std::bad_alloc);
  EXPECT_EQ(qv::qvObject::GetLiveObjects(), before);
}

}  // namespace
