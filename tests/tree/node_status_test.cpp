// set_status: the number of a status goes into a node; the status itself stays the caller's.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "tree/tree_session.h"

namespace {

using jt_test::Messages;
using jt_test::take_text;

constexpr uint32_t kMarker = 0xFFFFFFFF;

class NodeStatus : public jt_test::TreeTest {
 protected:
  static uint32_t number_of(const jt_status *status_value) {
    uint32_t number = 0;
    std::memcpy(&number, status_value, sizeof(number));
    return number;
  }
  int32_t set(jt_node *node, const char *name) {
    jt_status *const given = get_status(space, name);
    forget_messages();
    const int32_t result = set_status(space, node, given);
    EXPECT_EQ(messages(), Messages());
    EXPECT_EQ(kill_status(space, given), 1);
    return result;
  }
  std::string written(const jt_node *node) { return take_text(get_status_string(space, node->status)); }
};

TEST_F(NodeStatus, TheNumberIsStored) {
  jt_node *const node = make_template();
  EXPECT_EQ(node->status, nullptr);
  EXPECT_EQ(set(node, "kmt_status_completed"), 1);
  EXPECT_EQ(number_of(node->status), 5U);
  EXPECT_EQ(written(node), "KMT_STATUS_COMPLETED");
}

TEST_F(NodeStatus, TheGivenStatusIsNotKept) {
  jt_node *const node = make_template();
  jt_status *const given = get_status(space, "MM");
  EXPECT_EQ(set_status(space, node, given), 1);
  EXPECT_NE(node->status, given);
  EXPECT_EQ(number_of(given), 20U);
  EXPECT_EQ(kill_status(space, given), 1);
  EXPECT_EQ(written(node), "MM");
}

TEST_F(NodeStatus, ALaterOneReplacesIt) {
  jt_node *const node = make_template();
  EXPECT_EQ(set(node, "KMT_STATUS_ABORTED"), 1);
  EXPECT_EQ(set(node, "KMT_STATUS_ERROR"), 1);
  EXPECT_EQ(written(node), "KMT_STATUS_ERROR");
  EXPECT_EQ(set(node, "PROPRIETARY"), 1);
  EXPECT_EQ(written(node), "PROPRIETARY");
}

TEST_F(NodeStatus, EveryKindOfNodeMayHaveOne) {
  jt_node *node = add_value(add_attribute(scan_invocation(), "integer", "copies"), "1");
  for (; node != nullptr; node = node->parent) {
    EXPECT_EQ(set(node, "KMT_STATUS_WARNING"), 1);
    EXPECT_EQ(written(node), "KMT_STATUS_WARNING");
  }
}

TEST_F(NodeStatus, NumbersThatNoNameHasAreStoredToo) {
  jt_node *const node = make_template();
  for (const uint32_t number : {0U, 25U, 1000000U, kMarker - 1}) {
    EXPECT_EQ(set_status(space, node, reinterpret_cast<const jt_status *>(&number)), 1);
    EXPECT_EQ(number_of(node->status), number);
    forget_messages();
    EXPECT_EQ(get_status_string(space, node->status), nullptr);
    EXPECT_EQ(messages(), Messages{"CALL ERROR: Unknown enumerated value ..."});
  }
}

TEST_F(NodeStatus, OfAnUnknownNameOnlyTheMarkerIsStored) {
  jt_node *const node = make_template();
  EXPECT_EQ(set(node, "NO_SUCH_STATUS"), 1);
  EXPECT_EQ(number_of(node->status), kMarker);
  forget_messages();
  EXPECT_EQ(written(node), "");
  EXPECT_EQ(messages(), Messages{"CALL ERROR: Unknown enumerated value ..."});
}

TEST_F(NodeStatus, AStoredMarkerCanBeCopied) {
  jt_node *const node = make_template();
  set(node, "NO_SUCH_STATUS");
  jt_status *const copy = copy_status(space, node->status);
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(number_of(copy), kMarker);
  EXPECT_EQ(take_text(get_status_string(space, copy)), "");
  EXPECT_EQ(kill_status(space, copy), 1);
}

TEST_F(NodeStatus, AMarkerReplacesANumberAndANumberAMarker) {
  jt_node *const node = make_template();
  set(node, "KMT_STATUS_ERROR");
  set(node, "NO_SUCH_STATUS");
  EXPECT_EQ(written(node), "");
  set(node, "KMT_STATUS_ERROR");
  EXPECT_EQ(written(node), "KMT_STATUS_ERROR");
}

TEST_F(NodeStatus, AMarkerLeavesNothingOfADecodedUnknownName) {
  const int32_t handle = jt_decode_template(space, "[ kmt_svc_scan S ] end (some_long_unknown_status)");
  jt_node *const service = at(handle)->first_child;
  EXPECT_EQ(written(service), "some_long_unknown_status");
  set(service, "other");
  EXPECT_EQ(written(service), "");
  set(service, "KMT_STATUS_ERROR");
  EXPECT_EQ(written(service), "KMT_STATUS_ERROR");
}

TEST_F(NodeStatus, TheOwnStatusOfANodeMayBeSetAgain) {
  jt_node *const node = make_template();
  set(node, "KMT_STATUS_ERROR");
  EXPECT_EQ(set_status(space, node, node->status), 1);
  EXPECT_EQ(written(node), "KMT_STATUS_ERROR");
}

TEST_F(NodeStatus, NullsAreRefusedWithoutAReport) {
  jt_node *const node = make_template();
  const uint32_t number = 5;
  const auto *const given = reinterpret_cast<const jt_status *>(&number);
  EXPECT_EQ(set_status(space, node, nullptr), 0);
  EXPECT_EQ(set_status(space, nullptr, given), 0);
  EXPECT_EQ(set_status(space, nullptr, nullptr), 0);
  EXPECT_EQ(set_status(nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(node->status, nullptr);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(NodeStatus, TheAllOnesMarkerIsNoNode) {
  const uint32_t number = 5;
  auto *const marker = reinterpret_cast<jt_node *>(UINTPTR_MAX);
  EXPECT_EQ(set_status(space, marker, reinterpret_cast<const jt_status *>(&number)), 0);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(NodeStatus, ARefusalKeepsTheOldStatus) {
  jt_node *const node = make_template();
  set(node, "KMT_STATUS_ERROR");
  EXPECT_EQ(set_status(space, node, nullptr), 0);
  EXPECT_EQ(written(node), "KMT_STATUS_ERROR");
}

}  // namespace
