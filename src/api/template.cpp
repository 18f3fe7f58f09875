// Template calls: the life of a whole template.
// tests/api/template_test.cpp
#include "api/frame.h"
#include "tree/node.h"

namespace {

int32_t handle_of(const jt_node *root) { return root != nullptr ? bookmark_to_opaque(root->bookmark) : 0; }

}  // namespace

extern "C" {

int32_t jt_create_template(jt_parser_space *space) {
  if (!jt_core::Frame(space)) return 0;
  return handle_of(create_typed_node(space, "template", "template", JT_NODE_TEMPLATE, nullptr));
}

int32_t jt_decode_template(jt_parser_space *space, const char *text) {
  return jt_core::Frame(space) ? handle_of(decode_template_string(space, text)) : 0;
}

char *jt_encode_template(jt_parser_space *space, int32_t handle) {
  const jt_core::Frame at = jt_core::Frame(space).in_template(handle);
  return at ? encode_template(space, &at.root()) : nullptr;
}

int32_t jt_destroy_template(jt_parser_space *space, int32_t handle) {
  const jt_core::Frame at = jt_core::Frame(space).in_template(handle);
  return at ? destroy_all_nodes(space, &at.root()) : 0;
}

}  // extern "C"
