#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <new>

#include "qvSystem/qvAllocator.h"
#include "qvSystem/qvVariant.h"

namespace {

// Counts blocks of the document storage, and fails when told.
long liveBlocks = 0;
long allowedAllocations = -1;

}  // namespace

namespace qv {

void* AllocateDocumentMemory(std::size_t size) {
  if (allowedAllocations == 0) throw std::bad_alloc();
  if (allowedAllocations > 0) --allowedAllocations;
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  ++liveBlocks;
  return memory;
}

void FreeDocumentMemory(void* memory) noexcept {
  if (memory != nullptr) --liveBlocks;
  std::free(memory);
}

}  // namespace qv

namespace {

using qv::qvVariant;
using Map = qv::qvVariant::qvVariantMapImpl;
using List = qv::qvVariant::qvVariantListImpl;

/// Levels that would exhaust the stack if each one cost a call.
constexpr int deep = 1000000;

/// `levels` containers within each other, each with a leaf now in front of the next one and now behind it.
qvVariant tower(int levels, bool ofMaps) {
  qvVariant top("core");
  for (int i = 0; i < levels; ++i) {
    qvVariant next;
    if (ofMaps) {
      next.editMap().emplace("b", std::move(top));
      next.editMap().emplace(i % 2 == 0 ? "a" : "c", i);
    } else {
      next.editList().reserve(2);
      next.editList().push_back(std::move(top));
      next.editList().insert(next.editList().begin() + i % 2, i);
    }
    top = std::move(next);
  }
  return top;
}

class VariantTree : public ::testing::TestWithParam<bool> {};

TEST_P(VariantTree, AMillionLevelsAreReleasedWithoutRecursion) {
  auto const before = liveBlocks;
  {
    qvVariant const value = tower(deep, GetParam());
    EXPECT_GT(liveBlocks, before + deep);
  }
  EXPECT_EQ(liveBlocks, before);
}

TEST_P(VariantTree, DeepTreesAreCopiedAndComparedWithoutRecursion) {
  auto const before = liveBlocks;
  {
    qvVariant const value = tower(deep / 4, GetParam());
    qvVariant copy = value;
    EXPECT_TRUE(copy == value);
    copy = 1;
    EXPECT_FALSE(copy == value);
  }
  EXPECT_EQ(liveBlocks, before);
}

TEST_P(VariantTree, AssigningOverADeepTreeReleasesIt) {
  auto const before = liveBlocks;
  qvVariant value = tower(deep / 4, GetParam());
  value = qvVariant();
  EXPECT_EQ(liveBlocks, before);
}

TEST_P(VariantTree, ACopyThatRunsOutOfMemoryLeavesNothingBehind) {
  qvVariant const value = tower(5, GetParam());
  auto const before = liveBlocks;
  long needed = 0;
  for (bool done = false; !done; ++needed) {
    allowedAllocations = needed;
    try {
      qvVariant const copy = value;
      allowedAllocations = -1;
      EXPECT_TRUE(copy == value);
      done = true;
    } catch (std::bad_alloc const&) {
      allowedAllocations = -1;
    }
    ASSERT_EQ(liveBlocks, before);
  }
  EXPECT_GT(needed, 10);
}

INSTANTIATE_TEST_SUITE_P(Of, VariantTree, ::testing::Bool(),
                         [](auto const& test) { return test.param ? "Maps" : "Lists"; });

TEST(VariantStorage, AFailedAssignmentKeepsTheOldValue) {
  qvVariant value(List{1, "two"});
  qvVariant const other(Map{{"k", List{1, 2, 3}}});
  allowedAllocations = 1;
  EXPECT_THROW(value = other, std::bad_alloc);
  allowedAllocations = -1;
  EXPECT_EQ(value, qvVariant(List{1, "two"}));
}

TEST(VariantTreeShape, BroadAndMixedTreesAreReleasedWhole) {
  auto const before = liveBlocks;
  {
    List row;
    for (int i = 0; i < 100; ++i) row.emplace_back(Map{{"empty", List()}, {"m", Map{{"x", "y"}}}, {"n", i}});
    List rows;
    for (int i = 0; i < 100; ++i) rows.emplace_back(row);
    qvVariant const value(std::move(rows));
    qvVariant const copy = value;
    EXPECT_EQ(copy, value);
  }
  EXPECT_EQ(liveBlocks, before);
}

TEST(VariantTreeShape, AMapThatIsDestroyedByItselfReleasesDeepEntries) {
  auto const before = liveBlocks;
  {
    Map map;
    map.emplace("deep", tower(deep / 4, true));
    map.emplace("deeper", tower(deep / 4, false));
  }
  EXPECT_EQ(liveBlocks, before);
}

}  // namespace
