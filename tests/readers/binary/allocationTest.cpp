#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "annotationLegacy/qvAnnotationMetaData.h"
#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "tests/readers/binary/records.h"

/// Counts that ask for more memory than there is, and allocations that fail on the way. This executable's own
/// `new` stands in for the library's.
namespace {

constexpr std::size_t budget = 64U << 20;

std::size_t largestRequest = 0;
long allocationsLeft = -1;  // negative: no limit

void* allocate(std::size_t size) {
  largestRequest = std::max(largestRequest, size);
  if (size > budget || allocationsLeft == 0) throw std::bad_alloc();
  if (allocationsLeft > 0) --allocationsLeft;
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

void* operator new(std::size_t size) {
  return allocate(size);
}
void* operator new[](std::size_t size) {
  return allocate(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace {

using namespace readersTest;
using Raster = qvLegacy::qvAnnotationRaster;
using Text = qvLegacy::qvAnnotationText;
using View = qvLegacy::qvAnnotationView;

Bytes headOfView() {
  return Bytes().text("v").point(0, 0, 0).point(0, 0, 1).point(1, 0, 0);
}

template <class Object>
void expectBadAlloc(Bytes const& bytes, std::uint32_t version) {
  std::size_t const objects = qv::qvObject::GetLiveObjects();
  {
    ByteStream stream(bytes, version);
    Object object;
    largestRequest = 0;
    if constexpr (requires { object.load(stream); }) {
      EXPECT_THROW(object.load(stream), std::bad_alloc);
    } else {
      EXPECT_THROW(object.Load(stream), std::bad_alloc);
    }
  }
  EXPECT_EQ(qv::qvObject::GetLiveObjects(), objects);
}

TEST(HugeCounts, OfCharactersEndInBadAlloc) {
  expectBadAlloc<Text>(Bytes().u32(0x7FFFFFFF), v6_22);
  EXPECT_GT(largestRequest, 0x7FFFFFFFU);
  expectBadAlloc<Text::TextProperties>(Bytes().u32(0x7FFFFFFF), v6_22);
  expectBadAlloc<Text::TextSegment>(Bytes().u32(0x7FFFFFFF), v6_16);
}

TEST(HugeCounts, OfLeadersAndMeasuresEndInBadAlloc) {
  expectBadAlloc<Text>(Bytes().u32(0).u32(0xFFFFFFFF), v6_22);
  EXPECT_EQ(largestRequest, 0xFFFFFFFFU * sizeof(qvLegacy::qvAnnotationInterface::Leader));
  expectBadAlloc<Text>(Bytes().u32(0).u32(0).u32(0xFFFFFFFF), v6_17);
}

TEST(HugeCounts, OfViewsEndInBadAlloc) {
  expectBadAlloc<qvLegacy::qvAnnotationMetaData>(Bytes().u32(0).u32(5).u32(0xFFFFFFFF), v6_22);
  EXPECT_EQ(largestRequest, 0xFFFFFFFFU * sizeof(void*));
}

TEST(HugeCounts, OfAnnotationsAreReservedInOneSumBeforeAnyIsMade) {
  ByteStream stream(headOfView().u32(0xFFFFFFFF).u32(1), v6_22);
  View view;
  std::size_t const objects = qv::qvObject::GetLiveObjects();
  largestRequest = 0;
  EXPECT_THROW(view.Load(stream), std::bad_alloc);
  EXPECT_EQ(largestRequest, 4294967296U * sizeof(void*));
  EXPECT_TRUE(view.m_annotations.empty());
  EXPECT_EQ(qv::qvObject::GetLiveObjects(), objects);
}

TEST(HugeCounts, ThatFitInMemoryAreReadAsTheyStand) {
  ByteStream stream(Bytes().u32(0).u32(100000), v6_22);
  Raster raster;
  raster.load(stream);
  EXPECT_EQ(raster.m_leaders.size(), 100000U);
  EXPECT_TRUE(stream.hasStreamError());
}

TEST(FailingAllocation, AnywhereInAViewBringsItsListBackToWhatItHeld) {
  bool isLoaded = false;
  for (long allowed = 0; !isLoaded; ++allowed) {
    ByteStream stream(viewRecord(v6_27, "a view whose name does not fit into a small string"), v6_27);
    View view;
    view.m_annotations.emplace_back(new Raster);
    std::size_t const objects = qv::qvObject::GetLiveObjects();
    allocationsLeft = allowed;
    try {
      view.Load(stream);
      isLoaded = true;
    } catch (std::bad_alloc const&) {
    }
    allocationsLeft = -1;
    if (!isLoaded) {
      // The metadata comes after the list: a failure there leaves the list complete.
      EXPECT_TRUE(view.m_annotations.size() == 1 || view.m_annotations.size() == 4) << allowed;
      if (view.m_annotations.size() == 1) {
        EXPECT_EQ(qv::qvObject::GetLiveObjects(), objects) << allowed;
      }
    } else {
      EXPECT_EQ(view.m_annotations.size(), 4U);
    }
    ASSERT_LT(allowed, 100000);
  }
}

TEST(FailingAllocation, AnywhereInATreeOfChildrenLeaksNothing) {
  Bytes const record =
      textRecord(v6_22, "a parent whose name does not fit into a small string", childRecords(v6_22));
  std::size_t const objects = qv::qvObject::GetLiveObjects();
  bool isLoaded = false;
  for (long allowed = 0; !isLoaded; ++allowed) {
    {
      ByteStream stream(record, v6_22);
      Text text;
      allocationsLeft = allowed;
      try {
        text.load(stream);
        isLoaded = true;
      } catch (std::bad_alloc const&) {
      }
      allocationsLeft = -1;
    }
    EXPECT_EQ(qv::qvObject::GetLiveObjects(), objects) << allowed;
    ASSERT_LT(allowed, 100000);
  }
}

}  // namespace
