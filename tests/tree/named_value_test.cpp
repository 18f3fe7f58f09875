// A value node that create_typed_node() makes has a name, and perhaps the name of a type that nobody knows,
// but neither a value nor the text of one. It is found by its name; as a value it is nothing.
#include <gtest/gtest.h>

#include <string>

#include "tree/child_index.h"
#include "tree/tree_session.h"

namespace jt_test {
namespace {

constexpr char kScan[] = "kmt_svc_scan";

class NamedValue : public TreeTest {
 protected:
  NamedValue() : invocation(scan_invocation()) {}

  jt_node *attribute(const char *type) {
    jt_node *const made = add_attribute(invocation, type, "a");
    made->non_compulsory = true;
    forget_messages();
    return made;
  }
  // The name of its type is like that of a value.
  jt_node *add_named(jt_node *parent, const char *name = "child") {
    return linked(parent, make("text", name, JT_NODE_VALUE, parent));
  }
  std::string written() { return encoded(node_to_handle(invocation->parent->parent)); }
  static int32_t node_to_handle(const jt_node *node) { return bookmark_to_opaque(node->bookmark); }
  std::string first_text(jt_node *parent) { return take_text(first_child_value_string(space, parent)); }
  std::string next_text(jt_node *parent) { return take_text(index_child_value_string(space, parent)); }
  int32_t remove(const jt_node *parent, const char *text) {
    return jt_delete_attribute_value_string(space, node_to_handle(invocation->parent->parent), kScan,
                                            parent->name, text);
  }
  static std::string scan_with(const std::string &line) {
    return "[kmt_svc_scan kmt_svc_scan]\n {\n" + line + "\n }\nend\n\n";
  }

