// The column at which a thread's last text ended folds the next text of that thread, and of no other.
#include <gtest/gtest.h>

#include <barrier>
#include <string>

#include "threads/threads.h"

namespace jt_test {
namespace {

constexpr int kRounds = 500;

// A template whose text is a comment without the end of its line.
int32_t template_of(jt_parser_space *space, const std::string &comment) {
  const int32_t job = jt_create_template(space);
  add_comment(space, opaque_to_node(space, job), comment.c_str());
  return job;
}

const std::string kOpenLine(71, '#');

TEST(Columns, OfAnOpenLineFoldNoTextOfAnotherThread) {
  std::barrier turn(2);
  const auto leave_a_line_open = [&] {
    const Session space;
    EXPECT_EQ(take_text(jt_encode_template(space, template_of(space, kOpenLine))), kOpenLine);
    turn.arrive_and_wait();
    turn.arrive_and_wait();
  };
  const auto write_behind_it = [&] {
    const Session space;
    const int32_t job = jt_decode_template(space, "[ service A ] end");
    turn.arrive_and_wait();
    EXPECT_EQ(take_text(jt_encode_template(space, job)), "[service A]\nend\n\n");
    turn.arrive_and_wait();
  };
  at_once(leave_a_line_open, write_behind_it);
}

TEST(Columns, OfTwoThreadsRunOnByThemselves) {
  const auto write = [](const std::string &comment, int line_length) {
    const Session space;
    const int32_t job = template_of(space, comment);
    int column = 0;
    for (int round = 0; round < kRounds; ++round) {
      const bool folded = column > 70;
      ASSERT_EQ(take_text(jt_encode_template(space, job)), (folded ? "\n" : "") + comment) << round;
      column = (folded ? 0 : column) + line_length;
    }
  };
  at_once([&] { write("##########", 10); }, [&] { write("#########################", 25); },
          [&] { write(kOpenLine, 71); });
}

TEST(Columns, OfOneSessionAreThoseOfTheThreadThatWrites) {
  const Session space;
  const int32_t job = template_of(space, kOpenLine);
  on_a_thread([&] { EXPECT_EQ(take_text(jt_encode_template(space, job)), kOpenLine); });
  on_a_thread([&] {
    EXPECT_EQ(take_text(jt_encode_template(space, job)), kOpenLine);
    EXPECT_EQ(take_text(jt_encode_template(space, job)), "\n" + kOpenLine);
  });
}

}  // namespace
}  // namespace jt_test
