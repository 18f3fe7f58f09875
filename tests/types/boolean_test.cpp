// "boolean": two words, read in any case and written in capitals.
#include <gtest/gtest.h>

#include "types/value_cases.h"

namespace jt_test {
namespace {

class BooleanTest : public TypeTest {
 protected:
  BooleanTest() : TypeTest("", "boolean") {}
};

using AcceptedBoolean = Each<BooleanTest, Reading>;

TEST_P(AcceptedBoolean, IsReadAndWritten) { expect_read(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Every, AcceptedBoolean,
                         ::testing::Values(Reading{"LowerTrue", "true", {1}, "TRUE"},
                                           Reading{"UpperTrue", "TRUE", {1}, "TRUE"},
                                           Reading{"MixedTrue", "TrUe", {1}, "TRUE"},
                                           Reading{"LowerFalse", "false", {0}, "FALSE"},
                                           Reading{"UpperFalse", "FALSE", {0}, "FALSE"},
                                           Reading{"MixedFalse", "fAlSe", {0}, "FALSE"}),
                         case_name<Reading>);

using RefusedBoolean = Each<BooleanTest, Refusal>;

TEST_P(RefusedBoolean, IsReported) { expect_refused(GetParam()); }

Refusal refused(const char *name, const std::string &text) {
  return {name, text, {bad_value("boolean", text)}};
}

INSTANTIATE_TEST_SUITE_P(Every, RefusedBoolean,
                         ::testing::Values(refused("One", "1"), refused("Zero", "0"), refused("Yes", "yes"),
                                           refused("TooShort", "tru"), refused("TooLong", "truee"),
                                           refused("FalseTooShort", "fals"),
                                           refused("FalseTooLong", "falsey"), refused("BlankBefore", " true"),
                                           refused("BlankBehind", "false ")),
                         case_name<Refusal>);

TEST_F(BooleanTest, TheReportNamesTheTypeAndShowsTheText) {
  EXPECT_EQ(evaluated("yes"), nullptr);
  EXPECT_EQ(messages(), Messages({"SYNTAX ERROR: trying to evaluate the following value string as -- boolean "
                                  "--:\n\nyes ..."}));
  EXPECT_EQ(status(), JT_SYNTAX_ERROR);
}

TEST_F(BooleanTest, EveryNumberButZeroIsWrittenAsTrue) {
  EXPECT_EQ(written(ClientValue{2}.get()), "TRUE");
  EXPECT_EQ(written(ClientValue{-1}.get()), "TRUE");
  EXPECT_EQ(written(ClientValue{256}.get()), "TRUE");
  EXPECT_EQ(written(ClientValue{0}.get()), "FALSE");
}

TEST_F(BooleanTest, ACopyHasTheSameNumber) {
  const OwnedValue copy = copied(ClientValue{256}.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(fields_of(copy.get(), 1), Fields({256}));
}

using ComparedBooleans = Each<BooleanTest, Comparison>;

TEST_P(ComparedBooleans, FalseIsSmaller) { expect_compared(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Every, ComparedBooleans,
                         ::testing::Values(Comparison{"BothTrue", "true", "TRUE", 0},
                                           Comparison{"BothFalse", "false", "False", 0},
                                           Comparison{"FalseAndTrue", "false", "true", -1}),
                         case_name<Comparison>);

TEST_F(BooleanTest, StoredNumbersCompareWithTheirSign) {
  EXPECT_EQ(compared(ClientValue{1}, ClientValue{2}), -1);
  EXPECT_EQ(compared(ClientValue{-1}, ClientValue{1}), -1);
  EXPECT_EQ(compared(ClientValue{0}, ClientValue{-1}), 1);
}

}  // namespace
}  // namespace jt_test
