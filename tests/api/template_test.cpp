// The four calls for a whole template: created, decoded, encoded, destroyed; with every handle that names no
// template.
#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

#include "support/session.h"
#include "tree/node.h"

namespace jt_test {
namespace {

const std::string kService = "[service A]\nend\n\n";

class Template : public SessionTest {
 protected:
  int32_t decode(const char *text) { return jt_decode_template(space, text); }
};

// ---- Create ----

TEST_F(Template, FirstOfASessionHasHandleMinus100) { EXPECT_EQ(jt_create_template(space), -100); }

TEST_F(Template, EachHasTheNextHandle) {
  EXPECT_EQ(jt_create_template(space), -100);
  EXPECT_EQ(jt_create_template(space), -101);
  EXPECT_EQ(jt_create_template(space), -102);
}

TEST_F(Template, CreatedOneIsAnEmptyTemplateNode) {
  const jt_node *const root = opaque_to_node(space, jt_create_template(space));
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root->node_class, JT_NODE_TEMPLATE);
  EXPECT_STREQ(root->name, "template");
  EXPECT_STREQ(root->type->name, "template");
  EXPECT_EQ(root->first_child, nullptr);
  EXPECT_EQ(root->parent, nullptr);
  EXPECT_EQ(root->previous_sibling, nullptr);
  EXPECT_EQ(root->next_sibling, nullptr);
  EXPECT_EQ(root->cursor, jt_core::not_started());
  EXPECT_EQ(status(), JT_OK);
  EXPECT_TRUE(messages().empty());
}

TEST_F(Template, CreatedOneIsWrittenAsAnEmptyText) {
  EXPECT_EQ(encoded(jt_create_template(space)), "");
  EXPECT_EQ(status(), JT_OK);
}

// ---- Decode ----

TEST_F(Template, DecodedOneHasTheHandleOfItsRoot) {
  const int32_t handle = decode("[ service A ] end");
  EXPECT_EQ(handle, -100);
  EXPECT_EQ(opaque_to_node(space, handle)->node_class, JT_NODE_TEMPLATE);
  EXPECT_EQ(status(), JT_OK);
}

TEST_F(Template, NullTextIsNoTemplateAndNoReport) {
  EXPECT_EQ(decode(nullptr), 0);
  EXPECT_EQ(status(), JT_OK);
  EXPECT_TRUE(messages().empty());
}

TEST_F(Template, RefusedTextIsNoTemplate) {
  EXPECT_EQ(decode("[ service A"), 0);
  EXPECT_EQ(status(), JT_SYNTAX_ERROR);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: Illegal end of block at ..."});
  EXPECT_EQ(live_nodes(space), 0);
}

TEST_F(Template, DecodedTwiceIsTwoTemplates) {
  const int32_t first = decode("[ service A ] end");
  const int32_t second = decode("[ service A ] end");
  EXPECT_NE(first, second);
  EXPECT_EQ(jt_add_service(space, second, "service", "B"), 1);
  EXPECT_EQ(encoded(first), kService);
  EXPECT_EQ(encoded(second), "[service A]\nend\n\n[service B]\nend\n\n");
  EXPECT_EQ(jt_destroy_template(space, first), 1);
  EXPECT_EQ(encoded(second), "[service A]\nend\n\n[service B]\nend\n\n");
}

TEST_F(Template, TextThatWasDecodedIsNotChangedNorNeededLater) {
  std::string text =
      "[ service kmt_svc_scan ] { timestamp t = 2009/01/02/03/04/05 ; ref_invocation r = a:b ; "
      "struct_magnification m = MANISO/100 ; } end";
  const std::string before = text;
  const int32_t handle = decode(text.c_str());
  EXPECT_EQ(text, before);
  text.assign(text.size(), 'x');
  EXPECT_EQ(
      encoded(handle),
      "[service kmt_svc_scan]\n {\n      timestamp t = 2009/01/02/03/04/05;\n      ref_invocation r = a:b;\n"
      "      struct_magnification m = MANISO/100;\n }\nend\n\n");
}

TEST_F(Template, DecodingResetsTheStatusAndKeepsTheMessages) {
  decode("[ service A");
  EXPECT_EQ(status(), JT_SYNTAX_ERROR);
  EXPECT_NE(decode("[ service A ] end"), 0);
  EXPECT_EQ(status(), JT_OK);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: Illegal end of block at ..."});
}

// ---- Encode ----

TEST_F(Template, EncodingMayBeRepeatedAndChangesNothing) {
  const int32_t handle = decode("[ service A ] end");
  EXPECT_EQ(encoded(handle), kService);
  EXPECT_EQ(encoded(handle), kService);
  EXPECT_EQ(live_nodes(space), 2);
}

TEST_F(Template, EncodedTextIsReleasedWithFreeOrTheCall) {
  const int32_t handle = decode("[ service A ] end");
  char *const first = jt_encode_template(space, handle);
  char *const second = jt_encode_template(space, handle);
  EXPECT_NE(first, second);
  std::free(first);
  EXPECT_EQ(jt_destroy_value_string(space, second), 1);
}

TEST_F(Template, EncodedTextOutlivesItsTemplate) {
  const int32_t handle = decode("[ service A ] end");
  const OwnedText text(jt_encode_template(space, handle));
  jt_destroy_template(space, handle);
  EXPECT_EQ(text.get(), kService);
}

// ---- Destroy ----

TEST_F(Template, DestroyedOneLeavesNoNode) {
  for (const char *const text :
       {"[ service A ] X { integer a = 1 , 2 ; } { } end", "< SIL 4.2.00 ASCII id > integer a = 1 ; < /SIL >",
        "<? SIL 4.2.00 ASCII id > < ? > [ service A ] end < /? > [ service B ] { } end < /SIL >",
        "<! SIL 4.2.00 ASCII id > < ! > [ service A ] end < /! > < /SIL >"}) {
    EXPECT_EQ(jt_destroy_template(space, decode(text)), 1) << text;
    EXPECT_EQ(status(), JT_OK) << text;
    EXPECT_EQ(live_nodes(space), 0) << text;
  }
}

TEST_F(Template, CannotBeDestroyedTwice) {
  const int32_t handle = jt_create_template(space);
  EXPECT_EQ(jt_destroy_template(space, handle), 1);
  EXPECT_EQ(jt_destroy_template(space, handle), 0);
  EXPECT_EQ(status(), JT_CALL_ERROR);
  EXPECT_EQ(messages(),
            (Messages{"SYSTEM ERROR: unknown opaque marker ...", "CALL ERROR: not a valid handle ..."}));
}

TEST_F(Template, DestroyedOneCannotBeEncoded) {
  const int32_t handle = jt_create_template(space);
  jt_destroy_template(space, handle);
  EXPECT_EQ(jt_encode_template(space, handle), nullptr);
  EXPECT_EQ(messages(),
            (Messages{"SYSTEM ERROR: unknown opaque marker ...", "CALL ERROR: not a valid handle ..."}));
}

TEST_F(Template, HandleOfADestroyedOneNamesTheNextNodeInItsSlot) {
  const int32_t handle = jt_create_template(space);
  jt_destroy_template(space, handle);
  EXPECT_EQ(decode("[ service A ] end"), handle);
  EXPECT_EQ(encoded(handle), kService);
}

TEST_F(Template, MayBeDestroyedThroughItsSection) {
  const int32_t root =
      decode("<? SIL 4.2.00 ASCII id > < ? > [ service A ] end < /? > [ service B ] end < /SIL >");
  const int32_t section = bookmark_to_opaque(opaque_to_node(space, root)->next_sibling->bookmark);
  EXPECT_EQ(jt_destroy_template(space, section), 1);
  EXPECT_EQ(live_nodes(space), 0);
}

TEST_F(Template, SectionAloneCannotBeEncoded) {
  const int32_t root = decode("<? SIL 4.2.00 ASCII id > < ? > [ service A ] end < /? > < /SIL >");
  const int32_t section = bookmark_to_opaque(opaque_to_node(space, root)->next_sibling->bookmark);
  EXPECT_EQ(jt_encode_template(space, section), nullptr);
  EXPECT_EQ(messages(), Messages{"SYSTEM ERROR: Language Version is missing ..."});
}

// ---- Handles that name no template ----

class BadHandle : public Template, public ::testing::WithParamInterface<int32_t> {
 protected:
  const Messages expected = {"SYSTEM ERROR: unknown opaque marker ...", "CALL ERROR: not a valid handle ..."};
};

TEST_P(BadHandle, CannotBeEncoded) {
  decode("[ service A ] end");
  EXPECT_EQ(jt_encode_template(space, GetParam()), nullptr);
  EXPECT_EQ(status(), JT_CALL_ERROR);
  EXPECT_EQ(messages(), expected);
}

TEST_P(BadHandle, CannotBeDestroyed) {
  const int32_t kept = decode("[ service A ] end");
  EXPECT_EQ(jt_destroy_template(space, GetParam()), 0);
  EXPECT_EQ(status(), JT_CALL_ERROR);
  EXPECT_EQ(messages(), expected);
  EXPECT_EQ(encoded(kept), kService);
}

INSTANTIATE_TEST_SUITE_P(OutsideTheTable, BadHandle,
                         ::testing::Values(0, 1, 5, 100, -1, -99, -102, -612, -100000,
                                           std::numeric_limits<int32_t>::max(),
                                           std::numeric_limits<int32_t>::min()));

class HandleOfAnotherNode : public Template {
 protected:
  // Handles of all nodes of a template but its root.
  std::vector<int32_t> others() {
    std::vector<int32_t> handles;
    for (int bookmark = 1; bookmark < 9; ++bookmark) handles.push_back(bookmark_to_opaque(bookmark));
    return handles;
  }

