// "struct_borders": four margins and a unit for either side of the sheet. The second side is written out, or
// derived from the first by its absence or by the name of a flip.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "types/value_cases.h"

namespace jt_test {
namespace {

constexpr std::int32_t kMm = 20;
constexpr std::int32_t kIn = 21;
constexpr std::int32_t kMil = 22;

// Only this one of the three has a colon.
constexpr char kOutsideMm[] = "WARNING: Value outside range: (50 MM) ...";
constexpr char kOutsideIn[] = "WARNING: Value outside range (200 IN) ...";
constexpr char kOutsideMil[] = "WARNING: Value outside range (2000 MIL) ...";

class BordersTest : public TypeTest {
 protected:
  BordersTest() : TypeTest("kmt_svc_scan", "struct_borders") {}
};

using AcceptedBorders = Each<BordersTest, Reading>;

TEST_P(AcceptedBorders, AreReadAndWritten) { expect_read(GetParam()); }

INSTANTIATE_TEST_SUITE_P(DerivedSecondSide, AcceptedBorders,
                         ::testing::Values(Reading{"Same",
                                                   "10/20/30/40/MM",
                                                   {10, 20, 30, 40, kMm, 10, 20, 30, 40, kMm},
                                                   "10/20/30/40/MM/10/20/30/40/MM"},
                                           Reading{"SameInInches",
                                                   "10/20/30/40/IN",
                                                   {10, 20, 30, 40, kIn, 10, 20, 30, 40, kIn},
                                                   "10/20/30/40/IN/10/20/30/40/IN"},
                                           Reading{"SameInMils",
                                                   "10/20/30/40/mil",
                                                   {10, 20, 30, 40, kMil, 10, 20, 30, 40, kMil},
                                                   "10/20/30/40/MIL/10/20/30/40/MIL"},
                                           Reading{"EmptyNumbers",
                                                   "////MM",
                                                   {0, 0, 0, 0, kMm, 0, 0, 0, 0, kMm},
                                                   "0/0/0/0/MM/0/0/0/0/MM"},
                                           Reading{"FlipV",
                                                   "10/20/30/40/MM/FLIPV",
                                                   {10, 20, 30, 40, kMm, 20, 10, 30, 40, kMm},
                                                   "10/20/30/40/MM/20/10/30/40/MM"},
                                           Reading{"FlipH",
                                                   "10/20/30/40/IN/FLIPH",
                                                   {10, 20, 30, 40, kIn, 10, 20, 40, 30, kIn},
                                                   "10/20/30/40/IN/10/20/40/30/IN"},
                                           Reading{"FlipB",
                                                   "10/20/30/40/MIL/FLIPB",
                                                   {10, 20, 30, 40, kMil, 20, 10, 40, 30, kMil},
                                                   "10/20/30/40/MIL/20/10/40/30/MIL"},
                                           Reading{"FlipInAnyCase",
                                                   "10/20/30/40/mm/fLiPb",
                                                   {10, 20, 30, 40, kMm, 20, 10, 40, 30, kMm},
                                                   "10/20/30/40/MM/20/10/40/30/MM"}),
                         case_name<Reading>);

INSTANTIATE_TEST_SUITE_P(ExplicitSecondSide, AcceptedBorders,
                         ::testing::Values(Reading{"SameUnit",
                                                   "10/20/30/40/MM/5/6/7/8/MM",
                                                   {10, 20, 30, 40, kMm, 5, 6, 7, 8, kMm},
                                                   "10/20/30/40/MM/5/6/7/8/MM",
                                                   {unknown_name("5/6/7/8/MM")}},
                                           Reading{"OwnUnit",
                                                   "10/20/30/40/MM/5/6/7/8/mil",
                                                   {10, 20, 30, 40, kMm, 5, 6, 7, 8, kMil},
                                                   "10/20/30/40/MM/5/6/7/8/MIL",
                                                   {unknown_name("5/6/7/8/mil")}},
                                           Reading{"EmptyNumbers",
                                                   "1/2/3/4/IN/////MM",
                                                   {1, 2, 3, 4, kIn, 0, 0, 0, 0, kMm},
                                                   "1/2/3/4/IN/0/0/0/0/MM",
                                                   {unknown_name("////MM")}}),
                         case_name<Reading>);

// ---- Limits ----

Reading both_sides(const char *name, const std::string &group, Fields fields, Messages messages) {
  Fields record = fields;
  record.insert(record.end(), fields.begin(), fields.end());
  return {name, group, std::move(record), group + "/" + group, std::move(messages)};
}

INSTANTIATE_TEST_SUITE_P(
    Limits, AcceptedBorders,
    ::testing::Values(both_sides("MmAt", "50/50/50/50/MM", {50, 50, 50, 50, kMm}, {}),
                      both_sides("MmFirst", "51/0/0/0/MM", {51, 0, 0, 0, kMm}, {kOutsideMm}),
                      both_sides("MmSecond", "0/51/0/0/MM", {0, 51, 0, 0, kMm}, {kOutsideMm}),
                      both_sides("MmThird", "0/0/51/0/MM", {0, 0, 51, 0, kMm}, {kOutsideMm}),
                      both_sides("MmFourth", "0/0/0/51/MM", {0, 0, 0, 51, kMm}, {kOutsideMm}),
                      both_sides("MmAllOnce", "51/52/53/54/MM", {51, 52, 53, 54, kMm}, {kOutsideMm}),
                      both_sides("InAt", "200/200/200/200/IN", {200, 200, 200, 200, kIn}, {}),
                      both_sides("InFirst", "201/0/0/0/IN", {201, 0, 0, 0, kIn}, {kOutsideIn}),
                      both_sides("InSecond", "0/201/0/0/IN", {0, 201, 0, 0, kIn}, {kOutsideIn}),
                      both_sides("InThird", "0/0/201/0/IN", {0, 0, 201, 0, kIn}, {kOutsideIn}),
                      both_sides("InFourth", "0/0/0/201/IN", {0, 0, 0, 201, kIn}, {kOutsideIn}),
                      both_sides("MilAt", "2000/2000/2000/2000/MIL", {2000, 2000, 2000, 2000, kMil}, {}),
                      both_sides("MilFirst", "2001/0/0/0/MIL", {2001, 0, 0, 0, kMil}, {kOutsideMil}),
                      both_sides("MilSecond", "0/2001/0/0/MIL", {0, 2001, 0, 0, kMil}, {kOutsideMil}),
                      both_sides("MilThird", "0/0/2001/0/MIL", {0, 0, 2001, 0, kMil}, {kOutsideMil}),
                      both_sides("MilFourth", "0/0/0/2001/MIL", {0, 0, 0, 2001, kMil}, {kOutsideMil}),
                      both_sides("Highest", "2147483647/0/0/0/MM", {2147483647, 0, 0, 0, kMm}, {kOutsideMm})),
    case_name<Reading>);

INSTANTIATE_TEST_SUITE_P(
    LimitsOfTwoSides, AcceptedBorders,
    ::testing::Values(Reading{"DerivedIsNotTestedAgain",
                              "51/2/3/4/MM/FLIPV",
                              {51, 2, 3, 4, kMm, 2, 51, 3, 4, kMm},
                              "51/2/3/4/MM/2/51/3/4/MM",
                              {kOutsideMm}},
                      Reading{"FirstOnly",
                              "51/2/3/4/MM/5/6/7/8/MM",
                              {51, 2, 3, 4, kMm, 5, 6, 7, 8, kMm},
                              "51/2/3/4/MM/5/6/7/8/MM",
                              {kOutsideMm, unknown_name("5/6/7/8/MM")}},
                      Reading{"SecondOnly",
                              "1/2/3/4/MM/5/6/201/8/IN",
                              {1, 2, 3, 4, kMm, 5, 6, 201, 8, kIn},
                              "1/2/3/4/MM/5/6/201/8/IN",
                              {unknown_name("5/6/201/8/IN"), kOutsideIn}},
                      Reading{"Both",
                              "1/2/3/51/MM/5/2001/7/2002/MIL",
                              {1, 2, 3, 51, kMm, 5, 2001, 7, 2002, kMil},
                              "1/2/3/51/MM/5/2001/7/2002/MIL",
                              {kOutsideMm, unknown_name("5/2001/7/2002/MIL"), kOutsideMil}},
                      Reading{"SecondAt",
                              "1/2/3/4/MM/2000/2000/2000/2000/MIL",
                              {1, 2, 3, 4, kMm, 2000, 2000, 2000, 2000, kMil},
                              "1/2/3/4/MM/2000/2000/2000/2000/MIL",
                              {unknown_name("2000/2000/2000/2000/MIL")}},
                      Reading{"Above32Bits",
                              "4294967297/0/0/0/MM/0/0/0/18446744073709551617/IN",
                              {2147483647, 0, 0, 0, kMm, 0, 0, 0, 2147483647, kIn},
                              "2147483647/0/0/0/MM/0/0/0/2147483647/IN",
                              {kOutsideMm, unknown_name("0/0/0/18446744073709551617/IN"), kOutsideIn}}),
    case_name<Reading>);

// ---- Refused ----

using RefusedBorders = Each<BordersTest, Refusal>;

TEST_P(RefusedBorders, AreNoValue) { expect_refused(GetParam()); }

Refusal misshapen(const char *name, const std::string &text, Messages before = {}) {
  before.push_back(bad_value("struct_borders", text));
  return {name, text, std::move(before)};
}

INSTANTIATE_TEST_SUITE_P(
    FirstSide, RefusedBorders,
    ::testing::Values(misshapen("OneNumber", "1"), misshapen("TwoNumbers", "1/2"),
                      misshapen("ThreeNumbers", "1/2/3"), misshapen("FourNumbers", "1/2/3/4"),
                      misshapen("EndBehindThird", "1/2/3/"), misshapen("UnitTooEarly", "1/2/3/MM"),
                      misshapen("LetterInFirst", "1x/2/3/4/MM"), misshapen("LetterInSecond", "1/x/3/4/MM"),
                      misshapen("LetterInThird", "1/2/3x/4/MM"), misshapen("LetterInFourth", "1/2/3/4x/MM"),
                      misshapen("Minus", "-1/2/3/4/MM"), misshapen("Plus", "1/+2/3/4/MM"),
                      misshapen("BlankBefore", " 1/2/3/4/MM"), misshapen("FlipAlone", "FLIPV"),
                      Refusal{"UnknownUnit", "1/2/3/4/FOO", {unknown_name("FOO")}},
                      Refusal{"NoUnit", "1/2/3/4/", {unknown_name("")}},
                      Refusal{"BlankBeforeUnit", "1/2/3/4/ MM", {unknown_name(" MM")}},
                      Refusal{"UnknownUnitBeforeFlip", "1/2/3/4/FOO/FLIPV", {unknown_name("FOO")}},
                      Refusal{"NoUnitBeforeFlip", "1/2/3/4//FLIPV", {unknown_name("")}},
                      Refusal{"UnknownUnitIsNotMeasured", "9999/2/3/4/FOO", {unknown_name("FOO")}},
                      Refusal{"LongUnit",
                              "1/2/3/4/" + std::string(400, 'u') + "/FLIPV",
                              {unknown_name(std::string(400, 'u'))}},
                      Refusal{"StatusIsSilent", "1/2/3/4/KMT_STATUS_ERROR", {}},
                      Refusal{"StatusBeforeFlipIsSilent", "9999/2/3/4/KMT_STATUS_ERROR/FLIPV", {}}),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(
    SecondSide, RefusedBorders,
    ::testing::Values(
        misshapen("Nothing", "1/2/3/4/MM/", {unknown_name("")}),
        misshapen("OneNumber", "1/2/3/4/MM/5", {unknown_name("5")}),
        misshapen("FourNumbers", "1/2/3/4/MM/5/6/7/8", {unknown_name("5/6/7/8")}),
        misshapen("LetterInThird", "1/2/3/4/MM/5/6/7x/8/MM", {unknown_name("5/6/7x/8/MM")}),
        misshapen("UnknownFlip", "1/2/3/4/MM/FLIPX", {unknown_name("FLIPX")}),
        misshapen("SlashBehindFlip", "1/2/3/4/MM/FLIPV/", {unknown_name("FLIPV/")}),
        misshapen("TwoFlips", "1/2/3/4/MM/FLIPV/FLIPH", {unknown_name("FLIPV/FLIPH")}),
        misshapen("BlankBehindFlip", "1/2/3/4/MM/FLIPV ", {unknown_name("FLIPV ")}),
        misshapen("OtherScanName", "1/2/3/4/MM/AUTO"),
        misshapen("UnitAlone", "1/2/3/4/MM/MM", {unknown_name("MM")}),
        misshapen("BehindRangeWarning", "51/2/3/4/MM/x", {kOutsideMm, unknown_name("x")}),
        Refusal{"UnknownUnit", "1/2/3/4/MM/5/6/7/8/FOO", {unknown_name("5/6/7/8/FOO"), unknown_name("FOO")}},
        Refusal{"NoUnit", "1/2/3/4/MM/5/6/7/8/", {unknown_name("5/6/7/8/"), unknown_name("")}},
        Refusal{"Status", "1/2/3/4/MM/5/6/7/8/KMT_STATUS_ERROR", {unknown_name("5/6/7/8/KMT_STATUS_ERROR")}}),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(
    BehindSecondSide, RefusedBorders,
    ::testing::Values(misshapen("Slash", "1/2/3/4/MM/5/6/7/8/IN/", {unknown_name("5/6/7/8/IN/")}),
                      misshapen("Flip", "1/2/3/4/MM/5/6/7/8/IN/FLIPV", {unknown_name("5/6/7/8/IN/FLIPV")}),
                      misshapen("ThirdSide", "1/2/3/4/MM/5/6/7/8/IN/1/2/3/4/MM",
                                {unknown_name("5/6/7/8/IN/1/2/3/4/MM")}),
                      misshapen("BehindRangeWarnings", "51/2/3/4/MM/201/6/7/8/IN/",
                                {kOutsideMm, unknown_name("201/6/7/8/IN/"), kOutsideIn})),
    case_name<Refusal>);

TEST_F(BordersTest, TheReportNamesTheTypeAndShowsTheWholeText) {
  EXPECT_EQ(evaluated("1/2/3/4/MM/FLIPX"), nullptr);
  EXPECT_EQ(messages(), Messages({"WARNING: trying to evaluate as an 'enumerated' type:FLIPX ...",
                                  "SYNTAX ERROR: trying to evaluate the following value string as -- "
                                  "struct_borders --:\n\n1/2/3/4/MM/FLIPX ..."}));
  EXPECT_EQ(status(), JT_SYNTAX_ERROR);
}

// ---- Records of a client ----

TEST_F(BordersTest, AnyNumbersAreWritten) {
  EXPECT_EQ(written(ClientValue{-1, 2, 3, 99999, kMm, 5, -6, 7, 2147483647, kMil}.get()),
            "-1/2/3/99999/MM/5/-6/7/2147483647/MIL");
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(BordersTest, TheLongestTextIsWritten) {
  constexpr std::int32_t kLowest = -2147483647 - 1;
  constexpr std::int32_t kLongestName = 15;
  const ClientValue value{kLowest, kLowest, kLowest, kLowest, kLongestName,
                          kLowest, kLowest, kLowest, kLowest, kLongestName};
  const std::string side =
      "-2147483648/-2147483648/-2147483648/-2147483648/KMT_STATUS_HZM_CONTENT_FILE_TRANSFER_FAILURE";
  EXPECT_EQ(written(value.get()), side + "/" + side);
}

TEST_F(BordersTest, AUnitWithoutANameCannotBeWritten) {
  EXPECT_EQ(type->deval(space, ClientValue{1, 2, 3, 4, 99, 5, 6, 7, 8, kMm}.get()), nullptr);
  EXPECT_EQ(messages(), Messages({kUnknownNumber, kCannotBeEncoded}));
}

TEST_F(BordersTest, ASecondUnitWithoutANameCannotBeWritten) {
  EXPECT_EQ(type->deval(space, ClientValue{1, 2, 3, 4, kMm, 5, 6, 7, 8, -1}.get()), nullptr);
  EXPECT_EQ(messages(), Messages({kUnknownNumber, kCannotBeEncoded}));
}

TEST_F(BordersTest, ACopyHasEveryField) {
  const OwnedValue copy = copied(ClientValue{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(fields_of(copy.get(), 10), Fields({1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

// ---- Equality ----

// Two records, the second with one field changed.
struct Change {
  std::string name;
  std::size_t field;
  std::int32_t order;
};

std::ostream &operator<<(std::ostream &out, const Change &change) { return out << change.name; }

using ComparedBorders = Each<BordersTest, Change>;

TEST_P(ComparedBorders, AreEqualWhereFirstSecondAndFourthNumberAre) {
  const ClientValue borders{1, 2, 3, 4, kMm, 5, 6, 7, 8, kMm};
  Fields changed = {1, 2, 3, 4, kMm, 5, 6, 7, 8, kMm};
  changed[GetParam().field] += 1;
  const jt_value *const other = reinterpret_cast<const jt_value *>(changed.data());
  EXPECT_EQ(compared(borders.get(), other), GetParam().order);
  EXPECT_EQ(compared(other, borders.get()), GetParam().order);
}

INSTANTIATE_TEST_SUITE_P(
    Every, ComparedBorders,
    ::testing::Values(Change{"First", 0, -2}, Change{"Second", 1, -2}, Change{"Third", 2, 0},
                      Change{"Fourth", 3, -2}, Change{"Unit", 4, 0}, Change{"FirstOfSecondSide", 5, 0},
                      Change{"SecondOfSecondSide", 6, 0}, Change{"ThirdOfSecondSide", 7, 0},
                      Change{"FourthOfSecondSide", 8, 0}, Change{"UnitOfSecondSide", 9, 0}),
    case_name<Change>);

TEST_F(BordersTest, ADerivedSideDoesNotMatter) {
  const OwnedValue same = evaluated("1/2/3/4/MM");
  const OwnedValue flipped = evaluated("1/2/3/4/MM/FLIPB");
  EXPECT_EQ(compared(same.get(), flipped.get()), 0);
}

}  // namespace
}  // namespace jt_test
