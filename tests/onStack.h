#pragma once

#include <gtest/gtest.h>
#include <pthread.h>

#include <cstddef>
#include <functional>

namespace qvTest {

constexpr std::size_t SmallStack = std::size_t{256} << 10;
constexpr std::size_t OrdinaryStack = std::size_t{8} << 20;

/// Runs the body in a thread that has so much stack, however much the test itself was given.
inline void runOnStack(std::size_t bytes, std::function<void()> body) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, bytes), 0);
  auto const start = [](void* argument) -> void* {
    (*static_cast<std::function<void()>*>(argument))();
    return nullptr;
  };
  pthread_t thread;
  ASSERT_EQ(pthread_create(&thread, &attributes, start, &body), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

}  // namespace qvTest
