// Calls that change any element of a template by its handle. What would not be read back as it was set is refused,
// and a call that fails changes nothing: tests/api/element_change_test.cpp
#include <utility>

#include "api/frame.h"
#include "api/node_effects.h"
#include "base/memory.h"
#include "sil/read_back.h"
#include "tree/child_index.h"
#include "tree/comment.h"
#include "tree/node.h"
#include "tree/node_storage.h"
#include "types/status.h"
#include "types/type_tables.h"

namespace jt_core {
namespace {

constexpr ElementKinds kAttributes = kinds_of(JT_NODE_ATTRIBUTE);
constexpr ElementKinds kValues = kinds_of(JT_NODE_VALUE);
constexpr ElementKinds kCommented = kBlocks | kinds_of(JT_NODE_TEMPLATE, JT_NODE_HEADER_QUESTION,
                                                       JT_NODE_HEADER_PLAIN, JT_NODE_HEADER_EXCLAIM);

// What a call does with the element that it names. All have the same frame.
using Change = std::int32_t (*)(jt_parser_space *space, jt_node &node, const char *text);

// Where an argument is missing, the message says so.
std::int32_t change(jt_parser_space *space, std::int32_t element, ElementKinds kinds, const char *text,
                    Change make, const char *missing = nullptr) {
  const Frame at = Frame(space).needs(missing == nullptr, missing).in_element_of(element, kinds);
  return at ? make(space, at.element(), text) : 0;
}

// ---- Comments and stars -----------------------------------------------------------------------------------

// The text may be part of the old comment, which goes last, and comes back where there is no memory.
std::int32_t set_comment(jt_parser_space *space, jt_node &node, const char *comment) {
  const std::string_view text = view_of(comment);
  if (!is_comment(text)) return refuse(space, message::kNotReadBack, text);
  char *old = std::exchange(node.comment, nullptr);
  const bool set = text.empty() || append_comment(*space, node, text);
  if (set) std::swap(node.comment, old);
  release_comment(node);
  node.comment = old;
  return set ? 1 : 0;
}

std::int32_t set_star(jt_parser_space * /*space*/, jt_node &node, const char * /*text*/) {
  node.non_compulsory = true;
  return 1;
}

std::int32_t remove_star(jt_parser_space * /*space*/, jt_node &node, const char * /*text*/) {
  node.non_compulsory = false;
  return 1;
}

// ---- Statuses ---------------------------------------------------------------------------------------------

std::int32_t remove_status(jt_node &node) {
  adopt_status(node, nullptr);
  release_text(node, node.overridden_value);
  return 1;
}

std::int32_t set_status_name(jt_parser_space *space, jt_node &node, const char *name) {
  if (name == nullptr) return remove_status(node);
  if (!contains(kStatusName, kind_written(name))) return refuse(space, message::kNotReadBack, name);
  const jt_status *status = find_shared_status(name);
  if (status == nullptr) status = status_of_name(space, heap_of(node), name);
  if (status == nullptr) return 0;
  adopt_status(node, status);
  return 1;
}

// An empty text in the braces of a service's status is read as none.
bool may_stand_in_braces(const jt_node &node, const char *text) {
  const TokenSet nothing = node.node_class != JT_NODE_SERVICE ? one_of(TokenKind::kEndOfText) : 0;
  const TokenSet words = node.node_class == JT_NODE_ATTRIBUTE ? kAttributeStatusText : kBlockStatusText;
  return contains(words | nothing, kind_written(text));
}

std::int32_t set_status_text(jt_parser_space *space, jt_node &node, const char *text) {
  if (text == nullptr) {
    release_text(node, node.overridden_value);
    return 1;
  }
  if (node.status == nullptr || status_text(nullptr, node.status).empty())
    return refuse(space, message::kStatusMissing);
  if (!may_stand_in_braces(node, text)) return refuse(space, message::kNotReadBack, text);
  char *const copy = keep_text(space, heap_of(node), view_of(text));
  if (copy == nullptr) return 0;
  release_text(node, node.overridden_value);
  node.overridden_value = copy;
  set_owns_heap_blocks(node);
  return 1;
}

// ---- Values -----------------------------------------------------------------------------------------------

// A client's own type may write into the text that it reads, and need not be able to read any.
jt_value *read_foreign_value(jt_parser_space *space, const jt_type &type, const char *text) {
  if (type.eval == nullptr) return nullptr;
  char *const copy = copy_text(space, view_of(text));
  jt_value *const value = copy != nullptr ? type.eval(space, copy) : nullptr;
  er_free(copy);
  return value;
}

std::int32_t set_known_value(jt_parser_space *space, jt_node &node, const char *text) {
  const ValueFamily *const family = family_of(node.type);
  KeptSink sink(heap_of(node));
  jt_value *const value = family != nullptr ? family->read(space, view_of(text), sink).value
                                            : read_foreign_value(space, *node.type, text);
  if (value == nullptr) return 0;
  replace_value(*space, *node.parent, node, value, family != nullptr ? ReleasedBy::kHeap : ReleasedBy::kType);
  return 1;
}

std::int32_t set_pending_value(jt_parser_space *space, jt_node &node, const char *text) {
  char *const copy = keep_text(space, heap_of(node), view_of(text));
  if (copy == nullptr) return 0;
  unindex_child(*node.parent, node);
  release_text(node, node.pending_value);
  node.pending_value = copy;
  set_owns_heap_blocks(node);
  index_child(*node.parent, node);
  return 1;
}

// A node of this class that was made with a name has no value.
std::int32_t set_value_text(jt_parser_space *space, jt_node &node, const char *text) {
  if (has_pending_value(node)) return set_pending_value(space, node, text);
  return node.value != nullptr ? set_known_value(space, node, text) : refuse(space, message::kWrongKind);
}

std::int32_t add_value_text(jt_parser_space *space, jt_node &node, const char *text) {
  jt_node *const value = create_value_node(space, node.type, text);
  return add_or_destroy(space, node, value, add_child) != 0 ? handle_of(space, value) : 0;
}

// ---- Any of them ------------------------------------------------------------------------------------------

std::int32_t remove(jt_parser_space *space, jt_node &node, const char * /*text*/) {
  return destroy_node(space, &node);
}

}  // namespace
}  // namespace jt_core

