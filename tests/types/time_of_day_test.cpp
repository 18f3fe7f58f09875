// "struct_timeofday": hour, colon, minute, and anything behind the minute.
#include <gtest/gtest.h>

#include "types/value_cases.h"

namespace jt_test {
namespace {

class TimeOfDayTest : public TypeTest {
 protected:
  TimeOfDayTest() : TypeTest("", "struct_timeofday") {}
};

using AcceptedTimeOfDay = Each<TimeOfDayTest, Reading>;

TEST_P(AcceptedTimeOfDay, IsReadAndWritten) { expect_read(GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    Every, AcceptedTimeOfDay,
    ::testing::Values(Reading{"Usual", "7:5", {7, 5}, "7:5"},
                      Reading{"ZerosAreNotKept", "09:05", {9, 5}, "9:5"},
                      Reading{"Lowest", "0:0", {0, 0}, "0:0"}, Reading{"Highest", "23:59", {23, 59}, "23:59"},
                      Reading{"AnythingBehind", "23:59xyz", {23, 59}, "23:59"},
                      Reading{"SecondsBehind", "12:30:59", {12, 30}, "12:30"},
                      Reading{"BlankBehind", "12:30 ", {12, 30}, "12:30"},
                      Reading{"NoHour", ":30", {0, 30}, "0:30"}, Reading{"NoMinute", "7:", {7, 0}, "7:0"},
                      Reading{"ColonAlone", ":", {0, 0}, "0:0"},
                      Reading{"WordForMinute", "7:x", {7, 0}, "7:0"},
                      Reading{"SignBeforeMinuteIsBehindIt", "7:-5", {7, 0}, "7:0"},
                      Reading{"ManyZeros", "00000000000000007:00000000000000005", {7, 5}, "7:5"}),
    case_name<Reading>);

using RefusedTimeOfDay = Each<TimeOfDayTest, Refusal>;

TEST_P(RefusedTimeOfDay, IsReported) { expect_refused(GetParam()); }

Refusal refused(const char *name, const std::string &text) {
  return {name, text, {bad_value("struct_timeofday", text)}};
}

INSTANTIATE_TEST_SUITE_P(
    Every, RefusedTimeOfDay,
    ::testing::Values(
        refused("HourTooLarge", "24:00"), refused("MinuteTooLarge", "7:60"), refused("BothTooLarge", "24:60"),
        refused("HourAlone", "7"), refused("LongHourAlone", "123456"), refused("OtherSeparator", "7.30"),
        refused("BlankBeforeColon", "7 :30"), refused("Minus", "-1:30"), refused("Plus", "+7:30"),
        refused("BlankBefore", " 7:30"), refused("Word", "noon"), refused("HourAbove32Bits", "4294967303:00"),
        refused("MinuteAbove32Bits", "7:4294967301"), refused("HourAbove64Bits", "18446744073709551623:00"),
        refused("MinuteAbove64Bits", "7:18446744073709551621")),
    case_name<Refusal>);

TEST_F(TimeOfDayTest, TheReportNamesTheTypeAndShowsTheText) {
  EXPECT_EQ(evaluated("24:00"), nullptr);
  EXPECT_EQ(messages(), Messages({"SYNTAX ERROR: trying to evaluate the following value string as -- "
                                  "struct_timeofday --:\n\n24:00 ..."}));
  EXPECT_EQ(status(), JT_SYNTAX_ERROR);
}

TEST_F(TimeOfDayTest, AnyNumbersOfAClientAreWritten) {
  EXPECT_EQ(written(ClientValue{-1, 2147483647}.get()), "-1:2147483647");
}

using ComparedTimesOfDay = Each<TimeOfDayTest, Comparison>;

TEST_P(ComparedTimesOfDay, AreOrderedByTime) { expect_compared(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Every, ComparedTimesOfDay,
                         ::testing::Values(Comparison{"Equal", "9:05", "09:5", 0},
                                           Comparison{"Hour", "8:59", "9:00", -1},
                                           Comparison{"Minute", "9:04", "9:05", -1}),
                         case_name<Comparison>);

TEST_F(TimeOfDayTest, NumbersCompareWithTheirSign) {
  EXPECT_EQ(compared(ClientValue{-1, 0}, ClientValue{1, 0}), -1);
  EXPECT_EQ(compared(ClientValue{0, 1}, ClientValue{0, -1}), 1);
}

}  // namespace
}  // namespace jt_test
