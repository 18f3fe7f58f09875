// The types are constant: any number of threads look them up and use them at once, with or without a session.
#include <gtest/gtest.h>

#include <string>

#include "api/value_types.h"
#include "threads/threads.h"

namespace jt_test {
namespace {

constexpr int kRounds = 20;

TEST(Types, AreFoundByAllThreadsAtOnce) {
  const auto look_up = [] {
    for (int round = 0; round < kRounds; ++round) {
      for (const TypeRow &row : kServiceTypes) {
        const jt_type *const type = get_type_from_services(nullptr, row.service, row.type);
        ASSERT_NE(type, nullptr) << row.type;
        ASSERT_STREQ(type->name, row.type);
      }
    }
  };
  at_once(look_up, look_up, look_up);
}

TEST(Types, ReadCompareAndWriteValuesOnAllThreadsAtOnce) {
  const auto use = [] {
    const Session space;
    for (int round = 0; round < kRounds; ++round) {
      for (const TypeRow &row : kServiceTypes) {
        jt_value *const value = jt_decode_value(space, row.type, row.text, row.service);
        jt_value *const copy = jt_copy_value(space, row.type, value, row.service);
        ASSERT_EQ(jt_compare_value(space, row.type, value, copy, row.service), 0) << row.type;
        ASSERT_EQ(take_text(jt_encode_value(space, row.type, copy, row.service)), row.written) << row.type;
        ASSERT_EQ(jt_destroy_value(space, row.type, value, row.service), 1) << row.type;
        ASSERT_EQ(jt_destroy_value(space, row.type, copy, row.service), 1) << row.type;
      }
    }
  };
  at_once(use, use);
}

TEST(Types, ThatAreUnknownAreReportedToTheSessionThatAsks) {
  const auto ask = [](const std::string &type) {
    const Session space;
    for (int round = 0; round < 10 * kRounds; ++round) {
      const jt_value *const value = jt_decode_value(space, type.c_str(), type.c_str(), "kmt_svc_scan");
      ASSERT_EQ(value, nullptr);
      ASSERT_EQ(messages_of(space).back(), "CALL ERROR: unknown type decode" + type + " ...");
    }
  };
  at_once([&] { ask("one"); }, [&] { ask("another"); });
}

TEST(Types, OfStatusesAreNamedOnAllThreadsAtOnce) {
  const auto name = [](const char *text, const char *written) {
    const Session space;
    for (int round = 0; round < 10 * kRounds; ++round) {
      jt_status *const status = get_status(space, text);
      ASSERT_EQ(take_text(get_status_string(space, status)), written);
      ASSERT_EQ(kill_status(space, status), 1);
    }
  };
  at_once([&] { name("kmt_status_error", "KMT_STATUS_ERROR"); }, [&] { name("late", "late"); });
}

TEST(Types, OfTextsAreTheSameOnAllThreads) {
  const auto ask = [] {
    const Session space;
    for (int round = 0; round < 10 * kRounds; ++round) {
      ASSERT_STREQ(jt_get_supported_language_version(space), "2.5.0");
      ASSERT_EQ(std::string(jt_get_copyright(space)).size(), 658U);
      ASSERT_EQ(std::string(jt_get_version(space)).rfind("VERSION 4.2.00\n", 0), 0U);
    }
  };
  at_once(ask, ask);
}

}  // namespace
}  // namespace jt_test
