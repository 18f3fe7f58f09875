// Making typed nodes: the fields of a new node, the classes that are accepted, and what happens to names and
// to the names of unknown types.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

#include "tree/tree_session.h"

namespace {

using jt_test::Messages;

class Construction : public jt_test::TreeTest {
 protected:
  void expect_bare(const jt_node &node) {
    EXPECT_EQ(node.comment, nullptr);
    EXPECT_EQ(node.value, nullptr);
    EXPECT_EQ(node.status, nullptr);
    EXPECT_EQ(node.overridden_value, nullptr);
    EXPECT_EQ(node.non_compulsory, 0);
    EXPECT_EQ(node.parent, nullptr);
    EXPECT_EQ(node.first_child, nullptr);
    EXPECT_EQ(node.previous_sibling, nullptr);
    EXPECT_EQ(node.next_sibling, nullptr);
    EXPECT_EQ(node.cursor, jt_core::not_started());
  }
};

TEST_F(Construction, ATemplateNodeHasItsFields) {
  const jt_node *const node = make("template", "MyTemplate", JT_NODE_TEMPLATE, nullptr);
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(node->node_class, 0);
  EXPECT_STREQ(node->name, "MyTemplate");
  EXPECT_STREQ(node->type->name, "template");
  EXPECT_EQ(node->unresolved_type_name, nullptr);
  EXPECT_EQ(node->bookmark, 0);
  expect_bare(*node);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Construction, TheCursorOfANewNodeIsAllOnes) {
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(make_template()->cursor), UINTPTR_MAX);
}

TEST_F(Construction, EveryClassIsMadeUnderItsEnclosingNode) {
  jt_node *const root = make_template();
  jt_node *const service = make("kmt_svc_scan", "kmt_svc_scan", JT_NODE_SERVICE, root);
  jt_node *const invocation = make("kmt_svc_scan", "first", JT_NODE_INVOCATION, service);
  jt_node *const attribute = make("integer", "copies", JT_NODE_ATTRIBUTE, invocation);
  const jt_node *const header = make_header();
  const jt_node *const question = make("sil_header", "header", JT_NODE_HEADER_QUESTION, nullptr);
  const jt_node *const plain = make("sil_header", "header", JT_NODE_HEADER_PLAIN, nullptr);
  const jt_node *const exclaim = make("sil_header", "header", JT_NODE_HEADER_EXCLAIM, nullptr);
  int bookmark = 0;
  for (const jt_node *const node :
       {static_cast<const jt_node *>(root), static_cast<const jt_node *>(service),
        static_cast<const jt_node *>(invocation), static_cast<const jt_node *>(attribute), header, question,
        plain, exclaim}) {
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->bookmark, bookmark++);
    EXPECT_EQ(node->unresolved_type_name, nullptr);
    expect_bare(*node);
  }
  EXPECT_EQ(service->node_class, 1);
  EXPECT_EQ(invocation->node_class, 2);
  EXPECT_EQ(attribute->node_class, 3);
  EXPECT_EQ(header->node_class, 5);
  EXPECT_EQ(question->node_class, 6);
  EXPECT_EQ(plain->node_class, 7);
  EXPECT_EQ(exclaim->node_class, 8);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Construction, ANewNodeIsNotLinkedToItsEnclosingNode) {
  jt_node *const root = make_template();
  const jt_node *const service = make("kmt_svc_scan", "kmt_svc_scan", JT_NODE_SERVICE, root);
  EXPECT_EQ(service->parent, nullptr);
  EXPECT_EQ(root->first_child, nullptr);
  EXPECT_EQ(root->cursor, jt_core::not_started());
}

TEST_F(Construction, ClassNineIsRefusedByTheLookUp) {
  EXPECT_EQ(make("template", "x", 9, nullptr), nullptr);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: unknown or invalid type:template ..."});
  EXPECT_EQ(status(), -5);
}

TEST_F(Construction, ClassNineIsRefusedUnderEveryNode) {
  jt_node *const invocation = scan_invocation();
  EXPECT_EQ(make("integer", "x", 9, invocation), nullptr);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: unknown or invalid type:integer ..."});
}

TEST_F(Construction, ClassesThatDoNotExistAreReported) {
  for (const int32_t node_class :
       {10, 11, 100, -1, -2, std::numeric_limits<int32_t>::max(), std::numeric_limits<int32_t>::min()}) {
    SCOPED_TRACE(node_class);
    reopen();
    EXPECT_EQ(make("template", "x", node_class, nullptr), nullptr);
    EXPECT_EQ(messages(), Messages{"SYSTEM ERROR: Unknown node class ..."});
    EXPECT_EQ(status(), -7);
    EXPECT_EQ(make_template()->bookmark, 0);
  }
}

TEST_F(Construction, ARefusedNodeTakesNoSlot) {
  EXPECT_EQ(make("no_such_type", "x", JT_NODE_TEMPLATE, nullptr), nullptr);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: unknown or invalid type:no_such_type ..."});
  EXPECT_EQ(make_template()->bookmark, 0);
}

