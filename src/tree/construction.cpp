#include "tree/construction.h"

#include <cstring>

#include "base/memory.h"
#include "tree/bookmarks.h"
#include "tree/node.h"
#include "tree/node_storage.h"
#include "tree/session.h"
#include "types/type_tables.h"

namespace jt_core {
namespace {

// One more than there are classes: no look-up has a type for it, and that is what is reported.
constexpr std::int32_t kMaxNodeClass = 9;

// Gives the node its place in the table, or takes the node back.
jt_node *registered(jt_parser_space &space, jt_node *node) {
  node->bookmark = assign_bookmark(&space, node);
  if (node->bookmark >= 0) return node;
  report(&space, message::kNoBookmark);
  release_node(space, node);
  return nullptr;
}

// Gives the field a copy of the text; false after a report with the text.
bool set_text(jt_parser_space &space, InlineStorage &storage, char *&field, std::string_view text) {
  field = storage.place(text);
  if (field == nullptr) report(&space, message::kNoNodeText, text);
  return field != nullptr;
}

void init_typed_node(jt_node &node, const jt_type *type, std::int32_t node_class, std::string_view name) {
  node.node_class = static_cast<std::int16_t>(node_class);
  node.type = type;
  node.cursor = not_started();
  node.key_hash = name_hash(name);
}

jt_node *finish_value_node(jt_parser_space &space, jt_node &node, const jt_type *type, jt_value *value) {
  node.node_class = JT_NODE_VALUE;
  node.type = type;
  node.value = value;
  return registered(space, &node);
}

// The node of a value that is a block of its own, with which the value goes.
jt_node *make_node_of_block(jt_parser_space &space, const jt_type *type, jt_value *value, ReleasedBy owner,
                            std::string_view detail) {
  jt_node *const node = allocate_node(space, 0);
  if (node == nullptr) {
    report(&space, message::kNoValueNode, detail);
    release_value(space, space.heap, *type, value, owner);
    return nullptr;
  }
  adopt_value(*node, value, owner);
  return finish_value_node(space, *node, type, value);
}

// The node of a value that has been laid out in the sink.
jt_node *make_node_of_sink(jt_parser_space &space, const NodeSink &sink, const jt_type *type, jt_value *value,
                           std::string_view detail) {
  return sink.node != nullptr ? finish_value_node(space, *sink.node, type, value)
                              : make_node_of_block(space, type, value, ReleasedBy::kHeap, detail);
}

ValueResult result_of(jt_node *node) {
  return {node != nullptr ? CreateStatus::kMade : CreateStatus::kNoMemory, node};
}

jt_node *make_untyped_value_node(jt_parser_space &space, std::string_view text) {
  jt_node *const node = allocate_node(space, text.size() + 1);
  if (node == nullptr) {
    report(&space, message::kNoValueNode, text);
    return nullptr;
  }
  node->node_class = JT_NODE_VALUE;
  node->type = unknown_type();
  node->value = untyped_value();
  node->pending_value = InlineStorage(space, *node).place(text);
  if (node->pending_value != nullptr) return registered(space, node);
  report(&space, message::kNoPendingValue, text);
  release_node(space, node);
  return nullptr;
}

ValueResult make_known_value_node(jt_parser_space &space, const jt_type *type, const ValueFamily &family,
                                  std::string_view text, Remarks *remarks) {
  NodeSink sink;
  sink.remarks = remarks;
  const ReadResult read = family.read(&space, text, sink);
  if (read.status == ReadStatus::kMade) {
    return result_of(make_node_of_sink(space, sink, type, read.value, text));
  }
  if (read.status == ReadStatus::kRefused) return {CreateStatus::kRefused, nullptr};
  report(&space, message::kNoValueNode, text);
  return {CreateStatus::kNoMemory, nullptr};
}

// A client's type may write into the text that it reads, and make and release whatever values it likes before
// it gives one: it is given a copy, and its value is a block of its own.
jt_node *make_foreign_value_node(jt_parser_space &space, const jt_type *type, const char *text) {
  if (type->eval == nullptr) return nullptr;
  space.bulk_release_unsafe = true;
  char *const copy = copy_text(&space, text);
  if (copy == nullptr) {
    report(&space, message::kNoValueNode, text);
    return nullptr;
  }
  jt_value *const value = type->eval(&space, copy);
  er_free(copy);
  return value != nullptr ? make_node_of_block(space, type, value, ReleasedBy::kType, text) : nullptr;
}

// The node of a copy of a value; null without memory or where a client's type gives none, after its reports.
jt_node *copy_into_node(jt_parser_space &space, const jt_type *type, const jt_value *value,
                        std::string_view detail) {
  NodeSink sink;
  const ValueFamily *const family = family_of(type);
  if (family == nullptr) space.bulk_release_unsafe = true;
  jt_value *const copy =
      family != nullptr ? family->operations->copy(&space, value, sink) : type->copy(&space, value);
  if (copy == nullptr) {
    report(&space, message::kCannotCopy);
    return nullptr;
  }
  return family != nullptr ? make_node_of_sink(space, sink, type, copy, detail)
                           : make_node_of_block(space, type, copy, ReleasedBy::kType, detail);
}

}  // namespace

jt_node *make_typed_node(jt_parser_space &space, const jt_type *type, const char *type_name,
                         std::string_view name, std::int32_t node_class) {
  const bool keeps_type_name = type == unknown_type() && type_name != nullptr;
  const std::string_view unresolved = keeps_type_name ? std::string_view(type_name) : std::string_view();
  const std::size_t name_bytes = name.empty() ? 0 : name.size() + 1;
  jt_node *const node = allocate_node(space, name_bytes + (keeps_type_name ? unresolved.size() + 1 : 0));
  if (node == nullptr) {
    report(&space, message::kNoNode, name);
    return nullptr;
  }
  init_typed_node(*node, type, node_class, name);
  InlineStorage storage(space, *node);
  const bool complete =
      (name.empty() || set_text(space, storage, node->name, name)) &&
      (!keeps_type_name || set_text(space, storage, node->unresolved_type_name, unresolved));
  if (complete) return registered(space, node);
  release_node(space, node);
  return nullptr;
}

jt_node *make_header_attribute(jt_parser_space &space, std::string_view name, std::string_view text) {
  jt_node *const node = allocate_node(space, name.size() + 1 + text.size() + 1);
  if (node == nullptr) {
    report(&space, message::kNoNode, name);
    return nullptr;
  }
  init_typed_node(*node, find_base_type("string"), JT_NODE_ATTRIBUTE, name);
  InlineStorage storage(space, *node);
  if (set_text(space, storage, node->name, name)) {
    node->value = reinterpret_cast<jt_value *>(storage.place(text));
    node->keeps_value = true;
    if (node->value != nullptr) return registered(space, node);
  }
  release_node(space, node);
  return nullptr;
}

ValueResult make_value_node(jt_parser_space &space, const jt_type *type, const ValueFamily *family,
                            std::string_view text, Remarks *remarks) {
  if (type == unknown_type()) return result_of(make_untyped_value_node(space, text));
  if (family == nullptr) return {CreateStatus::kRefused, nullptr};
  return make_known_value_node(space, type, *family, text, remarks);
}

}  // namespace jt_core

