#include "tree/node_storage.h"

#include <cstring>

#include "base/memory.h"
#include "tree/child_index.h"
#include "tree/comment.h"
#include "tree/node.h"
#include "tree/session.h"
#include "types/status.h"

namespace jt_core {
namespace {

static_assert(alignof(jt_node) == kCellUnit);

constexpr std::size_t kMaxInline = kMaxCell - sizeof(jt_node);

bool is_block_of_its_own(const jt_node &node, const void *address) {
  return address != nullptr && !in_cell(&node, address);
}

bool owns_status(const jt_node &node) { return node.status != nullptr && !is_shared_status(node.status); }

void release_status(jt_node &node) {
  if (owns_status(node)) heap_of(node).release(const_cast<jt_status *>(node.status));
  node.status = nullptr;
}

}  // namespace

jt_node *allocate_node(jt_parser_space &space, std::size_t bytes) {
  const std::size_t inline_bytes = bytes <= kMaxInline ? bytes : 0;
  auto *const node = static_cast<jt_node *>(allocate_cell(space.arena, sizeof(jt_node) + inline_bytes));
  if (node == nullptr) {
    report(&space, message::kAllocation);
    return nullptr;
  }
  static constexpr jt_node kEmpty = {};
  const CellHead head = node->cell;
  std::memcpy(node, &kEmpty, sizeof(kEmpty));
  node->cell = head;
  return node;
}

InlineStorage::InlineStorage(jt_parser_space &space, jt_node &node)
    : space_(space), node_(node), used_(sizeof(jt_node)) {}

char *InlineStorage::place(std::string_view text) {
  if (node_.cell.units() * kCellUnit < used_ + text.size() + 1) {
    set_owns_heap_blocks(node_);
    return keep_text(&space_, space_.heap, text);
  }
  char *const place = reinterpret_cast<char *>(&node_) + used_;
  std::memcpy(place, text.data(), text.size());
  place[text.size()] = '\0';
  used_ += text.size() + 1;
  return place;
}

namespace {

void *allocate_behind_node(ValueSink &sink, jt_parser_space *space, std::size_t bytes) {
  if (bytes > kMaxInline) return allocate_kept_block(space, space->heap, bytes);
  jt_node *const node = allocate_node(*space, bytes);
  static_cast<NodeSink &>(sink).node = node;
  return node != nullptr ? node + 1 : nullptr;
}

}  // namespace

NodeSink::NodeSink() : ValueSink{allocate_behind_node, nullptr} {}

void set_owns_heap_blocks(jt_node &node) {
  node.owns_heap_blocks = true;
  flag_page_of(&node);
}

void adopt_value(jt_node &node, jt_value *value, ReleasedBy owner) {
  node.value = value;
  node.keeps_value = owner == ReleasedBy::kHeap;
  set_owns_heap_blocks(node);
}

void release_value(jt_parser_space &space, Heap &heap, const jt_type &type, jt_value *value,
                   ReleasedBy owner) {
  if (owner == ReleasedBy::kHeap) {
    heap.release(value);
  } else if (type.kill != nullptr) {
    type.kill(&space, value);
  }
}

jt_parser_space &session_of(const jt_node &node) { return session_of_cell(&node); }

Heap &heap_of(const jt_node &node) { return session_of(node).heap; }

void release_text(jt_node &node, char *&text) {
  if (is_block_of_its_own(node, text)) heap_of(node).release(text);
  text = nullptr;
}

void release_value(jt_parser_space &space, jt_node &node) {
  if (is_block_of_its_own(node, node.value) && has_known_type(node)) {
    const ReleasedBy owner = node.keeps_value ? ReleasedBy::kHeap : ReleasedBy::kType;
    release_value(space, heap_of(node), *node.type, node.value, owner);
  }
  node.value = nullptr;
}

void adopt_status(jt_node &node, const jt_status *status) {
  release_status(node);
  node.status = status;
  if (owns_status(node)) set_owns_heap_blocks(node);
}

namespace {

void release_blocks(jt_parser_space &space, jt_node &node) {
  release_comment(node);
  for (char **const text : {&node.name, &node.unresolved_type_name, &node.overridden_value}) {
    release_text(node, *text);
  }
  release_value(space, node);
  release_status(node);
  release_index(node);
}

}  // namespace

// Most nodes own nothing but their cell.
void release_node(jt_parser_space &space, jt_node *node) {
  if (node->owns_heap_blocks) release_blocks(space, *node);
  release_cell(space.arena, node);
}

void release_all_nodes(jt_parser_space &space) {
  release_all_cells(space.arena, [](Arena & /*arena*/, void *cell) {
    auto *const node = static_cast<jt_node *>(cell);
    if (node->owns_heap_blocks) release_blocks(session_of(*node), *node);
  });
}

}  // namespace jt_core
