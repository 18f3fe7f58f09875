// What the catalogue tells of a type's values: the form and the ranges of every type, and that the types themselves
// keep to them; and which of several names for a number is written.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "jt.h"
#include "support/session.h"

namespace jt_test {
namespace {

using Lines = std::vector<std::string>;

const jt_type *type_of(const char *name, const char *service = nullptr) {
  return get_type_from_services(nullptr, service, name);
}

// A line for each range: part, limits, unit, and what becomes of a number outside.
Lines ranges_of(const jt_type *type) {
  Lines lines;
  jt_value_range range{};
  range.size = sizeof(range);
  for (int32_t i = 0; jt_catalogue_range(type, i, &range) != 0; ++i) {
    const std::string unit = range.unit != nullptr ? std::string(" ") + range.unit : "";
    const char *const outside[] = {" refused", " warned", " saturated"};
    lines.push_back(std::string(range.part) + " " + std::to_string(range.least) + " to " +
                    std::to_string(range.most) + unit + outside[range.outside]);
  }
  return lines;
}

// ---- Forms ------------------------------------------------------------------------------------------------

TEST(CatalogueForm, IsThatOfEachType) {
  const std::map<std::string, std::string> forms = {{"boolean", "TRUE|FALSE"},
                                                    {"integer", "integer"},
                                                    {"real", "decimal"},
                                                    {"string", "text"},
                                                    {"timestamp", "year/month/day/hour/minute/second"},
                                                    {"struct_timeofday", "hour:minute"},
                                                    {"ref_invocation", "invocation[:qualifier]"},
                                                    {"ref_collection", "collection"},
                                                    {"struct_rectangle", "x/y/width/height/unit"},
                                                    {"enum_units", "name"},
                                                    {"kmt_enum_status", "name"}};
  for (const auto &[name, form] : forms)
    EXPECT_STREQ(jt_catalogue_form(type_of(name.c_str())), form.c_str()) << name;
  EXPECT_STREQ(jt_catalogue_form(type_of("struct_gutter", "kmt_svc_scan")), "width/width/unit");
  EXPECT_STREQ(jt_catalogue_form(type_of("struct_magnification", "kmt_svc_scan")),
               "mode[/percentage[/percentage]]");
  EXPECT_STREQ(jt_catalogue_form(type_of("struct_borders", "kmt_svc_scan")),
               "margin/margin/margin/margin/unit[/side]");
}

TEST(CatalogueForm, IsThereForEveryTypeWithValuesAndForNoOther) {
  for (int32_t service = -1; service < 14; ++service) {
    int32_t count = 0;
    const jt_type *const types =
        jt_catalogue_types(service < 0 ? nullptr : jt_catalogue_service(service), &count);
    for (int32_t i = 0; i < count; ++i) {
      const char *const form = jt_catalogue_form(types + i);
      EXPECT_EQ(form != nullptr, types[i].eval != nullptr) << types[i].name;
      const bool is_enumeration = std::string(types[i].name).starts_with("enum_");
      if (is_enumeration) {
        EXPECT_STREQ(form, "name") << types[i].name;
      }
    }
  }
}

TEST(CatalogueForm, IsNotThereForATypeOfAClient) {
  const jt_type own = *type_of("integer");
  EXPECT_EQ(jt_catalogue_form(&own), nullptr);
  EXPECT_EQ(jt_catalogue_form(nullptr), nullptr);
  EXPECT_EQ(ranges_of(&own), Lines{});
  EXPECT_EQ(ranges_of(nullptr), Lines{});
}

// ---- Ranges -----------------------------------------------------------------------------------------------

TEST(CatalogueRange, IsThatOfEachPart) {
  EXPECT_EQ(ranges_of(type_of("integer")), Lines{"integer -2147483648 to 2147483647 saturated"});
  EXPECT_EQ(ranges_of(type_of("struct_timeofday")),
            (Lines{"hour 0 to 23 refused", "minute 0 to 59 refused"}));
  EXPECT_EQ(ranges_of(type_of("timestamp")),
            (Lines{"year 0 to 9999 refused", "month 0 to 99 refused", "day 0 to 99 refused",
                   "hour 0 to 99 refused", "minute 0 to 99 refused", "second 0 to 99 refused"}));
  EXPECT_EQ(ranges_of(type_of("struct_magnification", "kmt_svc_scan")),
            Lines{"percentage 25 to 400 refused"});
  EXPECT_EQ(ranges_of(type_of("struct_gutter", "kmt_svc_scan")),
            (Lines{"width 0 to 25 MM warned", "width 0 to 100 IN warned", "width 0 to 1000 MIL warned"}));
  EXPECT_EQ(ranges_of(type_of("struct_borders", "kmt_svc_scan")),
            (Lines{"margin 0 to 50 MM warned", "margin 0 to 200 IN warned", "margin 0 to 2000 MIL warned"}));
  EXPECT_EQ(ranges_of(type_of("struct_rectangle")),
            (Lines{"x 0 to 350 MM refused", "y 0 to 500 MM refused", "width 25 to 350 MM refused",
                   "height 25 to 500 MM refused", "x 0 to 1400 IN refused", "y 0 to 2000 IN refused",
                   "width 100 to 1400 IN refused", "height 100 to 2000 IN refused",
                   "x 0 to 14000 MIL refused", "y 0 to 20000 MIL refused", "width 1000 to 14000 MIL refused",
                   "height 1000 to 20000 MIL refused"}));
}

TEST(CatalogueRange, IsNotThereForTypesWithoutNumbersOrLimits) {
  for (const char *const name :
       {"boolean", "real", "string", "ref_invocation", "ref_collection", "enum_units", "service"})
    EXPECT_EQ(ranges_of(type_of(name)), Lines{}) << name;
}

TEST(CatalogueRange, OutsideTheListLeavesTheRecordAlone) {
  for (const int32_t index : {-1, INT32_MIN, 2, INT32_MAX}) {
    jt_value_range range = {sizeof(jt_value_range), 7, 8, 9, "part", "unit"};
    EXPECT_EQ(jt_catalogue_range(type_of("struct_timeofday"), index, &range), 0);
    EXPECT_EQ(range.outside, 7);
    EXPECT_STREQ(range.part, "part");
  }
  EXPECT_EQ(jt_catalogue_range(type_of("struct_timeofday"), 0, nullptr), 0);
}

TEST(CatalogueRange, IsNotWrittenBehindTheRecord) {
  jt_value_range range = {offsetof(jt_value_range, part), 7, 8, 9, "part", "unit"};
  EXPECT_EQ(jt_catalogue_range(type_of("struct_timeofday"), 1, &range), 1);
  EXPECT_EQ(range.size, offsetof(jt_value_range, part));
  EXPECT_EQ(range.most, 59);
  EXPECT_STREQ(range.part, "part");
  range = {sizeof(jt_value_range) + 100, 7, 8, 9, "part", "unit"};
  EXPECT_EQ(jt_catalogue_range(type_of("struct_timeofday"), 1, &range), 1);
  EXPECT_EQ(range.size, sizeof(jt_value_range) + 100);
  EXPECT_STREQ(range.part, "minute");
  EXPECT_EQ(range.unit, nullptr);
}

// A value at the limit and one behind it: text, and what reading it leaves as status; -100 when it is refused.
class ReadingValues : public SessionTest {
 protected:
  int32_t read(const char *type, const std::string &text) {
    jt_value *const value = jt_decode_value(space, type, text.c_str(), "kmt_svc_scan");
    const int32_t left = status();
    jt_destroy_value(space, type, value, "kmt_svc_scan");
    return value != nullptr ? left : -100;
  }
};

TEST_F(ReadingValues, KeepsToTheRangesOfTheCatalogue) {
  jt_value_range range{};
  range.size = sizeof(range);
  for (int32_t i = 0; jt_catalogue_range(type_of("struct_gutter", "kmt_svc_scan"), i, &range) != 0; ++i) {
    const std::string unit = range.unit;
    EXPECT_EQ(read("struct_gutter", "0/" + std::to_string(range.most) + "/" + unit), 0) << unit;
    EXPECT_EQ(read("struct_gutter", "0/" + std::to_string(range.most + 1) + "/" + unit), -3) << unit;
  }
  for (int32_t i = 0; jt_catalogue_range(type_of("struct_borders", "kmt_svc_scan"), i, &range) != 0; ++i) {
    const std::string unit = range.unit;
    EXPECT_EQ(read("struct_borders", "0/0/0/" + std::to_string(range.most) + "/" + unit), 0) << unit;
    EXPECT_EQ(read("struct_borders", "0/0/0/" + std::to_string(range.most + 1) + "/" + unit), -3) << unit;
  }
  ASSERT_EQ(jt_catalogue_range(type_of("struct_magnification", "kmt_svc_scan"), 0, &range), 1);
  for (const int32_t inside : {range.least, range.most})
    EXPECT_EQ(read("struct_magnification", "MANISO/" + std::to_string(inside)), 0);
  for (const int32_t outside : {range.least - 1, range.most + 1})
    EXPECT_EQ(read("struct_magnification", "MANISO/" + std::to_string(outside)), -100);
}

// ---- Names ------------------------------------------------------------------------------------------------

// The names of a number, those that are not written in brackets.
std::string names_of(const char *service, uint32_t wanted) {
  std::string names;
  uint32_t number = 0;
  for (int32_t i = 0;; ++i) {
    const OwnedText name(jt_catalogue_name(service, i, &number));
    if (name == nullptr) return names;
    if (number != wanted) continue;
    const bool written = jt_catalogue_is_written(service, i) != 0;
    names += (names.empty() ? "" : " ") +
             (written ? std::string(name.get()) : "[" + std::string(name.get()) + "]");
  }
}

TEST(CatalogueNames, SayWhichOfSeveralIsWritten) {
  EXPECT_EQ(names_of("kmt_document", 21), "NA_11x9LEF [NA_9x11LEF]");
  EXPECT_EQ(names_of("kmt_svc_email", 3), "URGENT");
  EXPECT_EQ(names_of(nullptr, 5), "KMT_STATUS_COMPLETED");
}

TEST(CatalogueNames, OneNameOfEachNumberIsTheOneThatIsWrittenBack) {
  SCOPED_TRACE("every name of every service");
  jt_parser_space *const space = jt_open_parsing_utility("names");
  for (int32_t service = 0; jt_catalogue_service(service) != nullptr; ++service) {
    const char *const name_of_service = jt_catalogue_service(service);
    int32_t count = 0;
    const jt_type *const types = jt_catalogue_types(name_of_service, &count);
    const jt_type *const enumeration = std::find_if(types, types + count, [](const jt_type &type) {
      return std::string(type.name).starts_with("enum_");
    });
    if (enumeration == types + count) continue;
    for (int32_t i = 0;; ++i) {
      uint32_t number = 0;
      const OwnedText name(jt_catalogue_name(name_of_service, i, &number));
      if (name == nullptr) break;
      const OwnedText written(enumeration->deval(space, reinterpret_cast<const jt_value *>(&number)));
      EXPECT_EQ(jt_catalogue_is_written(name_of_service, i), std::string(name.get()) == written.get() ? 1 : 0)
          << name.get();
    }
  }
  jt_close_parsing_utility(space);
}

TEST(CatalogueNames, WhatIsNoneIsNotWritten) {
  EXPECT_EQ(jt_catalogue_is_written("kmt_svc_email", -1), 0);
  EXPECT_EQ(jt_catalogue_is_written("kmt_svc_email", 6), 0);
  EXPECT_EQ(jt_catalogue_is_written("kmt_svc_notification", 0), 0);
  EXPECT_EQ(jt_catalogue_is_written("kmt_svc_coffee", 0), 0);
}

}  // namespace
}  // namespace jt_test