  jt_node *const invocation;
};

TEST_F(NamedValue, HasANameAndNoValue) {
  const jt_node *const node = add_named(attribute("mystery"));
  EXPECT_EQ(node->node_class, JT_NODE_VALUE);
  EXPECT_STREQ(node->name, "child");
  EXPECT_EQ(node->type, jt_core::unknown_type());
  EXPECT_EQ(messages(), Messages{});
}

// ---- By its name ----

TEST_F(NamedValue, IsFoundByItsName) {
  for (const char *const type : {"mystery", "integer", "string"}) {
    jt_node *const parent = add_attribute(invocation, type, type);
    jt_node *const node = add_named(parent);
    EXPECT_EQ(get_child(space, parent, "child"), node) << type;
    EXPECT_EQ(get_child(space, parent, "CHILD"), node) << type;
    EXPECT_EQ(get_child(space, parent, "text"), nullptr) << type;
  }
}

TEST_F(NamedValue, IsFoundByItsNameAmongManyValues) {
  for (const char *const type : {"mystery", "integer", "real"}) {
    jt_node *const parent = add_attribute(invocation, type, type);
    for (int i = 0; i < 30; ++i) add_value(parent, std::to_string(i).c_str());
    jt_node *const node = add_named(parent, "7");
    for (int i = 30; i < 60; ++i) add_value(parent, std::to_string(i).c_str());
    for (int i = 0; i < 2; ++i) {
      EXPECT_EQ(get_child(space, parent, "7"), node) << type;
      EXPECT_EQ(get_child(space, parent, "8"), nullptr) << type;
    }
    EXPECT_EQ(destroy_node(space, node), 1);
    EXPECT_EQ(get_child(space, parent, "7"), nullptr) << type;
  }
}

TEST_F(NamedValue, IsTheOnlyOneOfItsNameWhereThatIsWanted) {
  jt_node *const parent = attribute("mystery");
  jt_node *const first = make("text", "child", JT_NODE_VALUE, parent);
  jt_node *const second = make("text", "Child", JT_NODE_VALUE, parent);
  EXPECT_EQ(add_unique_child(space, parent, first), 1);
  EXPECT_EQ(add_unique_child(space, parent, second), 0);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: Trying to save multiple definitions for:Child ..."});
  EXPECT_EQ(destroy_node(space, second), 1);
}

TEST_F(NamedValue, GivesItsNameToAWalkOfNames) {
  jt_node *const parent = attribute("mystery");
  add_named(parent);
  add_named(parent, "other");
  EXPECT_EQ(take_text(first_child_name(space, parent)), "child");
  EXPECT_EQ(take_text(index_child_name(space, parent)), "other");
  EXPECT_EQ(take_text(index_child_name(space, parent)), "(none)");
}

// ---- As a value ----

TEST_F(NamedValue, GivesNothingToAWalkOfTexts) {
  for (const char *const type : {"mystery", "integer", "string", "enum_mediasize", "ref_invocation"}) {
    jt_node *const parent = add_attribute(invocation, type, type);
    add_named(parent);
    forget_messages();
    EXPECT_EQ(first_text(parent), "(none)") << type;
    reset_index(space, parent);
    EXPECT_EQ(next_text(parent), "(none)") << type;
    EXPECT_EQ(messages(), Messages{}) << type;
  }
}

TEST_F(NamedValue, GivesNothingToAWalkOfValues) {
  jt_node *const known = add_attribute(invocation, "integer", "known");
  jt_node *const unknown = add_attribute(invocation, "mystery", "unknown");
  for (jt_node *const parent : {known, unknown}) {
    add_named(parent);
    forget_messages();
    const Messages report =
        parent == known ? Messages{} : Messages{"CALL ERROR: unknown data typemystery ..."};
    EXPECT_EQ(first_child_value(space, parent), nullptr);
    EXPECT_EQ(messages(), report);
    reset_index(space, parent);
    forget_messages();
    EXPECT_EQ(index_child_value(space, parent), nullptr);
    EXPECT_EQ(messages(), report);
  }
}

TEST_F(NamedValue, WritesNothing) {
  jt_node *const parent = attribute("mystery");
  add_named(parent);
  EXPECT_EQ(written(), scan_with("    * mystery a = ;"));
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(NamedValue, WritesNothingBetweenOthers) {
  for (const char *const type : {"mystery", "integer"}) {
    jt_node *const parent = attribute(type);
    add_named(parent, "first");
    add_value(parent, "1");
    add_named(parent, "middle");
    add_value(parent, "2");
    add_named(parent, "last");
    EXPECT_EQ(written(), scan_with("    * " + std::string(type) + " a = 1, 2;"));
    EXPECT_EQ(destroy_node(space, parent), 1);
  }
}

TEST_F(NamedValue, IsNotDeletedByAText) {
  for (const char *const type : {"mystery", "string"}) {
    jt_node *const parent = attribute(type);
    jt_node *const node = add_named(parent);
    for (const char *const text : {"text", "child", ""}) {
      forget_messages();
      EXPECT_EQ(remove(parent, text), 0) << type << " " << text;
      EXPECT_EQ(messages(), Messages{"CALL ERROR:there is no such value ..."}) << type << " " << text;
    }
    EXPECT_TRUE(alive(node));
    EXPECT_EQ(destroy_node(space, parent), 1);
  }
}

TEST_F(NamedValue, IsPassedOverByASearchForAValue) {
  for (const char *const type : {"mystery", "string", "integer", "real", "boolean"}) {
    for (const int many : {0, 40}) {
      jt_node *const parent = attribute(type);
      jt_node *const node = add_named(parent, "first");
      for (int i = 0; i < many; ++i) add_named(parent, ("n" + std::to_string(i)).c_str());
      const char *const text = std::string(type) == "boolean" ? "true" : "1";
      jt_node *const value = add_value(parent, text);
      EXPECT_EQ(remove(parent, text), 1) << type;
      EXPECT_FALSE(alive(value)) << type;
      EXPECT_TRUE(alive(node)) << type;
      EXPECT_EQ(destroy_node(space, parent), 1);
    }
  }
}

TEST_F(NamedValue, IsPassedOverByAnOverride) {
  jt_node *const parent = attribute("integer");
  jt_node *const node = add_named(parent);
  add_value(parent, "1");
  const int32_t one = 1;
  const int32_t two = 2;
  const auto as_value = [](const int32_t &number) { return reinterpret_cast<const jt_value *>(&number); };
  EXPECT_EQ(jt_override_attribute_value(space, node_to_handle(invocation->parent->parent), kScan, "a",
                                        as_value(one), as_value(two)),
            1);
  EXPECT_EQ(node->value, nullptr);
  EXPECT_EQ(written(), scan_with("    * integer a = 2;(KMT_STATUS_OVERRIDDEN{1})"));
}

// ---- As a node ----

TEST_F(NamedValue, MayHaveAStatusAndAComment) {
  jt_node *const parent = attribute("mystery");
  jt_node *const node = add_named(parent);
  const uint32_t aborted = 1;
  EXPECT_EQ(set_status(space, node, reinterpret_cast<const jt_status *>(&aborted)), 1);
  EXPECT_EQ(add_comment(space, node, "#c\n"), 1);
  EXPECT_EQ(written(), scan_with("    * mystery a = ;"));
}

TEST_F(NamedValue, MovesAndGoesLikeAnyOther) {
  jt_node *const parent = attribute("mystery");
  jt_node *const other = add_attribute(invocation, "mystery", "b");
  jt_node *const node = add_named(parent);
  EXPECT_EQ(add_child(space, other, node), 1);
  EXPECT_EQ(get_child(space, parent, "child"), nullptr);
  EXPECT_EQ(get_child(space, other, "child"), node);
  EXPECT_EQ(add_index_child(space, parent, node), 1);
  EXPECT_EQ(get_child(space, parent, "child"), node);
  EXPECT_EQ(delete_index_child(space, parent), 1);
  EXPECT_FALSE(alive(node));
  add_named(parent);
  EXPECT_EQ(destroy_children(space, parent), 1);
  EXPECT_EQ(get_child(space, parent, "child"), nullptr);
  add_named(parent);
  expect_sound(*space);
  EXPECT_EQ(destroy_all_nodes(space, parent), 1);
  EXPECT_EQ(count_alive(), 0U);
}

}  // namespace
}  // namespace jt_test
