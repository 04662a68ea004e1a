#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <new>

#include "tests/migration/migrationFixture.h"
#include "tests/onStack.h"

namespace {

std::size_t allocatedBytes = 0;
std::size_t allocations = 0;

}  // namespace

// Every allocation of the process is counted, those of the shared libraries included.
void* operator new(std::size_t size) {
  allocatedBytes += size;
  ++allocations;
  void* const memory = std::malloc(size != 0 ? size : 1);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace {

using namespace migrationTest;

class MigrationCost : public Migration {
 protected:
  struct Cost {
    std::size_t allocations;
    std::size_t bytes;
  };

  Cost costOf(qv::qvPointer<Annotation> const& annotation) {
    auto const view = makeView({annotation});
    std::size_t const allocationsBefore = allocations;
    std::size_t const bytesBefore = allocatedBytes;
    EXPECT_NE(migrate(view), nullptr);
    return {allocations - allocationsBefore, allocatedBytes - bytesBefore};
  }

  /// Twice the work costs at most twice as much, and a tenth for growing vectors.
  static void expectLinear(Cost const& once, Cost const& twice) {
    EXPECT_GT(once.allocations, 0U);
    EXPECT_LE(twice.allocations, once.allocations * 22 / 10);
    EXPECT_LE(twice.bytes, once.bytes * 22 / 10);
  }

  static qv::qvPointer<Annotation> withLeaders(std::size_t count) {
    auto text = makeText("10x4");
    text->m_leaders.assign(count, leader({3, 4, 0}, 3));
    return text;
  }
  static qv::qvPointer<Annotation> withMeasures(std::size_t count) {
    auto text = makeText("10x4");
    text->m_measures.assign(count, measureLeader({0, 0, 0}, {10, 0, 0}, {0, 5, 0}));
    return text;
  }
  static qv::qvPointer<Annotation> tree(std::size_t levels) {
    qv::qvPointer<Annotation> root = makeText("10x4");
    for (std::size_t i = 1; i < levels; ++i) {
      auto const parent = makeText("10x4");
      addSub(*parent, root);
      root = parent;
    }
    return root;
  }
  static qv::qvPointer<Annotation> withSubs(std::size_t count) {
    auto text = makeText("10x4");
    for (std::size_t i = 0; i < count; ++i) addSub(*text, makeText("1x1"));
    return text;
  }
};

TEST_F(MigrationCost, IsLinearInTheNumberOfLeaders) {
  expectLinear(costOf(withLeaders(4096)), costOf(withLeaders(8192)));
}

TEST_F(MigrationCost, IsLinearInTheNumberOfMeasureLeaders) {
  expectLinear(costOf(withMeasures(4096)), costOf(withMeasures(8192)));
}

TEST_F(MigrationCost, IsLinearInTheDepthOfTheTree) {
  qvTest::runOnStack(qvTest::OrdinaryStack, [this] { expectLinear(costOf(tree(1000)), costOf(tree(2000))); });
}

TEST_F(MigrationCost, IsLinearInTheNumberOfSubAnnotations) {
  expectLinear(costOf(withSubs(1024)), costOf(withSubs(2048)));
}

}  // namespace
