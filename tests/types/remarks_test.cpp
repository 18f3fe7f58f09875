// What readers have to remark on the texts of values: why a text is refused, what of it is kept otherwise than
// written, and where in it; and that the history is the same whether anybody listens or not.
#include <gtest/gtest.h>

#include "types/type_tables.h"
#include "types/value_cases.h"

namespace jt_test {
namespace {

using jt_core::ReadStatus;
using jt_core::Remark;

constexpr bool kKept = false;
constexpr bool kRefused = true;

// One remark: where it begins in the text, and how many characters it points at.
struct Remarked {
  Remark remark;
  bool refused;
  std::size_t offset;
  std::size_t length;

  bool operator==(const Remarked &other) const = default;
};

std::ostream &operator<<(std::ostream &out, const Remarked &remarked) {
  return out << static_cast<int>(remarked.remark) << (remarked.refused ? " refused at " : " kept at ")
             << remarked.offset << "+" << remarked.length;
}

// Writes down what it is told, as offsets in the text.
struct Listener : jt_core::Remarks {
  explicit Listener(const char *begin) : begin_of_text(begin) { add = take; }

  static void take(jt_core::Remarks &remarks, Remark remark, bool refused, std::string_view where) {
    auto &listener = static_cast<Listener &>(remarks);
    listener.heard.push_back(
        {remark, refused, static_cast<std::size_t>(where.data() - listener.begin_of_text), where.size()});
  }

  const char *begin_of_text;
  std::vector<Remarked> heard;
};

struct Case {
  const char *name;
  const char *type;  // of the scan service or of all
  const char *text;
  std::vector<Remarked> remarks;
};

std::ostream &operator<<(std::ostream &out, const Case &read) { return out << read.type << " " << read.text; }

class RemarksOnTexts : public SessionTest, public ::testing::WithParamInterface<Case> {
 protected:
  // Reads the text from a block of just its size.
  ReadStatus read(jt_core::Remarks *remarks, const std::vector<char> &text) {
    const jt_core::TypeTable *const table = jt_core::find_service_table("kmt_svc_scan");
    const jt_core::TypeEntry entry = jt_core::find_type_in_scope(table, GetParam().type);
    jt_core::ValueSink sink = jt_core::heap_sink();
    sink.remarks = remarks;
    const jt_core::ReadResult result = entry.family->read(space, {text.data(), text.size()}, sink);
    const OwnedValue value(result.value, KillValue{space, entry.type});
    value_text = value != nullptr ? take_text(entry.type->deval(space, value.get())) : "(none)";
    return result.status;
  }

  static std::vector<char> text() {
    const std::string_view text = GetParam().text;
    std::vector<char> bytes(text.begin(), text.end());
    bytes.reserve(1);  // so that the empty text lies somewhere
    return bytes;
  }

