#include "api/node_effects.h"

#include "base/error_store.h"
#include "base/memory.h"
#include "tree/child_index.h"
#include "tree/links.h"
#include "tree/node.h"
#include "tree/node_storage.h"
#include "tree/session.h"

namespace jt_core {

char *copy_type_name(jt_parser_space *space, const jt_node &node, const char *node_name) {
  const bool known = has_known_type(node);
  const char *const type_name = type_name_of(node);
  if (type_name == nullptr) {
    report(space, known ? message::kNamelessType : message::kNoTypeName);
    return nullptr;
  }
  char *const copy = copy_plain_text(type_name);
  if (copy == nullptr && known) jt_error(space, message::kNoKnownTypeCopy, node_name);
  if (copy == nullptr && !known) report(space, message::kNoUnknownTypeCopy, type_name);
  return copy;
}

std::int32_t add_or_destroy(jt_parser_space *space, jt_node &parent, jt_node *node, AddOperation add) {
  if (node == nullptr) return 0;
  if (add(space, &parent, node) != 0) return 1;
  destroy_node(space, node);
  return 0;
}

void replace_value(jt_parser_space &space, jt_node &attribute, jt_node &stored, jt_value *value,
                   ReleasedBy owner) {
  unindex_child(attribute, stored);
  release_value(space, stored);
  adopt_value(stored, value, owner);
  index_child(attribute, stored);
}

std::int32_t handle_of(const jt_parser_space *space, const jt_node *node) {
  const bool ours = node != nullptr && holds_node(space->table, node->bookmark, node);
  return ours ? bookmark_to_opaque(node->bookmark) : 0;
}

std::int32_t refuse(jt_parser_space *space, const char *message, std::string_view detail) {
  report(space, message, detail);
  return 0;
}

}  // namespace jt_core