extern "C" {

jt_node *create_typed_node(jt_parser_space *space, const char *type_name, const char *node_name,
                           int32_t node_class, jt_node *enclosing) {
  if (node_class < 0 || node_class > jt_core::kMaxNodeClass) {
    jt_core::report(space, jt_core::message::kUnknownNodeClass);
    return nullptr;
  }
  const jt_type *const type = jt_get_type(space, type_name, node_class, enclosing);
  if (space == nullptr || type == nullptr) return nullptr;
  return jt_core::make_typed_node(*space, type, type_name, jt_core::view_of(node_name), node_class);
}

jt_node *create_value_node(jt_parser_space *space, const jt_type *type, const char *text) {
  if (space == nullptr || type == nullptr || text == nullptr) return nullptr;
  const jt_core::ValueFamily *const family = jt_core::family_of(type);
  if (family == nullptr && type != jt_core::unknown_type())
    return jt_core::make_foreign_value_node(*space, type, text);
  return jt_core::make_value_node(*space, type, family, text).node;
}

jt_node *create_value_ptr_node(jt_parser_space *space, const jt_type *type, const jt_value *value) {
  if (space == nullptr || type == nullptr || type == jt_core::unknown_type() || value == nullptr)
    return nullptr;
  if (type->copy == nullptr) {
    jt_error(space, jt_core::message::kNoCopyFunction, type->name);
    return nullptr;
  }
  const bool is_text = jt_core::same_name(jt_core::view_of(type->name), "string");
  const char *const detail = is_text ? reinterpret_cast<const char *>(value) : "";
  return jt_core::copy_into_node(*space, type, value, detail);
}

}  // extern "C"
