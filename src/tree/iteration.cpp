// Walking the children of a node with the cursor that the node keeps. A read returns a copy that the caller
// owns; whether it moves the cursor on depends on how far it came.
// tests/tree/iteration_test.cpp
#include "base/error_store.h"
#include "base/memory.h"
#include "tree/links.h"
#include "tree/node.h"

namespace jt_core {
namespace {

// What was read, and whether the read came far enough to move on.
template <typename Result>
struct Read {
  Result *result;
  bool moves;
};

Read<char> read_name(jt_parser_space *space, const jt_node & /*parent*/, const jt_node &child) {
  if (child.name == nullptr) return {nullptr, true};
  char *const copy = copy_plain_text(child.name);
  if (copy == nullptr) jt_error(space, message::kNoNameCopy, nullptr);
  return {copy, copy != nullptr};
}

Read<jt_value> read_value(jt_parser_space *space, const jt_node &parent, const jt_node &child) {
  if (!has_known_type(child)) {
    jt_error(space, message::kUntypedValue, parent.unresolved_type_name);
    return {nullptr, false};
  }
  if (child.type->copy == nullptr) {
    jt_error(space, message::kNoCopyFunction, child.type->name);
    return {nullptr, false};
  }
  return {child.type->copy(space, child.value), true};
}

Read<char> read_pending_value(jt_parser_space *space, const jt_node &child) {
  if (!has_pending_value(child)) return {nullptr, false};
  char *const copy = copy_plain_text(child.pending_value);
  if (copy == nullptr) report(space, message::kNoPendingCopy, child.pending_value);
  return {copy, copy != nullptr};
}

Read<char> read_value_text(jt_parser_space *space, const jt_node & /*parent*/, const jt_node &child) {
  if (!has_known_type(child)) return read_pending_value(space, child);
  if (child.type->deval == nullptr) {
    jt_error(space, message::kNoDevalFunction, child.type->name);
    return {nullptr, false};
  }
  return {child.type->deval(space, child.value), true};
}

template <typename Result>
using Reader = Read<Result> (*)(jt_parser_space *space, const jt_node &parent, const jt_node &child);

template <typename Result>
Result *read_at_cursor(jt_parser_space *space, jt_node *parent, Reader<Result> reader) {
  if (parent == nullptr) return nullptr;
  start_cursor(*parent);
  if (parent->cursor == nullptr) return nullptr;
  const Read<Result> read = reader(space, *parent, *parent->cursor);
  if (read.moves) parent->cursor = parent->cursor->next_sibling;
  return read.result;
}

// The cursor is moved only once the pointer is known to be good: null when there is nothing to walk.
jt_node *first_of(jt_node *parent) { return parent != nullptr ? parent->first_child : nullptr; }

}  // namespace
}  // namespace jt_core

extern "C" {

char *index_child_name(jt_parser_space *space, jt_node *parent) {
  return jt_core::read_at_cursor(space, parent, jt_core::read_name);
}

jt_value *index_child_value(jt_parser_space *space, jt_node *parent) {
  return jt_core::read_at_cursor(space, parent, jt_core::read_value);
}

char *index_child_value_string(jt_parser_space *space, jt_node *parent) {
  return jt_core::read_at_cursor(space, parent, jt_core::read_value_text);
}

char *first_child_name(jt_parser_space *space, jt_node *parent) {
  const jt_node *const first = jt_core::first_of(parent);
  if (first == nullptr) return nullptr;
  const jt_core::Read<char> read = jt_core::read_name(space, *parent, *first);
  if (read.moves) parent->cursor = first->next_sibling;
  return read.result;
}

// Unlike the read at the cursor, this one moves first and asks for the type of the parent before the child's.
jt_value *first_child_value(jt_parser_space *space, jt_node *parent) {
  const jt_node *const first = jt_core::first_of(parent);
  if (first == nullptr) return nullptr;
  parent->cursor = first->next_sibling;
  if (!jt_core::has_known_type(*parent)) {
    jt_error(space, jt_core::message::kUntypedValue, parent->unresolved_type_name);
    return nullptr;
  }
  return jt_core::read_value(space, *parent, *first).result;
}

char *first_child_value_string(jt_parser_space *space, jt_node *parent) {
  jt_node *const first = jt_core::first_of(parent);
  if (first == nullptr) return nullptr;
  const jt_core::Read<char> read = jt_core::read_value_text(space, *parent, *first);
  parent->cursor = read.result != nullptr ? first->next_sibling : first;
  return read.result;
}

int32_t advance_index(jt_parser_space *space, jt_node *parent) {
  if (parent == nullptr) {
    jt_core::report(space, jt_core::message::kNullNode);
    return 0;
  }
  jt_core::start_cursor(*parent);
  if (parent->cursor != nullptr) parent->cursor = parent->cursor->next_sibling;
  return parent->cursor != nullptr ? 1 : 0;
}

int32_t reset_index(jt_parser_space *space, jt_node *parent) {
  if (parent == nullptr) {
    jt_core::report(space, jt_core::message::kNullNode);
    return 0;
  }
  parent->cursor = parent->first_child;
  return 1;
}

}  // extern "C"
