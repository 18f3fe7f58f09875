// Overriding values: what must hold before, in which order it is asked, what is replaced, and which text and
// status remain.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support/job.h"

namespace jt_test {
namespace {

class OverrideValue : public JobTest {
 protected:
  void SetUp() override { decode_scan("* integer a = 1, 2, 1;"); }

  // The status number of an attribute; 0 for none.
  uint32_t status_of(const char *name) {
    jt_status *const found = jt_get_attribute_status(space, job, "Scan", name);
    if (found == nullptr) return 0;
    uint32_t number = 0;
    std::memcpy(&number, static_cast<const void *>(found), sizeof(number));
    EXPECT_EQ(jt_destroy_status(space, found), 1);
    return number;
  }

  const ClientOwned one = value_of("integer", "1");
  const ClientOwned two = value_of("integer", "2");
  const ClientOwned five = value_of("integer", "5");
  const ClientOwned nine = value_of("integer", "9");
};

// ---- What is replaced -------------------------------------------------------------------------------------

TEST_F(OverrideValue, ReplacesTheFirstThatIsEqualInItsPlace) {
  EXPECT_EQ(override_value("a", one.get(), nine.get()), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(values("a"), (Texts{"9", "2", "1"}));
  EXPECT_EQ(status_of("a"), 6U);
  EXPECT_EQ(encoded(), scan_with("    * integer a = 9, 2, 1;(KMT_STATUS_OVERRIDDEN{1})\n"));
}

TEST_F(OverrideValue, KeepsTheTextOfTheLastOneOnly) {
  EXPECT_EQ(override_value("a", one.get(), nine.get()), 1);
  EXPECT_EQ(override_value("a", two.get(), five.get()), 1);
  EXPECT_EQ(encoded(), scan_with("    * integer a = 9, 5, 1;(KMT_STATUS_OVERRIDDEN{2})\n"));
  EXPECT_EQ(override_value("a", nine.get(), two.get()), 1);
  EXPECT_EQ(encoded(), scan_with("    * integer a = 2, 5, 1;(KMT_STATUS_OVERRIDDEN{9})\n"));
  EXPECT_TRUE(quiet());
}

TEST_F(OverrideValue, MayReplaceAValueByItself) {
  EXPECT_EQ(override_value("a", two.get(), two.get()), 1);
  EXPECT_EQ(encoded(), scan_with("    * integer a = 1, 2, 1;(KMT_STATUS_OVERRIDDEN{2})\n"));
}

TEST_F(OverrideValue, KeepsACopyOfTheNewValue) {
  {
    const ClientOwned seven = value_of("integer", "7");
    ASSERT_EQ(override_value("a", two.get(), seven.get()), 1);
  }
  EXPECT_EQ(values("a"), (Texts{"1", "7", "1"}));
}

TEST_F(OverrideValue, TheNewValueIsFoundAndTheOldOneIsNot) {
  ASSERT_EQ(override_value("a", two.get(), nine.get()), 1);
  EXPECT_EQ(delete_value("a", two.get()), 0);
  EXPECT_EQ(delete_value("a", nine.get()), 1);
  EXPECT_EQ(values("a"), (Texts{"1", "1"}));
}

TEST_F(OverrideValue, ReplacesAmongManyAsAmongFew) {
  for (int i = 100; i < 200; ++i) ASSERT_EQ(add_text("a", std::to_string(i).c_str()), 1);
  const ClientOwned value = value_of("integer", "150");
  EXPECT_EQ(override_value("a", value.get(), two.get()), 1);
  EXPECT_EQ(override_value("a", value.get(), two.get()), 0);
  ASSERT_EQ(delete_value("a", two.get()), 1);
  ASSERT_EQ(delete_value("a", two.get()), 1);
  EXPECT_EQ(delete_value("a", two.get()), 0);
  EXPECT_EQ(values("a").size(), 101U);
}

TEST_F(OverrideValue, MakesTheFirstOfEqualsOfWhicheverStandsFirst) {
  for (int i = 100; i < 200; ++i) ASSERT_EQ(add_text("a", std::to_string(i).c_str()), 1);
  const ClientOwned value = value_of("integer", "150");
  const ClientOwned later = value_of("integer", "180");
  ASSERT_EQ(override_value("a", later.get(), value.get()), 1);
  ASSERT_EQ(override_value("a", two.get(), value.get()), 1);
  ASSERT_EQ(override_value("a", value.get(), five.get()), 1);
  EXPECT_EQ(values("a")[1], "5");
  ASSERT_EQ(override_value("a", value.get(), five.get()), 1);
  EXPECT_EQ(values("a")[53], "5");
  ASSERT_EQ(override_value("a", value.get(), five.get()), 1);
  EXPECT_EQ(values("a")[83], "5");
  EXPECT_EQ(override_value("a", value.get(), five.get()), 0);
}

TEST_F(OverrideValue, MayReplaceEachOfManyOverAndOver) {
  constexpr uint32_t kCount = 200;
  ASSERT_EQ(jt_set_attribute_value(space, job, "Scan", "a", as_value(0U)), 1);
  for (uint32_t i = 1; i < kCount; ++i) ASSERT_EQ(add_value("a", as_value(i)), 1);
  for (uint32_t from = 0; from < 5 * kCount; ++from) {
    ASSERT_EQ(override_value("a", as_value(from), as_value(from + kCount)), 1) << from;
    ASSERT_EQ(delete_value("a", as_value(from)), 0) << from;
  }
  for (uint32_t i = 5 * kCount; i < 6 * kCount; ++i) ASSERT_EQ(delete_value("a", as_value(i)), 1) << i;
  for (uint32_t i = 0; i < 6 * kCount; ++i) ASSERT_EQ(delete_value("a", as_value(i)), 0) << i;
  EXPECT_EQ(values("a"), Texts{});
}

TEST_F(OverrideValue, TouchesNoOtherAttribute) {
  decode_scan("* integer a = 1; * integer b = 1; (KMT_STATUS_ERROR{why})");
  EXPECT_EQ(override_value("a", one.get(), two.get()), 1);
  EXPECT_EQ(encoded(), scan_with("    * integer a = 2;(KMT_STATUS_OVERRIDDEN{1})\n"
                                 "    * integer b = 1;(KMT_STATUS_ERROR{why})\n"));
}

// ---- What remains of the old one --------------------------------------------------------------------------

TEST_F(OverrideValue, ReplacesTheStatusAndTheTextThatWereRead) {
  decode_scan("* integer a = 1; (NEW_STATUS{\"some text\"})");
  EXPECT_EQ(override_value("a", one.get(), two.get()), 1);
  EXPECT_EQ(status_of("a"), 6U);
  EXPECT_EQ(encoded(), scan_with("    * integer a = 2;(KMT_STATUS_OVERRIDDEN{1})\n"));
}

TEST_F(OverrideValue, AStatusThatIsSetLaterKeepsTheText) {
  ASSERT_EQ(override_value("a", two.get(), nine.get()), 1);
  ASSERT_EQ(jt_set_attribute_status(space, job, "Scan", "a", as_status(5U)), 1);
  EXPECT_EQ(encoded(), scan_with("    * integer a = 1, 9, 1;(KMT_STATUS_COMPLETED{2})\n"));
}

TEST_F(OverrideValue, AValueThatIsSetLaterKeepsStatusAndText) {
  ASSERT_EQ(override_value("a", two.get(), nine.get()), 1);
  ASSERT_EQ(set_text("a", "3"), 1);
  EXPECT_EQ(encoded(), scan_with("    * integer a = 3;(KMT_STATUS_OVERRIDDEN{2})\n"));
}

TEST_F(OverrideValue, TheTextIsWrittenAsItIs) {
  decode_scan("* string s = \"a \\\"b\\\"\";");
  const ClientOwned old_value = value_of("string", "A \"B\"");
  const ClientOwned new_value = value_of("string", "new");
  EXPECT_EQ(override_value("s", old_value.get(), new_value.get()), 1);
  EXPECT_EQ(encoded(), scan_with("    * string s = \"new\";(KMT_STATUS_OVERRIDDEN{a \"b\"})\n"));
}

TEST_F(OverrideValue, AnEmptyTextLeavesEmptyBraces) {
  decode_scan("* string s = \"\";");
  const ClientOwned old_value = value_of("string", "");
  const ClientOwned new_value = value_of("string", "new");
  EXPECT_EQ(override_value("s", old_value.get(), new_value.get()), 1);
  EXPECT_EQ(encoded(), scan_with("    * string s = \"new\";(KMT_STATUS_OVERRIDDEN{})\n"));
}

TEST_F(OverrideValue, AValueWithoutATextLeavesNoneAlsoOfTheOneBefore) {
  decode_scan("* enum_mediasize s = AUTO;");
  const uint32_t nameless = 999;
  const uint32_t automatic = 1;
  EXPECT_EQ(override_value("s", as_value(automatic), as_value(nameless)), 1);
  EXPECT_TRUE(quiet());
  EXPECT_EQ(override_value("s", as_value(nameless), as_value(automatic)), 1);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: Unknown enumerated value ..."}));
  EXPECT_EQ(encoded(), scan_with("    * enum_mediasize s = AUTO;(KMT_STATUS_OVERRIDDEN)\n"));
}

// ---- What must hold ---------------------------------------------------------------------------------------

TEST_F(OverrideValue, NeedsBothValuesBeforeAnythingElse) {
  const Messages null_value = {"CALL ERROR: value is a NULL pointer ..."};
  EXPECT_EQ(jt_override_attribute_value(space, 0, "nosuch", "nosuch", nullptr, one.get()), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, null_value));
  EXPECT_EQ(jt_override_attribute_value(space, 0, "nosuch", "nosuch", one.get(), nullptr), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, null_value));
  EXPECT_EQ(override_value("a", nullptr, nullptr), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, null_value));
  EXPECT_EQ(encoded(), scan_with("    * integer a = 1, 2, 1;\n"));
}

