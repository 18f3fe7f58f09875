// Value nodes: from a text and from a value, of types that are known, unknown, incomplete or refuse.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "tree/odd_types.h"
#include "tree/tree_session.h"

namespace {

using jt_test::Messages;
using jt_test::odd_calls;
using jt_test::odd_text;

class ValueNode : public jt_test::TreeTest {
 protected:
  ValueNode() { odd_calls = {}; }

  const jt_type *type(const char *name, const char *service = nullptr) {
    return get_type_from_services(space, service, name);
  }
  jt_node *node_of(const char *type_name, const char *text) {
    return create_value_node(space, type(type_name), text);
  }
  std::string written(const jt_node *node) {
    return jt_test::take_text(node->type->deval(space, node->value));
  }
  int32_t number_in(const jt_node *node) {
    int32_t number = 0;
    std::memcpy(&number, node->value, sizeof(number));
    return number;
  }
  // Nothing has been made: the first slot is still free.
  void expect_no_slot_taken() { EXPECT_EQ(make_template()->bookmark, 0); }

  void expect_value_node(const jt_node &node) {
    EXPECT_EQ(node.node_class, 4);
    EXPECT_EQ(node.comment, nullptr);
    EXPECT_EQ(node.name, nullptr);
    EXPECT_EQ(node.status, nullptr);
    EXPECT_EQ(node.overridden_value, nullptr);
    EXPECT_EQ(node.non_compulsory, 0);
    EXPECT_EQ(node.parent, nullptr);
    EXPECT_EQ(node.first_child, nullptr);
    EXPECT_EQ(node.previous_sibling, nullptr);
    EXPECT_EQ(node.next_sibling, nullptr);
    EXPECT_EQ(node.cursor, nullptr);
  }
};

// ---- From a text ----

TEST_F(ValueNode, AKnownTypeEvaluatesTheText) {
  const jt_node *const node = node_of("integer", "42");
  ASSERT_NE(node, nullptr);
  expect_value_node(*node);
  EXPECT_EQ(node->bookmark, 0);
  EXPECT_EQ(node->type, type("integer"));
  EXPECT_EQ(node->pending_value, nullptr);
  EXPECT_EQ(number_in(node), 42);
  EXPECT_EQ(messages(), Messages());
}

struct Written {
  const char *type_name;
  const char *service;
  const char *text;
  const char *written;
};

constexpr Written kWritten[] = {
    {"boolean", "", "true", "TRUE"},
    {"enum_systemidalgorithm", "", "proprietary", "PROPRIETARY"},
    {"enum_units", "", "mm", "MM"},
    {"integer", "", "+007", "7"},
    {"kmt_enum_status", "", "kmt_status_error", "KMT_STATUS_ERROR"},
    {"real", "", "2.5", "2.500000"},
    {"ref_collection", "", "Some Collection", "Some Collection"},
    {"ref_invocation", "", "scan1:copy2", "scan1:copy2"},
    {"string", "", "any text at all", "any text at all"},
    {"string", "", "", ""},
    {"struct_timeofday", "", "09:05", "9:5"},
    {"timestamp", "", "2024/02/29/23/59/58", "2024/02/29/23/59/58"},
};

TEST_F(ValueNode, EveryBaseTypeMakesNodesThatCanBeWritten) {
  for (const Written &row : kWritten) {
    SCOPED_TRACE(row.type_name);
    const jt_node *const node = create_value_node(space, type(row.type_name, row.service), row.text);
    ASSERT_NE(node, nullptr);
    expect_value_node(*node);
    EXPECT_EQ(written(node), row.written);
    EXPECT_EQ(messages(), Messages());
  }
}

TEST_F(ValueNode, LongTextsAreKeptWhole) {
  for (const std::size_t length : {700U, 800U, 850U, 900U, 1000U, 1024U, 1025U, 100000U}) {
    SCOPED_TRACE(length);
    const std::string text(length, 's');
    EXPECT_EQ(written(node_of("string", text.c_str())), text);
    EXPECT_EQ(written(node_of("ref_collection", text.c_str())), text);
    EXPECT_EQ(create_value_node(space, jt_unknown_type(), text.c_str())->pending_value, text);
  }
}

TEST_F(ValueNode, AnUnknownEnumeratedNameIsKeptWithAWarning) {
  const jt_node *const node = node_of("enum_units", "furlong");
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(number_in(node), -1);
  EXPECT_EQ(messages(), Messages{"WARNING: trying to evaluate as an 'enumerated' type:furlong ..."});
}

TEST_F(ValueNode, ARefusedTextMakesNoNode) {
  EXPECT_EQ(node_of("integer", "4x2"), nullptr);
  EXPECT_EQ(
      messages(),
      Messages{"SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\n4x2 ..."});
  EXPECT_EQ(status(), -5);
  expect_no_slot_taken();
}

TEST_F(ValueNode, ATextThatIsRefusedSilentlyMakesNoNode) {
  EXPECT_EQ(node_of("integer", ""), nullptr);
  EXPECT_EQ(node_of("timestamp", "2009-01-01/00/00/00"), nullptr);
  EXPECT_EQ(messages(), Messages());
  expect_no_slot_taken();
}

TEST_F(ValueNode, TheCallersTextIsNotWrittenTo) {
  char timestamp[] = "2024/02/29/23/59/58";
  char reference[] = "scan1:copy2";
  EXPECT_NE(node_of("timestamp", timestamp), nullptr);
  EXPECT_NE(node_of("ref_invocation", reference), nullptr);
  EXPECT_STREQ(timestamp, "2024/02/29/23/59/58");
  EXPECT_STREQ(reference, "scan1:copy2");
}

TEST_F(ValueNode, NothingIsMadeOfNulls) {
  EXPECT_EQ(create_value_node(space, nullptr, "1"), nullptr);
  EXPECT_EQ(create_value_node(space, type("integer"), nullptr), nullptr);
  EXPECT_EQ(create_value_node(space, jt_unknown_type(), nullptr), nullptr);
  EXPECT_EQ(create_value_node(space, nullptr, nullptr), nullptr);
  EXPECT_EQ(create_value_node(nullptr, type("integer"), "1"), nullptr);
  EXPECT_EQ(create_value_node(nullptr, jt_unknown_type(), "1"), nullptr);
  EXPECT_EQ(messages(), Messages());
  expect_no_slot_taken();
}

TEST_F(ValueNode, ABlockTypeMakesNoNodeAndNoReport) {
  for (const char *const name : {"service", "template", "description", "unknown_type"})
    EXPECT_EQ(node_of(name, "1"), nullptr) << name;
  EXPECT_EQ(create_value_node(space, type("kmt_svc_scan", "kmt_svc_scan"), "1"), nullptr);
  EXPECT_EQ(messages(), Messages());
  expect_no_slot_taken();
}

TEST_F(ValueNode, AnUnknownTypeKeepsTheTextPending) {
  char text[] = "as written";
  const jt_node *const node = create_value_node(space, jt_unknown_type(), text);
  ASSERT_NE(node, nullptr);
  expect_value_node(*node);
  text[0] = 'x';
  EXPECT_STREQ(node->pending_value, "as written");
  EXPECT_EQ(node->type, jt_unknown_type());
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(node->value), UINTPTR_MAX);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(ValueNode, AnUnknownTypeKeepsAnEmptyTextToo) {
  EXPECT_STREQ(create_value_node(space, jt_unknown_type(), "")->pending_value, "");
}

TEST_F(ValueNode, AClientsTypeIsCalledWithTheSessionAndACopyOfTheText) {
  const char text[] = "some";
  const jt_node *const node = create_value_node(space, &jt_test::kOdd, text);
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(node->type, &jt_test::kOdd);
  EXPECT_STREQ(odd_text(node->value), "some");
  EXPECT_EQ(odd_calls.space, space);
  EXPECT_STREQ(text, "some");
}

TEST_F(ValueNode, AClientsTypeMayRefuse) {
  EXPECT_EQ(create_value_node(space, &jt_test::kOdd, "refused"), nullptr);
  EXPECT_EQ(create_value_node(space, &jt_test::kOddWithoutEval, "some"), nullptr);
  EXPECT_EQ(messages(), Messages());
  EXPECT_EQ(odd_calls.made, 0);
  expect_no_slot_taken();
}

TEST_F(ValueNode, AClientsValueIsReleasedOnceWithItsNode) {
  jt_node *const node = create_value_node(space, &jt_test::kOdd, "some");
  EXPECT_EQ(destroy_node(space, node), 1);
  EXPECT_EQ(odd_calls.released, 1);
  reopen();
  EXPECT_EQ(odd_calls.released, 1);
}

TEST_F(ValueNode, AClientsValueIsReleasedOnceWithTheSession) {
  for (int i = 0; i < 3; ++i) create_value_node(space, &jt_test::kOdd, "some");
  reopen();
  EXPECT_EQ(odd_calls.released, 3);
}

TEST_F(ValueNode, AClientsTypeNeedsNoKill) {
  jt_node *const node = create_value_node(space, &jt_test::kOddWithoutKill, "some");
  ASSERT_NE(node, nullptr);
  EXPECT_STREQ(odd_text(node->value), "static");
  EXPECT_EQ(destroy_node(space, node), 1);
}

// ---- From a value ----

TEST_F(ValueNode, AValueIsCopied) {
  int32_t number = 42;
  const auto *const value = reinterpret_cast<const jt_value *>(&number);
  const jt_node *const node = create_value_ptr_node(space, type("integer"), value);
  number = 43;
  ASSERT_NE(node, nullptr);
  expect_value_node(*node);
  EXPECT_EQ(node->bookmark, 0);
  EXPECT_EQ(node->type, type("integer"));
  EXPECT_EQ(node->pending_value, nullptr);
  EXPECT_EQ(number_in(node), 42);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(ValueNode, TheCallersValueMayBeDestroyed) {
  for (const Written &row : kWritten) {
    SCOPED_TRACE(row.type_name);
    jt_value *const value = jt_decode_value(space, row.type_name, row.text, row.service);
    const jt_node *const node = create_value_ptr_node(space, type(row.type_name), value);
    jt_destroy_value(space, row.type_name, value, row.service);
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(written(node), row.written);
  }
}

TEST_F(ValueNode, ALongValueIsCopiedWhole) {
  const std::string text(100000, 's');
  const auto *const value = reinterpret_cast<const jt_value *>(text.c_str());
  EXPECT_EQ(written(create_value_ptr_node(space, type("string"), value)), text);
}

TEST_F(ValueNode, TheNodeOutlivesTheNodeItsValueCameFrom) {
  jt_node *const first = node_of("ref_invocation", "scan1:copy2");
  const jt_node *const second = create_value_ptr_node(space, first->type, first->value);
  EXPECT_EQ(destroy_node(space, first), 1);
  EXPECT_EQ(written(second), "scan1:copy2");
}

TEST_F(ValueNode, NoNodeIsMadeOfNullValuesAndTypes) {
  int32_t number = 42;
  const auto *const value = reinterpret_cast<const jt_value *>(&number);
  EXPECT_EQ(create_value_ptr_node(space, nullptr, value), nullptr);
  EXPECT_EQ(create_value_ptr_node(space, jt_unknown_type(), value), nullptr);
  EXPECT_EQ(create_value_ptr_node(space, type("integer"), nullptr), nullptr);
  EXPECT_EQ(create_value_ptr_node(space, type("service"), nullptr), nullptr);
  EXPECT_EQ(create_value_ptr_node(nullptr, type("integer"), value), nullptr);
  EXPECT_EQ(messages(), Messages());
  expect_no_slot_taken();
}

TEST_F(ValueNode, ATypeWithoutCopyIsReported) {
  int32_t number = 42;
  const auto *const value = reinterpret_cast<const jt_value *>(&number);
  EXPECT_EQ(create_value_ptr_node(space, type("service"), value), nullptr);
  EXPECT_EQ(create_value_ptr_node(space, &jt_test::kOddWithoutCopy, value), nullptr);
  EXPECT_EQ(messages(), (Messages{"SYSTEM ERROR: no copy function for:service ...",
                                  "SYSTEM ERROR: no copy function for:odd_without_copy ..."}));
  EXPECT_EQ(status(), -7);
  expect_no_slot_taken();
}

TEST_F(ValueNode, ACopyThatFailsIsReported) {
  char text[] = "uncopyable";
  EXPECT_EQ(create_value_ptr_node(space, &jt_test::kOdd, reinterpret_cast<jt_value *>(text)), nullptr);
  EXPECT_EQ(messages(), Messages{"CALL ERROR: could not copy the value ..."});
  EXPECT_EQ(status(), -4);
  expect_no_slot_taken();
}

TEST_F(ValueNode, AClientsTypeNeedsOnlyCopyForThis) {
  char text[] = "some";
  jt_node *const node =
      create_value_ptr_node(space, &jt_test::kOddWithoutEval, reinterpret_cast<jt_value *>(text));
  ASSERT_NE(node, nullptr);
  EXPECT_STREQ(odd_text(node->value), "some");
  EXPECT_NE(static_cast<const void *>(node->value), text);
  EXPECT_EQ(destroy_node(space, node), 1);
  EXPECT_EQ(odd_calls.made, 1);
  EXPECT_EQ(odd_calls.released, 1);
}

}  // namespace
