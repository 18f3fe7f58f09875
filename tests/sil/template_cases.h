// What the tests of reading and writing share: a text that is accepted or refused together with everything
// that is recorded about it, and the few questions that they ask of a decoded tree.
#ifndef JT_TESTS_SIL_TEMPLATE_CASES_H
#define JT_TESTS_SIL_TEMPLATE_CASES_H

#include <gtest/gtest.h>

#include <initializer_list>
#include <ostream>
#include <string>
#include <vector>

#include "jt.h"
#include "support/session.h"
#include "tree/node.h"

namespace jt_test {

// A text that is refused, and the messages of the refusal, oldest first.
struct Refusal {
  std::string name;
  std::string text;
  Messages messages;
};

// A text that is accepted, what it is written back as, and the messages of reading it.
struct Reading {
  std::string name;
  std::string text;
  std::string written;
  Messages messages;
};

inline std::ostream &operator<<(std::ostream &out, const Refusal &refusal) { return out << refusal.text; }
inline std::ostream &operator<<(std::ostream &out, const Reading &reading) { return out << reading.text; }

template <typename Case>
std::string case_name(const ::testing::TestParamInfo<Case> &info) {
  return info.param.name;
}

// A message with a detail that is too long to be kept whole.
inline std::string cut(const std::string &message, const std::string &detail) {
  return (message + detail).substr(0, 251) + " ...";
}

inline std::string times(std::size_t count, char c) { return std::string(count, c); }

inline std::string or_none(const char *text) { return text != nullptr ? text : "(none)"; }

// The status that goes with the newest message.
inline int status_after(const Messages &messages) {
  if (messages.empty()) return JT_OK;
  return messages.back().rfind("WARNING:", 0) == 0 ? JT_WARNING : JT_SYNTAX_ERROR;
}

class DecodeTest : public SessionTest {
 protected:
  int32_t decode(const std::string &text) { return jt_decode_template(space, text.c_str()); }

  // The root of a text that must be accepted.
  jt_node *decoded(const std::string &text) {
    const int32_t handle = decode(text);
    EXPECT_NE(handle, 0) << text << "\n" << ::testing::PrintToString(messages());
    return handle != 0 ? opaque_to_node(space, handle) : nullptr;
  }

  // The node that a row of names leads to, or null.
  jt_node *child(jt_node *node, std::initializer_list<const char *> names) {
    for (const char *name : names) node = get_child(space, node, name);
    return node;
  }

  // The value texts of an attribute, in their order.
  std::vector<std::string> values(jt_node *attribute) {
    std::vector<std::string> texts;
    if (attribute == nullptr || attribute->first_child == nullptr) return texts;
    reset_index(space, attribute);
    while (attribute->cursor != nullptr)
      texts.push_back(take_text(index_child_value_string(space, attribute)));
    return texts;
  }

  std::string status_text(const jt_node &node) {
    return take_text(node.status != nullptr ? get_status_string(space, node.status) : nullptr);
  }

  // The nodes of a session, by slot, as "class name"; "free" for a slot without a node.
  std::vector<std::string> slots(int count) {
    std::vector<std::string> described;
    for (int slot = 0; slot < count; ++slot) {
      const jt_node *const node = opaque_to_node(space, bookmark_to_opaque(slot));
      described.push_back(node == nullptr ? "free" : described_node(*node));
    }
    return described;
  }

  // Who has a comment, and which: "class name: comment", by slot.
  std::vector<std::string> comments(int count = 24) {
    std::vector<std::string> described;
    for (int slot = 0; slot < count; ++slot) {
      const jt_node *const node = opaque_to_node(space, bookmark_to_opaque(slot));
      if (node == nullptr || node->comment == nullptr) continue;
      described.push_back(described_node(*node) + ": " + node->comment);
    }
    return described;
  }

  void expect_refused(const Refusal &refusal) {
    EXPECT_EQ(decode(refusal.text), 0) << refusal.text;
    EXPECT_EQ(status(), status_after(refusal.messages)) << refusal.text;
    EXPECT_EQ(messages(), refusal.messages) << refusal.text;
    EXPECT_EQ(live_nodes(space), 0) << refusal.text;
    EXPECT_EQ(jt_create_template(space), -100) << refusal.text;
  }

  void expect_read(const Reading &reading) {
    const int32_t handle = decode(reading.text);
    EXPECT_EQ(handle, -100) << reading.text;
    EXPECT_EQ(status(), status_after(reading.messages)) << reading.text;
    EXPECT_EQ(messages(), reading.messages) << reading.text;
    if (handle == 0) return;
    EXPECT_EQ(encoded(handle), reading.written) << reading.text;
  }

 private:
  static std::string described_node(const jt_node &node) {
    return std::to_string(node.node_class) + " " + or_none(node.name);
  }
};

class RefusedText : public DecodeTest, public ::testing::WithParamInterface<Refusal> {};
class AcceptedText : public DecodeTest, public ::testing::WithParamInterface<Reading> {};

}  // namespace jt_test

#endif
