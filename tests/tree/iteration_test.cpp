// Walking children: names, values and value texts at the cursor and at the first child, what moves the cursor
// and what does not.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "tree/odd_types.h"
#include "tree/tree_session.h"

namespace {

using jt_test::children_of;
using jt_test::exhaust;
using jt_test::Messages;
using jt_test::odd_text;
using jt_test::take_text;
using jt_test::unstart;

class Iteration : public jt_test::TreeTest {
 protected:
  std::string first_name(jt_node *parent) { return take_text(first_child_name(space, parent)); }
  std::string next_name(jt_node *parent) { return take_text(index_child_name(space, parent)); }
  std::string first_text(jt_node *parent) { return take_text(first_child_value_string(space, parent)); }
  std::string next_text(jt_node *parent) { return take_text(index_child_value_string(space, parent)); }

  // An "integer" as text, released; "(none)" for null.
  static std::string take_number(jt_value *value) {
    if (value == nullptr) return "(none)";
    int32_t number = 0;
    std::memcpy(&number, value, sizeof(number));
    er_free(value);
    return std::to_string(number);
  }
  std::string first_number(jt_node *parent) { return take_number(first_child_value(space, parent)); }
  std::string next_number(jt_node *parent) { return take_number(index_child_value(space, parent)); }

  jt_node *numbers(const std::vector<const char *> &texts) {
    jt_node *const attribute = add_attribute(scan_invocation(), "integer", "copies");
    for (const char *const text : texts) add_value(attribute, text);
    return attribute;
  }
  jt_node *riddles(const std::vector<const char *> &texts) {
    jt_node *const attribute = add_attribute(scan_invocation(), "mystery", "riddle");
    for (const char *const text : texts) add_value(attribute, text);
    forget_messages();
    return attribute;
  }
  // An attribute of a type of the test's own, which no name leads to.
  jt_node *odds(const jt_type &type, const std::vector<const char *> &texts) {
    jt_node *const attribute = add_attribute(scan_invocation(), "integer", "odd");
    attribute->type = &type;
    for (const char *const text : texts) add_value(attribute, text);
    return attribute;
  }
};

// ---- Names ----

TEST_F(Iteration, NamesComeInOrder) {
  jt_node *const parent = parent_of({"one", "two", "three"});
  EXPECT_EQ(first_name(parent), "one");
  EXPECT_EQ(next_name(parent), "two");
  EXPECT_EQ(next_name(parent), "three");
  EXPECT_EQ(next_name(parent), "(none)");
  EXPECT_EQ(next_name(parent), "(none)");
  EXPECT_EQ(first_name(parent), "one");
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Iteration, ANotStartedWalkBeginsAtTheFirstChild) {
  jt_node *const parent = parent_of({"one", "two"});
  unstart(parent);
  EXPECT_EQ(next_name(parent), "one");
  EXPECT_EQ(next_name(parent), "two");
}

TEST_F(Iteration, FirstNameMovesToTheSecondChildFromAnywhere) {
  jt_node *const parent = parent_of({"one", "two", "three"});
  exhaust(space, parent);
  EXPECT_EQ(first_name(parent), "one");
  EXPECT_EQ(parent->cursor, children_of(parent)[1]);
  unstart(parent);
  EXPECT_EQ(first_name(parent), "one");
  EXPECT_EQ(parent->cursor, children_of(parent)[1]);
}

TEST_F(Iteration, FirstNameOfAnOnlyChildExhausts) {
  jt_node *const parent = parent_of({"one"});
  EXPECT_EQ(first_name(parent), "one");
  EXPECT_EQ(parent->cursor, nullptr);
}

TEST_F(Iteration, AChildWithoutANameIsPassed) {
  jt_node *const parent = parent_of({"", "two", "", "four"});
  EXPECT_EQ(first_name(parent), "(none)");
  EXPECT_EQ(next_name(parent), "two");
  EXPECT_EQ(next_name(parent), "(none)");
  EXPECT_EQ(next_name(parent), "four");
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Iteration, ANameIsACopy) {
  jt_node *const parent = parent_of({"one"});
  char *const name = first_child_name(space, parent);
  EXPECT_NE(name, parent->first_child->name);
  name[0] = 'x';
  EXPECT_STREQ(parent->first_child->name, "one");
  EXPECT_EQ(jt_destroy_name(space, name), 1);
}

// ---- Values ----

TEST_F(Iteration, ValuesComeInOrder) {
  jt_node *const parent = numbers({"1", "2", "3"});
  EXPECT_EQ(first_number(parent), "1");
  EXPECT_EQ(next_number(parent), "2");
  EXPECT_EQ(next_number(parent), "3");
  EXPECT_EQ(next_number(parent), "(none)");
  EXPECT_EQ(first_number(parent), "1");
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Iteration, ANotStartedReadOfValuesBeginsAtTheFirst) {
  jt_node *const parent = numbers({"1", "2"});
  unstart(parent);
  EXPECT_EQ(next_number(parent), "1");
  EXPECT_EQ(next_number(parent), "2");
}

TEST_F(Iteration, AValueIsACopy) {
  jt_node *const parent = numbers({"1"});
  jt_value *const value = first_child_value(space, parent);
  EXPECT_NE(value, parent->first_child->value);
  EXPECT_EQ(destroy_node(space, parent), 1);
  EXPECT_EQ(take_number(value), "1");
}

TEST_F(Iteration, AnUntypedValueCannotBeReadAtTheCursor) {
  jt_node *const parent = riddles({"a", "b"});
  for (int i = 0; i < 2; ++i) {
    forget_messages();
    EXPECT_EQ(index_child_value(space, parent), nullptr);
    EXPECT_EQ(messages(), Messages{"CALL ERROR: unknown data typemystery ..."});
    EXPECT_EQ(status(), -4);
    EXPECT_EQ(parent->cursor, parent->first_child);
  }
}

TEST_F(Iteration, AnUntypedFirstValueCannotBeReadButIsPassed) {
  jt_node *const parent = riddles({"a", "b"});
  EXPECT_EQ(first_child_value(space, parent), nullptr);
  EXPECT_EQ(messages(), Messages{"CALL ERROR: unknown data typemystery ..."});
  EXPECT_EQ(parent->cursor, children_of(parent)[1]);
}

TEST_F(Iteration, AReadAtTheCursorAsksForTheTypeOfTheChild) {
  jt_node *const parent = unknown_invocation();
  add_attribute(parent, "integer", "copies");
  forget_messages();
  EXPECT_EQ(index_child_value(space, parent), nullptr);
  EXPECT_EQ(messages(), Messages());
  EXPECT_EQ(parent->cursor, nullptr);
}

TEST_F(Iteration, AReadOfTheFirstAsksForTheTypeOfTheParent) {
  jt_node *const parent = unknown_invocation();
  add_attribute(parent, "integer", "copies");
  forget_messages();
  EXPECT_EQ(first_child_value(space, parent), nullptr);
  EXPECT_EQ(messages(), Messages{"CALL ERROR: unknown data typeMyOwn ..."});
  EXPECT_EQ(status(), -4);
  EXPECT_EQ(parent->cursor, nullptr);
}

TEST_F(Iteration, AnUntypedChildOfATypedParentIsReportedWithWhatTheParentKeeps) {
  jt_node *const parent = scan_invocation();
  add_attribute(parent, "mystery", "riddle");
  add_attribute(parent, "mystery", "riddle2");
  forget_messages();
  EXPECT_EQ(index_child_value(space, parent), nullptr);
  EXPECT_EQ(parent->cursor, parent->first_child);
  EXPECT_EQ(first_child_value(space, parent), nullptr);
  EXPECT_EQ(parent->cursor, parent->last_child);
  EXPECT_EQ(messages(),
            (Messages{"CALL ERROR: unknown data type(null) ...", "CALL ERROR: unknown data type(null) ..."}));
}

TEST_F(Iteration, AChildWithoutCopyIsReportedAndStays) {
  jt_node *const root = make_template();
  add_service(root, "kmt_svc_scan");
  add_service(root, "kmt_svc_print");
  EXPECT_EQ(index_child_value(space, root), nullptr);
  EXPECT_EQ(root->cursor, root->first_child);
  EXPECT_EQ(first_child_value(space, root), nullptr);
  EXPECT_EQ(root->cursor, root->last_child);
  EXPECT_EQ(messages(), (Messages{"SYSTEM ERROR: no copy function for:kmt_svc_scan ...",
                                  "SYSTEM ERROR: no copy function for:kmt_svc_scan ..."}));
  EXPECT_EQ(status(), -7);
}

TEST_F(Iteration, AClientsTypeWithoutCopyIsReportedByItsName) {
  jt_node *const parent = odds(jt_test::kOddWithoutCopy, {"a"});
  EXPECT_EQ(index_child_value(space, parent), nullptr);
  EXPECT_EQ(first_child_value(space, parent), nullptr);
  EXPECT_EQ(messages(), (Messages{"SYSTEM ERROR: no copy function for:odd_without_copy ...",
                                  "SYSTEM ERROR: no copy function for:odd_without_copy ..."}));
}

TEST_F(Iteration, AValueThatCannotBeCopiedIsPassed) {
  jt_node *const parent = odds(jt_test::kOdd, {"uncopyable", "b"});
  EXPECT_EQ(index_child_value(space, parent), nullptr);
  EXPECT_EQ(parent->cursor, parent->last_child);
  EXPECT_EQ(first_child_value(space, parent), nullptr);
  EXPECT_EQ(parent->cursor, parent->last_child);
  jt_value *const value = index_child_value(space, parent);
  EXPECT_STREQ(odd_text(value), "b");
  EXPECT_EQ(er_free(value), 1);
  EXPECT_EQ(messages(), Messages());
}

// ---- Value texts ----

TEST_F(Iteration, ValueTextsComeInOrder) {
  jt_node *const parent = numbers({"1", "+02", "3"});
  EXPECT_EQ(first_text(parent), "1");
  EXPECT_EQ(next_text(parent), "2");
  EXPECT_EQ(next_text(parent), "3");
  EXPECT_EQ(next_text(parent), "(none)");
  EXPECT_EQ(first_text(parent), "1");
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Iteration, ANotStartedReadOfTextsBeginsAtTheFirst) {
  jt_node *const parent = numbers({"1", "2"});
  unstart(parent);
  EXPECT_EQ(next_text(parent), "1");
  EXPECT_EQ(next_text(parent), "2");
}

TEST_F(Iteration, UntypedTextsAreGivenAsWritten) {
  jt_node *const parent = riddles({"a b", "", "c"});
  EXPECT_EQ(first_text(parent), "a b");
  EXPECT_EQ(next_text(parent), "");
  EXPECT_EQ(next_text(parent), "c");
  EXPECT_EQ(next_text(parent), "(none)");
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Iteration, AnUntypedTextIsACopy) {
  jt_node *const parent = riddles({"a"});
  char *const text = first_child_value_string(space, parent);
  EXPECT_NE(text, parent->first_child->pending_value);
  EXPECT_EQ(jt_destroy_value_string(space, text), 1);
}

TEST_F(Iteration, AnUntypedChildWithoutTextStays) {
  jt_node *const parent = scan_invocation();
  add_attribute(parent, "mystery", "riddle");
  forget_messages();
  EXPECT_EQ(next_text(parent), "(none)");
  EXPECT_EQ(parent->cursor, parent->first_child);
  EXPECT_EQ(first_text(parent), "(none)");
  EXPECT_EQ(parent->cursor, parent->first_child);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Iteration, AnUntypedValueThatWasMadeWithoutATextStays) {
  jt_node *const parent = riddles({});
  linked(parent, make(nullptr, nullptr, JT_NODE_VALUE, parent));
  forget_messages();
  EXPECT_EQ(next_text(parent), "(none)");
  EXPECT_EQ(parent->cursor, parent->first_child);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Iteration, AChildWithoutDevalIsReportedAndStays) {
  jt_node *const root = make_template();
  add_service(root, "kmt_svc_scan");
  add_service(root, "kmt_svc_print");
  EXPECT_EQ(next_text(root), "(none)");
  EXPECT_EQ(root->cursor, root->first_child);
  exhaust(space, root);
  EXPECT_EQ(first_text(root), "(none)");
  EXPECT_EQ(root->cursor, root->first_child);
  EXPECT_EQ(messages(), (Messages{"SYSTEM ERROR: no deval function for:kmt_svc_scan ...",
                                  "SYSTEM ERROR: no deval function for:kmt_svc_scan ..."}));
  EXPECT_EQ(status(), -7);
}

TEST_F(Iteration, AClientsTypeWithoutDevalIsReportedByItsName) {
  jt_node *const parent = odds(jt_test::kOddWithoutDeval, {"a"});
  EXPECT_EQ(next_text(parent), "(none)");
  EXPECT_EQ(first_text(parent), "(none)");
  EXPECT_EQ(messages(), (Messages{"SYSTEM ERROR: no deval function for:odd_without_deval ...",
                                  "SYSTEM ERROR: no deval function for:odd_without_deval ..."}));
}

TEST_F(Iteration, AValueWithoutATextIsPassedAtTheCursorAndNotAtTheFirst) {
  jt_node *const parent = odds(jt_test::kOdd, {"unspeakable", "b"});
  EXPECT_EQ(next_text(parent), "(none)");
  EXPECT_EQ(parent->cursor, parent->last_child);
  EXPECT_EQ(first_text(parent), "(none)");
  EXPECT_EQ(parent->cursor, parent->first_child);
  EXPECT_EQ(next_text(parent), "(none)");
  EXPECT_EQ(next_text(parent), "<b>");
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Iteration, AnAttributeHasNoTextOfItsOwn) {
  jt_node *const parent = parent_of({"one", "two"});
  EXPECT_EQ(next_text(parent), "(none)");
  EXPECT_EQ(parent->cursor, parent->last_child);
  EXPECT_EQ(first_text(parent), "(none)");
  EXPECT_EQ(parent->cursor, parent->first_child);
  EXPECT_EQ(messages(), Messages());
}

// ---- Nothing to read ----

TEST_F(Iteration, ANullParentGivesNothing) {
  for (jt_parser_space *const each : {space, static_cast<jt_parser_space *>(nullptr)}) {
    EXPECT_EQ(first_child_name(each, nullptr), nullptr);
    EXPECT_EQ(first_child_value(each, nullptr), nullptr);
    EXPECT_EQ(first_child_value_string(each, nullptr), nullptr);
    EXPECT_EQ(index_child_name(each, nullptr), nullptr);
    EXPECT_EQ(index_child_value(each, nullptr), nullptr);
    EXPECT_EQ(index_child_value_string(each, nullptr), nullptr);
  }
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Iteration, AParentWithoutChildrenGivesNothing) {
  jt_node *const parent = parent_of({});
  EXPECT_EQ(first_name(parent), "(none)");
  EXPECT_EQ(first_number(parent), "(none)");
  EXPECT_EQ(first_text(parent), "(none)");
  EXPECT_EQ(parent->cursor, jt_core::not_started());
  EXPECT_EQ(next_name(parent), "(none)");
  EXPECT_EQ(next_number(parent), "(none)");
  EXPECT_EQ(next_text(parent), "(none)");
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Iteration, AnExhaustedParentGivesNothing) {
  jt_node *const parent = numbers({"1"});
  exhaust(space, parent);
  EXPECT_EQ(next_name(parent), "(none)");
  EXPECT_EQ(next_number(parent), "(none)");
  EXPECT_EQ(next_text(parent), "(none)");
  EXPECT_EQ(parent->cursor, nullptr);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Iteration, AValueNodeHasNothingBelow) {
  jt_node *const value = numbers({"1"})->first_child;
  EXPECT_EQ(next_name(value), "(none)");
  EXPECT_EQ(first_text(value), "(none)");
  EXPECT_EQ(advance_index(space, value), 0);
}

TEST_F(Iteration, ReadsOfAllKindsShareTheCursor) {
  jt_node *const parent = numbers({"1", "2", "3", "4"});
  EXPECT_EQ(first_text(parent), "1");
  EXPECT_EQ(next_number(parent), "2");
  EXPECT_EQ(next_name(parent), "(none)");
  EXPECT_EQ(next_text(parent), "4");
  EXPECT_EQ(next_number(parent), "(none)");
}

// ---- Moving without reading ----

TEST_F(Iteration, AdvanceMovesFromChildToChild) {
  jt_node *const parent = parent_of({"one", "two", "three"});
  EXPECT_EQ(advance_index(space, parent), 1);
  EXPECT_EQ(parent->cursor, children_of(parent)[1]);
  EXPECT_EQ(advance_index(space, parent), 1);
  EXPECT_EQ(parent->cursor, children_of(parent)[2]);
  EXPECT_EQ(advance_index(space, parent), 0);
  EXPECT_EQ(parent->cursor, nullptr);
  EXPECT_EQ(advance_index(space, parent), 0);
  EXPECT_EQ(parent->cursor, nullptr);
}

TEST_F(Iteration, AdvanceStartsAtTheFirstChildAndMovesOn) {
  jt_node *const parent = parent_of({"one", "two"});
  unstart(parent);
  EXPECT_EQ(advance_index(space, parent), 1);
  EXPECT_EQ(parent->cursor, parent->last_child);
}

TEST_F(Iteration, AdvanceWithoutChildrenExhausts) {
  jt_node *const parent = parent_of({});
  EXPECT_EQ(advance_index(space, parent), 0);
  EXPECT_EQ(parent->cursor, nullptr);
}

TEST_F(Iteration, ResetGoesBackToTheFirstChild) {
  jt_node *const parent = parent_of({"one", "two"});
  exhaust(space, parent);
  EXPECT_EQ(reset_index(space, parent), 1);
  EXPECT_EQ(parent->cursor, parent->first_child);
  unstart(parent);
  EXPECT_EQ(reset_index(space, parent), 1);
  EXPECT_EQ(parent->cursor, parent->first_child);
}

TEST_F(Iteration, ResetWithoutChildrenExhausts) {
  jt_node *const parent = parent_of({});
  EXPECT_EQ(reset_index(space, parent), 1);
  EXPECT_EQ(parent->cursor, nullptr);
  EXPECT_EQ(next_name(parent), "(none)");
}

TEST_F(Iteration, MovingWithoutAParentIsReported) {
  EXPECT_EQ(advance_index(space, nullptr), 0);
  EXPECT_EQ(reset_index(space, nullptr), 0);
  EXPECT_EQ(messages(), (Messages{"CALL ERROR: empty pointer ...", "CALL ERROR: empty pointer ..."}));
  EXPECT_EQ(status(), -4);
}

TEST_F(Iteration, MovingWithoutAnythingIsSilent) {
  EXPECT_EQ(advance_index(nullptr, nullptr), 0);
  EXPECT_EQ(reset_index(nullptr, nullptr), 0);
  EXPECT_EQ(messages(), Messages());
}

}  // namespace