  std::string value_text;
};

TEST_P(RemarksOnTexts, AreTheseInTheTextsOrder) {
  const std::vector<char> bytes = text();
  Listener listener(bytes.data());
  const ReadStatus status = read(&listener, bytes);
  EXPECT_EQ(listener.heard, GetParam().remarks);
  const bool is_refused = !GetParam().remarks.empty() && GetParam().remarks.back().refused;
  EXPECT_EQ(status, is_refused ? ReadStatus::kRefused : ReadStatus::kMade);
}

TEST_P(RemarksOnTexts, ChangeNeitherTheValueNorTheHistory) {
  const std::vector<char> bytes = text();
  const ReadStatus unheard_status = read(nullptr, bytes);
  const std::string unheard_text = value_text;
  const Messages unheard = messages();
  reopen();
  Listener listener(bytes.data());
  EXPECT_EQ(read(&listener, bytes), unheard_status);
  EXPECT_EQ(value_text, unheard_text);
  EXPECT_EQ(messages(), unheard);
}

INSTANTIATE_TEST_SUITE_P(
    Integer, RemarksOnTexts,
    ::testing::Values(
        Case{"Plain", "integer", "42", {}}, Case{"Signed", "integer", "+007", {}},
        Case{"Largest", "integer", "2147483647", {}}, Case{"Smallest", "integer", "-2147483648", {}},
        Case{"Empty", "integer", "", {{Remark::kMalformed, kRefused, 0, 0}}},
        Case{"TailedByALetter", "integer", "12ab", {{Remark::kMalformed, kRefused, 2, 2}}},
        Case{"TwoSigns", "integer", "+-5", {{Remark::kMalformed, kRefused, 1, 2}}},
        Case{"AWord", "integer", "many", {{Remark::kMalformed, kRefused, 0, 4}}},
        Case{"TooLargeAndTailed", "integer", "99999999999x", {{Remark::kMalformed, kRefused, 11, 1}}},
        Case{"OneTooLarge", "integer", "2147483648", {{Remark::kSaturated, kKept, 0, 10}}},
        Case{"OneTooSmall", "integer", "-2147483649", {{Remark::kSaturated, kKept, 1, 10}}},
        Case{"FarTooSmall", "integer", "-99999999999999999999", {{Remark::kSaturated, kKept, 1, 20}}},
        Case{"FarTooLargeWithItsSign", "integer", "+99999999999", {{Remark::kSaturated, kKept, 1, 11}}},
        Case{"Minus", "integer", "-", {{Remark::kEmptyNumber, kKept, 0, 1}}},
        Case{"Plus", "integer", "+", {{Remark::kEmptyNumber, kKept, 0, 1}}}),
    case_name<Case>);

INSTANTIATE_TEST_SUITE_P(
    Real, RemarksOnTexts,
    ::testing::Values(Case{"Whole", "real", "3", {}}, Case{"NotBinary", "real", "0.1", {}},
                      Case{"NothingBeforeThePoint", "real", ".5", {}},
                      Case{"NothingBehindThePoint", "real", "5.", {}},
                      Case{"ZerosAround", "real", "0010.5000000000", {}}, Case{"Zero", "real", "0", {}},
                      Case{"ZeroInFull", "real", "0.000", {}},
                      Case{"WholeNumberEndingInZeros", "real", "100", {}},
                      Case{"Empty", "real", "", {{Remark::kMalformed, kRefused, 0, 0}}},
                      Case{"Negative", "real", "-1.5", {{Remark::kMalformed, kRefused, 0, 4}}},
                      Case{"Exponent", "real", "1e3", {{Remark::kMalformed, kRefused, 1, 2}}},
                      Case{"TwoPoints", "real", "1.5.2", {{Remark::kMalformed, kRefused, 3, 2}}},
                      Case{"Comma", "real", "1,5", {{Remark::kMalformed, kRefused, 1, 2}}},
                      Case{"PointAlone", "real", ".", {{Remark::kEmptyNumber, kKept, 0, 1}}},
                      Case{"BeyondASingle",
                           "real",
                           "400000000000000000000000000000000000000",
                           {{Remark::kSaturated, kKept, 0, 39}}},
                      Case{"SeventhDecimal", "real", "0.1000001", {{Remark::kRounded, kKept, 0, 9}}},
                      Case{"EighthDecimal", "real", "1.00000001", {{Remark::kRounded, kKept, 0, 10}}},
                      Case{"TooManyDigitsForASingle", "real", "16777217", {{Remark::kRounded, kKept, 0, 8}}},
                      Case{"TooSmallToBeWritten", "real", "0.0000001", {{Remark::kRounded, kKept, 0, 9}}}),
    case_name<Case>);

INSTANTIATE_TEST_SUITE_P(
    Boolean, RemarksOnTexts,
    ::testing::Values(Case{"True", "boolean", "true", {}}, Case{"False", "boolean", "FALSE", {}},
                      Case{"Empty", "boolean", "", {{Remark::kMalformed, kRefused, 0, 0}}},
                      Case{"AnotherWord", "boolean", "yes", {{Remark::kMalformed, kRefused, 0, 3}}},
                      Case{"AWordTooLong", "boolean", "truee", {{Remark::kMalformed, kRefused, 0, 5}}}),
    case_name<Case>);

INSTANTIATE_TEST_SUITE_P(String, RemarksOnTexts,
                         ::testing::Values(Case{"Text", "string", "a/b:c 99999999999", {}},
                                           Case{"Empty", "string", "", {}}),
                         case_name<Case>);

INSTANTIATE_TEST_SUITE_P(
    Timestamp, RemarksOnTexts,
    ::testing::Values(
        Case{"Plain", "timestamp", "2009/01/31/23/59/59", {}},
        Case{"LeapDay", "timestamp", "2008/02/29/00/00/00", {}},
        Case{"LeapDayOfACentury", "timestamp", "2000/02/29/00/00/00", {}},
        Case{"YearZero", "timestamp", "0000/01/01/00/00/00", {}},
        Case{"Empty", "timestamp", "", {{Remark::kMalformed, kRefused, 0, 0}}},
        Case{"TooShort", "timestamp", "2009/01/31", {{Remark::kMalformed, kRefused, 10, 0}}},
        Case{"TooLong", "timestamp", "2009/01/31/23/59/59Z", {{Remark::kMalformed, kRefused, 19, 1}}},
        Case{"OneDigit", "timestamp", "2009/1/1/0/0/0", {{Remark::kMalformed, kRefused, 6, 8}}},
        Case{"Dashes", "timestamp", "2009-01-01/00/00/00", {{Remark::kMalformed, kRefused, 4, 15}}},
        Case{"ALetterAtTheEnd", "timestamp", "2009/01/01/00/00/0x", {{Remark::kMalformed, kRefused, 18, 1}}},
        Case{"MonthThirteen", "timestamp", "2009/13/31/00/00/00", {{Remark::kImpossible, kKept, 5, 2}}},
        Case{"MonthZero", "timestamp", "2009/00/31/00/00/00", {{Remark::kImpossible, kKept, 5, 2}}},
        Case{"DayZero", "timestamp", "2009/01/00/00/00/00", {{Remark::kImpossible, kKept, 8, 2}}},
        Case{"DayThirtyTwo", "timestamp", "2009/12/32/00/00/00", {{Remark::kImpossible, kKept, 8, 2}}},
        Case{"DayThirtyOneOfApril", "timestamp", "2009/04/31/00/00/00", {{Remark::kImpossible, kKept, 8, 2}}},
        Case{"DayThirtyOneOfJune", "timestamp", "2009/06/31/00/00/00", {{Remark::kImpossible, kKept, 8, 2}}},
        Case{"DayThirtyOneOfSeptember",
             "timestamp",
             "2009/09/31/00/00/00",
             {{Remark::kImpossible, kKept, 8, 2}}},
        Case{"DayThirtyOneOfNovember",
             "timestamp",
             "2009/11/31/00/00/00",
             {{Remark::kImpossible, kKept, 8, 2}}},
        Case{
            "LeapDayOfACommonYear", "timestamp", "2009/02/29/00/00/00", {{Remark::kImpossible, kKept, 8, 2}}},
        Case{"LeapDayOfACommonCentury",
             "timestamp",
             "1900/02/29/00/00/00",
             {{Remark::kImpossible, kKept, 8, 2}}},
        Case{"DayThirtyOfALeapFebruary",
             "timestamp",
             "2008/02/30/00/00/00",
             {{Remark::kImpossible, kKept, 8, 2}}},
        Case{"HourTwentyFour", "timestamp", "2009/01/01/24/00/00", {{Remark::kImpossible, kKept, 11, 2}}},
        Case{"MinuteSixty", "timestamp", "2009/01/01/00/60/00", {{Remark::kImpossible, kKept, 14, 2}}},
        Case{"SecondSixty", "timestamp", "2009/01/01/00/00/60", {{Remark::kImpossible, kKept, 17, 2}}},
        Case{"AllOfIt",
             "timestamp",
             "2009/13/45/99/99/99",
             {{Remark::kImpossible, kKept, 5, 2},
              {Remark::kImpossible, kKept, 8, 2},
              {Remark::kImpossible, kKept, 11, 2},
              {Remark::kImpossible, kKept, 14, 2},
              {Remark::kImpossible, kKept, 17, 2}}}),
    case_name<Case>);

INSTANTIATE_TEST_SUITE_P(
    TimeOfDay, RemarksOnTexts,
    ::testing::Values(
        Case{"Plain", "struct_timeofday", "09:05", {}}, Case{"Last", "struct_timeofday", "23:59", {}},
        Case{"Empty", "struct_timeofday", "", {{Remark::kMalformed, kRefused, 0, 0}}},
        Case{"NoColon", "struct_timeofday", "12", {{Remark::kMalformed, kRefused, 2, 0}}},
        Case{"AnotherSeparator", "struct_timeofday", "12.30", {{Remark::kMalformed, kRefused, 2, 3}}},
        Case{"Negative", "struct_timeofday", "-1:30", {{Remark::kMalformed, kRefused, 0, 5}}},
        Case{"HourTwentyFour", "struct_timeofday", "24:00", {{Remark::kOutOfRange, kRefused, 0, 2}}},
        Case{"MinuteSixty", "struct_timeofday", "7:60", {{Remark::kOutOfRange, kRefused, 2, 2}}},
        Case{"BothOutside", "struct_timeofday", "24:60", {{Remark::kOutOfRange, kRefused, 0, 2}}},
        Case{"HourBeyondThirtyTwoBits",
             "struct_timeofday",
             "99999999999:00",
             {{Remark::kOutOfRange, kRefused, 0, 11}}},
        Case{"Tail", "struct_timeofday", "23:59xyz", {{Remark::kTail, kKept, 5, 3}}},
        Case{"Seconds", "struct_timeofday", "23:59:30", {{Remark::kTail, kKept, 5, 3}}},
        Case{"NoHour", "struct_timeofday", ":30", {{Remark::kEmptyNumber, kKept, 0, 0}}},
        Case{"NoMinute", "struct_timeofday", "12:", {{Remark::kEmptyNumber, kKept, 3, 0}}},
        Case{"NothingButTheColon",
             "struct_timeofday",
             ":",
             {{Remark::kEmptyNumber, kKept, 0, 0}, {Remark::kEmptyNumber, kKept, 1, 0}}},
        Case{"NoMinuteButATail",
             "struct_timeofday",
             "12:xyz",
             {{Remark::kEmptyNumber, kKept, 3, 0}, {Remark::kTail, kKept, 3, 3}}},
        Case{"NoHourAndTheMinuteOutside",
             "struct_timeofday",
             ":99xyz",
             {{Remark::kEmptyNumber, kKept, 0, 0}, {Remark::kOutOfRange, kRefused, 1, 2}}}),
    case_name<Case>);

INSTANTIATE_TEST_SUITE_P(
    References, RemarksOnTexts,
    ::testing::Values(Case{"Invocation", "ref_invocation", "scan1:copy2", {}},
                      Case{"Colon", "ref_invocation", ":", {}},
                      Case{"Collection", "ref_collection", "a:b", {}},
                      Case{"NoInvocation", "ref_invocation", "", {{Remark::kMalformed, kRefused, 0, 0}}},
                      Case{"NoCollection", "ref_collection", "", {{Remark::kMalformed, kRefused, 0, 0}}}),
    case_name<Case>);

INSTANTIATE_TEST_SUITE_P(
    Enumerations, RemarksOnTexts,
    ::testing::Values(Case{"Known", "enum_colormode", "full_color", {}}, Case{"Unit", "enum_units", "MM", {}},
                      Case{"Alias", "enum_mediasize", "NA_9x11LEF", {}},
                      Case{
                          "Unknown", "enum_colormode", "FULL_COLOUR", {{Remark::kUnknownName, kKept, 0, 11}}},
                      Case{"UnknownUnit", "enum_units", "CM", {{Remark::kUnknownName, kKept, 0, 2}}},
                      Case{"Empty", "enum_colormode", "", {{Remark::kUnknownName, kKept, 0, 0}}}),
    case_name<Case>);

INSTANTIATE_TEST_SUITE_P(
    Gutter, RemarksOnTexts,
    ::testing::Values(
        Case{"Plain", "struct_gutter", "10/20/MM", {}}, Case{"AtItsLimit", "struct_gutter", "25/25/MM", {}},
        Case{"AtItsLimitInMils", "struct_gutter", "1000/1000/mil", {}},
        Case{"Empty", "struct_gutter", "", {{Remark::kMalformed, kRefused, 0, 0}}},
        Case{"OneWidth", "struct_gutter", "10", {{Remark::kMalformed, kRefused, 2, 0}}},
        Case{"OneWidthAndTheUnit", "struct_gutter", "10/MM", {{Remark::kMalformed, kRefused, 3, 2}}},
        Case{"ALetterInAWidth", "struct_gutter", "1x/20/MM", {{Remark::kMalformed, kRefused, 1, 7}}},
        Case{"NoUnit", "struct_gutter", "10/20/", {{Remark::kMalformed, kRefused, 6, 0}}},
        Case{"FirstOutside", "struct_gutter", "26/20/MM", {{Remark::kOutOfRange, kKept, 0, 2}}},
        Case{"SecondOutside", "struct_gutter", "20/101/IN", {{Remark::kOutOfRange, kKept, 3, 3}}},
        Case{"BothOutside",
             "struct_gutter",
             "1001/2000/MIL",
             {{Remark::kOutOfRange, kKept, 0, 4}, {Remark::kOutOfRange, kKept, 5, 4}}},
        Case{"Saturated", "struct_gutter", "1/2147483648/MM", {{Remark::kSaturated, kKept, 2, 10}}},
        Case{"NoFirst", "struct_gutter", "/20/MM", {{Remark::kEmptyNumber, kKept, 0, 0}}},
        Case{"NoWidths",
             "struct_gutter",
             "//MM",
             {{Remark::kEmptyNumber, kKept, 0, 0}, {Remark::kEmptyNumber, kKept, 1, 0}}},
        Case{"OutsideAndNone",
             "struct_gutter",
             "99//MM",
             {{Remark::kOutOfRange, kKept, 0, 2}, {Remark::kEmptyNumber, kKept, 3, 0}}},
        Case{"UnknownUnit", "struct_gutter", "5/5/FOO", {{Remark::kUnknownName, kRefused, 4, 3}}},
        Case{"NameThatIsNoUnit",
             "struct_gutter",
             "5/5/PROPRIETARY",
             {{Remark::kUnknownName, kRefused, 4, 11}}},
        Case{"NoFirstAndUnknownUnit",
             "struct_gutter",
             "/99999/FOO",
             {{Remark::kEmptyNumber, kKept, 0, 0}, {Remark::kUnknownName, kRefused, 7, 3}}},
        Case{"NoFirstAndMalformed",
             "struct_gutter",
             "/x/MM",
             {{Remark::kEmptyNumber, kKept, 0, 0}, {Remark::kMalformed, kRefused, 1, 4}}}),
    case_name<Case>);

INSTANTIATE_TEST_SUITE_P(
    Rectangle, RemarksOnTexts,
    ::testing::Values(
        Case{"Smallest", "struct_rectangle", "0/0/25/25/MM", {}},
        Case{"Largest", "struct_rectangle", "350/500/350/500/MM", {}},
        Case{"Empty", "struct_rectangle", "", {{Remark::kMalformed, kRefused, 0, 0}}},
        Case{"ThreeNumbers", "struct_rectangle", "1/2/30/MM", {{Remark::kMalformed, kRefused, 7, 2}}},
        Case{"NoUnit", "struct_rectangle", "1/2/30/40/", {{Remark::kMalformed, kRefused, 10, 0}}},
        Case{"CutOff", "struct_rectangle", "1/2/30/40", {{Remark::kMalformed, kRefused, 9, 0}}},
        Case{"X", "struct_rectangle", "351/0/100/100/MM", {{Remark::kOutOfRange, kRefused, 0, 3}}},
        Case{"Y", "struct_rectangle", "0/501/100/100/MM", {{Remark::kOutOfRange, kRefused, 2, 3}}},
        Case{"Narrow", "struct_rectangle", "0/0/24/25/MM", {{Remark::kOutOfRange, kRefused, 4, 2}}},
        Case{"Wide", "struct_rectangle", "0/0/1401/100/IN", {{Remark::kOutOfRange, kRefused, 4, 4}}},
        Case{"Low", "struct_rectangle", "0/0/1000/999/MIL", {{Remark::kOutOfRange, kRefused, 9, 3}}},
        Case{"High", "struct_rectangle", "0/0/25/501/MM", {{Remark::kOutOfRange, kRefused, 7, 3}}},
        Case{"AllOfIt", "struct_rectangle", "351/501/24/501/MM", {{Remark::kOutOfRange, kRefused, 0, 3}}},
        Case{"NoWidth", "struct_rectangle", "0/0//40/MM", {{Remark::kOutOfRange, kRefused, 4, 0}}},
        Case{"Saturated",
             "struct_rectangle",
             "0/99999999999/30/40/MM",
             {{Remark::kOutOfRange, kRefused, 2, 11}}},
        Case{"NoCorner",
             "struct_rectangle",
             "//30/40/MM",
             {{Remark::kEmptyNumber, kKept, 0, 0}, {Remark::kEmptyNumber, kKept, 1, 0}}},
        Case{"NoXAndTooNarrow",
             "struct_rectangle",
             "/0/24//MM",
             {{Remark::kEmptyNumber, kKept, 0, 0}, {Remark::kOutOfRange, kRefused, 3, 2}}},
        Case{"UnknownUnit", "struct_rectangle", "1/2/30/40/CM", {{Remark::kUnknownName, kRefused, 10, 2}}},
        Case{"NameThatIsNoUnit",
             "struct_rectangle",
             "1/2/30/40/PROPRIETARY",
             {{Remark::kUnknownName, kRefused, 10, 11}}},
        Case{"SaturatedAndUnknownUnit",
             "struct_rectangle",
             "99999999999/2/30/40/CM",
             {{Remark::kSaturated, kKept, 0, 11}, {Remark::kUnknownName, kRefused, 20, 2}}}),
    case_name<Case>);

INSTANTIATE_TEST_SUITE_P(
    Magnification, RemarksOnTexts,
    ::testing::Values(
        Case{"ModeAlone", "struct_magnification", "AUTOISO", {}},
        Case{"OnePercentage", "struct_magnification", "MANISO/400", {}},
        Case{"TwoPercentages", "struct_magnification", "manana/25/400", {}},
        Case{"Empty", "struct_magnification", "", {{Remark::kMalformed, kRefused, 0, 0}}},
        Case{"NoMode", "struct_magnification", "/100", {{Remark::kMalformed, kRefused, 0, 4}}},
        Case{"UnknownMode", "struct_magnification", "FOO/100", {{Remark::kUnknownName, kRefused, 0, 3}}},
        Case{"UnknownModeAndNoNumber",
             "struct_magnification",
             "FOO/x",
             {{Remark::kUnknownName, kRefused, 0, 3}}},
        Case{"NameThatIsNoMode", "struct_magnification", "TEXT", {{Remark::kUnknownName, kRefused, 0, 4}}},
        Case{"OneTooFew", "struct_magnification", "MANISO", {{Remark::kMalformed, kRefused, 6, 0}}},
        Case{"OneTooFewOfTwo", "struct_magnification", "MANANA/100", {{Remark::kMalformed, kRefused, 10, 0}}},
        Case{"OneTooMany", "struct_magnification", "AUTOISO/100", {{Remark::kMalformed, kRefused, 7, 4}}},
        Case{"TwoForOne", "struct_magnification", "MANISO/100/100", {{Remark::kMalformed, kRefused, 10, 4}}},
        Case{"ThreeForTwo",
             "struct_magnification",
             "MANANA/100/100/5",
             {{Remark::kMalformed, kRefused, 14, 2}}},
        Case{"ALetter", "struct_magnification", "MANISO/100%", {{Remark::kMalformed, kRefused, 10, 1}}},
        Case{"ALetterInTheSecond",
             "struct_magnification",
             "MANANA/100/x",
             {{Remark::kMalformed, kRefused, 11, 1}}},
        Case{"TooMuch", "struct_magnification", "MANISO/401", {{Remark::kOutOfRange, kRefused, 7, 3}}},
        Case{"TooLittle", "struct_magnification", "MANANA/100/24", {{Remark::kOutOfRange, kRefused, 11, 2}}},
        Case{"BothOutside", "struct_magnification", "MANANA/24/401", {{Remark::kOutOfRange, kRefused, 7, 2}}},
        Case{"NoPercentage", "struct_magnification", "MANISO/", {{Remark::kOutOfRange, kRefused, 7, 0}}}),
    case_name<Case>);

INSTANTIATE_TEST_SUITE_P(
    Borders, RemarksOnTexts,
    ::testing::Values(
        Case{"OneSide", "struct_borders", "10/20/30/40/MM", {}},
        Case{"AtItsLimit", "struct_borders", "50/50/50/50/MM/200/200/200/200/IN", {}},
        Case{"Flip", "struct_borders", "10/20/30/40/MM/FLIPV", {}},
        Case{"SecondSide", "struct_borders", "10/20/30/40/MM/1/2/3/4/IN", {}},
        Case{"Empty", "struct_borders", "", {{Remark::kMalformed, kRefused, 0, 0}}},
        Case{"ThreeMargins", "struct_borders", "10/20/30/MM", {{Remark::kMalformed, kRefused, 9, 2}}},
        Case{"CutOff", "struct_borders", "10/20/30/40", {{Remark::kMalformed, kRefused, 11, 0}}},
        Case{"NoUnit", "struct_borders", "10/20/30/40/", {{Remark::kMalformed, kRefused, 12, 0}}},
        Case{"NoUnitBeforeAFlip",
             "struct_borders",
             "10/20/30/40//FLIPV",
             {{Remark::kMalformed, kRefused, 12, 6}}},
        Case{"NoSecondSide", "struct_borders", "10/20/30/40/MM/", {{Remark::kMalformed, kRefused, 15, 0}}},
        Case{"ShortSecondSide",
             "struct_borders",
             "10/20/30/40/MM/1/2/IN",
             {{Remark::kMalformed, kRefused, 19, 2}}},
        Case{"ThirdSide",
             "struct_borders",
             "10/20/30/40/MM/1/2/3/4/IN/5",
             {{Remark::kMalformed, kRefused, 25, 2}}},
        Case{"UnknownUnit", "struct_borders", "1/2/3/4/CM/FLIPV", {{Remark::kUnknownName, kRefused, 8, 2}}},
        Case{"UnknownUnitOfTheSecondSide",
             "struct_borders",
             "1/2/3/4/MM/1/2/3/4/CM",
             {{Remark::kUnknownName, kRefused, 19, 2}}},
        Case{"UnknownFlip", "struct_borders", "1/2/3/4/MM/FLIPX", {{Remark::kUnknownName, kRefused, 11, 5}}},
        Case{"NameThatIsNoFlip",
             "struct_borders",
             "1/2/3/4/MM/TEXT",
             {{Remark::kUnknownName, kRefused, 11, 4}}},
        Case{"OutsideOnBothSides",
             "struct_borders",
             "60/0/0/51/MM/1/2/201/4/IN",
             {{Remark::kOutOfRange, kKept, 0, 2},
              {Remark::kOutOfRange, kKept, 7, 2},
              {Remark::kOutOfRange, kKept, 17, 3}}},
        Case{"OutsideBeforeAFlip",
             "struct_borders",
             "1/2001/3/4/MIL/FLIPB",
             {{Remark::kOutOfRange, kKept, 2, 4}}},
        Case{"EveryKindOfNumber",
             "struct_borders",
             "/51/99999999999/4/MM",
             {{Remark::kEmptyNumber, kKept, 0, 0},
              {Remark::kOutOfRange, kKept, 1, 2},
              {Remark::kSaturated, kKept, 4, 11}}},
        Case{"OutsideAndAMalformedSecondSide",
             "struct_borders",
             "60/2/3/4/MM//x",
             {{Remark::kOutOfRange, kKept, 0, 2},
              {Remark::kEmptyNumber, kKept, 12, 0},
              {Remark::kMalformed, kRefused, 13, 1}}}),
    case_name<Case>);

}  // namespace
}  // namespace jt_test
