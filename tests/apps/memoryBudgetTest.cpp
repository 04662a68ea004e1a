#include "apps/qvannot/memoryBudget.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "qvSystem/qvResourceLimit.h"
#include "qvSystem/qvVariant.h"

namespace qvannot {

namespace {

constexpr std::uint64_t MiB = std::uint64_t{1} << 20;

/// Gives the test that many bytes from now on, and all there is afterwards.
class Budget {
 public:
  explicit Budget(std::uint64_t bytes) { setMemoryBudget(getAllocatedBytes() + bytes); }
  ~Budget() { setMemoryBudget(~std::uint64_t{0}); }
  Budget(Budget const&) = delete;
  Budget& operator=(Budget const&) = delete;
};

TEST(MemoryBudget, CountsWhatIsAllocatedAndFreed) {
  std::uint64_t const before = getAllocatedBytes();
  auto memory = std::make_unique<std::array<char, 5000>>();
  EXPECT_GE(getAllocatedBytes(), before + 5000);
  EXPECT_LT(getAllocatedBytes(), before + 6000);
  memory.reset();
  EXPECT_EQ(getAllocatedBytes(), before);
}

TEST(MemoryBudget, CountsTheAllocationsOfTheLibraries) {
  std::uint64_t const before = getAllocatedBytes();
  qv::qvVariant const variant(std::string(100000, 'x'));
  EXPECT_GE(getAllocatedBytes(), before + 100000);
}

TEST(MemoryBudget, CountsAlignedMemoryToo) {
  struct alignas(128) Wide {
    char m_bytes[256];
  };
  std::uint64_t const before = getAllocatedBytes();
  auto wide = std::make_unique<Wide>();
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(wide.get()) % 128, 0U);
  EXPECT_GE(getAllocatedBytes(), before + 256);
  wide.reset();
  EXPECT_EQ(getAllocatedBytes(), before);
}

TEST(MemoryBudget, RefusesALargeRequestBeforeItIsMade) {
  Budget const budget(8 * MiB);
  std::uint64_t const before = getAllocatedBytes();
  EXPECT_THROW(std::vector<char>(std::size_t{1} << 40), qv::qvResourceLimit);
  EXPECT_THROW(std::string(std::size_t{9} << 20, 'x'), std::bad_alloc);
  EXPECT_EQ(getAllocatedBytes(), before);
}

TEST(MemoryBudget, CountsSmallRequestsToo) {
  Budget const budget(8 * MiB);
  std::list<int> list;
  EXPECT_THROW(for (;;) list.push_back(1), qv::qvResourceLimit);
  EXPECT_GT(list.size(), 8 * MiB / 64);
  EXPECT_LT(list.size(), 8 * MiB / 16);
}

TEST(MemoryBudget, ServesAgainWhatWasFreed) {
  Budget const budget(8 * MiB);
  for (int i = 0; i < 100; ++i) EXPECT_NO_THROW(std::string(std::size_t{5} << 20, 'x'));
}

TEST(MemoryBudget, OpensAReserveForThoseWhoTellOfIt) {
  Budget const budget(MiB);
  EXPECT_THROW(std::string(2 * MiB, 'x'), qv::qvResourceLimit);
  using Piece = std::array<char, 1000>;
  std::vector<std::unique_ptr<Piece>> used;
  used.reserve(5000);
  EXPECT_THROW(for (;;) used.push_back(std::make_unique<Piece>()), qv::qvResourceLimit);
  EXPECT_GT(used.size(), 1100U) << "256 KiB beyond the budget";
  EXPECT_LT(used.size(), 1400U);
}

TEST(MemoryBudget, CountsWhatIsTakenBesideIt) {
  std::uint64_t const before = getAllocatedBytes();
  setMemoryBudget(before + 8 * MiB, 3 * MiB);
  EXPECT_EQ(getMemoryBudget(), before + 8 * MiB);
  EXPECT_LE(getMemoryLeft(), 5 * MiB);
  EXPECT_GT(getMemoryLeft(), 4 * MiB);
  EXPECT_THROW(std::string(6 * MiB, 'x'), qv::qvResourceLimit);
  EXPECT_NO_THROW(std::string(4 * MiB, 'x'));
  setMemoryBudget(before, 3 * MiB);
  EXPECT_EQ(getMemoryLeft(), 0U);
  setMemoryBudget(~std::uint64_t{0});
}

TEST(MemoryBudget, KnowsWhatLiesInMemoryUncounted) {
  std::uint64_t const before = getUncountedBytes();
  EXPECT_GT(before, MiB / 2);
  void* const memory = std::malloc(64 * MiB);
  std::memset(memory, 1, 64 * MiB);
  EXPECT_GT(getUncountedBytes(), before + 60 * MiB);
  std::free(memory);
}

TEST(MemoryBudget, NamesItsLimit) {
  setMemoryBudget(12345678);
  try {
    std::string const text(13 * MiB, 'x');
    FAIL();
  } catch (qv::qvResourceLimit const& limit) {
    EXPECT_EQ(limit.GetBudget(), qv::qvBudget::Memory);
    EXPECT_EQ(limit.GetLimit(), 12345678U);
  }
  setMemoryBudget(~std::uint64_t{0});
}

}  // namespace

}  // namespace qvannot
