#include <cstdlib>
#include <limits>
#include <new>

#include "annotationLegacy/qvAnnotationMetaData.h"
#include "annotationLegacy/qvAnnotationView.h"
#include "modelTest.h"

// This executable replaces the global allocation functions: they count the live blocks and fail on demand.

namespace {

constinit long allowedAllocations = std::numeric_limits<long>::max();
constinit long liveBlocks = 0;
constinit std::size_t latestSize = 0;
/// Stands behind every block.
constexpr char GUARD = 0x5A;

}  // namespace

void* operator new(std::size_t size) {
  if (allowedAllocations <= 0) throw std::bad_alloc();
  --allowedAllocations;
  void* const memory = std::malloc(size + 1);
  if (memory == nullptr) throw std::bad_alloc();
  static_cast<char*>(memory)[size] = GUARD;
  latestSize = size;
  ++liveBlocks;
  return memory;
}

void operator delete(void* memory) noexcept {
  if (memory != nullptr) --liveBlocks;
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  operator delete(memory);
}

namespace {

using namespace qvLegacy;
using namespace qvLegacy::test;

constexpr long UNLIMITED = std::numeric_limits<long>::max();

/// Lets `action` run with 0, 1, 2, ... allocations until it succeeds; from the first that fails on, all fail.
/// `check` runs after each failure.
template <class Action, class Check>
void forEachFailure(Action action, Check check) {
  for (long allowed = 0;; ++allowed) {
    ASSERT_LT(allowed, 10'000) << "it never succeeds";
    allowedAllocations = allowed;
    bool failed = false;
    try {
      action();
    } catch (std::bad_alloc const&) {
      failed = true;
    }
    allowedAllocations = UNLIMITED;
    if (!failed) {
      EXPECT_GT(allowed, 0) << "it allocates nothing, so nothing was tested";
      return;
    }
    check();
  }
}

std::string const LONG_NAME = "a name too long to be held in place, for text, font and annotation alike";

/// A text in which everything needs memory of its own.
TextPointer newLargeText() {
  TextPointer const text = newText(LONG_NAME + "\n" + LONG_NAME);
  text->m_name = LONG_NAME;
  text->m_leaders.resize(2);
  text->m_measures.resize(2);
  text->m_metadata[LONG_NAME] = LONG_NAME;
  text->m_defaultTextProperties.m_fontName = LONG_NAME;
  text->m_lines.front().front().setTextProperties(text->m_defaultTextProperties);
  addChild(*text, newRaster(LONG_NAME));
  addChild(*text, newText(LONG_NAME));
  return text;
}

qv::qvPointer<qvAnnotationView> newLargeView() {
  qv::qvPointer<qvAnnotationView> view(new qvAnnotationView);
  view->m_name = LONG_NAME;
  view->m_annotations = {newLargeText(), newRaster(LONG_NAME), newLargeText()};
  return view;
}

/// Fails when the scope leaves objects or blocks behind.
class LeakCheck {
 public:
  ~LeakCheck() {
    EXPECT_EQ(qv::qvObject::GetLiveObjects(), m_objects);
    EXPECT_EQ(liveBlocks, m_blocks);
  }

 private:
  std::size_t m_objects = qv::qvObject::GetLiveObjects();
  long m_blocks = liveBlocks;
};

TEST(AllocationFailure, WhileAnAnnotationIsClonedLeavesNothingBehind) {
  TextPointer const source = newLargeText();
  LeakCheck const leaks;
  forEachFailure([&] { AnnotationPointer const clone(source->cloneAnnotation()); }, [] {});
}

TEST(AllocationFailure, WhileAnAnnotationIsAssignedLeavesATargetThatCanBeReleased) {
  TextPointer const source = newLargeText();
  LeakCheck const leaks;
  {
    TextPointer const target = newLargeText();
    forEachFailure([&] { *target = *source; }, [] {});
    EXPECT_EQ(textOf(target), textOf(source));
    EXPECT_EQ(target->getSubAnnotsCount(), 2U);
  }
}

TEST(AllocationFailure, WhileAnAnnotationIsAssignedFromItsChildKeepsTheChildUntilTheEnd) {
  LeakCheck const leaks;
  for (long allowed = 0; allowed < 60; ++allowed) {
    TextPointer const parent = newLargeText();
    auto const* const child = dynamic_cast<qvAnnotationText*>(childOf(*parent, 1).m_annot.get());
    allowedAllocations = allowed;
    try {
      *parent = *child;
    } catch (std::bad_alloc const&) {
      EXPECT_LT(allowed, 59);
    }
    allowedAllocations = UNLIMITED;
  }
}

TEST(AllocationFailure, WhileAViewIsCopiedLeavesItsOldAnnotations) {
  auto const source = newLargeView();
  LeakCheck const leaks;
  {
    qvAnnotationView target;
    target.m_annotations.emplace_back(newText("old"));
    auto const before = target.m_annotations;
    forEachFailure([&] { target.copyFrom(*source, qvAnnotationView::CloneAnnotations); },
                   [&] {
                     ASSERT_EQ(target.m_annotations, before);
                     ASSERT_EQ(before[0]->GetReferences(), 2);
                   });
    EXPECT_EQ(target.m_annotations.size(), 3U);
    EXPECT_EQ(before[0]->GetReferences(), 1);
  }
}

TEST(AllocationFailure, WhileMetadataIsAssignedLeavesItsOldViews) {
  qvAnnotationMetaData source;
  source.m_views = {newLargeView(), newLargeView()};
  LeakCheck const leaks;
  {
    qvAnnotationMetaData target;
    target.m_views = {new qvAnnotationView};
    auto const before = target.m_views;
    forEachFailure([&] { target = source; }, [&] { ASSERT_EQ(target.m_views, before); });
    EXPECT_EQ(target.m_views.size(), 2U);
  }
}

TEST(AllocationFailure, WhileMetadataIsClonedLeavesNoTargetBehind) {
  qvAnnotationMetaData source;
  source.m_views = {newLargeView(), newLargeView()};
  LeakCheck const leaks;
  qv::qvRttiInterface* target = nullptr;
  forEachFailure([&] { source.Clone(target); }, [&] { ASSERT_EQ(target, nullptr); });
  delete target;
}

TEST(AllocationFailure, WhileATextIsSetLeavesTheOldText) {
  LeakCheck const leaks;
  {
    TextPointer const text = newText("old");
    std::string const replacement = LONG_NAME + "\n" + LONG_NAME;
    forEachFailure([&] { text->setText(replacement); }, [&] { ASSERT_EQ(textOf(text), "old"); });
    EXPECT_EQ(textOf(text), replacement);
  }
}

TEST(TextSegmentMemory, IsTheCharactersAndOneZeroAndNothingBehindIsTouched) {
  qvAnnotationText::TextSegment run;
  run.setText("abc", 3);
  EXPECT_EQ(latestSize, 4U);
  EXPECT_EQ(std::string(run.m_text.get(), 4), std::string("abc\0", 4));
  EXPECT_EQ(run.m_text.get()[4], GUARD);
}

TEST(AllocationFailure, ReleasingATreeAllocatesNothing) {
  LeakCheck const leaks;
  TextPointer text = newLargeText();
  allowedAllocations = 0;
  text = nullptr;
  allowedAllocations = UNLIMITED;
}

TEST(AllocationFailure, WhileTheLibraryIsInitialisedLeavesItUninitialised) {
  qv::initializeQvAnnotationLegacyLibrary();  // what the platform keeps for good is there from now on
  qv::terminateQvAnnotationLegacyLibrary();
  auto const isRegistered = [] {
    return qv::qvRttiInterface::FindFactoryFunction("qvCore.qvAnnotationView") != nullptr ||
           qv::qvRttiInterface::FindFactoryFunction("qvCore.qvAnnotationMetadata") != nullptr;
  };
  LeakCheck const leaks;
  forEachFailure([] { qv::initializeQvAnnotationLegacyLibrary(); }, [&] { ASSERT_FALSE(isRegistered()); });
  EXPECT_TRUE(isRegistered());
  qv::terminateQvAnnotationLegacyLibrary();
  EXPECT_FALSE(isRegistered());
}

}  // namespace
