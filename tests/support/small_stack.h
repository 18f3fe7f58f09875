// Runs work on a thread with next to no stack: what recursed along its input would not survive it.
#ifndef JT_TESTS_SUPPORT_SMALL_STACK_H
#define JT_TESTS_SUPPORT_SMALL_STACK_H

#include <gtest/gtest.h>
#include <pthread.h>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <functional>

namespace jt_test {

// Frames of the address sanitizer are several times as large.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr std::size_t kSmallStack = 512 * 1024;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
inline constexpr std::size_t kSmallStack = 512 * 1024;
#else
inline constexpr std::size_t kSmallStack = 64 * 1024;
#endif
#else
inline constexpr std::size_t kSmallStack = 64 * 1024;
#endif

using Work = std::function<void()>;

inline void *run_work(void *work) {
  (*static_cast<Work *>(work))();
  return nullptr;
}

// Comes back when the work is done.
inline void on_a_small_stack(Work work) {
  pthread_attr_t attributes;
  pthread_t thread{};
  const auto least = static_cast<std::size_t>(PTHREAD_STACK_MIN);
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, std::max(least, kSmallStack)), 0);
  ASSERT_EQ(pthread_create(&thread, &attributes, run_work, &work), 0);
  EXPECT_EQ(pthread_join(thread, nullptr), 0);
  EXPECT_EQ(pthread_attr_destroy(&attributes), 0);
}

}  // namespace jt_test

#endif