extern "C" {

int32_t jt_set_element_comment(jt_parser_space *space, int32_t element, const char *comment) {
  return jt_core::change(space, element, jt_core::kCommented, comment, jt_core::set_comment);
}

int32_t jt_set_element_status(jt_parser_space *space, int32_t element, const char *name) {
  return jt_core::change(space, element, jt_core::kBlocks, name, jt_core::set_status_name);
}

int32_t jt_set_element_status_text(jt_parser_space *space, int32_t element, const char *text) {
  return jt_core::change(space, element, jt_core::kBlocks, text, jt_core::set_status_text);
}

int32_t jt_set_element_non_compulsory(jt_parser_space *space, int32_t element, int32_t non_compulsory) {
  const auto set = non_compulsory != 0 ? jt_core::set_star : jt_core::remove_star;
  return jt_core::change(space, element, jt_core::kAttributes, nullptr, set);
}

int32_t jt_set_element_value_text(jt_parser_space *space, int32_t element, const char *text) {
  const char *const missing = text == nullptr ? jt_core::message::kNullValue : nullptr;
  return jt_core::change(space, element, jt_core::kValues, text, jt_core::set_value_text, missing);
}

int32_t jt_add_element_value_text(jt_parser_space *space, int32_t element, const char *text) {
  const char *const missing = text == nullptr ? jt_core::message::kNullValue : nullptr;
  return jt_core::change(space, element, jt_core::kAttributes, text, jt_core::add_value_text, missing);
}

int32_t jt_remove_element(jt_parser_space *space, int32_t element) {
  return jt_core::change(space, element, jt_core::kBlocks | jt_core::kValues, nullptr, jt_core::remove);
}

}  // extern "C"
