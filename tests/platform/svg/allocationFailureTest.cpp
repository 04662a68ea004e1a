#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>

#include "qvSvg/node.h"
#include "qvSvg/rect.h"

// This executable replaces the global allocation functions: all allocations fail on demand.

namespace {

constinit bool isOutOfMemory = false;

}  // namespace

void* operator new(std::size_t size) {
  if (isOutOfMemory) throw std::bad_alloc();
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

namespace qv::svg {
namespace {

TEST(Node, ReleasesItsTreeWithoutMemoryToDoSo) {
  auto const leaf = std::make_shared<Rect>(Wm4::Vector2<float>(0.0F, 0.0F), Wm4::Vector2<float>(1.0F, 1.0F));
  auto inner = std::make_shared<Node>();
  inner->editChildren() = {leaf, std::make_shared<Node>(), nullptr};
  auto root = std::make_shared<Node>();
  root->editChildren() = {leaf, inner, std::make_shared<Node>()};
  std::weak_ptr<Node> const released = inner;
  inner.reset();

  isOutOfMemory = true;
  root.reset();
  isOutOfMemory = false;
  EXPECT_TRUE(released.expired());
  EXPECT_EQ(leaf.use_count(), 1);
}

}  // namespace
}  // namespace qv::svg
