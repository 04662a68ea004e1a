#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>
#include <string>

#include "layOut.h"
#include "qvAnnotation/qvAnnotationLibrary.h"

// This executable replaces the global allocation functions: one allocation fails on demand.

namespace {

constexpr long NEVER = std::numeric_limits<long>::max();
constinit long allocationsUntilFailure = NEVER;

}  // namespace

void* operator new(std::size_t size) {
  if (allocationsUntilFailure != NEVER && allocationsUntilFailure-- == 0) throw std::bad_alloc();
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

#if !defined(__SANITIZE_ADDRESS__)
namespace {

bool isGrowthRefused = false;

}  // namespace

extern "C" void* __libc_realloc(void* memory, std::size_t size);

// Grows the shaping library's buffers, which has no exceptions.
extern "C" void* realloc(void* memory, std::size_t size) {
  return isGrowthRefused ? nullptr : __libc_realloc(memory, size);
}
#endif

namespace qv::text {
namespace {

/// Text for the asked font, for the fonts of signs, for the last resorts and for none; each line's families.
std::string familiesOf(TextSegmentToSvgConverter& converter) {
  TextArea area;
  area.m_lines.emplace_back();
  area.m_lines.back().push_back(normal("A\u2300\u2334\uE000\u4E2D"));
  svg::Node node;
  std::string families;
  if (!converter.convertTextAreaToSvg(area, node, nullptr, "text")) return "no font";
  auto const& group = static_cast<svg::Node const&>(*node.getChildren().at(0));
  for (auto const& item : group.getChildren()) {
    for (svg::TextSpan const& span : static_cast<svg::Text const&>(*item).m_spans)
      families += span.m_family + (span.m_match == svg::FontMatch::Missing ? " (missing), " : ", ");
  }
  return families;
}

/// True when the conversion fails at its allocation number `position`, counted from 0.
bool failsAt(long position, TextSegmentToSvgConverter& converter) {
  allocationsUntilFailure = position;
  bool failed = false;
  try {
    familiesOf(converter);
  } catch (std::bad_alloc const&) {
    failed = true;
  }
  allocationsUntilFailure = NEVER;
  return failed;
}

TEST(TextConverter, ChoosesTheSameFontsAfterARunOutOfMemory) {
  TextSegmentToSvgConverter undisturbed;
  std::string const expected = familiesOf(undisturbed);
  long position = 0;
  for (;; ++position) {
    TextSegmentToSvgConverter converter;
    bool const failed = failsAt(position, converter);
    ASSERT_EQ(familiesOf(converter), expected) << "after a failure at allocation " << position;
    if (!failed) break;
  }
  EXPECT_GT(position, 0);
}

TEST(TextConverter, LoadsFontsAnewAfterTheirLoadingRanOutOfMemory) {
  TextSegmentToSvgConverter undisturbed;
  std::string const expected = familiesOf(undisturbed);
  bool failed = true;
  for (long position = 0; failed; ++position) {
    initializeQvAnnotationLibrary(true);
    {
      TextSegmentToSvgConverter interrupted;
      failed = failsAt(position, interrupted);
    }
    TextSegmentToSvgConverter converter;
    ASSERT_EQ(familiesOf(converter), expected) << "after a failure at allocation " << position;
    terminateQvAnnotationLibrary();
  }
}

#if !defined(__SANITIZE_ADDRESS__)
TEST(TextConverter, DrawsNoPartOfATextThatGetsNoMemoryForItsShaping) {
  std::string const text(50000, 'n');
  TextSegmentToSvgConverter converter;
  ASSERT_EQ(layOut({{normal("A")}}, converter).size(), 1U);
  isGrowthRefused = true;
  EXPECT_THROW(layOut({{normal(text)}}, converter), std::bad_alloc);
  isGrowthRefused = false;
  auto const items = layOut({{normal(text)}}, converter);
  ASSERT_EQ(items.size(), 1U);
  EXPECT_EQ(items[0]->m_spans.at(0).m_glyphs.size(), text.size());
}
#endif

}  // namespace
}  // namespace qv::text
