// "timestamp": 19 characters, year first; its record has the fields the other way round.
#include <gtest/gtest.h>

#include <string>

#include "types/value_cases.h"

namespace jt_test {
namespace {

class TimestampTest : public TypeTest {
 protected:
  TimestampTest() : TypeTest("", "timestamp", Reads::kAndCutsIt) {}
};

using AcceptedTimestamp = Each<TimestampTest, Reading>;

TEST_P(AcceptedTimestamp, IsReadAndWritten) { expect_read(GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    Every, AcceptedTimestamp,
    ::testing::Values(
        Reading{"Usual", "2009/01/02/03/04/05", {5, 4, 3, 2, 1, 2009}, "2009/01/02/03/04/05"},
        Reading{"NoRangeIsChecked", "2009/13/45/99/99/99", {99, 99, 99, 45, 13, 2009}, "2009/13/45/99/99/99"},
        Reading{"Zeros", "0000/00/00/00/00/00", {0, 0, 0, 0, 0, 0}, "0000/00/00/00/00/00"},
        Reading{"Nines", "9999/99/99/99/99/99", {99, 99, 99, 99, 99, 9999}, "9999/99/99/99/99/99"},
        Reading{"LeadingZeros", "0008/08/09/08/09/08", {8, 9, 8, 9, 8, 8}, "0008/08/09/08/09/08"}),
    case_name<Reading>);

TEST_F(TimestampTest, ReadingCutsTheTextAtItsSeparators) {
  PrivateText text("2009/01/02/03/04/05");
  const OwnedValue value(type->eval(space, text.get()), KillValue{space, type});
  EXPECT_NE(value, nullptr);
  EXPECT_EQ(text.bytes(), std::string("2009\0"
                                      "01\0"
                                      "02\0"
                                      "03\0"
                                      "04\0"
                                      "05",
                                      19));
}

// ---- Refused ----

using RefusedTimestamp = Each<TimestampTest, Refusal>;

TEST_P(RefusedTimestamp, IsNoValue) { expect_refused(GetParam()); }

TEST_P(RefusedTimestamp, LeavesTheTextAsItIs) {
  PrivateText text(GetParam().text);
  EXPECT_EQ(type->eval(space, text.get()), nullptr);
  EXPECT_EQ(text.bytes(), GetParam().text);
}

Refusal reported(const char *name, const std::string &text) {
  return {name, text, {bad_value("timestamp", text)}};
}

INSTANTIATE_TEST_SUITE_P(WrongLength, RefusedTimestamp,
                         ::testing::Values(reported("NoPadding", "2009/1/1/0/0/0"),
                                           reported("OneCharacter", "2"),
                                           reported("OneTooFew", "2009/01/02/03/04/0"),
                                           reported("OneTooMany", "2009/01/02/03/04/050"),
                                           reported("BlankBehind", "2009/01/02/03/04/05 "),
                                           reported("YearOnly", "2009")),
                         case_name<Refusal>);

Refusal silent(const char *name, const char *text) { return {name, text, {}}; }

INSTANTIATE_TEST_SUITE_P(
    WrongCharacterIsSilent, RefusedTimestamp,
    ::testing::Values(
        silent("OtherSeparators", "2009-01-01/00/00/00"), silent("Position0", "x009/01/02/03/04/05"),
        silent("Position1", "2x09/01/02/03/04/05"), silent("Position2", "20x9/01/02/03/04/05"),
        silent("Position3", "200x/01/02/03/04/05"), silent("Position4", "2009x01/02/03/04/05"),
        silent("Position5", "2009/x1/02/03/04/05"), silent("Position6", "2009/0x/02/03/04/05"),
        silent("Position7", "2009/01x02/03/04/05"), silent("Position8", "2009/01/x2/03/04/05"),
        silent("Position9", "2009/01/0x/03/04/05"), silent("Position10", "2009/01/02x03/04/05"),
        silent("Position11", "2009/01/02/x3/04/05"), silent("Position12", "2009/01/02/0x/04/05"),
        silent("Position13", "2009/01/02/03x04/05"), silent("Position14", "2009/01/02/03/x4/05"),
        silent("Position15", "2009/01/02/03/0x/05"), silent("Position16", "2009/01/02/03/04x05"),
        silent("Position17", "2009/01/02/03/04/x5"), silent("Position18", "2009/01/02/03/04/0x"),
        silent("Sign", "-009/01/02/03/04/05"), silent("Blank", "2009/ 1/02/03/04/05"),
        silent("DigitForSeparator", "2009001/02/03/04/05")),
    case_name<Refusal>);

TEST_F(TimestampTest, TheReportNamesTheTypeAndShowsTheText) {
  EXPECT_EQ(evaluated("2009/1/1/0/0/0"), nullptr);
  EXPECT_EQ(messages(),
            Messages({"SYNTAX ERROR: trying to evaluate the following value string as -- timestamp "
                      "--:\n\n2009/1/1/0/0/0 ..."}));
  EXPECT_EQ(status(), JT_SYNTAX_ERROR);
}

// ---- Records of a client ----

TEST_F(TimestampTest, FieldsThatNeedMoreRoomAreWrittenWhole) {
  EXPECT_EQ(written(ClientValue{100, 101, 102, 103, 104, 12345}.get()), "12345/104/103/102/101/100");
}

TEST_F(TimestampTest, ASignCountsAmongTheCharactersOfItsField) {
  EXPECT_EQ(written(ClientValue{-1, -12, -123, -1, -1, -5}.get()), "-005/-1/-1/-123/-12/-1");
}

TEST_F(TimestampTest, TheLongestFieldsAreWritten) {
  constexpr std::int32_t kLowest = -2147483647 - 1;
  EXPECT_EQ(written(ClientValue{kLowest, kLowest, kLowest, kLowest, kLowest, kLowest}.get()),
            "-2147483648/-2147483648/-2147483648/-2147483648/-2147483648/-2147483648");
}

// ---- Order ----

using ComparedTimestamps = Each<TimestampTest, Comparison>;

TEST_P(ComparedTimestamps, AreOrderedByTime) { expect_compared(GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    Every, ComparedTimestamps,
    ::testing::Values(Comparison{"Equal", "2009/01/02/03/04/05", "2009/01/02/03/04/05", 0},
                      Comparison{"Year", "2008/99/99/99/99/99", "2009/00/00/00/00/00", -1},
                      Comparison{"Month", "2009/01/99/99/99/99", "2009/02/00/00/00/00", -1},
                      Comparison{"Day", "2009/01/02/99/99/99", "2009/01/03/00/00/00", -1},
                      Comparison{"Hour", "2009/01/02/03/99/99", "2009/01/02/04/00/00", -1},
                      Comparison{"Minute", "2009/01/02/03/04/99", "2009/01/02/03/05/00", -1},
                      Comparison{"Second", "2009/01/02/03/04/05", "2009/01/02/03/04/06", -1}),
    case_name<Comparison>);

TEST_F(TimestampTest, FieldsCompareWithTheirSign) {
  EXPECT_EQ(compared(ClientValue{0, 0, 0, 0, 0, -1}, ClientValue{0, 0, 0, 0, 0, 1}), -1);
  EXPECT_EQ(compared(ClientValue{-1, 0, 0, 0, 0, 0}, ClientValue{1, 0, 0, 0, 0, 0}), -1);
}

}  // namespace
}  // namespace jt_test
