// Reading attributes closely: one cursor for typed values and texts, what a failed read does to it, type
// names, and stars.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support/job.h"

namespace jt_test {
namespace {

class ReadAttribute : public JobTest {
 protected:
  jt_value *first_value(const char *name) { return jt_get_first_attribute_value(space, job, "Scan", name); }
  jt_value *next_value(const char *name) { return jt_get_next_attribute_value(space, job, "Scan", name); }

  // The number in a value, which is released; -1 for null.
  int32_t taken(const char *type, jt_value *value) {
    int32_t number = -1;
    if (value == nullptr) return number;
    std::memcpy(&number, value, sizeof(number));
    EXPECT_EQ(jt_destroy_value(space, type, value, "kmt_svc_scan"), 1);
    return number;
  }
  std::string type_name(const char *name) {
    return take_text(jt_get_attribute_type_name(space, job, "Scan", name));
  }
  int32_t known(const char *name) { return jt_known_attribute_datatype(space, job, "Scan", name); }
  int32_t starred(const char *name) { return jt_is_attribute_non_compulsory(space, job, "Scan", name); }

  // An attribute "u" of a type that nobody knows.
  void add_unknown(const Texts &texts) {
    ASSERT_EQ(add_attribute("Enum_New", "u"), 1);
    for (const std::string &text : texts) ASSERT_EQ(add_text("u", text.c_str()), 1);
    forget();
  }
};

// ---- One cursor -------------------------------------------------------------------------------------------

TEST_F(ReadAttribute, TypedValuesAndTextsShareOneCursor) {
  decode_scan("integer a = 1, 2, 3, 4;");
  EXPECT_EQ(taken("integer", first_value("a")), 1);
  EXPECT_EQ(next_text("a"), "2");
  EXPECT_EQ(taken("integer", next_value("a")), 3);
  EXPECT_EQ(next_text("a"), "4");
  EXPECT_EQ(next_value("a"), nullptr);
  EXPECT_EQ(next_text("a"), "(none)");
  EXPECT_TRUE(quiet());
}

TEST_F(ReadAttribute, TheNextTypedValueOfAFreshAttributeIsTheFirst) {
  decode_scan("integer a = 1, 2;");
  EXPECT_EQ(taken("integer", next_value("a")), 1);
  EXPECT_EQ(taken("integer", next_value("a")), 2);
  EXPECT_EQ(next_value("a"), nullptr);
  EXPECT_TRUE(quiet());
}

TEST_F(ReadAttribute, AfterTheOnlyValueThereIsNoNext) {
  decode_scan("integer a = 1;");
  EXPECT_EQ(taken("integer", first_value("a")), 1);
  EXPECT_EQ(next_value("a"), nullptr);
  EXPECT_EQ(first_text("a"), "1");
  EXPECT_EQ(next_text("a"), "(none)");
  EXPECT_TRUE(quiet());
}

TEST_F(ReadAttribute, EachAttributeHasItsOwnCursor) {
  decode_scan("integer a = 1, 2; integer b = 3, 4;");
  EXPECT_EQ(first_text("a"), "1");
  EXPECT_EQ(first_text("b"), "3");
  EXPECT_EQ(next_text("a"), "2");
  EXPECT_EQ(next_text("b"), "4");
}

TEST_F(ReadAttribute, TheCursorIsTheAttributesOfThatInvocation) {
  decode("[ kmt_svc_scan Scan ] { integer a = 1, 2; } { integer a = 3, 4; } end");
  EXPECT_EQ(first_text("a"), "1");
  ASSERT_EQ(jt_next_invocation(space, job, "Scan"), 1);
  EXPECT_EQ(first_text("a"), "3");
  ASSERT_EQ(jt_first_invocation(space, job, "Scan"), 1);
  EXPECT_EQ(next_text("a"), "2");
}

TEST_F(ReadAttribute, NoQuestionAboutAnAttributeMovesItsCursors) {
  decode_scan("integer a = 1, 2; integer b;");
  EXPECT_EQ(take_text(jt_get_first_attribute_name(space, job, "Scan")), "a");
  EXPECT_EQ(first_text("a"), "1");
  EXPECT_EQ(jt_exists_attribute(space, job, "Scan", "a"), 1);
  EXPECT_EQ(type_name("a"), "integer");
  EXPECT_EQ(known("a"), 1);
  EXPECT_EQ(starred("a"), 0);
  EXPECT_EQ(jt_get_attribute_status(space, job, "Scan", "a"), nullptr);
  EXPECT_EQ(next_text("a"), "2");
  EXPECT_EQ(take_text(jt_get_next_attribute_name(space, job, "Scan")), "b");
  EXPECT_TRUE(quiet());
}

TEST_F(ReadAttribute, ReplacingTheValuesBeginsAnew) {
  decode_scan("integer a = 1, 2, 3;");
  EXPECT_EQ(first_text("a"), "1");
  ASSERT_EQ(set_text("a", "9"), 1);
  EXPECT_EQ(next_text("a"), "9");
  EXPECT_EQ(next_text("a"), "(none)");
}

TEST_F(ReadAttribute, OverridingTheValueUnderTheCursorLeavesItThere) {
  decode_scan("* integer a = 1, 2, 3;");
  const ClientOwned two = value_of("integer", "2");
  const ClientOwned nine = value_of("integer", "9");
  EXPECT_EQ(first_text("a"), "1");
  ASSERT_EQ(override_value("a", two.get(), nine.get()), 1);
  EXPECT_EQ(next_text("a"), "9");
  EXPECT_EQ(next_text("a"), "3");
}

// ---- What is handed out -----------------------------------------------------------------------------------

TEST_F(ReadAttribute, ATypedValueIsACopy) {
  decode_scan("integer a = 1;");
  jt_value *const value = first_value("a");
  const int32_t other = 99;
  std::memcpy(static_cast<void *>(value), &other, sizeof(other));
  EXPECT_EQ(first_text("a"), "1");
  ASSERT_EQ(delete_attribute("a"), 1);
  EXPECT_EQ(taken("integer", value), 99);
}

TEST_F(ReadAttribute, ATextIsACopy) {
  decode_scan("string a = abc;");
  char *const text = jt_get_first_attribute_value_string(space, job, "Scan", "a");
  text[0] = 'x';
  EXPECT_EQ(first_text("a"), "abc");
  ASSERT_EQ(delete_attribute("a"), 1);
  EXPECT_STREQ(text, "xbc");
  EXPECT_EQ(jt_destroy_value_string(space, text), 1);
}

TEST_F(ReadAttribute, ATextIsNeitherQuotedNorEscaped) {
  decode_scan("string a = \"x \\\"y\\\"\\n\", \"\", plain;");
  EXPECT_EQ(values("a"), (Texts{"x \"y\"\n", "", "plain"}));
  EXPECT_TRUE(quiet());
}

TEST_F(ReadAttribute, AnUnknownEnumeratedNameIsReadWithAReportEachTime) {
  decode_scan("enum_mediasize a = FOO, AUTO;");
  EXPECT_EQ(first_text("a"), "FOO");
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: Unknown enumerated value ..."}));
  EXPECT_EQ(next_text("a"), "AUTO");
  EXPECT_TRUE(quiet());
  EXPECT_EQ(taken("enum_mediasize", first_value("a")), -1);
  EXPECT_TRUE(quiet());
}

// ---- Reads that fail --------------------------------------------------------------------------------------

TEST_F(ReadAttribute, WithoutValuesAllFourGiveNothing) {
  decode_scan("integer a; enum_mediasize b = ; service c;");
  for (const char *const name : {"a", "b", "c"}) {
    EXPECT_EQ(first_value(name), nullptr);
    EXPECT_EQ(next_value(name), nullptr);
    EXPECT_EQ(first_text(name), "(none)");
    EXPECT_EQ(next_text(name), "(none)");
  }
  EXPECT_TRUE(quiet());
}

TEST_F(ReadAttribute, AnUnknownTypeWithoutValuesGivesNothing) {
  decode_scan("");
  add_unknown({});
  EXPECT_EQ(first_value("u"), nullptr);
  EXPECT_EQ(next_value("u"), nullptr);
  EXPECT_EQ(first_text("u"), "(none)");
  EXPECT_EQ(next_text("u"), "(none)");
  EXPECT_TRUE(quiet());
}

TEST_F(ReadAttribute, AnUnknownTypeIsReadAsTextOnly) {
  decode_scan("");
  add_unknown({"One", "two words"});
  EXPECT_EQ(values("u"), (Texts{"One", "two words"}));
  EXPECT_TRUE(quiet());
  EXPECT_EQ(first_value("u"), nullptr);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: unknown data typeEnum_New ..."}));
}

TEST_F(ReadAttribute, TheFirstTypedReadOfAnUnknownTypeMovesToTheSecondValue) {
  decode_scan("");
  add_unknown({"a", "b", "c"});
  EXPECT_EQ(first_value("u"), nullptr);
  EXPECT_EQ(next_text("u"), "b");
}

TEST_F(ReadAttribute, TheNextTypedReadOfAnUnknownTypeStays) {
  decode_scan("");
  add_unknown({"a", "b"});
  EXPECT_EQ(next_value("u"), nullptr);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: unknown data typeEnum_New ..."}));
  EXPECT_EQ(next_value("u"), nullptr);
  EXPECT_EQ(next_text("u"), "a");
  EXPECT_EQ(next_text("u"), "b");
  forget();
  EXPECT_EQ(next_value("u"), nullptr);
  EXPECT_TRUE(quiet());
}

TEST_F(ReadAttribute, AnUnknownTypeWithoutANameIsReportedAsNull) {
  decode_scan("");
  ASSERT_EQ(add_attribute(nullptr, "u"), 1);
  ASSERT_EQ(add_text("u", "a"), 1);
  forget();
  EXPECT_EQ(next_value("u"), nullptr);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: unknown data type(null) ..."}));
  EXPECT_EQ(next_text("u"), "a");
}

TEST_F(ReadAttribute, AFirstValueWithoutATextHoldsTheCursor) {
  decode_scan("enum_mediasize a;");
  ASSERT_EQ(add_value("a", as_value(999U)), 1);
  ASSERT_EQ(add_text("a", "AUTO"), 1);
  forget();
  EXPECT_EQ(first_text("a"), "(none)");
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: Unknown enumerated value ..."}));
  EXPECT_EQ(taken("enum_mediasize", next_value("a")), 999);
  EXPECT_EQ(next_text("a"), "AUTO");
}

TEST_F(ReadAttribute, ANextValueWithoutATextIsPassed) {
  decode_scan("enum_mediasize a = AUTO;");
  ASSERT_EQ(add_value("a", as_value(999U)), 1);
  ASSERT_EQ(add_text("a", "MIXED"), 1);
  forget();
  EXPECT_EQ(first_text("a"), "AUTO");
  EXPECT_EQ(next_text("a"), "(none)");
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: Unknown enumerated value ..."}));
  EXPECT_EQ(next_text("a"), "MIXED");
}

TEST_F(ReadAttribute, AStructureOfAnUnnamedUnitIsReportedTwice) {
  decode_scan("struct_gutter a;");
  const int32_t gutter[] = {1, 2, 99};
  ASSERT_EQ(add_value("a", as_value(gutter)), 1);
  EXPECT_EQ(first_text("a"), "(none)");
  EXPECT_TRUE(reports(JT_MEMORY_ERROR, {"CALL ERROR: Unknown enumerated value ...",
                                        "MEMORY ERROR: Invalid value, cannot be encoded ..."}));
  EXPECT_EQ(taken("struct_gutter", first_value("a")), 1);
}

// ---- Existence, types, stars ------------------------------------------------------------------------------

TEST_F(ReadAttribute, ExistenceIsThatOfAName) {
  decode_scan("integer a; integer b;");
  EXPECT_EQ(jt_exists_attribute(space, job, "Scan", "A"), 1);
  EXPECT_EQ(jt_exists_attribute(space, job, "sCAN", "b"), 1);
  for (const char *const name : {"c", "", "a ", "integer", static_cast<const char *>(nullptr)}) {
    EXPECT_EQ(jt_exists_attribute(space, job, "Scan", name), 0);
  }
  EXPECT_TRUE(quiet());
}

TEST_F(ReadAttribute, AnUnnamedAttributeIsNotFoundByAnEmptyName) {
  decode_scan("");
  ASSERT_EQ(add_attribute("integer", ""), 1);
  EXPECT_EQ(jt_exists_attribute(space, job, "Scan", ""), 0);
  EXPECT_EQ(known(""), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: does not exist: ..."}));
}

TEST_F(ReadAttribute, AKnownTypeIsNamedAsItsTableSpellsIt) {
  decode_scan("INTEGER a; Enum_MediaSize b; STRUCT_gutter c; KMT_SVC_SCAN d; Service e;");
  EXPECT_EQ(type_name("a"), "integer");
  EXPECT_EQ(type_name("b"), "enum_mediasize");
  EXPECT_EQ(type_name("c"), "struct_gutter");
  EXPECT_EQ(type_name("d"), "kmt_svc_scan");
  EXPECT_EQ(type_name("e"), "service");
  for (const char *const name : {"a", "b", "c", "d", "e"}) EXPECT_EQ(known(name), 1);
  EXPECT_TRUE(quiet());
}

TEST_F(ReadAttribute, AnUnknownTypeIsNamedAsItWasGiven) {
  decode_scan("");
  add_unknown({});
  EXPECT_EQ(type_name("u"), "Enum_New");
  EXPECT_EQ(known("u"), 0);
  EXPECT_TRUE(quiet());
}

TEST_F(ReadAttribute, AnEmptyTypeNameIsAnUnknownType) {
  decode_scan("");
  ASSERT_EQ(add_attribute("", "u"), 1);
  EXPECT_TRUE(
      reports(JT_WARNING, {"WARNING: unknown attribute type: ...", "WARNING: unknown attribute type: ..."}));
  EXPECT_EQ(known("u"), 0);
  EXPECT_EQ(type_name("u"), "");
  EXPECT_TRUE(quiet());
}

TEST_F(ReadAttribute, ANullTypeNameLeavesNone) {
  decode_scan("");
  ASSERT_EQ(add_attribute(nullptr, "u"), 1);
  EXPECT_TRUE(reports(JT_WARNING, {"WARNING: unknown attribute type:(null) ...",
                                   "WARNING: unknown attribute type:(null) ..."}));
  EXPECT_EQ(type_name("u"), "(none)");
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: no type name ..."}));
  EXPECT_EQ(known("u"), 0);
  EXPECT_TRUE(quiet());
}

TEST_F(ReadAttribute, ATypeNameIsACopy) {
  decode_scan("integer a;");
  char *const name = jt_get_attribute_type_name(space, job, "Scan", "a");
  name[0] = 'x';
  EXPECT_EQ(jt_destroy_name(space, name), 1);
  EXPECT_EQ(type_name("a"), "integer");
}

TEST_F(ReadAttribute, AStarIsNonCompulsory) {
  decode_scan("integer a; * integer b; *integer c = 1;");
  EXPECT_EQ(starred("a"), 0);
  EXPECT_EQ(starred("b"), 1);
  EXPECT_EQ(starred("c"), 1);
  EXPECT_TRUE(quiet());
}

}  // namespace
}  // namespace jt_test
