#include "qvSceneGraph/qvObject.h"

#include <gtest/gtest.h>

#include "qvSceneGraph/qvSceneGraphLibrary.h"
#include "qvSystem/qvLog.h"
#include "qvSystem/qvMemoryStream.h"
#include "tests/platform/system/byteWriter.h"
#include "tests/support/recordingLog.h"

namespace {

using qv::qvController;
using qv::qvObject;
using qv::qvPointer;
using qvTest::ByteWriter;

class Named : public qvObject {
 public:
  static qv::qvRtti const TYPE;
  Named() = default;
  explicit Named(std::string name) : m_name(std::move(name)) {}
  qv::qvRtti const& GetType() const override { return TYPE; }
  void SetName(std::string const& name) override { m_name = name; }
  std::string const& GetName() const override { return m_name; }

 private:
  std::string m_name;
};

qv::qvRtti const Named::TYPE("test.named", &qvObject::TYPE);

class Object : public ::testing::Test {
 protected:
  void TearDown() override { EXPECT_EQ(qvObject::GetLiveObjects(), m_before); }
  std::size_t m_before = qvObject::GetLiveObjects();
};

TEST_F(Object, StartsWithoutReferencesAndWithAnIdentifierOfItsOwn) {
  Named const first;
  Named const second;
  EXPECT_EQ(first.GetReferences(), 0);
  EXPECT_NE(first.GetID(), second.GetID());
  EXPECT_EQ(qvObject::GetLiveObjects(), m_before + 2);
}

TEST_F(Object, ACopyIsANewObject) {
  Named original("n");
  original.IncrementReferences();
  original.AttachController(new qvController);
  Named const copy = original;
  EXPECT_EQ(copy.GetReferences(), 0);
  EXPECT_NE(copy.GetID(), original.GetID());
  EXPECT_EQ(copy.GetControllerQuantity(), 0);
  EXPECT_EQ(copy.GetName(), "n");
}

TEST_F(Object, AssignmentKeepsIdentifierReferencesAndControllers) {
  qvPointer<Named> const target(new Named);
  target->AttachController(new qvController);
  auto const id = target->GetID();
  *target = Named("n");
  EXPECT_EQ(target->GetID(), id);
  EXPECT_EQ(target->GetReferences(), 1);
  EXPECT_EQ(target->GetControllerQuantity(), 1);
  EXPECT_EQ(target->GetName(), "n");
}

TEST_F(Object, ADecrementWithoutReferencesDoesNothing) {
  auto* const object = new Named;
  object->DecrementReferences();
  EXPECT_EQ(object->GetReferences(), 0);
  delete object;
}

TEST_F(Object, TheRecordsDescendFromTheRoot) {
  EXPECT_TRUE(qvController::TYPE.IsDerived(qvObject::TYPE));
  EXPECT_TRUE(qvObject::TYPE.IsDerived(qv::qvRttiInterface::TYPE));
  EXPECT_FALSE(qvObject::TYPE.IsDerived(qvController::TYPE));
}

TEST_F(Object, LoadHandsACountedStringToSetName) {
  ByteWriter const bytes = ByteWriter().text("view 1").u8(0);
  qv::qvMemoryStream in(bytes.bytes(), 0);
  Named object("old");
  object.Load(in);
  EXPECT_EQ(object.GetName(), "view 1");
  EXPECT_EQ(in.GetReadBytes(), 10U);
  EXPECT_FALSE(in.hasStreamError());
}

TEST_F(Object, ANameLengthBelowOneEmptiesTheName) {
  for (std::int32_t const length : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
    ByteWriter const bytes = ByteWriter().i32(length).raw("x");
    qv::qvMemoryStream in(bytes.bytes(), 0);
    Named object("old");
    object.Load(in);
    EXPECT_EQ(object.GetName(), "");
    EXPECT_EQ(in.GetBytesLeft(), 1U);
    EXPECT_FALSE(in.hasStreamError());
  }
}

TEST_F(Object, ANameShorterThanAnnouncedKeepsTheAnnouncedSize) {
  ByteWriter const bytes = ByteWriter().i32(5).raw("ABC");
  qv::qvMemoryStream in(bytes.bytes(), 0);
  Named object;
  object.Load(in);
  EXPECT_EQ(object.GetName(), std::string("ABC\0\0", 5));
  EXPECT_TRUE(in.hasStreamError());
}

TEST_F(Object, SavingIsAnErrorOfTheStream) {
  qv::qvMemoryStream stream({}, 0);
  Named("n").Save(stream);
  EXPECT_TRUE(stream.hasStreamError());
}

TEST_F(Object, EqualsComparesTypeAndName) {
  Named const a("a");
  EXPECT_TRUE(a.Equals(&a));
  Named const sameName("a");
  Named const otherName("b");
  qvController const otherType;
  EXPECT_TRUE(a.Equals(&sameName));
  EXPECT_FALSE(a.Equals(&otherName));
  EXPECT_FALSE(a.Equals(&otherType));
  EXPECT_FALSE(a.Equals(nullptr));
}

TEST_F(Object, CloneCopiesTheNameIntoAnObject) {
  Named const source("a");
  Named copy;
  qv::qvRttiInterface* target = &copy;
  EXPECT_TRUE(source.Clone(target));
  EXPECT_EQ(copy.GetName(), "a");
  target = nullptr;
  EXPECT_FALSE(source.Clone(target));
  EXPECT_EQ(target, nullptr);
}

TEST_F(Object, ControllersAreHeldByReference) {
  qvPointer<qvController> const controller(new qvController);
  qvPointer<Named> object(new Named);
  object->AttachController(controller);
  object->AttachController(nullptr);
  EXPECT_EQ(object->GetControllerQuantity(), 1);
  EXPECT_EQ(object->GetController(0), controller.get());
  EXPECT_EQ(controller->GetReferences(), 2);
  object = nullptr;
  EXPECT_EQ(controller->GetReferences(), 1);
}

TEST_F(Object, ControllersOutOfRangeAreNull) {
  Named object;
  EXPECT_EQ(object.GetController(0), nullptr);
  object.SetControllerQuantity(2);
  EXPECT_EQ(object.GetControllerQuantity(), 2);
  EXPECT_EQ(object.GetController(1), nullptr);
  EXPECT_EQ(object.GetController(-1), nullptr);
  EXPECT_EQ(object.GetController(2), nullptr);
  object.SetController(1, new qvController);
  EXPECT_NE(object.GetController(1), nullptr);
  qvPointer<qvController> const nowhere(new qvController);
  object.SetController(2, nowhere);
  object.SetController(-1, nowhere);
  EXPECT_EQ(nowhere->GetReferences(), 1);
  object.SetControllerQuantity(-3);
  EXPECT_EQ(object.GetControllerQuantity(), 0);
}

TEST_F(Object, DetachingReleasesTheController) {
  qvPointer<qvController> const first(new qvController);
  qvPointer<qvController> const second(new qvController);
  Named object;
  object.DetachController(first);
  object.AttachController(first);
  object.AttachController(second);
  object.DetachController(first);
  EXPECT_EQ(first->GetReferences(), 1);
  EXPECT_EQ(object.GetController(0), second.get());
  object.DetachAllControllers();
  EXPECT_EQ(second->GetReferences(), 1);
  EXPECT_EQ(object.GetControllerQuantity(), 0);
}

TEST_F(Object, LooksUpNamesAndIdentifiersInItself) {
  Named object("n");
  EXPECT_EQ(object.GetObjectByName("n"), &object);
  EXPECT_EQ(object.GetObjectByName("m"), nullptr);
  EXPECT_EQ(object.GetObjectByID(object.GetID()), &object);
  EXPECT_EQ(object.GetObjectByID(object.GetID() + 1), nullptr);
  std::vector<qvObject*> found;
  object.GetAllObjectsByName("m", found);
  EXPECT_TRUE(found.empty());
  object.GetAllObjectsByName("n", found);
  EXPECT_EQ(found, std::vector<qvObject*>{&object});
}

TEST_F(Object, TheBaseKeepsNoName) {
  qvController object;
  object.SetName("n");
  EXPECT_EQ(&object.GetName(), &qv::qvRttiInterface::sEmptyString);
}

TEST_F(Object, DebugWritesOneIndentedLineToTheProcessLog) {
  qvTest::RecordingLog log;
  qv::qvLog* const before = std::exchange(qv::qvLog::msInstance, &log);
  Named const object("n");
  object.debugObject(2);
  log.SetTypeEnabled(qv::qvLogDebug, false);
  object.debugObject(0);
  qv::qvLog::msInstance = nullptr;
  object.debugObject(0);
  qv::qvLog::msInstance = before;
  ASSERT_EQ(log.records.size(), 1U);
  EXPECT_EQ(log.texts()[0], "    test.named id " + std::to_string(object.GetID()) + " name 'n' references 0");
}

TEST_F(Object, TheLibraryMayBeTerminatedMoreOftenThanInitialised) {
  qv::initializeQvSceneGraph();
  qv::terminateQvSceneGraph();
  EXPECT_NO_THROW(qv::terminateQvSceneGraph());
}

}  // namespace
