// Statuses: made from a name, copied, written, compared as numbers, released.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "types/status.h"
#include "types/value_cases.h"

namespace jt_test {
namespace {

class StatusTest : public SessionTest {
 protected:
  struct KillStatus {
    jt_parser_space *space;
    void operator()(jt_status *status) const { kill_status(space, status); }
  };

  using OwnedStatus = std::unique_ptr<jt_status, KillStatus>;

  OwnedStatus named(const std::string &name) {
    return OwnedStatus(get_status(space, name.c_str()), KillStatus{space});
  }

  OwnedStatus copied(const jt_status *status) {
    return OwnedStatus(copy_status(space, status), KillStatus{space});
  }

  std::string text(const jt_status *status) { return take_text(get_status_string(space, status)); }

  static const jt_status *status_of(const std::uint32_t &number) {
    return reinterpret_cast<const jt_status *>(&number);
  }

  static const jt_value *value_of(const std::uint32_t &number) {
    return reinterpret_cast<const jt_value *>(&number);
  }

  const jt_type *type = get_type_from_services(space, "", "kmt_enum_status");
};

// ---- Names and numbers ----

struct StatusName {
  std::string name;
  std::uint32_t number;
};

std::ostream &operator<<(std::ostream &out, const StatusName &status) { return out << status.name; }

using EveryStatus = Each<StatusTest, StatusName>;

TEST_P(EveryStatus, HasItsNumberInAnyCase) {
  const std::string lower = lower_case(GetParam().name);
  std::string mixed = lower;
  mixed.front() = GetParam().name.front();
  for (const std::string &name : {GetParam().name, lower, mixed}) {
    const OwnedStatus status = named(name);
    ASSERT_NE(status, nullptr) << name;
    EXPECT_EQ(number_of(status.get()), GetParam().number) << name;
  }
  EXPECT_EQ(messages(), Messages{});
}

TEST_P(EveryStatus, IsWrittenAsItsName) {
  EXPECT_EQ(text(status_of(GetParam().number)), GetParam().name);
  EXPECT_EQ(messages(), Messages{});
}

TEST_P(EveryStatus, IsCopiedAsANumber) {
  const OwnedStatus copy = copied(status_of(GetParam().number));
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(number_of(copy.get()), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    OfJobs, EveryStatus,
    ::testing::Values(StatusName{"KMT_STATUS_ABORTED", 1}, StatusName{"KMT_STATUS_UNKNOWN", 2},
                      StatusName{"KMT_STATUS_NOTINSTANTIATED", 3}, StatusName{"KMT_STATUS_INSTANTIATED", 4},
                      StatusName{"KMT_STATUS_COMPLETED", 5}, StatusName{"KMT_STATUS_OVERRIDDEN", 6},
                      StatusName{"KMT_STATUS_IGNORED", 7}, StatusName{"KMT_STATUS_UNDETERMINED", 8},
                      StatusName{"KMT_STATUS_INITIALIZED", 9}, StatusName{"KMT_STATUS_UNINITIALIZED", 10},
                      StatusName{"KMT_STATUS_FILING_PROTOCOL_NOT_RUNNING", 11},
                      StatusName{"KMT_STATUS_FILING_LOGIN_FAILURE", 12},
                      StatusName{"KMT_STATUS_FILING_DIRECTORY_LOCK_FAILURE", 13},
                      StatusName{"KMT_STATUS_FILE_DELETE_REPLACE_FAILURE", 14},
                      StatusName{"KMT_STATUS_HZM_CONTENT_FILE_TRANSFER_FAILURE", 15},
                      StatusName{"KMT_STATUS_FILE_TRANSFER_FAILURE", 16},
                      StatusName{"KMT_STATUS_MISC_FILING_ERROR", 17}, StatusName{"KMT_STATUS_ERROR", 18},
                      StatusName{"KMT_STATUS_WARNING", 19}),
    case_name<StatusName>);

INSTANTIATE_TEST_SUITE_P(SharedNames, EveryStatus,
                         ::testing::Values(StatusName{"MM", 20}, StatusName{"IN", 21}, StatusName{"MIL", 22},
                                           StatusName{"IETF_SYSTEM_OBJECT_ID", 23},
                                           StatusName{"PROPRIETARY", 24}),
                         case_name<StatusName>);

// ---- Unknown names ----

TEST_F(StatusTest, AnUnknownNameIsKeptWithAWarning) {
  const OwnedStatus status = named("NO_SUCH_STATUS");
  ASSERT_NE(status, nullptr);
  EXPECT_EQ(number_of(status.get()), kMarker);
  EXPECT_EQ(text_of(status.get()), "NO_SUCH_STATUS");
  EXPECT_EQ(messages(), Messages({"WARNING: trying to evaluate as an 'enumerated' type:NO_SUCH_STATUS ..."}));
  EXPECT_EQ(this->status(), JT_WARNING);
}

TEST_F(StatusTest, AnUnknownNameIsWrittenAsItWasReadWithAReport) {
  const OwnedStatus status = named("NO_SUCH_STATUS");
  EXPECT_EQ(text(status.get()), "NO_SUCH_STATUS");
  EXPECT_EQ(messages(), Messages({"WARNING: trying to evaluate as an 'enumerated' type:NO_SUCH_STATUS ...",
                                  "CALL ERROR: Unknown enumerated value ..."}));
  EXPECT_EQ(this->status(), JT_CALL_ERROR);
}

TEST_F(StatusTest, AnUnknownNameKeepsItsSpelling) {
  const OwnedStatus status = named(" No/Such{}Status\n");
  EXPECT_EQ(text(status.get()), " No/Such{}Status\n");
}

TEST_F(StatusTest, TheEmptyNameIsUnknown) {
  const OwnedStatus status = named("");
  ASSERT_NE(status, nullptr);
  EXPECT_EQ(number_of(status.get()), kMarker);
  EXPECT_EQ(text(status.get()), "");
  EXPECT_EQ(messages(),
            Messages({"WARNING: trying to evaluate as an 'enumerated' type: ...", kUnknownNumber}));
}

TEST_F(StatusTest, ACopyOfAnUnknownNameHasItsText) {
  OwnedStatus status = named("NO_SUCH_STATUS");
  const OwnedStatus copy = copied(status.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_NE(copy, status);
  status.reset();
  EXPECT_EQ(number_of(copy.get()), kMarker);
  EXPECT_EQ(text_of(copy.get()), "NO_SUCH_STATUS");
  EXPECT_EQ(text(copy.get()), "NO_SUCH_STATUS");
}

TEST_F(StatusTest, NumbersWithoutANameAreNotWritten) {
  EXPECT_EQ(get_status_string(space, status_of(0)), nullptr);
  EXPECT_EQ(get_status_string(space, status_of(25)), nullptr);
  EXPECT_EQ(get_status_string(space, status_of(0xFFFFFFFE)), nullptr);
  EXPECT_EQ(messages(), Messages(3, "CALL ERROR: Unknown enumerated value ..."));
  EXPECT_EQ(status(), JT_CALL_ERROR);
}

// ---- Nulls and releasing ----

TEST_F(StatusTest, NullIsNoStatusAndNoReport) {
  EXPECT_EQ(get_status(space, nullptr), nullptr);
  EXPECT_EQ(copy_status(space, nullptr), nullptr);
  EXPECT_EQ(get_status_string(space, nullptr), nullptr);
  EXPECT_EQ(kill_status(space, nullptr), 1);
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(StatusTest, ReleasingSucceeds) {
  EXPECT_EQ(kill_status(space, get_status(space, "KMT_STATUS_ERROR")), 1);
  EXPECT_EQ(kill_status(space, get_status(space, "NO_SUCH_STATUS")), 1);
}

// ---- Shared statuses ----

TEST_F(StatusTest, EveryNameOfTheListHasASharedOne) {
  for (const char *const name : {"KMT_STATUS_ABORTED", "kmt_status_warning", "MM", "PROPRIETARY"}) {
    const jt_status *const shared = jt_core::find_shared_status(name);
    EXPECT_TRUE(jt_core::is_shared_status(shared)) << name;
    EXPECT_EQ(shared, jt_core::find_shared_status(name)) << name;
  }
  EXPECT_EQ(jt_core::find_shared_status("NO_SUCH_STATUS"), nullptr);
}

TEST_F(StatusTest, NullAndAClientsStatusAreNoSharedOnes) {
  EXPECT_FALSE(jt_core::is_shared_status(nullptr));
  EXPECT_FALSE(jt_core::is_shared_status(named("KMT_STATUS_ABORTED").get()));
}

// ---- Statuses are values of their type ----

TEST_F(StatusTest, AValueOfTheTypeIsAStatus) {
  const OwnedValue value = evaluated(space, type, "kmt_status_completed");
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(text(reinterpret_cast<const jt_status *>(value.get())), "KMT_STATUS_COMPLETED");
}

TEST_F(StatusTest, AStatusIsAValueOfTheType) {
  const OwnedStatus status = named("NO_SUCH_STATUS");
  const jt_value *const value = reinterpret_cast<const jt_value *>(status.get());
  EXPECT_EQ(take_text(type->deval(space, value)), "NO_SUCH_STATUS");
}

TEST_F(StatusTest, NumbersCompareWithoutASign) {
  EXPECT_EQ(type->cmp(space, value_of(1), value_of(2)), -1);
  EXPECT_EQ(type->cmp(space, value_of(2), value_of(1)), 1);
  EXPECT_EQ(type->cmp(space, value_of(2), value_of(2)), 0);
  EXPECT_EQ(type->cmp(space, value_of(1), value_of(kMarker)), -1);
  EXPECT_EQ(type->cmp(space, value_of(kMarker), value_of(1)), 1);
}

TEST_F(StatusTest, AnyTwoUnknownNamesAreEqual) {
  const OwnedValue one = evaluated(space, type, "NO_SUCH_STATUS");
  const OwnedValue other = evaluated(space, type, "NEITHER_THIS");
  EXPECT_EQ(type->cmp(space, one.get(), other.get()), 0);
}

}  // namespace
}  // namespace jt_test
