// Texts between two unreadable pages: reading one byte too many, before or behind a text, ends the process,
// whatever the build. The room is mapped once and used for one text after the other.
#ifndef JT_TESTS_SUPPORT_GUARDED_TEXT_H
#define JT_TESTS_SUPPORT_GUARDED_TEXT_H

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace jt_test {

class GuardedText {
 public:
  // Room for texts of that many bytes, a NUL aside.
  explicit GuardedText(std::size_t most) : page_(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))) {
    room_ = (most + page_) / page_ * page_;
    void *const mapped = mmap(nullptr, room_ + 2 * page_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    EXPECT_NE(mapped, MAP_FAILED);
    begin_ = static_cast<char *>(mapped) + page_;
    EXPECT_EQ(mprotect(begin_, room_, PROT_READ | PROT_WRITE), 0);
  }
  ~GuardedText() { munmap(begin_ - page_, room_ + 2 * page_); }
  GuardedText(const GuardedText &) = delete;
  GuardedText &operator=(const GuardedText &) = delete;

  // The text, its NUL in the last byte before an unreadable page. It replaces the one before.
  char *ending_at_guard(std::string_view text) { return put(begin_ + room_ - text.size() - 1, text); }

  // The text, its first byte right behind an unreadable page.
  char *beginning_at_guard(std::string_view text) { return put(begin_, text); }

 private:
  static char *put(char *place, std::string_view text) {
    *std::copy(text.begin(), text.end(), place) = '\0';
    return place;
  }

  std::size_t page_;
  std::size_t room_;
  char *begin_;
};

}  // namespace jt_test

#endif
