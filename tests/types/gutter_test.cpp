// "struct_gutter": two widths and a unit. What is too wide is warned about and kept.
#include <gtest/gtest.h>

#include <string>

#include "types/value_cases.h"

namespace jt_test {
namespace {

constexpr std::int32_t kMm = 20;
constexpr std::int32_t kIn = 21;
constexpr std::int32_t kMil = 22;

constexpr char kOutsideMm[] = "WARNING: Value outside range (25 MM) ...";
constexpr char kOutsideIn[] = "WARNING: Value outside range (100 IN) ...";
constexpr char kOutsideMil[] = "WARNING: Value outside range (1000 MIL) ...";

class GutterTest : public TypeTest {
 protected:
  GutterTest() : TypeTest("kmt_svc_scan", "struct_gutter") {}
};

TEST_F(GutterTest, TheTypeHasTheExportedOperations) {
  EXPECT_EQ(type->eval, eval_gutter);
  EXPECT_EQ(type->copy, copy_gutter);
  EXPECT_EQ(type->deval, deval_gutter);
  EXPECT_EQ(type->cmp, cmp_gutter);
  EXPECT_EQ(type->kill, kill_gutter);
}

TEST_F(GutterTest, TheExportedOperationsMakeAndReleaseAValue) {
  PrivateText text("5/6/MM");
  jt_value *const value = eval_gutter(space, text.get());
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(fields_of(value, 3), Fields({5, 6, kMm}));
  jt_value *const copy = copy_gutter(space, value);
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(cmp_gutter(space, value, copy), 0);
  EXPECT_EQ(kill_gutter(space, value), 1);
  EXPECT_EQ(take_text(deval_gutter(space, copy)), "5/6/MM");
  EXPECT_EQ(kill_gutter(space, copy), 1);
  EXPECT_EQ(messages(), Messages{});
}

using AcceptedGutter = Each<GutterTest, Reading>;

TEST_P(AcceptedGutter, IsReadAndWritten) { expect_read(GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    Forms, AcceptedGutter,
    ::testing::Values(Reading{"Millimetres", "5/6/MM", {5, 6, kMm}, "5/6/MM"},
                      Reading{"Inches", "5/6/IN", {5, 6, kIn}, "5/6/IN"},
                      Reading{"Mils", "5/6/MIL", {5, 6, kMil}, "5/6/MIL"},
                      Reading{"LowerCase", "5/6/mm", {5, 6, kMm}, "5/6/MM"},
                      Reading{"MixedCase", "5/6/mIl", {5, 6, kMil}, "5/6/MIL"},
                      Reading{"EmptyNumbers", "//MM", {0, 0, kMm}, "0/0/MM"},
                      Reading{"LeadingZeros", "007/0000000000008/IN", {7, 8, kIn}, "7/8/IN"}),
    case_name<Reading>);

INSTANTIATE_TEST_SUITE_P(
    Limits, AcceptedGutter,
    ::testing::Values(
        Reading{"MmAt", "25/25/MM", {25, 25, kMm}, "25/25/MM"},
        Reading{"MmFirstAbove", "26/25/MM", {26, 25, kMm}, "26/25/MM", {kOutsideMm}},
        Reading{"MmSecondAbove", "25/26/MM", {25, 26, kMm}, "25/26/MM", {kOutsideMm}},
        Reading{"MmBothAbove", "26/26/MM", {26, 26, kMm}, "26/26/MM", {kOutsideMm}},
        Reading{"MmLowerCase", "30/10/mm", {30, 10, kMm}, "30/10/MM", {kOutsideMm}},
        Reading{"InAt", "100/100/IN", {100, 100, kIn}, "100/100/IN"},
        Reading{"InFirstAbove", "101/100/IN", {101, 100, kIn}, "101/100/IN", {kOutsideIn}},
        Reading{"InSecondAbove", "100/101/IN", {100, 101, kIn}, "100/101/IN", {kOutsideIn}},
        Reading{"InBothAbove", "101/101/IN", {101, 101, kIn}, "101/101/IN", {kOutsideIn}},
        Reading{"MilAt", "1000/1000/MIL", {1000, 1000, kMil}, "1000/1000/MIL"},
        Reading{"MilFirstAbove", "1001/1000/MIL", {1001, 1000, kMil}, "1001/1000/MIL", {kOutsideMil}},
        Reading{"MilSecondAbove", "1000/1001/MIL", {1000, 1001, kMil}, "1000/1001/MIL", {kOutsideMil}},
        Reading{"MilBothAbove", "1001/1001/MIL", {1001, 1001, kMil}, "1001/1001/MIL", {kOutsideMil}},
        Reading{"Highest", "2147483647/0/MM", {2147483647, 0, kMm}, "2147483647/0/MM", {kOutsideMm}},
        Reading{"Above32Bits", "4294967297/0/MM", {2147483647, 0, kMm}, "2147483647/0/MM", {kOutsideMm}},
        Reading{"Above64Bits",
                "0/18446744073709551617/MIL",
                {0, 2147483647, kMil},
                "0/2147483647/MIL",
                {kOutsideMil}}),
    case_name<Reading>);

using RefusedGutter = Each<GutterTest, Refusal>;

TEST_P(RefusedGutter, IsNoValue) { expect_refused(GetParam()); }

Refusal misshapen(const char *name, const std::string &text) {
  return {name, text, {bad_value("struct_gutter", text)}};
}

INSTANTIATE_TEST_SUITE_P(
    Shape, RefusedGutter,
    ::testing::Values(misshapen("OneNumber", "5"), misshapen("TwoNumbers", "5/6"),
                      misshapen("NoSecond", "5/"), misshapen("LetterInFirst", "5x/6/MM"),
                      misshapen("LetterForFirst", "x/6/MM"), misshapen("LetterInSecond", "5/6x/MM"),
                      misshapen("LetterForSecond", "5/x/MM"), misshapen("Minus", "-5/6/MM"),
                      misshapen("Plus", "5/+6/MM"), misshapen("Point", "5.5/6/MM"),
                      misshapen("BlankBefore", " 5/6/MM"), misshapen("BlankBehindNumber", "5 /6/MM"),
                      misshapen("OtherSeparator", "5:6:MM"), misshapen("UnitAlone", "MM")),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(
    Unit, RefusedGutter,
    ::testing::Values(Refusal{"Unknown", "5/5/FOO", {unknown_name("FOO")}},
                      Refusal{"None", "5/5/", {unknown_name("")}},
                      Refusal{"Blank", "5/5/ MM", {unknown_name(" MM")}},
                      Refusal{"SlashBehind", "5/5/MM/", {unknown_name("MM/")}},
                      Refusal{"ThirdNumber", "5/5/5/MM", {unknown_name("5/MM")}},
                      Refusal{"UnknownIsNotMeasured", "9999/9999/FOO", {unknown_name("FOO")}},
                      Refusal{"Long", "5/5/" + std::string(400, 'u'), {unknown_name(std::string(400, 'u'))}},
                      Refusal{"StatusIsSilent", "5/5/KMT_STATUS_ERROR", {}},
                      Refusal{"AlgorithmIsSilent", "9999/9999/PROPRIETARY", {}}),
    case_name<Refusal>);

TEST_F(GutterTest, TheReportNamesTheTypeAndShowsTheText) {
  EXPECT_EQ(evaluated("5x/6/MM"), nullptr);
  EXPECT_EQ(messages(), Messages({"SYNTAX ERROR: trying to evaluate the following value string as -- "
                                  "struct_gutter --:\n\n5x/6/MM ..."}));
  EXPECT_EQ(status(), JT_SYNTAX_ERROR);
}

TEST_F(GutterTest, AWarningIsAllThatIsLeftOfAWideGutter) {
  const OwnedValue value = evaluated("30/10/MM");
  EXPECT_NE(value, nullptr);
  EXPECT_EQ(status(), JT_WARNING);
}

// ---- Records of a client ----

TEST_F(GutterTest, AnyNumbersAreWritten) {
  EXPECT_EQ(written(ClientValue{-5, 99999, kIn}.get()), "-5/99999/IN");
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(GutterTest, EveryNamedUnitIsWritten) {
  EXPECT_EQ(written(ClientValue{1, 2, 18}.get()), "1/2/KMT_STATUS_ERROR");
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(GutterTest, AUnitWithoutANameCannotBeWritten) {
  EXPECT_EQ(type->deval(space, ClientValue{1, 2, 99}.get()), nullptr);
  EXPECT_EQ(messages(), Messages({kUnknownNumber, kCannotBeEncoded}));
  EXPECT_EQ(status(), JT_MEMORY_ERROR);
}

TEST_F(GutterTest, NothingIsReadBehindAMarkerForAUnit) {
  EXPECT_EQ(type->deval(space, ClientValue{1, 2, -1}.get()), nullptr);
  EXPECT_EQ(messages(), Messages({kUnknownNumber, kCannotBeEncoded}));
}

TEST_F(GutterTest, ACopyHasEveryField) {
  const OwnedValue copy = copied(ClientValue{-1, 2, 99}.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(fields_of(copy.get(), 3), Fields({-1, 2, 99}));
}

// ---- Order ----

using ComparedGutters = Each<GutterTest, Comparison>;

TEST_P(ComparedGutters, AreOrderedByTheirWidths) { expect_compared(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Every, ComparedGutters,
                         ::testing::Values(Comparison{"Equal", "5/6/MM", "5/06/mm", 0},
                                           Comparison{"OnlyUnitsDiffer", "5/6/MM", "5/6/MIL", 0},
                                           Comparison{"First", "4/9/MM", "5/0/MM", -1},
                                           Comparison{"Second", "5/5/MM", "5/6/MM", -1},
                                           Comparison{"WidthsNotLengths", "9/0/MM", "10/0/IN", -1}),
                         case_name<Comparison>);

TEST_F(GutterTest, WidthsCompareWithTheirSign) {
  EXPECT_EQ(compared(ClientValue{-1, 0, kMm}, ClientValue{1, 0, kMm}), -1);
  EXPECT_EQ(compared(ClientValue{0, 1, kMm}, ClientValue{0, -1, kMm}), 1);
}

}  // namespace
}  // namespace jt_test
