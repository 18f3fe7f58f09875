// "integer": an optional sign and digits, saturating at the ends of 32 bits.
#include <gtest/gtest.h>

#include "types/value_cases.h"

namespace jt_test {
namespace {

class IntegerTest : public TypeTest {
 protected:
  IntegerTest() : TypeTest("", "integer") {}
};

using AcceptedInteger = Each<IntegerTest, Reading>;

TEST_P(AcceptedInteger, IsReadAndWritten) { expect_read(GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    Every, AcceptedInteger,
    ::testing::Values(Reading{"Zero", "0", {0}, "0"}, Reading{"Seven", "7", {7}, "7"},
                      Reading{"Plus", "+7", {7}, "7"}, Reading{"Minus", "-7", {-7}, "-7"},
                      Reading{"LeadingZeros", "+007", {7}, "7"}, Reading{"PlusAlone", "+", {0}, "0"},
                      Reading{"MinusAlone", "-", {0}, "0"}, Reading{"MinusZero", "-0", {0}, "0"},
                      Reading{"AllDigits", "1234567890", {1234567890}, "1234567890"},
                      Reading{"Highest", "2147483647", {2147483647}, "2147483647"},
                      Reading{"AboveHighest", "2147483648", {2147483647}, "2147483647"},
                      Reading{"Above32Bits", "4294967297", {2147483647}, "2147483647"},
                      Reading{"Above64Bits", "18446744073709551617", {2147483647}, "2147483647"},
                      Reading{"Lowest", "-2147483648", {-2147483647 - 1}, "-2147483648"},
                      Reading{"AboveLowest", "-2147483647", {-2147483647}, "-2147483647"},
                      Reading{"BelowLowest", "-2147483649", {-2147483647 - 1}, "-2147483648"},
                      Reading{"Below64Bits", "-99999999999999999999", {-2147483647 - 1}, "-2147483648"},
                      Reading{"ManyLeadingZeros", std::string(500, '0') + "12", {12}, "12"}),
    case_name<Reading>);

using RefusedInteger = Each<IntegerTest, Refusal>;

TEST_P(RefusedInteger, IsReported) { expect_refused(GetParam()); }

Refusal refused(const char *name, const std::string &text) {
  return {name, text, {bad_value("integer", text)}};
}

INSTANTIATE_TEST_SUITE_P(Every, RefusedInteger,
                         ::testing::Values(refused("LetterBehind", "12a"), refused("Letter", "a"),
                                           refused("LetterBehindSign", "-a"), refused("TwoSigns", "--1"),
                                           refused("BothSigns", "+-5"), refused("SignBehind", "5-"),
                                           refused("SignAmong", "5-5"), refused("BlankBefore", " 5"),
                                           refused("BlankBehind", "5 "), refused("BlankBehindSign", "- 5"),
                                           refused("Point", "1.5"), refused("Hexadecimal", "0x10"),
                                           refused("NewLine", "5\n"), refused("HighByte", "5\xb2"),
                                           refused("BehindDigitsTooMany", "99999999999x")),
                         case_name<Refusal>);

TEST_F(IntegerTest, TheReportNamesTheTypeAndShowsTheText) {
  EXPECT_EQ(evaluated("12a"), nullptr);
  EXPECT_EQ(messages(), Messages({"SYNTAX ERROR: trying to evaluate the following value string as -- integer "
                                  "--:\n\n12a ..."}));
  EXPECT_EQ(status(), JT_SYNTAX_ERROR);
}

TEST_F(IntegerTest, TheReportShowsAsMuchOfALongTextAsFits) {
  const std::string text = std::string(300, '7') + "x";
  EXPECT_EQ(evaluated(text), nullptr);
  EXPECT_EQ(messages(),
            Messages({"SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\n" +
                      std::string(172, '7') + " ..."}));
}

using ComparedIntegers = Each<IntegerTest, Comparison>;

TEST_P(ComparedIntegers, AreOrderedWithTheirSign) { expect_compared(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Every, ComparedIntegers,
                         ::testing::Values(Comparison{"Equal", "7", "+07", 0},
                                           Comparison{"Smaller", "6", "7", -1},
                                           Comparison{"Negative", "-7", "7", -1},
                                           Comparison{"BothNegative", "-7", "-6", -1},
                                           Comparison{"Ends", "-2147483648", "2147483647", -1}),
                         case_name<Comparison>);

}  // namespace
}  // namespace jt_test
