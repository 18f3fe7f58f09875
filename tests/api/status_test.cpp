// Statuses of services, invocations and attributes: every name on every level, statuses that have no name,
// what is copied and what is shared, and the text in the braces behind them.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <memory>
#include <ostream>
#include <string>

#include "support/job.h"

namespace jt_test {
namespace {

// Where a status may stand: its two calls, and what is written before and behind it.
struct Level {
  const char *name;
  std::function<int32_t(jt_parser_space *, int32_t, const jt_status *)> set;
  std::function<jt_status *(jt_parser_space *, int32_t)> get;
  const char *before;
  const char *behind;
};

std::ostream &operator<<(std::ostream &out, const Level &level) { return out << level.name; }

Level service() {
  return {
      "Service",
      [](auto *space, auto job, auto *status) { return jt_set_service_status(space, job, "Scan", status); },
      [](auto *space, auto job) { return jt_get_service_status(space, job, "Scan"); },
      "[kmt_svc_scan Scan]\n one{\n      integer a = 1;\n }\nend",
      "\n\n",
  };
}

Level invocation() {
  return {
      "Invocation",
      [](auto *space, auto job, auto *status) {
        return jt_set_invocation_status(space, job, "Scan", status);
      },
      [](auto *space, auto job) { return jt_get_invocation_status(space, job, "Scan"); },
      "[kmt_svc_scan Scan]\n one{\n      integer a = 1;\n }",
      "\nend\n\n",
  };
}

Level attribute() {
  return {
      "Attribute",
      [](auto *space, auto job, auto *status) {
        return jt_set_attribute_status(space, job, "Scan", "a", status);
      },
      [](auto *space, auto job) { return jt_get_attribute_status(space, job, "Scan", "a"); },
      "[kmt_svc_scan Scan]\n one{\n      integer a = 1;",
      "\n }\nend\n\n",
  };
}

struct Name {
  const char *name;
  uint32_t number;
};

constexpr Name kNames[] = {
    {"KMT_STATUS_ABORTED", 1},
    {"KMT_STATUS_UNKNOWN", 2},
    {"KMT_STATUS_NOTINSTANTIATED", 3},
    {"KMT_STATUS_INSTANTIATED", 4},
    {"KMT_STATUS_COMPLETED", 5},
    {"KMT_STATUS_OVERRIDDEN", 6},
    {"KMT_STATUS_IGNORED", 7},
    {"KMT_STATUS_UNDETERMINED", 8},
    {"KMT_STATUS_INITIALIZED", 9},
    {"KMT_STATUS_UNINITIALIZED", 10},
    {"KMT_STATUS_FILING_PROTOCOL_NOT_RUNNING", 11},
    {"KMT_STATUS_FILING_LOGIN_FAILURE", 12},
    {"KMT_STATUS_FILING_DIRECTORY_LOCK_FAILURE", 13},
    {"KMT_STATUS_FILE_DELETE_REPLACE_FAILURE", 14},
    {"KMT_STATUS_HZM_CONTENT_FILE_TRANSFER_FAILURE", 15},
    {"KMT_STATUS_FILE_TRANSFER_FAILURE", 16},
    {"KMT_STATUS_MISC_FILING_ERROR", 17},
    {"KMT_STATUS_ERROR", 18},
    {"KMT_STATUS_WARNING", 19},
    {"MM", 20},
    {"IN", 21},
    {"MIL", 22},
    {"IETF_SYSTEM_OBJECT_ID", 23},
    {"PROPRIETARY", 24},
};

constexpr uint32_t kCompleted = 5;
constexpr uint32_t kMarker = 0xFFFFFFFF;

struct DestroyStatus {
  jt_parser_space *space;
  void operator()(jt_status *status) const { EXPECT_EQ(jt_destroy_status(space, status), 1); }
};
using OwnedStatus = std::unique_ptr<jt_status, DestroyStatus>;

uint32_t number_of(const OwnedStatus &status) {
  uint32_t number = 0;
  std::memcpy(&number, static_cast<const void *>(status.get()), sizeof(number));
  return number;
}

// The text behind the marker.
std::string text_of(const OwnedStatus &status) {
  return reinterpret_cast<const char *>(status.get()) + sizeof(uint32_t);
}

class StatusOf : public JobTest, public ::testing::WithParamInterface<Level> {
 protected:
  StatusOf() { decode(with("")); }

  // The template with a status on this level.
  std::string with(const std::string &status) const { return level.before + status + level.behind; }

