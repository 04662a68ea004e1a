#include <memory>

#include "annotationLegacy/library.h"
#include "annotationLegacy/qvAnnotationMetaData.h"
#include "tests/support/streamTest.h"

namespace qvStreamTest {

namespace {

using qv::qvRttiInterface;

constexpr char const* EntryPointName = "qvCore.qvAnnotationMetadata";
constexpr char const* RecordName = "qvCore.qvAnnotationMetaData";

TEST(LibrarySession, RegistersBothSpellingsOfTheMetadataType) {
  {
    LibrarySession const session;
    EXPECT_NE(qvRttiInterface::FindFactoryFunction(EntryPointName), nullptr);
    EXPECT_NE(qvRttiInterface::FindFactoryFunction(RecordName), nullptr);
  }
  EXPECT_EQ(qvRttiInterface::FindFactoryFunction(EntryPointName), nullptr);
  EXPECT_EQ(qvRttiInterface::FindFactoryFunction(RecordName), nullptr);
}

TEST(LibrarySession, OfTheLibraryAloneRegistersOnlyOneSpelling) {
  qv::initializeQvAnnotationLegacyLibrary();
  EXPECT_NE(qvRttiInterface::FindFactoryFunction(EntryPointName), nullptr);
  EXPECT_EQ(qvRttiInterface::FindFactoryFunction(RecordName), nullptr);
  qv::terminateQvAnnotationLegacyLibrary();
}

TEST(LibrarySession, MayOverlapWithAnother) {
  auto first = std::make_unique<LibrarySession>();
  auto second = std::make_unique<LibrarySession>();
  first.reset();
  EXPECT_NE(qvRttiInterface::FindFactoryFunction(RecordName), nullptr);
  second.reset();
  EXPECT_EQ(qvRttiInterface::FindFactoryFunction(RecordName), nullptr);
}

}  // namespace

}  // namespace qvStreamTest
