#include "tree/construction.h"

#include <cstring>

#include "foundation/parser_space.h"
#include "tree/node.h"
#include "tree/node_storage.h"
#include "types/type_tables.h"

namespace jt {
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

// Stores a copy of the text in the field; false after a report with the text.
bool keep_text(jt_parser_space &space, NodeRoom &room, char *&field, std::string_view text) {
  field = room.place(text);
  if (field == nullptr) report(&space, message::kNoNodeText, text);
  return field != nullptr;
}

void give_kind(jt_node &node, const jt_type *type, std::int32_t node_class, std::string_view name) {
  node.node_class = static_cast<std::int16_t>(node_class);
  node.type = type;
  node.cursor = not_started();
  node.key_hash = name_hash(name);
}

// The node of a value that eval or copy has just laid out.
jt_node *finish_value_node(jt_parser_space &space, const ValuePlacement &placement, const jt_type *type,
                           jt_value *value, std::string_view detail) {
  const bool of_its_own = placement.node() == nullptr;
  jt_node *const node = of_its_own ? take_node(space, 0) : placement.node();
  if (node == nullptr) {
    report(&space, message::kNoValueNode, detail);
    if (type->kill != nullptr) type->kill(&space, value);
    return nullptr;
  }
  if (of_its_own) mark_owner(*node);
  node->node_class = JT_NODE_VALUE;
  node->type = type;
  node->value = value;
  return registered(space, node);
}

MadeValue made(jt_node *node) { return {node != nullptr ? Making::kMade : Making::kNoMemory, node}; }

jt_node *make_untyped_value_node(jt_parser_space &space, std::string_view text) {
  jt_node *const node = take_node(space, text.size() + 1);
  if (node == nullptr) {
    report(&space, message::kNoValueNode, text);
    return nullptr;
  }
  node->node_class = JT_NODE_VALUE;
  node->type = unknown_type();
  node->value = untyped_value();
  node->pending_value = NodeRoom(space, *node).place(text);
  if (node->pending_value != nullptr) return registered(space, node);
  report(&space, message::kNoPendingValue, text);
  release_node(space, node);
  return nullptr;
}

MadeValue make_known_value_node(jt_parser_space &space, const jt_type *type, char *text,
                                std::string_view shown, bool of_library) {
  if (type->eval == nullptr) return {Making::kRefused, nullptr};
  const ValuePlacement placement(space, of_library, {text, shown.size()});
  jt_value *const value = type->eval(&space, text);
  if (value != nullptr) return made(finish_value_node(space, placement, type, value, shown));
  if (!placement.failed()) return {Making::kRefused, nullptr};
  report(&space, message::kNoValueNode, shown);
  return {Making::kNoMemory, nullptr};
}

}  // namespace

jt_node *make_typed_node(jt_parser_space &space, const jt_type *type, const char *type_name,
                         std::string_view name, std::int32_t node_class) {
  const bool keeps_type_name = type == unknown_type() && type_name != nullptr;
  const std::string_view unresolved = keeps_type_name ? std::string_view(type_name) : std::string_view();
  const std::size_t name_room = name.empty() ? 0 : name.size() + 1;
  jt_node *const node = take_node(space, name_room + (keeps_type_name ? unresolved.size() + 1 : 0));
  if (node == nullptr) {
    report(&space, message::kNoNode, name);
    return nullptr;
  }
  give_kind(*node, type, node_class, name);
  NodeRoom room(space, *node);
  const bool complete = (name.empty() || keep_text(space, room, node->name, name)) &&
                        (!keeps_type_name || keep_text(space, room, node->unresolved_type_name, unresolved));
  if (complete) return registered(space, node);
  release_node(space, node);
  return nullptr;
}

jt_node *make_header_attribute(jt_parser_space &space, std::string_view name, std::string_view text) {
  jt_node *const node = take_node(space, name.size() + 1 + text.size() + 1);
  if (node == nullptr) {
    report(&space, message::kNoNode, name);
    return nullptr;
  }
  give_kind(*node, find_base_type("string"), JT_NODE_ATTRIBUTE, name);
  NodeRoom room(space, *node);
  if (keep_text(space, room, node->name, name)) {
    node->value = reinterpret_cast<jt_value *>(room.place(text));
    if (node->value != nullptr) return registered(space, node);
  }
  release_node(space, node);
  return nullptr;
}

MadeValue make_value_node(jt_parser_space &space, const jt_type *type, char *text, std::string_view shown,
                          bool of_library) {
  return type == unknown_type() ? made(make_untyped_value_node(space, text))
                                : make_known_value_node(space, type, text, shown, of_library);
}

}  // namespace jt

extern "C" {

jt_node *create_typed_node(jt_parser_space *space, const char *type_name, const char *node_name,
                           int32_t node_class, jt_node *enclosing) {
  if (node_class < 0 || node_class > jt::kMaxNodeClass) {
    jt::report(space, jt::message::kUnknownNodeClass);
    return nullptr;
  }
  const jt_type *const type = jt_get_type(space, type_name, node_class, enclosing);
  if (space == nullptr || type == nullptr) return nullptr;
  return jt::make_typed_node(*space, type, type_name, jt::view_of(node_name), node_class);
}

// The type may write into the text that it reads, so it is given a copy.
jt_node *create_value_node(jt_parser_space *space, const jt_type *type, const char *text) {
  if (space == nullptr || type == nullptr || text == nullptr) return nullptr;
  char *const copy = jt::copy_text(space, text);
  if (copy == nullptr) {
    jt::report(space, jt::message::kNoValueNode, text);
    return nullptr;
  }
  jt_node *const node = jt::make_value_node(*space, type, copy, text, jt::is_library_type(type)).node;
  er_free(copy);
  return node;
}

jt_node *create_value_ptr_node(jt_parser_space *space, const jt_type *type, const jt_value *value) {
  if (space == nullptr || type == nullptr || type == jt::unknown_type() || value == nullptr) return nullptr;
  if (type->copy == nullptr) {
    jt_error(space, jt::message::kNoCopyFunction, type->name);
    return nullptr;
  }
  const jt::ValuePlacement placement(*space, jt::is_library_type(type), {});
  jt_value *const copy = type->copy(space, value);
  if (copy == nullptr) {
    jt::report(space, jt::message::kCannotCopy);
    return nullptr;
  }
  const bool is_text = jt::same_name(jt::view_of(type->name), "string");
  const char *const detail = is_text ? reinterpret_cast<const char *>(value) : "";
  return jt::finish_value_node(*space, placement, type, copy, detail);
}

}  // extern "C"
