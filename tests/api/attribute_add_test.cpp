// Attributes as they come and go: their order, names that are taken, reports that come more than once, stars,
// and what a deleted one leaves behind.
#include <gtest/gtest.h>

#include <string>

#include "support/job.h"

namespace jt_test {
namespace {

class ChangeAttributes : public JobTest {
 protected:
  ChangeAttributes() { decode_scan("integer a = 1; string b = x;"); }

  int32_t set_star(const char *name) { return jt_set_attribute_non_compulsory(space, job, "Scan", name); }
  int32_t clear_star(const char *name) { return jt_set_attribute_compulsory(space, job, "Scan", name); }
};

constexpr char kBoth[] = "      integer a = 1;\n      string b = \"x\";\n";

// ---- Adding -----------------------------------------------------------------------------------------------

TEST_F(ChangeAttributes, ANewOneStandsAtTheEndWithoutAStarAndValues) {
  EXPECT_EQ(add_attribute("enum_colormode", "c"), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(jt_is_attribute_non_compulsory(space, job, "Scan", "c"), 0);
  EXPECT_EQ(jt_get_attribute_status(space, job, "Scan", "c"), nullptr);
  EXPECT_EQ(values("c"), Texts{});
  EXPECT_EQ(encoded(), scan_with(std::string(kBoth) + "      enum_colormode c = ;\n"));
}

TEST_F(ChangeAttributes, TheNamesThatAreGivenAreCopied) {
  std::string type = "Enum_Future";
  std::string name = "new";
  EXPECT_EQ(add_attribute(type.data(), name.data()), 1);
  type.assign(type.size(), '#');
  name.assign(name.size(), '#');
  EXPECT_EQ(encoded(), scan_with(std::string(kBoth) + "      Enum_Future new = ;\n"));
}

TEST_F(ChangeAttributes, ATakenNameIsRefusedInAnyLetterCaseAndLeavesTheFirstAlone) {
  EXPECT_EQ(add_attribute("integer", "a"), 0);
  EXPECT_TRUE(reports(JT_SYNTAX_ERROR, {"SYNTAX ERROR: Trying to save multiple definitions for:a ..."}));
  EXPECT_EQ(add_attribute("real", "B"), 0);
  EXPECT_TRUE(reports(JT_SYNTAX_ERROR, {"SYNTAX ERROR: Trying to save multiple definitions for:B ..."}));
  EXPECT_EQ(encoded(), scan_with(kBoth));
}

TEST_F(ChangeAttributes, ATakenNameOfAnUnknownTypeIsReportedBehindBothWarnings) {
  EXPECT_EQ(add_attribute("future", "a"), 0);
  EXPECT_TRUE(reports(JT_SYNTAX_ERROR, {"WARNING: unknown attribute type:future ...",
                                        "WARNING: unknown attribute type:future ...",
                                        "SYNTAX ERROR: Trying to save multiple definitions for:a ..."}));
  EXPECT_EQ(encoded(), scan_with(kBoth));
}

TEST_F(ChangeAttributes, ARefusedOneLeavesNoNodeBehind) {
  const int before = live_nodes(space);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(add_attribute("future", "A"), 0);
  EXPECT_EQ(live_nodes(space), before);
}

TEST_F(ChangeAttributes, TheSameNameIsFreeInAnotherInvocation) {
  ASSERT_EQ(jt_add_invocation(space, job, "Scan"), 1);
  EXPECT_EQ(add_attribute("real", "a"), 1);
  EXPECT_TRUE(quiet());
}

TEST_F(ChangeAttributes, AnUnnamedOneIsWrittenWithoutAName) {
  EXPECT_EQ(add_attribute("integer", nullptr), 1);
  EXPECT_EQ(add_attribute("integer", ""), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(encoded(), scan_with(std::string(kBoth) + "      integer  = ;\n      integer  = ;\n"));
}

TEST_F(ChangeAttributes, AnUnknownTypeIsWrittenAndRefusedWhenItIsReadAgain) {
  ASSERT_EQ(add_attribute("future", "c"), 1);
  ASSERT_EQ(add_text("c", "x y"), 1);
  const std::string text = encoded();
  EXPECT_EQ(text, scan_with(std::string(kBoth) + "      future c = x\\ y;\n"));
  forget();
  EXPECT_EQ(jt_decode_template(space, text.c_str()), 0);
  EXPECT_EQ(status(), JT_SYNTAX_ERROR);
}

TEST_F(ChangeAttributes, AnInvocationOfAnUnknownServiceUsesTheBaseTypes) {
  decode("[ service MyOwn ] { integer a = 1; } end");
  EXPECT_EQ(jt_add_attribute(space, job, "MyOwn", "enum_units", "b"), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(jt_add_attribute(space, job, "MyOwn", "struct_gutter", "c"), 1);
  EXPECT_TRUE(reports(JT_WARNING, {"WARNING: unknown attribute type:struct_gutter ...",
                                   "WARNING: unknown attribute type:struct_gutter ..."}));
}

// ---- Deleting ---------------------------------------------------------------------------------------------

TEST_F(ChangeAttributes, ADeletedOneIsGoneWithItsValues) {
  const int before = live_nodes(space);
  EXPECT_EQ(delete_attribute("A"), 1);
  EXPECT_EQ(jt_exists_attribute(space, job, "Scan", "a"), 0);
  EXPECT_EQ(encoded(), scan_with("      string b = \"x\";\n"));
  EXPECT_EQ(live_nodes(space), before - 2);
  forget();
  EXPECT_EQ(delete_attribute("a"), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: does not exist:a ..."}));
}

TEST_F(ChangeAttributes, TheNameOfADeletedOneIsFreeForAnotherType) {
  EXPECT_EQ(delete_attribute("a"), 1);
  EXPECT_EQ(add_attribute("real", "a"), 1);
  EXPECT_EQ(add_text("a", "1"), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(encoded(), scan_with("      string b = \"x\";\n      real a = 1.000000;\n"));
}

TEST_F(ChangeAttributes, AllMayBeDeleted) {
  EXPECT_EQ(delete_attribute("b"), 1);
  EXPECT_EQ(delete_attribute("a"), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(encoded(), scan_with(""));
}

TEST_F(ChangeAttributes, ADeletedOneTakesItsStatusAndItsOverriddenTextAlong) {
  decode_scan("* integer a = 1; (KMT_STATUS_OVERRIDDEN{9})");
  EXPECT_EQ(delete_attribute("a"), 1);
  EXPECT_EQ(add_attribute("integer", "a"), 1);
  EXPECT_EQ(encoded(), scan_with("      integer a = ;\n"));
}

// ---- Deleting values --------------------------------------------------------------------------------------

TEST_F(ChangeAttributes, WhereThereAreNoValuesNoneIsDeleted) {
  const ClientOwned one = value_of("integer", "1");
  ASSERT_EQ(delete_text("a", "1"), 1);
  forget();
  EXPECT_EQ(delete_text("a", "1"), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR:there is no such value ..."}));
  EXPECT_EQ(delete_value("a", one.get()), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR:there is no such value ..."}));
  EXPECT_EQ(encoded(), scan_with("      integer a = ;\n      string b = \"x\";\n"));
}

TEST_F(ChangeAttributes, AnEmptyStringIsAValueThatMayBeDeleted) {
  ASSERT_EQ(add_text("b", ""), 1);
  EXPECT_EQ(encoded(), scan_with("      integer a = 1;\n      string b = \"x\", \"\";\n"));
  EXPECT_EQ(delete_text("b", ""), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(encoded(), scan_with(kBoth));
}

TEST_F(ChangeAttributes, AValueThatWasReadMayBeDeletedByItself) {
  const ClientOwned value(jt_get_first_attribute_value(space, job, "Scan", "a"),
                          DestroyValue{space, "integer", "kmt_svc_scan"});
  EXPECT_EQ(delete_value("a", value.get()), 1);
  EXPECT_EQ(values("a"), Texts{});
}

TEST_F(ChangeAttributes, ANullIsRefusedBeforeTheTemplateIsLookedAt) {
  const Messages null_value = {"CALL ERROR: value is a NULL pointer ..."};
  EXPECT_EQ(jt_add_attribute_value_string(space, 0, "nosuch", "nosuch", nullptr), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, null_value));
  EXPECT_EQ(jt_set_attribute_value_string(space, 0, "nosuch", "nosuch", nullptr), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, null_value));
  EXPECT_EQ(jt_delete_attribute_value_string(space, 0, "nosuch", "nosuch", nullptr), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, null_value));
  EXPECT_EQ(jt_add_attribute_value(space, 0, "nosuch", "nosuch", nullptr), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, null_value));
  EXPECT_EQ(jt_set_attribute_value(space, 0, "nosuch", "nosuch", nullptr), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, null_value));
  EXPECT_EQ(jt_delete_attribute_value(space, 0, "nosuch", "nosuch", nullptr), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, null_value));
}

TEST_F(ChangeAttributes, ANullIsRefusedWhereTheAttributeExistsToo) {
  const Messages null_value = {"CALL ERROR: value is a NULL pointer ..."};
  EXPECT_EQ(add_text("a", nullptr) + set_text("b", nullptr) + delete_text("a", nullptr), 0);
  EXPECT_EQ(add_value("a", nullptr) + set_value("b", nullptr) + delete_value("a", nullptr), 0);
  EXPECT_EQ(messages(), Messages(5, null_value[0]));
  EXPECT_EQ(encoded(), scan_with(kBoth));
}

// ---- Stars ------------------------------------------------------------------------------------------------

TEST_F(ChangeAttributes, AStarIsSetAndClearedAsOftenAsOneLikes) {
  EXPECT_EQ(set_star("A"), 1);
  EXPECT_EQ(set_star("a"), 1);
  EXPECT_EQ(jt_is_attribute_non_compulsory(space, job, "Scan", "a"), 1);
  EXPECT_EQ(encoded(), scan_with("    * integer a = 1;\n      string b = \"x\";\n"));
  EXPECT_EQ(clear_star("a"), 1);
  EXPECT_EQ(clear_star("a"), 1);
  EXPECT_EQ(jt_is_attribute_non_compulsory(space, job, "Scan", "a"), 0);
  EXPECT_EQ(encoded(), scan_with(kBoth));
  EXPECT_TRUE(quiet());
}

TEST_F(ChangeAttributes, AStarDoesNotComeByAValueOrAStatus) {
  ASSERT_EQ(set_star("a"), 1);
  ASSERT_EQ(set_text("a", "2"), 1);
  ASSERT_EQ(jt_set_attribute_status(space, job, "Scan", "a", as_status(5U)), 1);
  EXPECT_EQ(encoded(), scan_with("    * integer a = 2;(KMT_STATUS_COMPLETED)\n      string b = \"x\";\n"));
  ASSERT_EQ(clear_star("a"), 1);
  EXPECT_EQ(encoded(), scan_with("      integer a = 2;(KMT_STATUS_COMPLETED)\n      string b = \"x\";\n"));
}

}  // namespace
}  // namespace jt_test
