#include "platform/annotation/src/runCache.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace qv::text {
namespace {

constexpr std::size_t MAXIMUM = 100'000;

FontChain const* const FONTS = reinterpret_cast<FontChain const*>(0x10);
FontChain const* const OTHER_FONTS = reinterpret_cast<FontChain const*>(0x20);

std::shared_ptr<ShapedText const> makeText(std::size_t glyphs = 1) {
  auto text = std::make_shared<ShapedText>();
  text->m_spans.emplace_back().m_glyphs.resize(glyphs);
  return text;
}

/// Keeps a text of its own for each number.
void storeNumber(RunCache& cache, char32_t number) {
  cache.store({FONTS, false, {&number, 1}}, makeText());
}

bool hasNumber(RunCache& cache, char32_t number) {
  return cache.find({FONTS, false, {&number, 1}}) != nullptr;
}

TEST(RunCache, FindsWhatItKeeps) {
  RunCache cache(MAXIMUM);
  auto const text = makeText();
  EXPECT_EQ(cache.find({FONTS, false, U"a"}), nullptr);
  cache.store({FONTS, false, U"a"}, text);
  EXPECT_EQ(cache.find({FONTS, false, U"a"}), text);
}

TEST(RunCache, TellsFontsDirectionsAndCharactersApart) {
  RunCache cache(MAXIMUM);
  cache.store({FONTS, false, U"a"}, makeText());
  EXPECT_EQ(cache.find({OTHER_FONTS, false, U"a"}), nullptr);
  EXPECT_EQ(cache.find({FONTS, true, U"a"}), nullptr);
  EXPECT_EQ(cache.find({FONTS, false, U"ab"}), nullptr);
}

TEST(RunCache, KeepsTheFirstOfTwoTextsOfOneKey) {
  RunCache cache(MAXIMUM);
  auto const first = makeText();
  cache.store({FONTS, false, U"a"}, first);
  std::size_t const bytes = cache.countBytes();
  cache.store({FONTS, false, U"a"}, makeText());
  EXPECT_EQ(cache.find({FONTS, false, U"a"}), first);
  EXPECT_EQ(cache.countBytes(), bytes);
}

TEST(RunCache, StaysWithinItsBounds) {
  RunCache cache(MAXIMUM);
  for (char32_t number = 0; number < 10'000; ++number) {
    storeNumber(cache, number);
    ASSERT_LE(cache.countBytes(), MAXIMUM);
    ASSERT_TRUE(hasNumber(cache, number));
  }
  EXPECT_GT(cache.countBytes(), MAXIMUM / 2);
  EXPECT_FALSE(hasNumber(cache, 0));
}

TEST(RunCache, KeepsWhatIsUsedAgainAndAgain) {
  RunCache cache(MAXIMUM);
  storeNumber(cache, 0);
  for (char32_t number = 1; number < 10'000; ++number) {
    storeNumber(cache, number);
    ASSERT_TRUE(hasNumber(cache, 0)) << static_cast<unsigned>(number);
    ASSERT_LE(cache.countBytes(), MAXIMUM);
  }
}

TEST(RunCache, DoesNotKeepATextThatIsTooLarge) {
  RunCache cache(MAXIMUM);
  storeNumber(cache, 1);
  cache.store({FONTS, false, U"a"}, makeText(MAXIMUM));
  EXPECT_EQ(cache.find({FONTS, false, U"a"}), nullptr);
  EXPECT_TRUE(hasNumber(cache, 1));
}

}  // namespace
}  // namespace qv::text
