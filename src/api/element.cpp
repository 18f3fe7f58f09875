// Calls that read any element of a template by its handle. The state of a walk is the caller's handle: no
// cursor moves. tests/api/element_test.cpp
#include "api/frame.h"
#include "api/node_effects.h"
#include "base/memory.h"
#include "tree/header.h"
#include "tree/iteration.h"
#include "tree/node.h"

namespace jt_core {
namespace {

const jt_node *header_of(const jt_node &node) { return is_section(node) ? nullptr : node.previous_sibling; }

// Root, header and section are linked beside each other: these links are not those of siblings.
const jt_node *parent_of(const jt_node &node) {
  if (is_header(node) || is_section(node)) return node.previous_sibling;
  if (is_header_attribute(node)) return node.first_child;
  return node.parent;
}

const jt_node *first_child_of(const jt_node &node) {
  return is_header_attribute(node) ? nullptr : node.first_child;
}

// A template, its section and its header have names of the library's own.
const char *name_of(const jt_node &node) {
  return is_header(node) || is_template(node) ? nullptr : node.name;
}

char *copy_if_there(jt_parser_space *space, const char *text) {
  return text != nullptr ? copy_text(space, text) : nullptr;
}

char *copy_header_word(jt_parser_space *space, const jt_node &root, const char *(*word)(const jt_node &)) {
  const jt_node *const header = header_of(root);
  return header != nullptr ? copy_if_there(space, word(*header)) : nullptr;
}

// The name of its type. That of a value is its attribute's; where an invocation knows no types of its own, its
// service's name stands there.
const char *type_name_of_element(const jt_node &node) {
  const bool asks_above = !has_known_type(node) && node.parent != nullptr;
  if (asks_above && has_pending_value(node)) return type_name_of(*node.parent);
  return asks_above && node.node_class == JT_NODE_INVOCATION ? node.parent->name : type_name_of(node);
}

Frame in_element(jt_parser_space *space, std::int32_t handle) { return Frame(space).in_element(handle); }

}  // namespace
}  // namespace jt_core

extern "C" {

int32_t jt_root(jt_parser_space *space, int32_t element) {
  const jt_core::Frame at = jt_core::in_element(space, element);
  if (!at) return 0;
  const jt_node *node = &at.element();
  while (const jt_node *const parent = jt_core::parent_of(*node)) node = parent;
  return jt_core::handle_of(space, node);
}

int32_t jt_header(jt_parser_space *space, int32_t handle) {
  const jt_core::Frame at = jt_core::Frame(space).in_template(handle);
  return at ? jt_core::handle_of(space, jt_core::header_of(at.root())) : 0;
}

int32_t jt_section(jt_parser_space *space, int32_t handle) {
  const jt_core::Frame at = jt_core::Frame(space).in_template(handle);
  return at ? jt_core::handle_of(space, at.root().next_sibling) : 0;
}

char *jt_header_version(jt_parser_space *space, int32_t handle) {
  const jt_core::Frame at = jt_core::Frame(space).in_template(handle);
  return at ? jt_core::copy_header_word(space, at.root(), jt_core::version_of) : nullptr;
}

char *jt_header_identifier(jt_parser_space *space, int32_t handle) {
  const jt_core::Frame at = jt_core::Frame(space).in_template(handle);
  return at ? jt_core::copy_header_word(space, at.root(), jt_core::identifier_of) : nullptr;
}

int32_t jt_parent(jt_parser_space *space, int32_t element) {
  const jt_core::Frame at = jt_core::in_element(space, element);
  return at ? jt_core::handle_of(space, jt_core::parent_of(at.element())) : 0;
}

int32_t jt_first_child(jt_parser_space *space, int32_t element) {
  const jt_core::Frame at = jt_core::in_element(space, element);
  return at ? jt_core::handle_of(space, jt_core::first_child_of(at.element())) : 0;
}

// What has no parent stands in the ring of a template, or is loose.
int32_t jt_next_sibling(jt_parser_space *space, int32_t element) {
  const jt_core::Frame at = jt_core::in_element(space, element);
  return at && at.element().parent != nullptr ? jt_core::handle_of(space, at.element().next_sibling) : 0;
}

int32_t jt_find_child(jt_parser_space *space, int32_t element, const char *name) {
  const jt_core::Frame at = jt_core::in_element(space, element);
  if (!at || jt_core::first_child_of(at.element()) == nullptr) return 0;
  return jt_core::handle_of(space, get_child(space, &at.element(), name));
}

int32_t jt_element_kind(jt_parser_space *space, int32_t element) {
  const jt_core::Frame at = jt_core::in_element(space, element);
  return at ? at.element().node_class : -1;
}

char *jt_element_name(jt_parser_space *space, int32_t element) {
  const jt_core::Frame at = jt_core::in_element(space, element);
  return at ? jt_core::copy_if_there(space, jt_core::name_of(at.element())) : nullptr;
}

char *jt_element_type(jt_parser_space *space, int32_t element) {
  const jt_core::Frame at = jt_core::in_element(space, element);
  return at ? jt_core::copy_if_there(space, jt_core::type_name_of_element(at.element())) : nullptr;
}

char *jt_element_value_text(jt_parser_space *space, int32_t element) {
  const jt_core::Frame at = jt_core::in_element(space, element);
  return at ? jt_core::copy_text_of_value(space, at.element()) : nullptr;
}

char *jt_element_comment(jt_parser_space *space, int32_t element) {
  const jt_core::Frame at = jt_core::in_element(space, element);
  return at ? jt_core::copy_if_there(space, at.element().comment) : nullptr;
}

jt_status *jt_element_status(jt_parser_space *space, int32_t element) {
  const jt_core::Frame at = jt_core::in_element(space, element);
  return at ? copy_status(space, at.element().status) : nullptr;
}

char *jt_element_status_text(jt_parser_space *space, int32_t element) {
  const jt_core::Frame at = jt_core::in_element(space, element);
  return at ? jt_core::copy_if_there(space, at.element().overridden_value) : nullptr;
}

int32_t jt_element_flags(jt_parser_space *space, int32_t element) {
  const jt_core::Frame at = jt_core::in_element(space, element);
  if (!at) return -1;
  const jt_node &node = at.element();
  return (node.non_compulsory ? JT_ELEMENT_NON_COMPULSORY : 0) |
         (jt_core::has_known_type(node) ? 0 : JT_ELEMENT_TYPE_UNKNOWN) |
         (node.overridden_value != nullptr ? JT_ELEMENT_OVERRIDDEN : 0);
}

}  // extern "C"
