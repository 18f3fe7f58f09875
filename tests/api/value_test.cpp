// The five calls on values outside a template, for every type of every table: those that have values, and the
// rows that name kinds of blocks.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "api/value_types.h"
#include "support/job.h"

namespace jt_test {
namespace {

template <typename Row>
std::string row_name(const ::testing::TestParamInfo<Row> &tested) {
  return std::string(tested.param.service) + (*tested.param.service != '\0' ? "_" : "") + tested.param.type;
}

class TypedValues : public JobTest {
 protected:
  ClientOwned decoded(const char *type, const char *text, const char *service) {
    return ClientOwned(jt_decode_value(space, type, text, service),
                       DestroyValue{space, type != nullptr ? type : "", service != nullptr ? service : ""});
  }
  std::string written(const char *type, const jt_value *value, const char *service) {
    return take_text(jt_encode_value(space, type, value, service));
  }
};

// ---- Every type -------------------------------------------------------------------------------------------

class EveryValueType : public TypedValues, public ::testing::WithParamInterface<TypeRow> {
 protected:
  const TypeRow &row = GetParam();
};

TEST_P(EveryValueType, IsReadCopiedComparedWrittenAndReleased) {
  jt_value *const value = jt_decode_value(space, row.type, row.text, row.service);
  ASSERT_NE(value, nullptr);
  EXPECT_TRUE(quiet());
  jt_value *const copy = jt_copy_value(space, row.type, value, row.service);
  ASSERT_NE(copy, nullptr);
  EXPECT_NE(copy, value);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(jt_compare_value(space, row.type, value, copy, row.service), 0);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(jt_destroy_value(space, row.type, value, row.service), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(written(row.type, copy, row.service), row.written);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(jt_destroy_value(space, row.type, copy, row.service), 1);
  EXPECT_TRUE(quiet());
}

TEST_P(EveryValueType, IsNamedInAnyLetterCase) {
  std::string type = row.type;
  std::string service = row.service;
  for (char &c : type) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  for (char &c : service) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  const ClientOwned value = decoded(type.c_str(), row.text, service.c_str());
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(written(type.c_str(), value.get(), service.c_str()), row.written);
  EXPECT_TRUE(quiet());
}

TEST_P(EveryValueType, ReadsWhatItHasWritten) {
  const ClientOwned value = decoded(row.type, row.text, row.service);
  const ClientOwned again = decoded(row.type, row.written, row.service);
  ASSERT_NE(value, nullptr);
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(jt_compare_value(space, row.type, value.get(), again.get(), row.service), 0);
}

TEST_P(EveryValueType, LeavesTheTextOfTheClientAlone) {
  std::string text = row.text;
  const ClientOwned value = decoded(row.type, text.data(), row.service);
  EXPECT_EQ(text, row.text);
  text.assign(text.size(), '#');
  EXPECT_EQ(written(row.type, value.get(), row.service), row.written);
}

TEST_P(EveryValueType, PassesNullsQuietly) {
  EXPECT_EQ(jt_decode_value(space, row.type, nullptr, row.service), nullptr);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(jt_copy_value(space, row.type, nullptr, row.service), nullptr);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(jt_encode_value(space, row.type, nullptr, row.service), nullptr);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(jt_compare_value(space, row.type, nullptr, nullptr, row.service), 0);
  EXPECT_TRUE(quiet());
}

TEST_P(EveryValueType, ReportsANullToRelease) {
  EXPECT_EQ(jt_destroy_value(space, row.type, nullptr, row.service), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: value is null, cannot delete ..."}));
}

TEST_P(EveryValueType, DoesNothingWithoutASession) {
  const ClientOwned value = decoded(row.type, row.text, row.service);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(jt_decode_value(nullptr, row.type, row.text, row.service), nullptr);
  EXPECT_EQ(jt_copy_value(nullptr, row.type, value.get(), row.service), nullptr);
  EXPECT_EQ(jt_compare_value(nullptr, row.type, value.get(), nullptr, row.service), 0);
  EXPECT_EQ(jt_encode_value(nullptr, row.type, value.get(), row.service), nullptr);
  EXPECT_EQ(jt_destroy_value(nullptr, row.type, value.get(), row.service), 0);
  EXPECT_EQ(jt_destroy_value(nullptr, row.type, nullptr, row.service), 0);
  EXPECT_EQ(messages().back(), "here the test looks again ...");
  EXPECT_EQ(written(row.type, value.get(), row.service), row.written);
}

INSTANTIATE_TEST_SUITE_P(Base, EveryValueType, ::testing::ValuesIn(kBaseTypes), row_name<TypeRow>);
INSTANTIATE_TEST_SUITE_P(OfServices, EveryValueType, ::testing::ValuesIn(kServiceTypes), row_name<TypeRow>);

TEST_F(TypedValues, BaseTypesAreKnownUnderEveryServiceAndUnderNone) {
  std::vector<const char *> services(std::begin(kServices), std::end(kServices));
  services.insert(services.end(),
                  {nullptr, "", "nosuch", "MyScan", "kmt_svc_traikubra", "kmt_svc_quillform"});
  for (const char *const service : services) {
    for (const TypeRow &row : kBaseTypes) {
      jt_value *const value = jt_decode_value(space, row.type, row.text, service);
      ASSERT_NE(value, nullptr) << row.type;
      EXPECT_EQ(written(row.type, value, service), row.written);
      EXPECT_EQ(jt_destroy_value(space, row.type, value, service), 1);
    }
  }
  EXPECT_TRUE(quiet());
}

// ---- Kinds of blocks --------------------------------------------------------------------------------------

class EveryBlockKind : public TypedValues, public ::testing::WithParamInterface<BlockRow> {
 protected:
  const BlockRow &row = GetParam();
  Messages undefined() const {
    return {std::string("SYSTEM ERROR: undefined cmp function for") + row.type + " ..."};
  }
};

TEST_P(EveryBlockKind, HasNoValues) {
  uint32_t number = 1;
  jt_value *const value = reinterpret_cast<jt_value *>(&number);
  EXPECT_EQ(jt_copy_value(space, row.type, value, row.service), nullptr);
  EXPECT_TRUE(reports(JT_SYSTEM_ERROR, undefined()));
  EXPECT_EQ(jt_encode_value(space, row.type, value, row.service), nullptr);
  EXPECT_TRUE(reports(JT_SYSTEM_ERROR, undefined()));
  EXPECT_EQ(jt_decode_value(space, row.type, "text", row.service), nullptr);
  EXPECT_TRUE(reports(JT_SYSTEM_ERROR, undefined()));
  EXPECT_EQ(jt_destroy_value(space, row.type, value, row.service), 0);
  EXPECT_TRUE(reports(JT_SYSTEM_ERROR, undefined()));
  EXPECT_EQ(jt_compare_value(space, row.type, value, value, row.service), -2);
  EXPECT_TRUE(
      reports(JT_SYSTEM_ERROR, {std::string("SYSTEM ERROR: no compare function for:") + row.type + " ..."}));
  EXPECT_EQ(number, 1U);
}

TEST_P(EveryBlockKind, SaysSoForNullsToo) {
  EXPECT_EQ(jt_copy_value(space, row.type, nullptr, row.service), nullptr);
  EXPECT_TRUE(reports(JT_SYSTEM_ERROR, undefined()));
  EXPECT_EQ(jt_encode_value(space, row.type, nullptr, row.service), nullptr);
  EXPECT_TRUE(reports(JT_SYSTEM_ERROR, undefined()));
  EXPECT_EQ(jt_decode_value(space, row.type, nullptr, row.service), nullptr);
  EXPECT_TRUE(reports(JT_SYSTEM_ERROR, undefined()));
  EXPECT_EQ(jt_compare_value(space, row.type, nullptr, nullptr, row.service), -2);
  EXPECT_TRUE(
      reports(JT_SYSTEM_ERROR, {std::string("SYSTEM ERROR: no compare function for:") + row.type + " ..."}));
  EXPECT_EQ(jt_destroy_value(space, row.type, nullptr, row.service), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: value is null, cannot delete ..."}));
}

INSTANTIATE_TEST_SUITE_P(Rows, EveryBlockKind, ::testing::ValuesIn(kBlocks), row_name<BlockRow>);

TEST_F(TypedValues, TheComparisonShowsTheTypeAsTheCallerWroteIt) {
  EXPECT_EQ(jt_compare_value(space, "TEMPLATE", nullptr, nullptr, ""), -2);
  EXPECT_TRUE(reports(JT_SYSTEM_ERROR, {"SYSTEM ERROR: no compare function for:TEMPLATE ..."}));
  EXPECT_EQ(jt_copy_value(space, "TEMPLATE", nullptr, ""), nullptr);
  EXPECT_TRUE(reports(JT_SYSTEM_ERROR, {"SYSTEM ERROR: undefined cmp function fortemplate ..."}));
}

// ---- Unknown types ----------------------------------------------------------------------------------------

class EveryUnknownType : public TypedValues, public ::testing::WithParamInterface<BlockRow> {};

TEST_P(EveryUnknownType, IsRefusedByEachCallInItsWords) {
  const auto [service, type] = GetParam();
  uint32_t number = 1;
  jt_value *const value = reinterpret_cast<jt_value *>(&number);
  EXPECT_EQ(jt_copy_value(space, type, value, service), nullptr);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: unknown type construct a copy ..."}));
  EXPECT_EQ(jt_compare_value(space, type, value, value, service), -2);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: unknown type to compare ..."}));
  EXPECT_EQ(jt_encode_value(space, type, value, service), nullptr);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: unknown type encode a value ..."}));
  EXPECT_EQ(jt_decode_value(space, type, "the text", service), nullptr);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: unknown type decodethe text ..."}));
  EXPECT_EQ(jt_decode_value(space, type, nullptr, service), nullptr);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: unknown type decode(null) ..."}));
  EXPECT_EQ(jt_destroy_value(space, type, value, service), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: no type construct to destroy the value ..."}));
  EXPECT_EQ(jt_destroy_value(space, type, nullptr, service), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: value is null, cannot delete ..."}));
  EXPECT_EQ(number, 1U);
}

INSTANTIATE_TEST_SUITE_P(Names, EveryUnknownType, ::testing::ValuesIn(kNotFound));

// ---- One name in several tables ---------------------------------------------------------------------------

TEST_F(TypedValues, ATypeIsThatOfTheServiceThatIsNamed) {
  struct Reading {
    const char *service;
    const char *type;
    const char *name;
    uint32_t number;
  };
  for (const Reading &reading :
       {Reading{"kmt_svc_fax", "enum_type", "LOW", 5}, Reading{"kmt_svc_file", "enum_type", "NONE", 37},
        Reading{"kmt_svc_general", "enum_type", "NONE", 4}, Reading{"kmt_svc_scan", "enum_type", "NONE", 94},
        Reading{"kmt_svc_email", "enum_jobpriority", "LOW", 5},
        Reading{"kmt_svc_fax", "enum_jobpriority", "URGENT", 7},
        Reading{"kmt_document", "enum_resolution", "AUTO", 0},
        Reading{"kmt_svc_scan", "enum_resolution", "AUTO", 1}}) {
    const ClientOwned value = decoded(reading.type, reading.name, reading.service);
    ASSERT_NE(value, nullptr) << reading.service;
    uint32_t number = 0;
    std::memcpy(&number, value.get(), sizeof(number));
    EXPECT_EQ(number, reading.number) << reading.service << " " << reading.type;
  }
  EXPECT_TRUE(quiet());
}

// ---- Texts that are refused, or accepted with a warning ---------------------------------------------------

struct Report {
  const char *name;
  const char *type;
  const char *text;
  int32_t status;
  Messages messages;
  const char *written;  // null: refused
};

const std::vector<Report> &doubtful_texts() {
  static const std::vector<Report> all = {
      {"IntegerWithALetter",
       "integer",
       "12a",
       JT_SYNTAX_ERROR,
       {"SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\n12a ..."},
       nullptr},
      {"EmptyInteger", "integer", "", JT_OK, {}, nullptr},
      {"NegativeReal",
       "real",
       "-2.5",
       JT_SYNTAX_ERROR,
       {"SYNTAX ERROR: trying to evaluate the following value string as -- real --:\n\n-2.5 ..."},
       nullptr},
      {"BooleanYes",
       "boolean",
       "yes",
       JT_SYNTAX_ERROR,
       {"SYNTAX ERROR: trying to evaluate the following value string as -- boolean --:\n\nyes ..."},
       nullptr},
      {"ShortTimestamp",
       "timestamp",
       "2009/1/1/0/0/0",
       JT_SYNTAX_ERROR,
       {"SYNTAX ERROR: trying to evaluate the following value string as -- timestamp --:\n\n2009/1/1/0/0/0 "
        "..."},
       nullptr},
      {"TimestampWithOtherSeparators", "timestamp", "2009-01-01/00/00/00", JT_OK, {}, nullptr},
      {"TimeAtTwentyFour",
       "struct_timeofday",
       "24:00",
       JT_SYNTAX_ERROR,
       {"SYNTAX ERROR: trying to evaluate the following value string as -- struct_timeofday --:\n\n24:00 "
        "..."},
       nullptr},
      {"EmptyString", "string", "", JT_OK, {}, ""},
      {"EmptyReference", "ref_invocation", "", JT_OK, {}, nullptr},
      {"EmptyCollection", "ref_collection", "", JT_OK, {}, nullptr},
      {"UnknownEnumeratedName",
       "enum_mediasize",
       "FOO",
       JT_WARNING,
       {"WARNING: trying to evaluate as an 'enumerated' type:FOO ..."},
       "FOO"},
      {"EmptyEnumeratedName",
       "enum_mediasize",
       "",
       JT_WARNING,
       {"WARNING: trying to evaluate as an 'enumerated' type: ..."},
       ""},
      {"RectangleTooNarrow",
       "struct_rectangle",
       "0/0/24/25/MM",
       JT_SYNTAX_ERROR,
       {"SYNTAX ERROR: Value outside range ...",
        "SYNTAX ERROR: trying to evaluate the following value string as -- struct_rectangle "
        "--:\n\n0/0/24/25/MM ..."},
       nullptr},
      {"RectangleOfAnUnknownUnit",
       "struct_rectangle",
       "0/0/25/25/CM",
       JT_SYNTAX_ERROR,
       {"SYNTAX ERROR: trying to evaluate as an 'enumerated' type:CM ..."},
       nullptr},
      {"WideGutter",
       "struct_gutter",
       "30/10/MM",
       JT_WARNING,
       {"WARNING: Value outside range (25 MM) ..."},
       "30/10/MM"},
      {"GutterOfAnUnknownUnit",
       "struct_gutter",
       "5/5/FOO",
       JT_WARNING,
       {"WARNING: trying to evaluate as an 'enumerated' type:FOO ..."},
       nullptr},
      {"WideBorders",
       "struct_borders",
       "51/0/0/0/MM",
       JT_WARNING,
       {"WARNING: Value outside range: (50 MM) ..."},
       "51/0/0/0/MM/51/0/0/0/MM"},
      {"BordersWithASecondGroup",
       "struct_borders",
       "1/2/3/4/MM/5/6/7/8/IN",
       JT_WARNING,
       {"WARNING: trying to evaluate as an 'enumerated' type:5/6/7/8/IN ..."},
       "1/2/3/4/MM/5/6/7/8/IN"},
      {"MagnificationWithoutItsNumber",
       "struct_magnification",
       "MANISO",
       JT_SYNTAX_ERROR,
       {"SYNTAX ERROR: trying to evaluate the following value string as -- struct_magnification "
        "--:\n\nMANISO ..."},
       nullptr},
      {"MagnificationTooLarge",
       "struct_magnification",
       "MANISO/401",
       JT_SYNTAX_ERROR,
       {"SYNTAX ERROR: Value outside the range of 25-400 ...",
        "SYNTAX ERROR: trying to evaluate the following value string as -- struct_magnification "
        "--:\n\nMANISO ..."},
       nullptr},
  };
  return all;
}

class DoubtfulText : public TypedValues, public ::testing::WithParamInterface<Report> {};

TEST_P(DoubtfulText, IsReportedByItsType) {
  const Report &report = GetParam();
  std::string text = report.text;
  const ClientOwned value = decoded(report.type, text.data(), "kmt_svc_scan");
  EXPECT_TRUE(reports(report.status, report.messages));
  EXPECT_EQ(text, report.text);
  ASSERT_EQ(value != nullptr, report.written != nullptr);
  if (value != nullptr) {
    EXPECT_EQ(written(report.type, value.get(), "kmt_svc_scan"), report.written);
  }
}

INSTANTIATE_TEST_SUITE_P(Texts, DoubtfulText, ::testing::ValuesIn(doubtful_texts()),
                         [](const auto &tested) { return std::string(tested.param.name); });

// ---- Results are passed through ---------------------------------------------------------------------------

TEST_F(TypedValues, AComparisonSaysWhichComesFirst) {
  const ClientOwned five = value_of("integer", "5");
  const ClientOwned six = value_of("integer", "6");
  EXPECT_EQ(jt_compare_value(space, "integer", five.get(), six.get(), ""), -1);
  EXPECT_EQ(jt_compare_value(space, "integer", six.get(), five.get(), ""), 1);
  EXPECT_EQ(jt_compare_value(space, "integer", nullptr, five.get(), ""), -1);
  EXPECT_EQ(jt_compare_value(space, "integer", five.get(), nullptr, ""), 1);
  EXPECT_TRUE(quiet());
}

TEST_F(TypedValues, TypesThatOnlyKnowEqualitySayDifferent) {
  const ClientOwned one = value_of("ref_collection", "one");
  const ClientOwned two = value_of("ref_collection", "two");
  EXPECT_EQ(jt_compare_value(space, "ref_collection", one.get(), two.get(), ""), -2);
  EXPECT_EQ(jt_compare_value(space, "ref_collection", nullptr, two.get(), ""), -2);
  EXPECT_EQ(jt_compare_value(space, "ref_collection", one.get(), nullptr, ""), -2);
  EXPECT_TRUE(quiet());
}

TEST_F(TypedValues, TwoUnknownNamesCompareEqual) {
  const ClientOwned foo = value_of("enum_mediasize", "FOO");
  const ClientOwned bar = value_of("enum_mediasize", "BAR");
  const ClientOwned known = value_of("enum_mediasize", "CN_195x270LEF");
  EXPECT_EQ(jt_compare_value(space, "enum_mediasize", foo.get(), bar.get(), "kmt_svc_scan"), 0);
  EXPECT_EQ(jt_compare_value(space, "enum_mediasize", foo.get(), known.get(), "kmt_svc_scan"), 1);
}

TEST_F(TypedValues, AnUnknownNameIsCopiedAndWrittenWithAReport) {
  const ClientOwned value = value_of("enum_mediasize", "Foo Bar");
  const ClientOwned copy(jt_copy_value(space, "enum_mediasize", value.get(), "kmt_svc_scan"),
                         DestroyValue{space, "enum_mediasize", "kmt_svc_scan"});
  EXPECT_EQ(status(), JT_OK);
  forget();
  EXPECT_EQ(written("enum_mediasize", copy.get(), "kmt_svc_scan"), "Foo Bar");
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: Unknown enumerated value ..."}));
}

TEST_F(TypedValues, ANumberWithoutANameHasNoText) {
  EXPECT_EQ(written("enum_mediasize", as_value(999U), "kmt_svc_scan"), "(none)");
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: Unknown enumerated value ..."}));
}

TEST_F(TypedValues, AStructureOfAnUnnamedUnitHasNoText) {
  const int32_t rectangle[] = {1, 2, 30, 40, 99};
  EXPECT_EQ(written("struct_rectangle", as_value(rectangle), ""), "(none)");
  EXPECT_TRUE(reports(JT_MEMORY_ERROR, {"CALL ERROR: Unknown enumerated value ...",
                                        "MEMORY ERROR: Invalid value, cannot be encoded ..."}));
}

TEST_F(TypedValues, TheSameValueIsWrittenAsTheNamedServiceSpellsIt) {
  EXPECT_EQ(written("enum_resolution", as_value(57U), "kmt_svc_scan"), "NA_7.25x10.5LEF");
  EXPECT_EQ(written("enum_outputsize", as_value(9U), "kmt_document"), "NA_10.5x7.25LEF");
}

TEST_F(TypedValues, ATextThatWasWrittenIsTheClients) {
  const ClientOwned value = value_of("string", "text");
  char *const text = jt_encode_value(space, "string", value.get(), "");
  text[0] = 'n';
  EXPECT_EQ(written("string", value.get(), ""), "text");
  EXPECT_EQ(jt_destroy_value_string(space, text), 1);
}

}  // namespace
}  // namespace jt_test
