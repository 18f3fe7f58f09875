// "struct_magnification": a mode, and as many percentages as the mode asks for.
#include <gtest/gtest.h>

#include <string>

#include "types/value_cases.h"

namespace jt_test {
namespace {

constexpr std::int32_t kNone = 94;
constexpr std::int32_t kAutoIso = 111;
constexpr std::int32_t kAutoAna = 112;
constexpr std::int32_t kManIso = 113;
constexpr std::int32_t kManAna = 114;

constexpr char kOutside[] = "SYNTAX ERROR: Value outside the range of 25-400 ...";

class MagnificationTest : public TypeTest {
 protected:
  MagnificationTest() : TypeTest("kmt_svc_scan", "struct_magnification", Reads::kAndCutsIt) {}
};

using AcceptedMagnification = Each<MagnificationTest, Reading>;

TEST_P(AcceptedMagnification, IsReadAndWritten) { expect_read(GetParam()); }

INSTANTIATE_TEST_SUITE_P(ModeAlone, AcceptedMagnification,
                         ::testing::Values(Reading{"AutoIso", "AUTOISO", {kAutoIso, 0, 0}, "AUTOISO"},
                                           Reading{"AutoAna", "AUTOANA", {kAutoAna, 0, 0}, "AUTOANA"},
                                           Reading{"None", "NONE", {kNone, 0, 0}, "NONE"},
                                           Reading{"LowerCase", "autoiso", {kAutoIso, 0, 0}, "AUTOISO"}),
                         case_name<Reading>);

INSTANTIATE_TEST_SUITE_P(
    OneNumber, AcceptedMagnification,
    ::testing::Values(Reading{"Usual", "MANISO/100", {kManIso, 100, 100}, "MANISO/100"},
                      Reading{"Lowest", "MANISO/25", {kManIso, 25, 25}, "MANISO/25"},
                      Reading{"Highest", "MANISO/400", {kManIso, 400, 400}, "MANISO/400"},
                      Reading{"LeadingZeros", "MANISO/0000000000050", {kManIso, 50, 50}, "MANISO/50"},
                      Reading{"MixedCase", "ManIso/75", {kManIso, 75, 75}, "MANISO/75"}),
    case_name<Reading>);

INSTANTIATE_TEST_SUITE_P(
    TwoNumbers, AcceptedMagnification,
    ::testing::Values(Reading{"Usual", "MANANA/50/200", {kManAna, 50, 200}, "MANANA/50/200"},
                      Reading{"Lowest", "MANANA/25/25", {kManAna, 25, 25}, "MANANA/25/25"},
                      Reading{"Highest", "MANANA/400/400", {kManAna, 400, 400}, "MANANA/400/400"},
                      Reading{"LeadingZeros", "MANANA/050/00200", {kManAna, 50, 200}, "MANANA/50/200"},
                      Reading{"LowerCase", "manana/50/60", {kManAna, 50, 60}, "MANANA/50/60"}),
    case_name<Reading>);

// ---- Cut in place ----

TEST_F(MagnificationTest, ReadingCutsTheTextBehindTheMode) {
  PrivateText text("MANANA/50/200");
  const OwnedValue value(type->eval(space, text.get()), KillValue{space, type});
  EXPECT_EQ(text.bytes(), std::string("MANANA\0"
                                      "50/200",
                                      13));
}

TEST_F(MagnificationTest, ReadingLeavesAModeAloneAsItIs) {
  PrivateText text("AUTOISO");
  const OwnedValue value(type->eval(space, text.get()), KillValue{space, type});
  EXPECT_EQ(text.bytes(), "AUTOISO");
}

// ---- Refused ----

// The reports come after the cut and show what it leaves of the text.
Refusal unfit(const char *name, const std::string &mode, const std::string &rest) {
  return {name, mode + rest, {bad_value("struct_magnification", mode)}};
}

Refusal outside(const char *name, const std::string &mode, const std::string &rest) {
  return {name, mode + rest, {kOutside, bad_value("struct_magnification", mode)}};
}

Refusal unknown(const char *name, const std::string &mode, const std::string &rest) {
  return {name, mode + rest, {unknown_name(mode), bad_value("struct_magnification", mode)}};
}

using RefusedMagnification = Each<MagnificationTest, Refusal>;

TEST_P(RefusedMagnification, IsReported) { expect_refused(GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    Mode, RefusedMagnification,
    ::testing::Values(
        unfit("OneNumberMissing", "MANISO", ""), unfit("TwoNumbersMissing", "MANANA", ""),
        unfit("OtherName", "FULL_COLOR", ""), unfit("OneNumberForAutoIso", "AUTOISO", "/100"),
        unfit("OneNumberForAutoAna", "AUTOANA", "/100"), unfit("OneNumberForNone", "NONE", "/100"),
        unfit("OneNumberForTwo", "MANANA", "/100"), unfit("OneNumberForOtherName", "PHOTO", "/100"),
        unfit("TwoNumbersForOne", "MANISO", "/100/100"), unfit("TwoNumbersForNone", "NONE", "/100/100"),
        unfit("TwoNumbersForAuto", "AUTOANA", "/100/100"), unfit("NoNumberBehindSlash", "AUTOISO", "/"),
        unfit("FitnessBeforeRange", "MANANA", "/401"), unfit("FitnessOfTwoBeforeRange", "MANISO", "/401/5")),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(
    Shape, RefusedMagnification,
    ::testing::Values(
        unfit("Letter", "MANISO", "/x"), unfit("LetterBehind", "MANISO", "/100x"),
        unfit("Percent", "MANISO", "/100%"), unfit("Minus", "MANISO", "/-100"),
        unfit("Plus", "MANISO", "/+100"), unfit("BlankBefore", "MANISO", "/ 100"),
        unfit("BlankBehind", "MANISO", "/100 "), unfit("Point", "MANISO", "/100.5"),
        unfit("LetterForFirst", "MANANA", "/x/100"), unfit("LetterInFirst", "MANANA", "/100x/100"),
        unfit("LetterForSecond", "MANANA", "/100/x"), unfit("LetterInSecond", "MANANA", "/100/100x"),
        unfit("MinusInSecond", "MANANA", "/100/-100"), unfit("ThirdNumber", "MANANA", "/100/100/100"),
        unfit("SlashBehind", "MANANA", "/100/100/"), unfit("ShapeBeforeRange", "MANISO", "/401x"),
        unfit("ShapeOfTwoBeforeRange", "MANANA", "/24/100x")),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(
    Range, RefusedMagnification,
    ::testing::Values(outside("BelowLowest", "MANISO", "/24"), outside("AboveHighest", "MANISO", "/401"),
                      outside("Zero", "MANISO", "/0"), outside("Empty", "MANISO", "/"),
                      outside("Above32Bits", "MANISO", "/4294967396"),
                      outside("Above64Bits", "MANISO", "/18446744073709551716"),
                      outside("FirstBelow", "MANANA", "/24/100"), outside("FirstAbove", "MANANA", "/401/100"),
                      outside("SecondBelow", "MANANA", "/100/24"),
                      outside("SecondAbove", "MANANA", "/100/401"), outside("BothOnce", "MANANA", "/24/401"),
                      outside("FirstEmpty", "MANANA", "//100"), outside("SecondEmpty", "MANANA", "/100/"),
                      outside("BothEmpty", "MANANA", "//"),
                      outside("FirstAbove32Bits", "MANANA", "/4294967396/100"),
                      outside("SecondAbove32Bits", "MANANA", "/100/4294967396")),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(UnknownMode, RefusedMagnification,
                         ::testing::Values(unknown("Alone", "FOO", ""), unknown("OneNumber", "FOO", "/100"),
                                           unknown("TwoNumbers", "FOO", "/100/100"),
                                           unknown("Empty", "", "/100"), unknown("SlashAlone", "", "/"),
                                           unknown("Number", "100", ""), unknown("BeforeShape", "FOO", "/x"),
                                           unknown("BeforeRange", "FOO", "/401"),
                                           unknown("BlankBehind", "MANISO ", "/100"),
                                           unknown("Long", std::string(400, 'm'), "/100")),
                         case_name<Refusal>);

TEST_F(MagnificationTest, TheReportNamesTheTypeAndShowsTheCutText) {
  EXPECT_EQ(evaluated("MANISO/401"), nullptr);
  EXPECT_EQ(messages(), Messages({"SYNTAX ERROR: Value outside the range of 25-400 ...",
                                  "SYNTAX ERROR: trying to evaluate the following value string as -- "
                                  "struct_magnification --:\n\nMANISO ..."}));
  EXPECT_EQ(status(), JT_SYNTAX_ERROR);
}

// ---- Records of a client ----

TEST_F(MagnificationTest, TheModeDecidesHowManyNumbersAreWritten) {
  EXPECT_EQ(written(ClientValue{kManAna, -1, 999}.get()), "MANANA/-1/999");
  EXPECT_EQ(written(ClientValue{kManIso, 7, 8}.get()), "MANISO/7");
  EXPECT_EQ(written(ClientValue{kAutoIso, 7, 8}.get()), "AUTOISO");
  EXPECT_EQ(written(ClientValue{81, 7, 8}.get()), "TEXT");
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(MagnificationTest, AModeWithoutANameCannotBeWritten) {
  EXPECT_EQ(type->deval(space, ClientValue{999, 7, 8}.get()), nullptr);
  EXPECT_EQ(messages(), Messages({kUnknownNumber}));
}

TEST_F(MagnificationTest, ACopyHasEveryField) {
  const OwnedValue copy = copied(ClientValue{-1, 2, 3}.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(fields_of(copy.get(), 3), Fields({-1, 2, 3}));
}

// ---- Order ----

using ComparedMagnifications = Each<MagnificationTest, Comparison>;

TEST_P(ComparedMagnifications, AreOrderedOnlyWithOneFreePercentage) { expect_compared(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Every, ComparedMagnifications,
                         ::testing::Values(Comparison{"OneEqual", "MANISO/100", "maniso/0100", 0},
                                           Comparison{"OneSmaller", "MANISO/99", "MANISO/100", -1},
                                           Comparison{"TwoEqual", "MANANA/50/60", "MANANA/50/60", 0},
                                           Comparison{"FirstOfTwo", "MANANA/50/60", "MANANA/51/60", -2},
                                           Comparison{"SecondOfTwo", "MANANA/50/60", "MANANA/50/61", -2},
                                           Comparison{"AutoEqual", "AUTOISO", "AutoIso", 0},
                                           Comparison{"OtherMode", "AUTOISO", "AUTOANA", -2},
                                           Comparison{"OtherModeSameNumbers", "MANISO/50", "MANANA/50/50",
                                                      -2},
                                           Comparison{"NoneAndAuto", "NONE", "AUTOISO", -2}),
                         case_name<Comparison>);

TEST_F(MagnificationTest, OtherModesAreEqualOnlyWithEqualNumbers) {
  EXPECT_EQ(compared(ClientValue{kNone, 7, 8}, ClientValue{kNone, 7, 8}), 0);
  EXPECT_EQ(compared(ClientValue{kNone, 7, 8}, ClientValue{kNone, 6, 8}), -2);
  EXPECT_EQ(compared(ClientValue{kNone, 7, 8}, ClientValue{kNone, 7, 9}), -2);
}

}  // namespace
}  // namespace jt_test
