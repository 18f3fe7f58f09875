// A session with an allocator of its own asks the heap of the C library for nothing that it keeps, and lets each of
// the allocator's requests fail as any other.
#include <gtest/gtest.h>

#include <string>

#include "support/busy_session.h"
#include "support/counting_allocator.h"
#include "support/failing_allocator.h"

namespace jt_test {
namespace {

TEST(OwnAllocator, NothingThatIsKeptComesFromTheHeapOfTheLibrary) {
  const long before = live_blocks();
  CountingAllocator allocator;
  const jt_allocator record = allocator.record();
  BusySession session(jt_open_session("allocator", &record));
  EXPECT_EQ(live_blocks(), before);
  session.decode();
  ASSERT_NE(session.job, 0);
  EXPECT_EQ(live_blocks(), before);
  session.change();
  EXPECT_EQ(live_blocks(), before);
  EXPECT_NE(session.encode(), "");
  EXPECT_EQ(live_blocks(), before);
  EXPECT_EQ(jt_close_parsing_utility(session.space), 1);
  EXPECT_EQ(live_blocks(), before);
}

TEST(OwnAllocator, DecodingAsksTheHeapOfTheLibraryForNothing) {
  CountingAllocator allocator;
  const jt_allocator record = allocator.record();
  BusySession session(jt_open_session("allocator", &record));
  fail_allocations(1, Failing::kAllFromThereOn);
  session.decode();
  EXPECT_EQ(allow_allocations(), 0);
  EXPECT_NE(session.job, 0);
  EXPECT_EQ(jt_close_parsing_utility(session.space), 1);
}

TEST(OwnAllocator, AFailingCopyForTheCallerFailsTheEncodingAndLeavesNothing) {
  CountingAllocator allocator;
  const jt_allocator record = allocator.record();
  BusySession session(jt_open_session("allocator", &record));
  session.decode();
  const std::size_t blocks = allocator.blocks();
  fail_allocations(1, Failing::kOnlyOne);
  EXPECT_EQ(jt_encode_template(session.space, session.job), nullptr);
  EXPECT_EQ(allow_allocations(), 1);
  EXPECT_STREQ(get_last_error(session.space), "MEMORY ERROR: while allocating for encoding ...");
  EXPECT_EQ(allocator.blocks(), blocks);
  EXPECT_EQ(jt_close_parsing_utility(session.space), 1);
}

// From each request on there is nothing more; then there is again.
TEST(OwnAllocator, EachRequestMayFail) {
  const long before = live_blocks();
  bool failed = true;
  int request = 1;
  for (; failed; ++request) {
    CountingAllocator allocator;
    const jt_allocator record = allocator.record();
    BusySession session(jt_open_session("allocator", &record));
    allocator.fail_from(request);
    session.decode();
    EXPECT_EQ(session.job == 0, jt_last_api_error(session.space) == JT_MEMORY_ERROR ||
                                    jt_last_api_error(session.space) == JT_SYSTEM_ERROR)
        << request;
    session.change();
    const std::string text = session.encode();
    failed = allocator.has_failed();
    EXPECT_EQ(text.empty(), failed) << request;
    allocator.fail_from(0);
    session.decode();
    EXPECT_NE(session.job, 0) << request;
    EXPECT_EQ(jt_close_parsing_utility(session.space), 1);
    EXPECT_EQ(allocator.blocks(), 0U) << request;
    EXPECT_FALSE(allocator.was_misused()) << request;
  }
  EXPECT_GT(request, 50);
  EXPECT_EQ(live_blocks(), before);
}

}  // namespace
}  // namespace jt_test
