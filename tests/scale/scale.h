// What the tests of size share: how many items there are, a meter of the heap, and a fixture whose work runs
// on a small stack and must leave no memory behind.
//
// JT_TEST_ITEMS and JT_TEST_MEGABYTES in the environment make all of it smaller, for runs under emulation and
// under checkers that are many times slower.
#ifndef JT_TESTS_SCALE_SCALE_H
#define JT_TESTS_SCALE_SCALE_H

#include <gtest/gtest.h>
#include <malloc.h>

#include <cstdlib>
#include <string>
#include <string_view>

#include "jt.h"
#include "support/session.h"
#include "support/small_stack.h"
#include "tree/node.h"

// There is one where a sanitizer has taken the place of the heap.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace jt_test {

inline std::size_t size_from(const char *variable, std::size_t usual) {
  const char *const text = std::getenv(variable);
  return text != nullptr ? std::stoul(text) : usual;
}

inline std::size_t item_count() { return size_from("JT_TEST_ITEMS", 1'000'000); }
inline std::size_t megabytes() { return size_from("JT_TEST_MEGABYTES", 100); }

// Bytes that are taken from the heap at this moment. Always 0 under valgrind, which looks for leaks itself.
inline std::size_t heap_in_use() {
  if (__sanitizer_get_current_allocated_bytes != nullptr) return __sanitizer_get_current_allocated_bytes();
  const struct mallinfo2 heap = mallinfo2();
  return heap.uordblks + heap.hblkhd;
}

// Texts of this size are shown by what is around their first difference, not whole.
inline ::testing::AssertionResult same_text(std::string_view found, std::string_view expected) {
  if (found == expected) return ::testing::AssertionSuccess();
  const auto [at, other] = std::mismatch(found.begin(), found.end(), expected.begin(), expected.end());
  const auto offset = static_cast<std::size_t>(at - found.begin());
  const std::size_t begin = offset < 40 ? 0 : offset - 40;
  return ::testing::AssertionFailure()
         << found.size() << " and " << expected.size() << " bytes, at " << offset << ": \""
         << found.substr(begin, 80) << "\" instead of \"" << expected.substr(begin, 80) << '"';
}

// Follows the links, not the cursor.
inline std::size_t count_children(const jt_node *parent) {
  std::size_t count = 0;
  for (const jt_node *child = parent->first_child; child != nullptr; child = child->next_sibling) ++count;
  return count;
}

// A session on a small stack. What a test does there is a lambda, so that nothing but it is on that stack.
class ScaleTest : public ::testing::Test {
 protected:
  template <typename Act>
  void on_a_small_stack(Act act) {
    const std::size_t before = heap_in_use();
    jt_test::on_a_small_stack([&] {
      space = jt_open_parsing_utility("scale");
      act();
      EXPECT_EQ(jt_close_parsing_utility(space), 1);
    });
    EXPECT_LE(heap_in_use(), before + kSlack) << "memory was not given back";
  }

  // Decodes into `job`, without a report.
  void decode(const std::string &text) {
    job = jt_decode_template(space, text.c_str());
    ASSERT_NE(job, 0) << ::testing::PrintToString(messages_of(space));
    ASSERT_EQ(jt_last_api_error(space), JT_OK);
  }

  ::testing::AssertionResult is_written_as(std::string_view expected) {
    const OwnedText text(jt_encode_template(space, job));
    if (text == nullptr) return ::testing::AssertionFailure() << "no text";
    return same_text(text.get(), expected);
  }

  void destroy() {
    ASSERT_EQ(jt_destroy_template(space, job), 1);
    ASSERT_EQ(jt_destroy_template(space, job), 0);
  }

  jt_node *root() { return opaque_to_node(space, job); }

  // What the heap keeps ready for itself.
  static constexpr std::size_t kSlack = 64 * 1024;

  jt_parser_space *space = nullptr;
  int32_t job = 0;
};

}  // namespace jt_test

#endif
