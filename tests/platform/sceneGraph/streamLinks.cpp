#include <gtest/gtest.h>

#include <memory>

#include "qvSceneGraph/qvObject.h"
#include "qvSceneGraph/qvPointer.h"
#include "qvSystem/qvBaseStream.h"
#include "qvSystem/qvStreamReader.h"
#include "tests/platform/system/byteWriter.h"

namespace {

using qv::qvBaseStream;
using qv::qvObject;
using qv::qvPointer;
using qvTest::ByteWriter;
using qvTest::document;
using qvTest::object;

class Leaf : public qvObject {};

/// Holds counted pointers to leaves, filled by links.
class Holder : public qvObject {
 public:
  void Load(qvBaseStream& in) override {
    qvObject::Load(in);
    std::uint32_t count = 0;
    in.readle(4, 1, &count);
    m_leaves.resize(count);
    for (auto& leaf : m_leaves) in.ReadObjectImpl(&leaf, true, &qvBaseStream::GetLinkPointer<Leaf>);
  }
  void PostLink() override { m_leavesAtPostLink = m_leaves; }

  std::vector<qvPointer<Leaf>> m_leaves;
  std::vector<qvPointer<Leaf>> m_leavesAtPostLink;
};

template <class T>
qv::qvRttiInterface* make(qvBaseStream& in) {
  auto made = std::make_unique<T>();
  made->Load(in);
  return made.release();
}

class StreamLinks : public ::testing::Test {
 protected:
  StreamLinks() {
    qvObject::RegisterFactoryFunction("test.leaf", &make<Leaf>);
    qvObject::RegisterFactoryFunction("test.holder", &make<Holder>);
  }
  ~StreamLinks() override {
    qvObject::UnregisterFactoryFunction("test.leaf");
    qvObject::UnregisterFactoryFunction("test.holder");
  }
  void TearDown() override { EXPECT_EQ(qvObject::GetLiveObjects(), m_before); }
  std::size_t m_before = qvObject::GetLiveObjects();
};

ByteWriter holderOf(std::initializer_list<std::uint32_t> ids) {
  ByteWriter out;
  out.text("").u32(static_cast<std::uint32_t>(ids.size()));
  for (std::uint32_t const id : ids) out.u32(id);
  return out;
}

TEST_F(StreamLinks, FillCountedPointersWithOneReferenceEach) {
  ByteWriter bytes = document(0x60016, 2);
  bytes.append(object(1, "test.holder", holderOf({2, 0, 2})))
      .append(object(2, "test.leaf", ByteWriter().text("")));
  auto loaded = qv::LoadObjectStream(bytes.bytes());
  EXPECT_TRUE(loaded.m_problems.empty());
  auto& holder = dynamic_cast<Holder&>(*loaded.m_objects[0].m_object);
  auto* const leaf = dynamic_cast<Leaf*>(loaded.m_objects[1].m_object.get());
  ASSERT_EQ(holder.m_leaves.size(), 3U);
  EXPECT_EQ(holder.m_leaves[0].get(), leaf);
  EXPECT_EQ(holder.m_leaves[1].get(), nullptr);
  EXPECT_EQ(holder.m_leaves[2].get(), leaf);
  EXPECT_EQ(holder.m_leavesAtPostLink, holder.m_leaves);
  holder.m_leavesAtPostLink.clear();
  EXPECT_EQ(leaf->GetReferences(), 3) << "two links and the document";
  holder.m_leaves.clear();
  EXPECT_EQ(leaf->GetReferences(), 1);
}

TEST_F(StreamLinks, ToAnotherTypeAndToTheHolderItselfStayNull) {
  ByteWriter bytes = document(0x60016, 1);
  bytes.append(object(1, "test.holder", holderOf({1, 3})));
  auto const loaded = qv::LoadObjectStream(bytes.bytes());
  auto const& holder = dynamic_cast<Holder const&>(*loaded.m_objects[0].m_object);
  EXPECT_EQ(holder.m_leaves[0].get(), nullptr);
  EXPECT_EQ(holder.m_leaves[1].get(), nullptr);
  EXPECT_EQ(loaded.m_problems.size(), 2U);
  EXPECT_EQ(holder.GetReferences(), 1);
}

TEST_F(StreamLinks, TheConverterGivesNullForNull) {
  EXPECT_EQ(qvBaseStream::GetLinkPointer<Leaf>(nullptr), nullptr);
}

}  // namespace
