// "struct_rectangle": corner, size and a unit. What does not fit on the glass is refused.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "types/value_cases.h"

namespace jt_test {
namespace {

constexpr std::int32_t kMm = 20;
constexpr std::int32_t kIn = 21;
constexpr std::int32_t kMil = 22;

class RectangleTest : public TypeTest {
 protected:
  RectangleTest() : TypeTest("", "struct_rectangle") {}
};

using AcceptedRectangle = Each<RectangleTest, Reading>;

TEST_P(AcceptedRectangle, IsReadAndWritten) { expect_read(GetParam()); }

// A text that is written back as it is.
Reading kept(const char *name, const char *text, Fields record) {
  return {name, text, std::move(record), text};
}

INSTANTIATE_TEST_SUITE_P(
    Forms, AcceptedRectangle,
    ::testing::Values(
        kept("Millimetres", "1/2/30/40/MM", {1, 2, 30, 40, kMm}),
        kept("Inches", "1/2/300/400/IN", {1, 2, 300, 400, kIn}),
        kept("Mils", "1/2/3000/4000/MIL", {1, 2, 3000, 4000, kMil}),
        Reading{"LowerCase", "1/2/30/40/mm", {1, 2, 30, 40, kMm}, "1/2/30/40/MM"},
        Reading{"MixedCase", "1/2/3000/4000/MiL", {1, 2, 3000, 4000, kMil}, "1/2/3000/4000/MIL"},
        Reading{"EmptyCorner", "//30/40/MM", {0, 0, 30, 40, kMm}, "0/0/30/40/MM"},
        Reading{"LeadingZeros", "01/0002/00000000000030/040/MM", {1, 2, 30, 40, kMm}, "1/2/30/40/MM"}),
    case_name<Reading>);

INSTANTIATE_TEST_SUITE_P(
    AtLimits, AcceptedRectangle,
    ::testing::Values(kept("MmLowest", "0/0/25/25/MM", {0, 0, 25, 25, kMm}),
                      kept("MmHighest", "350/500/350/500/MM", {350, 500, 350, 500, kMm}),
                      kept("InLowest", "0/0/100/100/IN", {0, 0, 100, 100, kIn}),
                      kept("InHighest", "1400/2000/1400/2000/IN", {1400, 2000, 1400, 2000, kIn}),
                      kept("MilLowest", "0/0/1000/1000/MIL", {0, 0, 1000, 1000, kMil}),
                      kept("MilHighest", "14000/20000/14000/20000/MIL", {14000, 20000, 14000, 20000, kMil})),
    case_name<Reading>);

using RefusedRectangle = Each<RectangleTest, Refusal>;

TEST_P(RefusedRectangle, IsNoValue) { expect_refused(GetParam()); }

Refusal outside(const char *name, const std::string &text) {
  return {name, text, {"SYNTAX ERROR: Value outside range ...", bad_value("struct_rectangle", text)}};
}

INSTANTIATE_TEST_SUITE_P(MmLimits, RefusedRectangle,
                         ::testing::Values(outside("X", "351/0/100/100/MM"), outside("Y", "0/501/100/100/MM"),
                                           outside("Narrow", "0/0/24/25/MM"),
                                           outside("Wide", "0/0/351/25/MM"), outside("Low", "0/0/25/24/MM"),
                                           outside("High", "0/0/25/501/MM"),
                                           outside("XHasTheLimitOfTheWidth", "500/0/100/100/MM"),
                                           outside("WidthHasNotTheLimitOfTheHeight", "0/0/500/100/MM"),
                                           outside("AllOnce", "351/501/24/501/MM"),
                                           outside("LowerCaseUnit", "0/0/24/25/mm"),
                                           outside("EmptySize", "0/0///MM")),
                         case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(
    InLimits, RefusedRectangle,
    ::testing::Values(outside("X", "1401/0/100/100/IN"), outside("Y", "0/2001/100/100/IN"),
                      outside("Narrow", "0/0/99/100/IN"), outside("Wide", "0/0/1401/100/IN"),
                      outside("Low", "0/0/100/99/IN"), outside("High", "0/0/100/2001/IN"),
                      outside("XHasTheLimitOfTheWidth", "2000/0/100/100/IN"),
                      outside("WidthHasNotTheLimitOfTheHeight", "0/0/2000/100/IN")),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(
    MilLimits, RefusedRectangle,
    ::testing::Values(outside("X", "14001/0/1000/1000/MIL"), outside("Y", "0/20001/1000/1000/MIL"),
                      outside("Narrow", "0/0/999/1000/MIL"), outside("Wide", "0/0/14001/1000/MIL"),
                      outside("Low", "0/0/1000/999/MIL"), outside("High", "0/0/1000/20001/MIL"),
                      outside("XHasTheLimitOfTheWidth", "20000/0/1000/1000/MIL"),
                      outside("WidthHasNotTheLimitOfTheHeight", "0/0/20000/1000/MIL")),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(TooManyDigits, RefusedRectangle,
                         ::testing::Values(outside("X", "4294967297/0/25/25/MM"),
                                           outside("Y", "0/4294967297/25/25/MM"),
                                           outside("Width", "0/0/4294967326/25/MM"),
                                           outside("Height", "0/0/25/18446744073709551646/MM")),
                         case_name<Refusal>);

Refusal misshapen(const char *name, const std::string &text) {
  return {name, text, {bad_value("struct_rectangle", text)}};
}

INSTANTIATE_TEST_SUITE_P(
    Shape, RefusedRectangle,
    ::testing::Values(misshapen("OneNumber", "1"), misshapen("TwoNumbers", "1/2"),
                      misshapen("ThreeNumbers", "1/2/30"), misshapen("FourNumbers", "1/2/30/40"),
                      misshapen("EndBehindFirst", "1/"), misshapen("EndBehindThird", "1/2/30/"),
                      misshapen("UnitTooEarly", "1/2/30/MM"), misshapen("LetterInFirst", "1x/2/30/40/MM"),
                      misshapen("LetterInSecond", "1/2x/30/40/MM"), misshapen("LetterInThird", "1/2/x/40/MM"),
                      misshapen("LetterInFourth", "1/2/30/40x/MM"), misshapen("Minus", "1/-2/30/40/MM"),
                      misshapen("Plus", "+1/2/30/40/MM"), misshapen("BlankBefore", " 1/2/30/40/MM"),
                      misshapen("OtherSeparator", "1,2,30,40,MM"),
                      misshapen("BeforeLimits", "9999/9999/x/40/MM")),
    case_name<Refusal>);

Refusal unknown_unit(const char *name, const std::string &numbers, const std::string &unit) {
  return {
      name, numbers + unit, {recorded("SYNTAX ERROR: trying to evaluate as an 'enumerated' type:", unit)}};
}

INSTANTIATE_TEST_SUITE_P(
    Unit, RefusedRectangle,
    ::testing::Values(unknown_unit("Unknown", "1/2/30/40/", "FOO"), unknown_unit("None", "1/2/30/40/", ""),
                      unknown_unit("Blank", "1/2/30/40/", " MM"),
                      unknown_unit("SlashBehind", "1/2/30/40/", "MM/"),
                      unknown_unit("FifthNumber", "1/2/30/40/", "50/MM"),
                      unknown_unit("BeforeLimits", "9999/9999/0/0/", "FOO"),
                      unknown_unit("Long", "1/2/30/40/", std::string(400, 'u')),
                      Refusal{"StatusIsSilent", "1/2/30/40/KMT_STATUS_ERROR", {}},
                      Refusal{"AlgorithmIsSilent", "1/2/30/40/PROPRIETARY", {}},
                      Refusal{"StatusBeforeLimits", "9999/9999/0/0/KMT_STATUS_ERROR", {}}),
    case_name<Refusal>);

TEST_F(RectangleTest, TheReportNamesTheTypeAndShowsTheText) {
  EXPECT_EQ(evaluated("0/0/24/25/MM"), nullptr);
  EXPECT_EQ(messages(), Messages({"SYNTAX ERROR: Value outside range ...",
                                  "SYNTAX ERROR: trying to evaluate the following value string as -- "
                                  "struct_rectangle --:\n\n0/0/24/25/MM ..."}));
  EXPECT_EQ(status(), JT_SYNTAX_ERROR);
}

TEST_F(RectangleTest, AnUnknownUnitIsASyntaxError) {
  EXPECT_EQ(evaluated("1/2/30/40/FOO"), nullptr);
  EXPECT_EQ(messages(), Messages({"SYNTAX ERROR: trying to evaluate as an 'enumerated' type:FOO ..."}));
  EXPECT_EQ(status(), JT_SYNTAX_ERROR);
}

// ---- Records of a client ----

TEST_F(RectangleTest, AnyNumbersAreWritten) {
  EXPECT_EQ(written(ClientValue{-1, 99999, 0, 2147483647, kMil}.get()), "-1/99999/0/2147483647/MIL");
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(RectangleTest, EveryNamedUnitIsWritten) {
  EXPECT_EQ(written(ClientValue{1, 2, 3, 4, 24}.get()), "1/2/3/4/PROPRIETARY");
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(RectangleTest, AUnitWithoutANameCannotBeWritten) {
  EXPECT_EQ(type->deval(space, ClientValue{1, 2, 3, 4, 25}.get()), nullptr);
  EXPECT_EQ(messages(), Messages({kUnknownNumber, kCannotBeEncoded}));
  EXPECT_EQ(status(), JT_MEMORY_ERROR);
}

TEST_F(RectangleTest, NothingIsReadBehindAMarkerForAUnit) {
  EXPECT_EQ(type->deval(space, ClientValue{1, 2, 3, 4, -1}.get()), nullptr);
  EXPECT_EQ(messages(), Messages({kUnknownNumber, kCannotBeEncoded}));
}

TEST_F(RectangleTest, ACopyHasEveryField) {
  const OwnedValue copy = copied(ClientValue{-1, 2, 3, 4, 99}.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(fields_of(copy.get(), 5), Fields({-1, 2, 3, 4, 99}));
}

// ---- Order ----

using ComparedRectangles = Each<RectangleTest, Comparison>;

TEST_P(ComparedRectangles, AreOrderedByTheirSize) { expect_compared(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Every, ComparedRectangles,
                         ::testing::Values(Comparison{"Equal", "1/2/30/40/MM", "1/2/30/40/MM", 0},
                                           Comparison{"OnlyCornersDiffer", "1/2/30/40/MM", "9/8/30/40/MM", 0},
                                           Comparison{"OnlyUnitsDiffer", "1/2/300/400/MM", "1/2/300/400/IN",
                                                      0},
                                           Comparison{"Width", "9/9/29/99/MM", "0/0/30/40/MM", -1},
                                           Comparison{"Height", "9/9/30/39/MM", "0/0/30/40/MM", -1}),
                         case_name<Comparison>);

TEST_F(RectangleTest, SizesCompareWithTheirSign) {
  EXPECT_EQ(compared(ClientValue{0, 0, -1, 0, kMm}, ClientValue{0, 0, 1, 0, kMm}), -1);
  EXPECT_EQ(compared(ClientValue{0, 0, 0, 1, kMm}, ClientValue{0, 0, 0, -1, kMm}), 1);
}

}  // namespace
}  // namespace jt_test
