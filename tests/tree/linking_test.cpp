// Putting nodes into a tree: what may hang where, in which order children stand, where the cursor goes, and
// what a refusal leaves as it was.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tree/odd_types.h"
#include "tree/tree_session.h"

namespace {

using jt_test::children_of;
using jt_test::exhaust;
using jt_test::Messages;
using jt_test::names_of;
using jt_test::Nodes;
using jt_test::unstart;
using Names = std::vector<std::string>;

constexpr char kInconsistent[] = "SYSTEM ERROR: Trying to add an inconsistent type ...";

using Add = int32_t (*)(jt_parser_space *, jt_node *, jt_node *);
constexpr Add kAdds[] = {add_child, add_unique_child, add_index_child};

class Linking : public jt_test::TreeTest {
 protected:
  ~Linking() override { jt_test::expect_sound(*space); }

  jt_node *attribute(jt_node *invocation, const char *name, const char *type_name = "integer") {
    return make(type_name, name, JT_NODE_ATTRIBUTE, invocation);
  }
};

// ---- What all three have in common ----

TEST_F(Linking, NothingIsAddedToNothing) {
  jt_node *const parent = scan_invocation();
  jt_node *const child = attribute(parent, "one");
  for (const Add add : kAdds) {
    EXPECT_EQ(add(space, nullptr, child), 0);
    EXPECT_EQ(add(space, nullptr, nullptr), 0);
    EXPECT_EQ(add(space, parent, nullptr), 1);
    EXPECT_EQ(add(nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(add(nullptr, parent, child), 0);
  }
  EXPECT_EQ(parent->first_child, nullptr);
  EXPECT_EQ(parent->cursor, jt_core::not_started());
  EXPECT_EQ(child->parent, nullptr);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Linking, TheFirstChildBecomesTheCursor) {
  for (const Add add : kAdds) {
    jt_node *const parent = scan_invocation();
    jt_node *const child = attribute(parent, "one");
    EXPECT_EQ(add(space, parent, child), 1);
    EXPECT_EQ(parent->first_child, child);
    EXPECT_EQ(parent->cursor, child);
    EXPECT_EQ(child->parent, parent);
    EXPECT_EQ(child->previous_sibling, nullptr);
    EXPECT_EQ(child->next_sibling, nullptr);
  }
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Linking, EveryClassFindsItsPlace) {
  for (const Add add : kAdds) {
    jt_node *const root = make_template();
    jt_node *const service = make("kmt_svc_scan", "kmt_svc_scan", JT_NODE_SERVICE, root);
    jt_node *const invocation = make("kmt_svc_scan", "", JT_NODE_INVOCATION, service);
    jt_node *const size = attribute(invocation, "size", "enum_mediasize");
    jt_node *const value = create_value_node(space, size->type, "ANSI");
    EXPECT_EQ(add(space, root, service), 1);
    EXPECT_EQ(add(space, service, invocation), 1);
    EXPECT_EQ(add(space, invocation, size), 1);
    EXPECT_EQ(add(space, size, value), 1);
    EXPECT_EQ(value->parent->parent->parent->parent, root);
  }
}

TEST_F(Linking, AnInvocationOfAServiceWithANameOfItsOwnFits) {
  jt_node *const service = add_service(make_template(), "kmt_svc_scan", "MyScan");
  jt_node *const invocation = add_invocation(service, "one");
  EXPECT_EQ(invocation->parent, service);
  EXPECT_EQ(add_attribute(invocation, "enum_mediasize", "size")->parent, invocation);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Linking, AnInvocationOfAServiceNamedAfterATypeFits) {
  add_invocation(add_service(make_template(), "service", "integer"));
  add_invocation(add_service(make_template(), "kmt_svc_scan", "integer"));
  add_invocation(add_service(make_template(), "kmt_svc_scan", "kmt_svc_print"));
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Linking, AttributesOfAHeaderFit) {
  jt_node *const header = make_header();
  add_attribute(header, "string", "note");
  add_attribute(add_attribute(header, "integer", "header"), "integer", "header");
  EXPECT_EQ(names_of(header), (Names{"note", "header"}));
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Linking, AnUnknownTypeWarnsAgainAndFits) {
  for (const Add add : kAdds) {
    jt_node *const parent = scan_invocation();
    jt_node *const child = attribute(parent, "riddle", "mystery");
    forget_messages();
    EXPECT_EQ(add(space, parent, child), 1);
    EXPECT_EQ(messages(), Messages{"WARNING: unknown attribute type:mystery ..."});
    EXPECT_EQ(status(), -3);
  }
}

TEST_F(Linking, AnInvocationOfAnUnknownServiceWarnsAgainAndFits) {
  for (const Add add : kAdds) {
    jt_node *const service = add_service(make_template(), "service", "MyOwn");
    jt_node *const child = make("MyOwn", "one", JT_NODE_INVOCATION, service);
    forget_messages();
    EXPECT_EQ(add(space, service, child), 1);
    EXPECT_EQ(messages(), Messages{"WARNING: unknown service:MyOwn ..."});
  }
}

TEST_F(Linking, AnUntypedChildWithoutATypeNameFitsAndWarns) {
  for (const Add add : kAdds) {
    jt_node *const parent = scan_invocation();
    jt_node *const child = attribute(parent, "riddle", nullptr);
    forget_messages();
    EXPECT_EQ(add(space, parent, child), 1);
    EXPECT_EQ(messages(), Messages{"WARNING: unknown attribute type:(null) ..."});
  }
}

TEST_F(Linking, AnUnnamedUntypedChildIsCheckedOnce) {
  for (const Add add : kAdds) {
    jt_node *const parent = scan_invocation();
    jt_node *const child = attribute(parent, "", "mystery");
    forget_messages();
    EXPECT_EQ(add(space, parent, child), 1);
    EXPECT_EQ(messages(), Messages{"WARNING: unknown attribute type:mystery ..."});
  }
}

TEST_F(Linking, AnUntypedValueFitsItsUntypedAttributeWithoutAWarning) {
  jt_node *const parent = add_attribute(scan_invocation(), "mystery", "riddle");
  forget_messages();
  EXPECT_EQ(add_child(space, parent, create_value_node(space, jt_unknown_type(), "a")), 1);
  EXPECT_EQ(messages(), Messages());
}

// ---- Refusals ----

TEST_F(Linking, ATypeThatTheParentDoesNotKnowIsInconsistent) {
  for (const Add add : kAdds) {
    jt_node *const print = add_invocation(add_service(make_template(), "kmt_svc_print"));
    jt_node *const child = attribute(scan_invocation(), "size", "enum_mediasize");
    forget_messages();
    EXPECT_EQ(add(space, print, child), 0);
    EXPECT_EQ(messages(), (Messages{"WARNING: unknown attribute type:enum_mediasize ...", kInconsistent}));
    EXPECT_EQ(status(), -7);
    EXPECT_EQ(print->first_child, nullptr);
    EXPECT_EQ(child->parent, nullptr);
  }
}

TEST_F(Linking, ATypeThatTheParentKnowsOtherwiseIsInconsistent) {
  jt_node *const scan = scan_invocation();
  jt_node *const fax = add_invocation(add_service(make_template(), "kmt_svc_fax"));
  for (const Add add : kAdds) {
    forget_messages();
    EXPECT_EQ(add(space, fax, attribute(scan, "type", "enum_type")), 0);
    EXPECT_EQ(messages(), Messages{kInconsistent});
  }
}

TEST_F(Linking, AnUntypedChildUnderAParentThatKnowsItsTypeIsInconsistent) {
  jt_node *const print = add_invocation(add_service(make_template(), "kmt_svc_print"));
  jt_node *const scan = scan_invocation();
  for (const Add add : kAdds) {
    jt_node *const child = attribute(print, "size", "enum_mediasize");
    forget_messages();
    EXPECT_EQ(add(space, scan, child), 0);
    EXPECT_EQ(messages(), Messages{kInconsistent});
  }
}

TEST_F(Linking, AClassThatDoesNotBelongThereIsInconsistent) {
  jt_node *const root = make_template();
  jt_node *const service = add_service(root, "kmt_svc_scan");
  jt_node *const invocation = add_invocation(service);
  for (const Add add : kAdds) {
    forget_messages();
    EXPECT_EQ(add(space, root, attribute(invocation, "copies")), 0);
    EXPECT_EQ(messages(), (Messages{"SYNTAX ERROR: unknown or invalid type:integer ...", kInconsistent}));
    forget_messages();
    EXPECT_EQ(add(space, invocation, make("kmt_svc_scan", "other", JT_NODE_SERVICE, root)), 0);
    EXPECT_EQ(messages(),
              (Messages{"SYNTAX ERROR: unknown or invalid type:kmt_svc_scan ...", kInconsistent}));
  }
  EXPECT_EQ(names_of(root), Names{"kmt_svc_scan"});
  EXPECT_EQ(invocation->first_child, nullptr);
}

TEST_F(Linking, ATemplateOrAHeaderIsNobodysChild) {
  jt_node *const root = make_template();
  for (const Add add : kAdds) {
    forget_messages();
    EXPECT_EQ(add(space, root, make_template()), 0);
    EXPECT_EQ(messages(), (Messages{"SYNTAX ERROR: unknown or invalid type:template ...", kInconsistent}));
    forget_messages();
    EXPECT_EQ(add(space, root, make_header()), 0);
    EXPECT_EQ(messages(), (Messages{"SYNTAX ERROR: unknown or invalid type:sil_header ...", kInconsistent}));
  }
}

TEST_F(Linking, AValueOfAnotherTypeIsInconsistent) {
  jt_node *const copies = add_attribute(scan_invocation(), "integer", "copies");
  for (const Add add : kAdds) {
    forget_messages();
    EXPECT_EQ(add(space, copies, create_value_node(space, get_type_from_services(space, "", "string"), "1")),
              0);
    EXPECT_EQ(add(space, copies, create_value_node(space, jt_unknown_type(), "1")), 0);
    EXPECT_EQ(add(space, copies, create_value_node(space, &jt_test::kOdd, "1")), 0);
    EXPECT_EQ(messages(), (Messages{kInconsistent, kInconsistent, kInconsistent}));
  }
  EXPECT_EQ(copies->first_child, nullptr);
}

TEST_F(Linking, ARefusedChildIsStillTheCallers) {
  jt_node *const child = attribute(scan_invocation(), "copies");
  EXPECT_EQ(add_child(space, make_template(), child), 0);
  EXPECT_TRUE(alive(child));
  EXPECT_EQ(destroy_node(space, child), 1);
}

TEST_F(Linking, ANodeCannotHangBelowItself) {
  jt_node *const top = add_attribute(make_header(), "integer", "header");
  jt_node *const middle = add_attribute(top, "integer", "header");
  jt_node *const bottom = add_attribute(middle, "integer", "header");
  for (const Add add : kAdds) {
    EXPECT_EQ(add(space, top, top), 0);
    EXPECT_EQ(add(space, middle, top), 0);
    EXPECT_EQ(add(space, bottom, top), 0);
    EXPECT_EQ(add(space, bottom, bottom), 0);
  }
  EXPECT_EQ(children_of(top), Nodes{middle});
  EXPECT_EQ(children_of(middle), Nodes{bottom});
}

// ---- add_child ----

TEST_F(Linking, AChildIsAppendedAndACursorInTheListStays) {
  jt_node *const parent = parent_of({"one", "two", "three"});
  EXPECT_EQ(names_of(parent), (Names{"one", "two", "three"}));
  EXPECT_EQ(parent->cursor, parent->first_child);
  advance_index(space, parent);
  jt_node *const second = parent->cursor;
  add_attribute(parent, "integer", "four");
  EXPECT_EQ(parent->cursor, second);
  EXPECT_EQ(names_of(parent), (Names{"one", "two", "three", "four"}));
}

TEST_F(Linking, AnAppendWakesAnExhaustedCursor) {
  jt_node *const parent = parent_of({"one", "two"});
  exhaust(space, parent);
  jt_node *const third = add_attribute(parent, "integer", "three");
  EXPECT_EQ(parent->cursor, third);
  EXPECT_EQ(jt_test::take_text(index_child_name(space, parent)), "three");
}

TEST_F(Linking, AnAppendStartsACursorAtTheNewChild) {
  jt_node *const parent = parent_of({"one", "two"});
  unstart(parent);
  EXPECT_EQ(parent->cursor, add_attribute(parent, "integer", "three"));
}

TEST_F(Linking, AddChildAcceptsDuplicatesAndUnnamed) {
  jt_node *const parent = parent_of({"one", "ONE", "", "one", ""});
  EXPECT_EQ(names_of(parent), (Names{"one", "ONE", "-", "one", "-"}));
  EXPECT_EQ(messages(), Messages());
}

// ---- add_unique_child ----

TEST_F(Linking, ADuplicateIsRefusedWhateverItsCase) {
  jt_node *const parent = parent_of({"other", "Scan", "third"});
  for (const char *const name : {"scan", "Scan", "SCAN", "third"}) {
    jt_node *const child = attribute(parent, name);
    forget_messages();
    EXPECT_EQ(add_unique_child(space, parent, child), 0);
    EXPECT_EQ(messages(), Messages{std::string("SYNTAX ERROR: Trying to save multiple definitions for:") +
                                   name + " ..."});
    EXPECT_EQ(status(), -5);
    EXPECT_EQ(child->parent, nullptr);
    EXPECT_TRUE(alive(child));
  }
  EXPECT_EQ(names_of(parent), (Names{"other", "Scan", "third"}));
}

TEST_F(Linking, ANewNameIsAppended) {
  jt_node *const parent = parent_of({"one"});
  EXPECT_EQ(add_unique_child(space, parent, attribute(parent, "two")), 1);
  EXPECT_EQ(names_of(parent), (Names{"one", "two"}));
  EXPECT_EQ(parent->cursor, parent->first_child);
}

TEST_F(Linking, AUniqueAppendWakesAnExhaustedCursor) {
  jt_node *const parent = parent_of({"one"});
  exhaust(space, parent);
  jt_node *const child = attribute(parent, "two");
  EXPECT_EQ(add_unique_child(space, parent, child), 1);
  EXPECT_EQ(parent->cursor, child);
}

TEST_F(Linking, AUniqueAppendStartsACursorAtTheNewChild) {
  jt_node *const parent = parent_of({"one"});
  unstart(parent);
  jt_node *const child = attribute(parent, "two");
  EXPECT_EQ(add_unique_child(space, parent, child), 1);
  EXPECT_EQ(parent->cursor, child);
}

TEST_F(Linking, ChildrenWithoutNamesAreNeverDuplicates) {
  jt_node *const parent = parent_of({"one"});
  EXPECT_EQ(add_unique_child(space, parent, attribute(parent, "")), 1);
  EXPECT_EQ(add_unique_child(space, parent, attribute(parent, nullptr)), 1);
  EXPECT_EQ(add_unique_child(space, parent, attribute(parent, "two")), 1);
  EXPECT_EQ(names_of(parent), (Names{"one", "-", "-", "two"}));
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Linking, ValuesAreNeverDuplicates) {
  jt_node *const copies = add_attribute(scan_invocation(), "integer", "copies");
  for (int i = 0; i < 3; ++i)
    EXPECT_EQ(add_unique_child(space, copies, create_value_node(space, copies->type, "1")), 1);
  EXPECT_EQ(children_of(copies).size(), 3U);
}

TEST_F(Linking, TheTypeIsCheckedBeforeTheName) {
  jt_node *const parent = parent_of({"size"});
  jt_node *const print = add_invocation(add_service(make_template(), "kmt_svc_print"));
  jt_node *const child = attribute(print, "size", "enum_printmode");
  forget_messages();
  EXPECT_EQ(add_unique_child(space, parent, child), 0);
  EXPECT_EQ(messages(), (Messages{"WARNING: unknown attribute type:enum_printmode ...", kInconsistent}));
}

TEST_F(Linking, ADuplicateOfUnknownTypeWarnsFirst) {
  jt_node *const parent = parent_of({"riddle"});
  jt_node *const child = attribute(parent, "Riddle", "mystery");
  forget_messages();
  EXPECT_EQ(add_unique_child(space, parent, child), 0);
  EXPECT_EQ(messages(), (Messages{"WARNING: unknown attribute type:mystery ...",
                                  "SYNTAX ERROR: Trying to save multiple definitions for:Riddle ..."}));
}

// ---- add_index_child ----

TEST_F(Linking, AnIndexChildGoesBehindTheCursorAndBecomesIt) {
  jt_node *const parent = parent_of({"one", "two", "three"});
  jt_node *const first = attribute(parent, "one and a half");
  EXPECT_EQ(add_index_child(space, parent, first), 1);
  EXPECT_EQ(names_of(parent), (Names{"one", "one and a half", "two", "three"}));
  EXPECT_EQ(parent->cursor, first);
  advance_index(space, parent);
  jt_node *const second = attribute(parent, "two and a half");
  EXPECT_EQ(add_index_child(space, parent, second), 1);
  EXPECT_EQ(names_of(parent), (Names{"one", "one and a half", "two", "two and a half", "three"}));
  EXPECT_EQ(parent->cursor, second);
}

TEST_F(Linking, AnIndexChildGoesBehindTheLastOne) {
  jt_node *const parent = parent_of({"one", "two"});
  advance_index(space, parent);
  jt_node *const child = attribute(parent, "three");
  EXPECT_EQ(add_index_child(space, parent, child), 1);
  EXPECT_EQ(names_of(parent), (Names{"one", "two", "three"}));
  EXPECT_EQ(parent->cursor, child);
  EXPECT_EQ(parent->last_child, child);
}

TEST_F(Linking, AnIndexChildOfAnExhaustedParentGoesToTheEnd) {
  jt_node *const parent = parent_of({"one", "two"});
  exhaust(space, parent);
  jt_node *const child = attribute(parent, "three");
  EXPECT_EQ(add_index_child(space, parent, child), 1);
  EXPECT_EQ(names_of(parent), (Names{"one", "two", "three"}));
  EXPECT_EQ(parent->cursor, child);
}

TEST_F(Linking, AnIndexChildOfANotStartedParentGoesBehindTheFirst) {
  jt_node *const parent = parent_of({"one", "two"});
  unstart(parent);
  jt_node *const child = attribute(parent, "new");
  EXPECT_EQ(add_index_child(space, parent, child), 1);
  EXPECT_EQ(names_of(parent), (Names{"one", "new", "two"}));
  EXPECT_EQ(parent->cursor, child);
}

TEST_F(Linking, AnIndexChildMayBeADuplicate) {
  jt_node *const parent = parent_of({"one"});
  EXPECT_EQ(add_index_child(space, parent, attribute(parent, "ONE")), 1);
  EXPECT_EQ(names_of(parent), (Names{"one", "ONE"}));
}

}  // namespace
