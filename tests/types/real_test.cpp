// "real": digits with at most one point among them, held as a single-precision number, written with six
// decimals.
#include <gtest/gtest.h>

#include <bit>
#include <limits>
#include <string>

#include "types/value_cases.h"

namespace jt_test {
namespace {

class RealTest : public TypeTest {
 protected:
  RealTest() : TypeTest("", "real") {}
};

// A text, the bits of its number, what it is written back as.
struct Number {
  std::string name;
  std::string text;
  std::uint32_t bits;
  std::string written;
};

std::ostream &operator<<(std::ostream &out, const Number &number) { return out << number.text; }

using AcceptedReal = Each<RealTest, Number>;

TEST_P(AcceptedReal, IsReadAndWritten) {
  const Number &number = GetParam();
  expect_read(Reading{number.name, number.text, {std::bit_cast<std::int32_t>(number.bits)}, number.written});
}

INSTANTIATE_TEST_SUITE_P(
    Forms, AcceptedReal,
    ::testing::Values(Number{"Zero", "0", 0, "0.000000"}, Number{"One", "1", 0x3F800000, "1.000000"},
                      Number{"Fraction", "2.5", 0x40200000, "2.500000"},
                      Number{"PointBehind", "5.", 0x40A00000, "5.000000"},
                      Number{"PointBefore", ".5", 0x3F000000, "0.500000"},
                      Number{"PointAlone", ".", 0, "0.000000"},
                      Number{"LeadingZeros", "007.25", 0x40E80000, "7.250000"},
                      Number{"TrailingZeros", "3.000000000", 0x40400000, "3.000000"},
                      Number{"ManyZerosBefore", std::string(1500, '0') + "5", 0x40A00000, "5.000000"},
                      Number{"ManyDecimals", "0." + std::string(2000, '3'), 0x3EAAAAAB, "0.333333"}),
    case_name<Number>);

INSTANTIATE_TEST_SUITE_P(
    Rounding, AcceptedReal,
    ::testing::Values(Number{"NoExactSingle", "0.1", 0x3DCCCCCD, "0.100000"},
                      Number{"MoreDigitsThanASingleHolds", "16777217", 0x4B800000, "16777216.000000"},
                      Number{"TiesAreWrittenEvenDown", "0.0078125", 0x3C000000, "0.007812"},
                      Number{"TiesAreWrittenEvenUp", "0.0234375", 0x3CC00000, "0.023438"},
                      Number{"TooSmallToBeSeen", "0.0000004", 0x34D6BF95, "0.000000"},
                      Number{"SmallestToBeSeen", "0.000001", 0x358637BD, "0.000001"},
                      Number{"CarriesToTheFront", "9.9999999", 0x41200000, "10.000000"},
                      Number{"FirstToDoubleThenToSingle", "1.00000017881393432617187499", 0x3F800002,
                             "1.000000"}),
    case_name<Number>);

INSTANTIATE_TEST_SUITE_P(
    Ends, AcceptedReal,
    ::testing::Values(Number{"HighestSingle", "340282346638528859811704183484516925440", 0x7F7FFFFF,
                             "340282346638528859811704183484516925440.000000"},
                      Number{"LastRoundedToASingle", "340282356779733623858607532500980858880", 0x7F7FFFFF,
                             "340282346638528859811704183484516925440.000000"},
                      Number{"BeyondSingles", "340282356779733661637539395458142568448", 0x7F800000, "inf"},
                      Number{"BeyondDoubles", std::string(400, '9'), 0x7F800000, "inf"},
                      Number{"BelowSingles", "0." + std::string(60, '0') + "1", 0, "0.000000"},
                      Number{"BelowDoubles", "0." + std::string(400, '0') + "1", 0, "0.000000"}),
    case_name<Number>);

using RefusedReal = Each<RealTest, Refusal>;

TEST_P(RefusedReal, IsReported) { expect_refused(GetParam()); }

Refusal refused(const char *name, const std::string &text) { return {name, text, {bad_value("real", text)}}; }

INSTANTIATE_TEST_SUITE_P(
    Every, RefusedReal,
    ::testing::Values(refused("Minus", "-2.5"), refused("Plus", "+1"), refused("Exponent", "1e3"),
                      refused("ExponentBehindPoint", "1.5E3"), refused("TwoPoints", "1.2.3"),
                      refused("PointsAlone", ".."), refused("Comma", "1,5"), refused("Letter", "x"),
                      refused("LetterBehind", "1.5x"), refused("LetterBehindPoint", ".x"),
                      refused("BlankBefore", " 1"), refused("BlankBehind", "1 "), refused("Infinity", "inf"),
                      refused("NotANumber", "nan"), refused("Hexadecimal", "0x1")),
    case_name<Refusal>);

TEST_F(RealTest, TheReportNamesTheTypeAndShowsTheText) {
  EXPECT_EQ(evaluated("-2.5"), nullptr);
  EXPECT_EQ(messages(), Messages({"SYNTAX ERROR: trying to evaluate the following value string as -- real "
                                  "--:\n\n-2.5 ..."}));
  EXPECT_EQ(status(), JT_SYNTAX_ERROR);
}

TEST_F(RealTest, NegativeNumbersOfAClientAreWritten) {
  const ClientValue value(std::bit_cast<std::uint32_t>(-1.5F));
  EXPECT_EQ(written(value.get()), "-1.500000");
}

TEST_F(RealTest, InfinitiesOfAClientAreWritten) {
  const float infinity = std::numeric_limits<float>::infinity();
  EXPECT_EQ(written(ClientValue(std::bit_cast<std::uint32_t>(infinity)).get()), "inf");
  EXPECT_EQ(written(ClientValue(std::bit_cast<std::uint32_t>(-infinity)).get()), "-inf");
}

using ComparedReals = Each<RealTest, Comparison>;

TEST_P(ComparedReals, AreOrdered) { expect_compared(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Every, ComparedReals,
                         ::testing::Values(Comparison{"Equal", "2.5", "2.500", 0},
                                           Comparison{"EqualAsSingles", "16777216", "16777217", 0},
                                           Comparison{"Smaller", "2.4", "2.5", -1},
                                           Comparison{"LessThanOneApart", ".25", ".5", -1},
                                           Comparison{"Infinite", "1", "9" + std::string(50, '9'), -1},
                                           Comparison{"BothInfinite", std::string(50, '9'),
                                                      std::string(60, '9'), 0}),
                         case_name<Comparison>);

TEST_F(RealTest, NegativeNumbersAreSmaller) {
  const ClientValue minus(std::bit_cast<std::uint32_t>(-1.5F));
  const ClientValue plus(std::bit_cast<std::uint32_t>(0.5F));
  EXPECT_EQ(compared(minus, plus), -1);
  EXPECT_EQ(compared(plus, minus), 1);
}

TEST_F(RealTest, WhatIsNoNumberIsNeitherGreaterNorSmaller) {
  const ClientValue none(std::bit_cast<std::uint32_t>(std::numeric_limits<float>::quiet_NaN()));
  const ClientValue one(std::bit_cast<std::uint32_t>(1.0F));
  EXPECT_EQ(compared(none, one), 0);
  EXPECT_EQ(compared(one, none), 0);
}

}  // namespace
}  // namespace jt_test
