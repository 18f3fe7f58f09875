// Sessions with an allocator of their own: which allocators are taken, that all that a session keeps comes from
// there and goes back, and that what is handed out does not.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "support/busy_session.h"
#include "support/counting_allocator.h"
#include "support/session.h"

namespace jt_test {
namespace {

jt_parser_space *opened(CountingAllocator &allocator) {
  const jt_allocator record = allocator.record();
  return jt_open_session("allocator", &record);
}

// ---- Opening ----

TEST(OpenSession, NeedsALabel) {
  CountingAllocator allocator;
  const jt_allocator record = allocator.record();
  EXPECT_EQ(jt_open_session(nullptr, &record), nullptr);
  EXPECT_EQ(jt_open_session(nullptr, nullptr), nullptr);
  EXPECT_EQ(allocator.requests(), 0);
}

TEST(OpenSession, WithoutAnAllocatorIsOpeningAsBefore) {
  jt_parser_space *const space = jt_open_session("label", nullptr);
  ASSERT_NE(space, nullptr);
  EXPECT_EQ(jt_create_template(space), -100);
  EXPECT_EQ(jt_last_api_error(space), 0);
  EXPECT_EQ(jt_close_parsing_utility(space), 1);
}

TEST(OpenSession, RefusesAnAllocatorThatLacksAFunction) {
  CountingAllocator allocator;
  jt_allocator without_allocate = allocator.record();
  without_allocate.allocate = nullptr;
  EXPECT_EQ(jt_open_session("label", &without_allocate), nullptr);
  jt_allocator without_reallocate = allocator.record();
  without_reallocate.reallocate = nullptr;
  EXPECT_EQ(jt_open_session("label", &without_reallocate), nullptr);
  jt_allocator without_release = allocator.record();
  without_release.release = nullptr;
  EXPECT_EQ(jt_open_session("label", &without_release), nullptr);
  EXPECT_EQ(allocator.requests(), 0);
}

TEST(OpenSession, RefusesARecordThatIsTooSmall) {
  CountingAllocator allocator;
  jt_allocator record = allocator.record();
  record.size = 0;
  EXPECT_EQ(jt_open_session("label", &record), nullptr);
  record.size = sizeof(jt_allocator) - 1;
  EXPECT_EQ(jt_open_session("label", &record), nullptr);
  EXPECT_EQ(allocator.requests(), 0);
}

TEST(OpenSession, TakesARecordThatHasGrown) {
  struct {
    jt_allocator known;
    void *unknown;
  } larger = {};
  CountingAllocator allocator;
  larger.known = allocator.record();
  larger.known.size = sizeof(larger);
  jt_parser_space *const space = jt_open_session("label", &larger.known);
  EXPECT_NE(space, nullptr);
  EXPECT_EQ(jt_close_parsing_utility(space), 1);
}

TEST(OpenSession, TheRecordIsCopied) {
  CountingAllocator allocator;
  jt_allocator record = allocator.record();
  jt_parser_space *const space = jt_open_session("label", &record);
  record = {};
  EXPECT_NE(jt_decode_template(space, busy_text().c_str()), 0);
  EXPECT_EQ(jt_close_parsing_utility(space), 1);
  EXPECT_EQ(allocator.blocks(), 0U);
}

TEST(OpenSession, TakesTheSessionItsLabelAndItsNodeTableFromTheAllocator) {
  CountingAllocator allocator;
  jt_parser_space *const space = opened(allocator);
  EXPECT_EQ(allocator.requests(), 3);
  EXPECT_EQ(allocator.blocks(), 3U);
  EXPECT_EQ(jt_close_parsing_utility(space), 1);
  EXPECT_EQ(allocator.blocks(), 0U);
}

TEST(OpenSession, GivesNullWhereTheAllocatorHasNothing) {
  for (int request = 1; request <= 3; ++request) {
    CountingAllocator allocator;
    allocator.fail_from(request);
    EXPECT_EQ(opened(allocator), nullptr) << request;
    EXPECT_EQ(allocator.blocks(), 0U) << request;
  }
}

// ---- What is kept ----

TEST(Allocator, EverythingGoesBackWhenTheSessionIsClosed) {
  CountingAllocator allocator;
  BusySession session(opened(allocator));
  session.decode();
  ASSERT_NE(session.job, 0);
  session.change();
  EXPECT_NE(session.encode(), "");
  EXPECT_GT(allocator.blocks(), 20U);
  EXPECT_EQ(jt_close_parsing_utility(session.space), 1);
  EXPECT_EQ(allocator.blocks(), 0U);
  EXPECT_FALSE(allocator.was_misused());
}

TEST(Allocator, WhatATemplateTookGoesBackWithIt) {
  CountingAllocator allocator;
  BusySession session(opened(allocator));
  session.decode();
  const std::size_t blocks = allocator.blocks();
  jt_destroy_template(session.space, session.job);
  EXPECT_LT(allocator.blocks(), blocks / 2);
  for (int round = 0; round < 3; ++round) {
    session.decode();
    session.change();
    EXPECT_EQ(jt_destroy_template(session.space, session.job), 1);
    EXPECT_EQ(allocator.blocks(), 4U) << round;  // the session's own three and a page
  }
  EXPECT_EQ(jt_close_parsing_utility(session.space), 1);
  EXPECT_EQ(allocator.blocks(), 0U);
  EXPECT_FALSE(allocator.was_misused());
}

TEST(Allocator, TheTextIsTheSameAsThatOfAnySession) {
  CountingAllocator allocator;
  BusySession session(opened(allocator));
  BusySession plain(jt_open_parsing_utility("plain"));
  for (BusySession *const each : {&session, &plain}) {
    each->decode();
    each->change();
  }
  EXPECT_EQ(session.encode(), plain.encode());
  jt_close_parsing_utility(session.space);
  jt_close_parsing_utility(plain.space);
}

TEST(Allocator, GrowsTheTextThatIsEncoded) {
  CountingAllocator allocator;
  BusySession session(opened(allocator));
  session.decode();
  const std::size_t blocks = allocator.blocks();
  char *const text = jt_encode_template(session.space, session.job);
  EXPECT_GT(allocator.reallocated(), 0);
  EXPECT_EQ(allocator.blocks(), blocks);
  std::free(text);
  jt_close_parsing_utility(session.space);
}

// ---- What is handed out ----

TEST(Allocator, WhatWasHandedOutOutlivesTheSession) {
  CountingAllocator allocator;
  jt_parser_space *const space = opened(allocator);
  const int32_t job = jt_decode_template(space, "[ kmt_svc_scan S ] { string A = paper; (odd{why}) } end");
  const std::size_t blocks = allocator.blocks();
  char *const text = jt_encode_template(space, job);
  char *const name = jt_get_first_service_name(space, job);
  char *const value_text = jt_get_first_attribute_value_string(space, job, "S", "A");
  jt_value *const value = jt_get_first_attribute_value(space, job, "S", "A");
  jt_value *const decoded = jt_decode_value(space, "string", "print", nullptr);
  jt_status *const status = jt_get_attribute_status(space, job, "S", "A");
  EXPECT_EQ(allocator.blocks(), blocks);
  jt_close_parsing_utility(space);
  EXPECT_EQ(allocator.blocks(), 0U);
  EXPECT_NE(std::string(text).find("paper"), std::string::npos);
  EXPECT_STREQ(name, "S");
  EXPECT_STREQ(value_text, "paper");
  EXPECT_STREQ(reinterpret_cast<char *>(value), "paper");
  EXPECT_STREQ(reinterpret_cast<char *>(decoded), "print");
  EXPECT_EQ(take_text(get_status_string(nullptr, status)), "odd");
  for (void *const block :
       {static_cast<void *>(text), static_cast<void *>(name), static_cast<void *>(value_text),
        static_cast<void *>(value), static_cast<void *>(decoded), static_cast<void *>(status)}) {
    std::free(block);
  }
}

TEST(Allocator, SessionsKeepTheirMemoryApart) {
  CountingAllocator of_one;
  CountingAllocator of_two;
  BusySession one(opened(of_one));
  BusySession two(opened(of_two));
  one.decode();
  two.decode();
  one.change();
  const std::size_t blocks = of_two.blocks();
  EXPECT_EQ(jt_close_parsing_utility(one.space), 1);
  EXPECT_EQ(of_one.blocks(), 0U);
  EXPECT_EQ(of_two.blocks(), blocks);
  two.change();
  EXPECT_EQ(jt_close_parsing_utility(two.space), 1);
  EXPECT_EQ(of_two.blocks(), 0U);
  EXPECT_FALSE(of_one.was_misused() || of_two.was_misused());
}

}  // namespace
}  // namespace jt_test