  int32_t set(const jt_status *status) { return level.set(space, job, status); }
  int32_t set(const uint32_t &number) { return set(as_status(number)); }
  OwnedStatus get() { return OwnedStatus(level.get(space, job), DestroyStatus{space}); }
  OwnedStatus status_named(const char *name) {
    return OwnedStatus(get_status(space, name), DestroyStatus{space});
  }

  const Level &level = GetParam();
};

INSTANTIATE_TEST_SUITE_P(Each, StatusOf, ::testing::Values(service(), invocation(), attribute()),
                         [](const auto &tested) { return std::string(tested.param.name); });

TEST_P(StatusOf, IsNoneAtFirst) {
  EXPECT_EQ(get(), nullptr);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(encoded(), with(""));
}

TEST_P(StatusOf, IsNoneWhereEmptyParenthesesWereRead) {
  decode(with("()"));
  EXPECT_EQ(get(), nullptr);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(encoded(), with(""));
}

TEST_P(StatusOf, MayBeAnyOfTheNames) {
  for (const auto &[name, number] : kNames) {
    EXPECT_EQ(set(number), 1);
    EXPECT_EQ(number_of(get()), number);
    EXPECT_EQ(encoded(), with(std::string("(") + name + ")"));
  }
  EXPECT_TRUE(quiet());
}

TEST_P(StatusOf, IsReadBackUnderAnyOfTheNames) {
  for (const auto &[name, number] : kNames) {
    decode(with(std::string("(") + name + ")"));
    EXPECT_EQ(number_of(get()), number);
    const OwnedStatus status = status_named(name);
    EXPECT_EQ(set(status.get()), 1);
    EXPECT_EQ(encoded(), with(std::string("(") + name + ")"));
  }
  EXPECT_TRUE(quiet());
}

TEST_P(StatusOf, IsReplaced) {
  EXPECT_EQ(set(kCompleted), 1);
  EXPECT_EQ(set(18), 1);
  EXPECT_EQ(set(18), 1);
  EXPECT_EQ(number_of(get()), 18U);
  EXPECT_EQ(encoded(), with("(KMT_STATUS_ERROR)"));
  EXPECT_TRUE(quiet());
}

TEST_P(StatusOf, DoesNotBecomeNull) {
  EXPECT_EQ(set(nullptr), 0);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(get(), nullptr);
  ASSERT_EQ(set(kCompleted), 1);
  EXPECT_EQ(set(nullptr), 0);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(number_of(get()), kCompleted);
}

TEST_P(StatusOf, IsHandedOutAsACopy) {
  ASSERT_EQ(set(kCompleted), 1);
  const OwnedStatus first = get();
  const OwnedStatus second = get();
  ASSERT_NE(first, second);
  const uint32_t other = 1;
  std::memcpy(static_cast<void *>(first.get()), &other, sizeof(other));
  EXPECT_EQ(number_of(second), kCompleted);
  EXPECT_EQ(encoded(), with("(KMT_STATUS_COMPLETED)"));
}

TEST_P(StatusOf, OutlivesTheCopyAndTheCopyOutlivesTheTemplate) {
  ASSERT_EQ(set(kCompleted), 1);
  get().reset();
  EXPECT_EQ(number_of(get()), kCompleted);
  const OwnedStatus copy = get();
  ASSERT_EQ(jt_destroy_template(space, job), 1);
  EXPECT_EQ(number_of(copy), kCompleted);
}

TEST_P(StatusOf, IsACopyOfWhatWasGiven) {
  uint32_t number = kCompleted;
  ASSERT_EQ(set(number), 1);
  number = 1;
  EXPECT_EQ(number_of(get()), kCompleted);
}

TEST_P(StatusOf, IsOnThisLevelAlone) {
  ASSERT_EQ(set(kCompleted), 1);
  EXPECT_EQ(encoded(), with("(KMT_STATUS_COMPLETED)"));
  const Level levels[] = {service(), invocation(), attribute()};
  for (const Level &other : levels) {
    const OwnedStatus status(other.get(space, job), DestroyStatus{space});
    EXPECT_EQ(status != nullptr, std::string(other.name) == level.name);
  }
}

// ---- Statuses without a name ------------------------------------------------------------------------------

TEST_P(StatusOf, WithANameThatNobodyKnowsIsReadAndWrittenAsItIs) {
  decode(with("(New_Status)"));
  const OwnedStatus status = get();
  ASSERT_NE(status, nullptr);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(number_of(status), kMarker);
  EXPECT_EQ(text_of(status), "New_Status");
  forget();
  EXPECT_EQ(encoded(), with("(New_Status)"));
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: Unknown enumerated value ..."}));
}

TEST_P(StatusOf, LosesTheTextOfANameThatNobodyKnowsWhenItIsSet) {
  const OwnedStatus unknown = status_named("New_Status");
  forget();
  EXPECT_EQ(set(unknown.get()), 1);
  EXPECT_TRUE(quiet());
  const OwnedStatus status = get();
  EXPECT_EQ(number_of(status), kMarker);
  EXPECT_EQ(text_of(status), "");
  forget();
  EXPECT_EQ(encoded(), with("()"));
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: Unknown enumerated value ..."}));
}

TEST_P(StatusOf, MayBeABareMarker) {
  ASSERT_EQ(set(kCompleted), 1);
  const auto marker = std::make_unique<uint32_t>(kMarker);
  EXPECT_EQ(set(as_status(*marker)), 1);
  const OwnedStatus status = get();
  EXPECT_EQ(number_of(status), kMarker);
  EXPECT_EQ(text_of(status), "");
  EXPECT_EQ(encoded(), with("()"));
}

TEST_P(StatusOf, WithANameThatNobodyKnowsIsReplacedWhole) {
  decode(with("(New_Status)"));
  ASSERT_EQ(set(kMarker), 1);
  EXPECT_EQ(text_of(get()), "");
  EXPECT_EQ(encoded(), with("()"));
  ASSERT_EQ(set(kCompleted), 1);
  EXPECT_EQ(number_of(get()), kCompleted);
  EXPECT_EQ(encoded(), with("(KMT_STATUS_COMPLETED)"));
}

TEST_P(StatusOf, MayBeANumberWithoutAName) {
  EXPECT_EQ(set(4711), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(number_of(get()), 4711U);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(encoded(), with("()"));
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: Unknown enumerated value ..."}));
}

// ---- The text in the braces -------------------------------------------------------------------------------

TEST_P(StatusOf, KeepsTheTextThatWasRead) {
  decode(with("(KMT_STATUS_ERROR{why})"));
  ASSERT_EQ(set(kCompleted), 1);
  EXPECT_EQ(encoded(), with("(KMT_STATUS_COMPLETED{why})"));
  ASSERT_EQ(set(kMarker), 1);
  EXPECT_EQ(encoded(), with("({why})"));
}

// ---- More than one of them --------------------------------------------------------------------------------

class SeveralStatuses : public JobTest {};

TEST_F(SeveralStatuses, EachInvocationAndEachAttributeHasItsOwnStatus) {
  decode("[ kmt_svc_scan Scan ] one { integer a = 1; integer b = 2; } two { integer a = 3; } end");
  ASSERT_EQ(jt_set_attribute_status(space, job, "Scan", "b", as_status(1U)), 1);
  ASSERT_EQ(jt_named_invocation(space, job, "Scan", "two"), 1);
  ASSERT_EQ(jt_set_attribute_status(space, job, "Scan", "a", as_status(2U)), 1);
  ASSERT_EQ(jt_set_invocation_status(space, job, "Scan", as_status(4U)), 1);
  EXPECT_EQ(encoded(),
            "[kmt_svc_scan Scan]\n"
            " one{\n"
            "      integer a = 1;\n"
            "      integer b = 2;(KMT_STATUS_ABORTED)\n"
            " }\n"
            " two{\n"
            "      integer a = 3;(KMT_STATUS_UNKNOWN)\n"
            " }(KMT_STATUS_INSTANTIATED)\n"
            "end\n\n");
}

TEST_F(SeveralStatuses, AStatusIsAskedOfTheCurrentInvocation) {
  decode("[ kmt_svc_scan Scan ] { } (KMT_STATUS_ERROR) { } end");
  ASSERT_EQ(jt_next_invocation(space, job, "Scan"), 1);
  EXPECT_EQ(jt_get_invocation_status(space, job, "Scan"), nullptr);
  EXPECT_TRUE(quiet());
  ASSERT_EQ(jt_first_invocation(space, job, "Scan"), 1);
  const OwnedStatus status(jt_get_invocation_status(space, job, "Scan"), DestroyStatus{space});
  EXPECT_EQ(number_of(status), 18U);
}

}  // namespace
}  // namespace jt_test