  // Header, its three attributes, service, invocation, attribute and value.
  const char *text = "< SIL 4.2.00 ASCII id > [ service kmt_svc_scan ] { integer a = 1 ; } end < /SIL >";
};

TEST_F(HandleOfAnotherNode, CannotBeEncoded) {
  for (const int32_t handle : others()) {
    reopen();
    decode(text);
    EXPECT_EQ(jt_encode_template(space, handle), nullptr) << handle;
    EXPECT_EQ(status(), JT_CALL_ERROR) << handle;
    EXPECT_EQ(messages(), Messages{"CALL ERROR: not a template ..."}) << handle;
  }
}

TEST_F(HandleOfAnotherNode, CannotBeDestroyed) {
  for (const int32_t handle : others()) {
    reopen();
    decode(text);
    EXPECT_EQ(jt_destroy_template(space, handle), 0) << handle;
    EXPECT_EQ(status(), JT_CALL_ERROR) << handle;
    EXPECT_EQ(messages(), Messages{"CALL ERROR: not a template ..."}) << handle;
    EXPECT_EQ(live_nodes(space), 9) << handle;
  }
}

TEST_F(Template, OfAnotherSessionIsNotReached) {
  jt_parser_space *const other = jt_open_parsing_utility("other");
  const int32_t handle = jt_decode_template(other, "[ service A ] end");
  EXPECT_EQ(jt_destroy_template(space, handle), 0);
  EXPECT_EQ(take_text(jt_encode_template(other, handle)), kService);
  jt_close_parsing_utility(other);
}

// ---- No session ----

TEST_F(Template, NothingIsDoneWithoutASession) {
  const int32_t handle = decode("[ service A ] end");
  EXPECT_EQ(jt_create_template(nullptr), 0);
  EXPECT_EQ(jt_decode_template(nullptr, "[ service A ] end"), 0);
  EXPECT_EQ(jt_decode_template(nullptr, nullptr), 0);
  EXPECT_EQ(jt_encode_template(nullptr, handle), nullptr);
  EXPECT_EQ(jt_destroy_template(nullptr, handle), 0);
  EXPECT_EQ(status(), JT_OK);
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(encoded(handle), kService);
}

TEST_F(Template, EveryCallResetsTheStatus) {
  const int32_t handle = jt_create_template(space);
  const auto after_error = [this](auto call) {
    jt_error(space, "WARNING: before", "");
    call();
    return status();
  };
  EXPECT_EQ(after_error([this] { jt_create_template(space); }), JT_OK);
  EXPECT_EQ(after_error([this] { jt_decode_template(space, nullptr); }), JT_OK);
  EXPECT_EQ(after_error([this, handle] { encoded(handle); }), JT_OK);
  EXPECT_EQ(after_error([this, handle] { jt_destroy_template(space, handle); }), JT_OK);
}

}  // namespace
}  // namespace jt_test