TEST_F(Construction, NothingIsMadeWithoutASession) {
  EXPECT_EQ(create_typed_node(nullptr, "template", "template", JT_NODE_TEMPLATE, nullptr), nullptr);
  EXPECT_EQ(create_typed_node(nullptr, "no_such_type", "x", JT_NODE_TEMPLATE, nullptr), nullptr);
  EXPECT_EQ(create_typed_node(nullptr, "template", "x", 10, nullptr), nullptr);
}

// ---- Names ----

TEST_F(Construction, AnEmptyNameIsNoName) {
  EXPECT_EQ(make("template", "", JT_NODE_TEMPLATE, nullptr)->name, nullptr);
}

TEST_F(Construction, ANullNameIsNoName) {
  EXPECT_EQ(make("template", nullptr, JT_NODE_TEMPLATE, nullptr)->name, nullptr);
}

TEST_F(Construction, TheNameIsACopy) {
  char name[] = "MyScan";
  const jt_node *const node = make("template", name, JT_NODE_TEMPLATE, nullptr);
  std::fill_n(name, 6, 'x');
  EXPECT_STREQ(node->name, "MyScan");
}

TEST_F(Construction, NamesOfAnyLengthAreKept) {
  for (const std::size_t length : {1U, 7U, 8U, 9U, 800U, 850U, 900U, 1000U, 1024U, 2000U, 100000U}) {
    SCOPED_TRACE(length);
    const std::string name(length, 'n');
    EXPECT_EQ(make("template", name.c_str(), JT_NODE_TEMPLATE, nullptr)->name, name);
  }
}

// ---- Unknown types ----

TEST_F(Construction, AnUnknownServiceLeavesTheInvocationUntyped) {
  jt_node *const service = add_service(make_template(), "service", "MyOwn");
  const jt_node *const node = make("MyOwn", "first", JT_NODE_INVOCATION, service);
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(node->type, jt_unknown_type());
  EXPECT_STREQ(node->unresolved_type_name, "MyOwn");
  EXPECT_STREQ(node->name, "first");
  expect_bare(*node);
  EXPECT_EQ(messages(), Messages{"WARNING: unknown service:MyOwn ..."});
  EXPECT_EQ(status(), -3);
}

TEST_F(Construction, AnUnknownAttributeTypeIsKeptAsWritten) {
  const jt_node *const node = make("MyStery", "riddle", JT_NODE_ATTRIBUTE, scan_invocation());
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(node->type, jt_unknown_type());
  EXPECT_STREQ(node->unresolved_type_name, "MyStery");
  EXPECT_STREQ(node->name, "riddle");
  EXPECT_EQ(messages(), Messages{"WARNING: unknown attribute type:MyStery ..."});
  EXPECT_EQ(status(), -3);
}

TEST_F(Construction, TheUnresolvedTypeNameIsACopy) {
  char type_name[] = "mystery";
  const jt_node *const node = make(type_name, "", JT_NODE_ATTRIBUTE, scan_invocation());
  std::fill_n(type_name, 7, 'x');
  EXPECT_STREQ(node->unresolved_type_name, "mystery");
  EXPECT_EQ(node->name, nullptr);
}

TEST_F(Construction, UnresolvedTypeNamesOfAnyLengthAreKept) {
  jt_node *const invocation = scan_invocation();
  for (const std::size_t length : {1U, 400U, 800U, 900U, 1024U, 5000U}) {
    SCOPED_TRACE(length);
    const std::string type_name(length, 't');
    const std::string name(length, 'n');
    const jt_node *const node = make(type_name.c_str(), name.c_str(), JT_NODE_ATTRIBUTE, invocation);
    EXPECT_EQ(node->unresolved_type_name, type_name);
    EXPECT_EQ(node->name, name);
  }
}

TEST_F(Construction, ANullTypeNameOfAnAttributeWarnsAndIsNotKept) {
  const jt_node *const node = make(nullptr, "riddle", JT_NODE_ATTRIBUTE, scan_invocation());
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(node->type, jt_unknown_type());
  EXPECT_EQ(node->unresolved_type_name, nullptr);
  EXPECT_EQ(messages(), Messages{"WARNING: unknown attribute type:(null) ..."});
}

TEST_F(Construction, ANullTypeNameOfAnInvocationWarnsAndIsNotKept) {
  const jt_node *const node =
      make(nullptr, "first", JT_NODE_INVOCATION, add_service(make_template(), "service", "MyOwn"));
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(node->type, jt_unknown_type());
  EXPECT_EQ(node->unresolved_type_name, nullptr);
  EXPECT_EQ(messages(), Messages{"WARNING: unknown service:(null) ..."});
}

TEST_F(Construction, ANullTypeNameElsewhereIsRefused) {
  EXPECT_EQ(make(nullptr, "x", JT_NODE_TEMPLATE, nullptr), nullptr);
  EXPECT_EQ(make(nullptr, "x", JT_NODE_SERVICE, make_template()), nullptr);
  EXPECT_EQ(messages(), (Messages{"SYNTAX ERROR: unknown or invalid type:(null) ...",
                                  "SYNTAX ERROR: unknown or invalid type:(null) ..."}));
}

// ---- The record ----

TEST(NodeRecord, TakesSixteenBytesAndFourteenPointers) {
  EXPECT_EQ(sizeof(jt_node), 16 + 14 * sizeof(void *));
}

}  // namespace
