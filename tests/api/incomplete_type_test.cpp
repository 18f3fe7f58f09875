// Attributes and values whose type lacks an operation or a name. No type of the tables is like that, so these
// attributes are given one of the test's own.
#include <gtest/gtest.h>

#include <string>

#include "support/job.h"
#include "tree/node.h"

namespace jt_test {
namespace {

class IncompleteType : public JobTest {
 protected:
  IncompleteType() {
    decode_scan("* integer a = 1, 2;");
    attribute = opaque_to_node(space, job)->first_child->first_child->first_child;
  }

  // The type "integer" without one of its operations.
  template <typename Operation>
  static jt_type integer_without(Operation jt_type::*operation) {
    jt_type type = *get_type_from_services(nullptr, nullptr, "integer");
    type.*operation = nullptr;
    return type;
  }

  // The type "integer", but no value of it has a text. That is not reported.
  static jt_type integer_without_texts() {
    jt_type type = *get_type_from_services(nullptr, nullptr, "integer");
    type.deval = [](jt_parser_space *, const jt_value *) -> char * { return nullptr; };
    return type;
  }

  template <typename Operation>
  void expect_no_override(Operation jt_type::*operation) {
    const jt_type type = integer_without(operation);
    attribute->type = &type;
    EXPECT_EQ(override_value("a", as_value(one), as_value(three)), 0);
    EXPECT_TRUE(reports(JT_SYSTEM_ERROR, {"SYSTEM ERROR: no cmp function for:a ..."}));
    EXPECT_EQ(values("a"), (Texts{"1", "2"}));
  }
  template <typename Operation>
  void expect_no_deletion_by_text(Operation jt_type::*operation) {
    const jt_type type = integer_without(operation);
    attribute->type = &type;
    EXPECT_EQ(delete_text("a", "1"), 0);
    EXPECT_TRUE(reports(JT_SYSTEM_ERROR, {"SYSTEM ERROR: no cmp function for:a ..."}));
    EXPECT_EQ(values("a"), (Texts{"1", "2"}));
  }

  const uint32_t one = 1;
  const uint32_t three = 3;
  jt_node *attribute;
};

TEST_F(IncompleteType, OverridesOnlyWithEachOfFourOperations) {
  expect_no_override(&jt_type::cmp);
  expect_no_override(&jt_type::copy);
  expect_no_override(&jt_type::deval);
  expect_no_override(&jt_type::kill);
}

TEST_F(IncompleteType, DeletesByTextOnlyWithEachOfThreeOperations) {
  expect_no_deletion_by_text(&jt_type::eval);
  expect_no_deletion_by_text(&jt_type::cmp);
  expect_no_deletion_by_text(&jt_type::kill);
}

TEST_F(IncompleteType, DeletesATypedValueOnlyWithAComparison) {
  const jt_type type = integer_without(&jt_type::cmp);
  attribute->type = &type;
  EXPECT_EQ(delete_value("a", as_value(one)), 0);
  EXPECT_TRUE(reports(JT_SYSTEM_ERROR, {"SYSTEM ERROR: no cmp function for:a ..."}));
}

TEST_F(IncompleteType, IsWrittenWithoutTheValuesThatItCannotWrite) {
  const jt_type type = integer_without(&jt_type::deval);
  attribute->first_child->type = &type;
  EXPECT_EQ(encoded(), scan_with("    * integer a = 2;\n"));
  EXPECT_TRUE(reports(JT_MEMORY_ERROR, {"MEMORY ERROR: bad value  -- ignored ..."}));
}

// What the history holds says nothing about this call.
TEST_F(IncompleteType, IsWrittenWithoutThemWhateverWasReportedBefore) {
  const jt_type type = integer_without(&jt_type::deval);
  attribute->first_child->type = &type;
  jt_error(space, "MEMORY ERROR: allocation error", "");
  EXPECT_EQ(encoded(), scan_with("    * integer a = 2;\n"));
  EXPECT_TRUE(reports(JT_MEMORY_ERROR,
                      {"MEMORY ERROR: allocation error ...", "MEMORY ERROR: bad value  -- ignored ..."}));
}

TEST_F(IncompleteType, IsWrittenWithoutAValueThatHasNoTextWhateverWasReportedBefore) {
  const jt_type type = integer_without_texts();
  attribute->first_child->type = &type;
  jt_error(space, "MEMORY ERROR: allocation error", "");
  EXPECT_EQ(encoded(), scan_with("    * integer a = 2;\n"));
}

TEST_F(IncompleteType, IsOverriddenWhereItsValueHasNoTextWhateverWasReportedBefore) {
  const jt_type type = integer_without_texts();
  attribute->type = &type;
  jt_error(space, "MEMORY ERROR: allocation error", "");
  EXPECT_EQ(override_value("a", as_value(one), as_value(three)), 1);
  EXPECT_TRUE(reports(JT_OK, {"MEMORY ERROR: allocation error ..."}));
  EXPECT_EQ(values("a"), (Texts{"3", "2"}));
  EXPECT_EQ(encoded(), scan_with("    * integer a = 3, 2;(KMT_STATUS_OVERRIDDEN)\n"));
}

TEST_F(IncompleteType, OfAnAttributeHasNoNameToGive) {
  jt_type type = *attribute->type;
  type.name = nullptr;
  attribute->type = &type;
  EXPECT_EQ(jt_get_attribute_type_name(space, job, "Scan", "a"), nullptr);
  EXPECT_TRUE(reports(JT_SYSTEM_ERROR, {"SYSTEM ERROR:there is no type name ..."}));
}

TEST_F(IncompleteType, OfAServiceHasNoNameToGive) {
  jt_node *const service = opaque_to_node(space, job)->first_child;
  jt_type type = *service->type;
  type.name = nullptr;
  service->type = &type;
  EXPECT_EQ(jt_get_service_type(space, job, "Scan"), nullptr);
  EXPECT_TRUE(reports(JT_SYSTEM_ERROR, {"SYSTEM ERROR:there is no type name ..."}));
}

}  // namespace
}  // namespace jt_test
