#include "types/value_form.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

#include "types/limits.h"
#include "types/type_tables.h"
#include "types/value_remarks.h"

namespace jt_core {
namespace {

using Family = FamilyNumber;

// In the order of the families, the enumerations' as one. One text behind the other: there is nothing to relocate when
// the library is loaded.
constexpr char kForms[] =
    "TRUE|FALSE\0"
    "integer\0"
    "decimal\0"
    "year/month/day/hour/minute/second\0"
    "hour:minute\0"
    "x/y/width/height/unit\0"
    "mode[/percentage[/percentage]]\0"
    "margin/margin/margin/margin/unit[/side]\0"
    "text\0"
    "invocation[:qualifier]\0"
    "collection\0"
    "width/width/unit\0"
    "name";
static_assert(std::count(std::begin(kForms), std::end(kForms), '\0') ==
              static_cast<std::ptrdiff_t>(Family::kFirstEnumeration));

enum Part : std::uint8_t {
  kInteger,
  kYear,
  kMonth,
  kDay,
  kHour,
  kMinute,
  kSecond,
  kX,
  kY,
  kWidth,
  kHeight,
  kPercent,
  kMargin,
  kParts
};

constexpr char kPartNames[kParts][11] = {"integer", "year",       "month", "day", "hour",
                                         "minute",  "second",     "x",     "y",   "width",
                                         "height",  "percentage", "margin"};

enum Unit : std::uint8_t { kNone, kMm, kIn, kMil };

constexpr char kUnitNames[][4] = {"", "MM", "IN", "MIL"};

constexpr Unit unit_of(std::int32_t number) {
  return number == unit::kMm ? kMm : (number == unit::kIn ? kIn : kMil);
}

struct Range {
  Family family;
  Part part;
  Unit unit;
  std::uint8_t outside;
  std::int32_t least;
  std::int32_t most;
};

constexpr std::int32_t kTwoDigits = 99;
constexpr std::int32_t kFourDigits = 9999;

constexpr Range kWithoutUnits[] = {
    {Family::kInteger, kInteger, kNone, JT_OUTSIDE_SATURATED, std::numeric_limits<std::int32_t>::min(),
     std::numeric_limits<std::int32_t>::max()},
    {Family::kTimestamp, kYear, kNone, JT_OUTSIDE_REFUSED, 0, kFourDigits},
    {Family::kTimestamp, kMonth, kNone, JT_OUTSIDE_REFUSED, 0, kTwoDigits},
    {Family::kTimestamp, kDay, kNone, JT_OUTSIDE_REFUSED, 0, kTwoDigits},
    {Family::kTimestamp, kHour, kNone, JT_OUTSIDE_REFUSED, 0, kTwoDigits},
    {Family::kTimestamp, kMinute, kNone, JT_OUTSIDE_REFUSED, 0, kTwoDigits},
    {Family::kTimestamp, kSecond, kNone, JT_OUTSIDE_REFUSED, 0, kTwoDigits},
    {Family::kTimeOfDay, kHour, kNone, JT_OUTSIDE_REFUSED, kTimeRanges[0].least, kTimeRanges[0].most},
    {Family::kTimeOfDay, kMinute, kNone, JT_OUTSIDE_REFUSED, kTimeRanges[1].least, kTimeRanges[1].most},
    {Family::kMagnification, kPercent, kNone, JT_OUTSIDE_REFUSED, kPercentage.least, kPercentage.most},
};

// For each unit four of a rectangle, and one each of a gutter and of borders.
constexpr std::size_t kWithUnits = kRectangleLimits.size() * 6;

constexpr auto kRanges = [] {
  std::array<Range, std::size(kWithoutUnits) + kWithUnits> rows{};
  auto *row = std::copy(std::begin(kWithoutUnits), std::end(kWithoutUnits), rows.begin());
  for (const RectangleLimit &limit : kRectangleLimits) {
    const Unit unit = unit_of(limit.unit);
    *row++ = {Family::kRectangle, kX, unit, JT_OUTSIDE_REFUSED, 0, limit.most_across};
    *row++ = {Family::kRectangle, kY, unit, JT_OUTSIDE_REFUSED, 0, limit.most_down};
    *row++ = {Family::kRectangle, kWidth, unit, JT_OUTSIDE_REFUSED, limit.least_size, limit.most_across};
    *row++ = {Family::kRectangle, kHeight, unit, JT_OUTSIDE_REFUSED, limit.least_size, limit.most_down};
  }
  for (const WarningLimit &limit : kGutterLimits)
    *row++ = {Family::kGutter, kWidth, unit_of(limit.unit), JT_OUTSIDE_WARNED, 0, limit.most};
  for (const WarningLimit &limit : kBordersLimits)
    *row++ = {Family::kBorders, kMargin, unit_of(limit.unit), JT_OUTSIDE_WARNED, 0, limit.most};
  return rows;
}();

}  // namespace

const char *form_of(const jt_type *type) {
  const auto family = static_cast<int>(std::min(family_number_of(type), Family::kFirstEnumeration));
  if (family == 0) return nullptr;
  const char *form = kForms;
  for (int before = 1; before < family; ++before) form += std::strlen(form) + 1;
  return form;
}

bool find_range(const jt_type *type, std::int32_t index, jt_value_range &range) {
  const Family family = family_number_of(type);
  for (const Range &row : kRanges) {
    if (row.family != family || index-- > 0) continue;
    const char *const unit = row.unit != kNone ? kUnitNames[row.unit] : nullptr;
    range = {range.size, row.outside, row.least, row.most, kPartNames[row.part], unit};
    return true;
  }
  return false;
}

}  // namespace jt_core
