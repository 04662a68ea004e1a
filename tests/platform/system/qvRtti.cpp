#include "qvSystem/qvRtti.h"

#include <gtest/gtest.h>

#include "qvSystem/qvRttiInterface.h"

namespace {

qv::qvRtti const animal("animal", nullptr);
qv::qvRtti const dog("dog", &animal);
qv::qvRtti const puppy("puppy", &dog);
qv::qvRtti const secondDog("dog", &animal);

TEST(Rtti, KeepsTheAddressesOfNameAndParent) {
  EXPECT_STREQ(dog.GetName(), "dog");
  EXPECT_EQ(dog.GetParent(), &animal);
  EXPECT_EQ(animal.GetParent(), nullptr);
}

TEST(Rtti, ARecordMayHaveNoName) {
  EXPECT_EQ(qv::qvRtti(nullptr, nullptr).GetName(), nullptr);
}

TEST(Rtti, IsDerivedFromItselfAndEveryAncestor) {
  EXPECT_TRUE(puppy.IsDerived(puppy));
  EXPECT_TRUE(puppy.IsDerived(dog));
  EXPECT_TRUE(puppy.IsDerived(animal));
}

TEST(Rtti, IsNotDerivedFromDescendantsOrSiblings) {
  EXPECT_FALSE(animal.IsDerived(dog));
  EXPECT_FALSE(dog.IsDerived(secondDog));
}

TEST(Rtti, ComparesByIdentityAndNotByName) {
  EXPECT_TRUE(dog.IsExactly(dog));
  EXPECT_FALSE(dog.IsExactly(secondDog));
  EXPECT_FALSE(puppy.IsExactly(dog));
}

qv::qvRttiInterface* firstFactory(qv::qvBaseStream&) {
  return nullptr;
}
qv::qvRttiInterface* secondFactory(qv::qvBaseStream&) {
  return nullptr;
}

TEST(FactoryRegistry, FindsWhatIsRegisteredUntilItIsUnregistered) {
  EXPECT_EQ(qv::qvRttiInterface::FindFactoryFunction("test.A"), nullptr);
  qv::qvRttiInterface::RegisterFactoryFunction("test.A", firstFactory);
  EXPECT_EQ(qv::qvRttiInterface::FindFactoryFunction("test.A"), &firstFactory);
  qv::qvRttiInterface::UnregisterFactoryFunction("test.A");
  EXPECT_EQ(qv::qvRttiInterface::FindFactoryFunction("test.A"), nullptr);
}

TEST(FactoryRegistry, ASecondRegistrationReplacesTheFirst) {
  qv::qvRttiInterface::RegisterFactoryFunction("test.A", firstFactory);
  qv::qvRttiInterface::RegisterFactoryFunction("test.A", secondFactory);
  EXPECT_EQ(qv::qvRttiInterface::FindFactoryFunction("test.A"), &secondFactory);
  qv::qvRttiInterface::UnregisterFactoryFunction("test.A");
  EXPECT_EQ(qv::qvRttiInterface::FindFactoryFunction("test.A"), nullptr);
}

TEST(FactoryRegistry, TellsNamesApartByCase) {
  qv::qvRttiInterface::RegisterFactoryFunction("test.MetaData", firstFactory);
  EXPECT_EQ(qv::qvRttiInterface::FindFactoryFunction("test.Metadata"), nullptr);
  qv::qvRttiInterface::UnregisterFactoryFunction("test.MetaData");
}

TEST(FactoryRegistry, UnregisteringAnUnknownNameChangesNothing) {
  qv::qvRttiInterface::RegisterFactoryFunction("test.A", firstFactory);
  qv::qvRttiInterface::UnregisterFactoryFunction("test.B");
  EXPECT_EQ(qv::qvRttiInterface::FindFactoryFunction("test.A"), &firstFactory);
  qv::qvRttiInterface::UnregisterFactoryFunction("test.A");
}

TEST(RttiInterface, TheSharedEmptyStringIsEmpty) {
  EXPECT_TRUE(qv::qvRttiInterface::sEmptyString.empty());
}

// Built while the test program's static objects are: the platform must be ready for that.
struct StaticUser {
  StaticUser() : m_name(qv::qvRttiInterface::sEmptyString) {
    qv::qvRttiInterface::RegisterFactoryFunction("test.static", firstFactory);
  }
  ~StaticUser() { qv::qvRttiInterface::UnregisterFactoryFunction("test.static"); }
  std::string m_name;
} const staticUser;

TEST(FactoryRegistry, ServesStaticObjectsOfOtherLibraries) {
  EXPECT_EQ(qv::qvRttiInterface::FindFactoryFunction("test.static"), &firstFactory);
  EXPECT_TRUE(staticUser.m_name.empty());
}

}  // namespace