TEST_F(OverrideValue, NeedsAnAttributeThatIsNotCompulsory) {
  decode_scan("integer Depth = 1;");
  EXPECT_EQ(override_value("dEPTH", one.get(), two.get()), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: it is a compulsory attributedEPTH ..."}));
  EXPECT_EQ(encoded(), scan_with("      integer Depth = 1;\n"));
  ASSERT_EQ(jt_set_attribute_non_compulsory(space, job, "Scan", "depth"), 1);
  EXPECT_EQ(override_value("depth", one.get(), two.get()), 1);
  EXPECT_EQ(status_of("depth"), 6U);
  ASSERT_EQ(jt_set_attribute_compulsory(space, job, "Scan", "depth"), 1);
  forget();
  EXPECT_EQ(override_value("depth", two.get(), one.get()), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: it is a compulsory attributedepth ..."}));
  EXPECT_EQ(encoded(), scan_with("      integer Depth = 2;(KMT_STATUS_OVERRIDDEN{1})\n"));
}

TEST_F(OverrideValue, SaysCompulsoryBeforeItLooksForTheValue) {
  decode_scan("integer a = 1;");
  EXPECT_EQ(override_value("a", nine.get(), two.get()), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: it is a compulsory attributea ..."}));
}

TEST_F(OverrideValue, NeedsAValueThatIsEqual) {
  EXPECT_EQ(override_value("a", nine.get(), five.get()), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR:there is no such value ..."}));
  EXPECT_EQ(status_of("a"), 0U);
  EXPECT_EQ(encoded(), scan_with("    * integer a = 1, 2, 1;\n"));
}

TEST_F(OverrideValue, NeedsAValueAtAll) {
  decode_scan("* integer a;");
  EXPECT_EQ(override_value("a", one.get(), two.get()), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR:there is no such value ..."}));
}

TEST_F(OverrideValue, AFailureKeepsTheStatusAndTheTextOfTheOneBefore) {
  ASSERT_EQ(override_value("a", two.get(), nine.get()), 1);
  EXPECT_EQ(override_value("a", two.get(), five.get()), 0);
  EXPECT_EQ(encoded(), scan_with("    * integer a = 1, 9, 1;(KMT_STATUS_OVERRIDDEN{2})\n"));
}

TEST_F(OverrideValue, SaysUnknownBeforeCompulsory) {
  decode_scan("");
  ASSERT_EQ(add_attribute("future", "a"), 1);
  ASSERT_EQ(add_attribute("service", "b"), 1);
  forget();
  EXPECT_EQ(override_value("a", one.get(), two.get()), 0);
  EXPECT_TRUE(reports(JT_CALL_ERROR, {"CALL ERROR: unknown data type: ..."}));
  EXPECT_EQ(override_value("b", one.get(), two.get()), 0);
  EXPECT_TRUE(reports(JT_SYSTEM_ERROR, {"SYSTEM ERROR: no cmp function for:b ..."}));
}

}  // namespace
}  // namespace jt_test
