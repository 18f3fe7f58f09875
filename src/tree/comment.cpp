#include "tree/comment.h"

#include <cstring>
#include <utility>

#include "base/error_store.h"
#include "base/memory.h"
#include "tree/node.h"
#include "tree/node_storage.h"

namespace jt_core {
namespace {

// Stands in front of the text that the node points to.
struct CommentBlock {
  std::size_t length;
  std::size_t capacity;  // bytes for text, its terminator included
};

CommentBlock *block_of(const jt_node &node) { return reinterpret_cast<CommentBlock *>(node.comment) - 1; }

char *text_of(CommentBlock *block) { return reinterpret_cast<char *>(block + 1); }

// A block that can hold a comment of that length, the old comment copied into it: the node's own block, or a
// new one that the node does not have yet.
CommentBlock *block_for(jt_parser_space &space, const jt_node &node, std::size_t length) {
  if (node.comment != nullptr && block_of(node)->capacity > length) return block_of(node);
  const std::size_t capacity = node.comment == nullptr ? length + 1 : length * 2;
  auto *const block = static_cast<CommentBlock *>(
      allocate_kept_block(&space, heap_of(node), sizeof(CommentBlock) + capacity));
  if (block == nullptr) return nullptr;
  block->capacity = capacity;
  if (node.comment != nullptr) std::memcpy(text_of(block), node.comment, block_of(node)->length);
  return block;
}

}  // namespace

// The text may be part of the comment itself, so the old block goes last.
bool append_comment(jt_parser_space &space, jt_node &node, std::string_view text) {
  const std::size_t old_length = node.comment != nullptr ? block_of(node)->length : 0;
  CommentBlock *const block = block_for(space, node, old_length + text.size());
  if (block == nullptr) {
    report(&space, message::kNoComment, text);
    return false;
  }
  std::memcpy(text_of(block) + old_length, text.data(), text.size());
  block->length = old_length + text.size();
  text_of(block)[block->length] = '\0';
  if (node.comment != text_of(block)) release_comment(node);
  node.comment = text_of(block);
  set_owns_heap_blocks(node);
  return true;
}

void move_comment(jt_node &from, jt_node &to) {
  to.comment = std::exchange(from.comment, nullptr);
  if (to.comment != nullptr) set_owns_heap_blocks(to);
}

void release_comment(jt_node &node) {
  if (node.comment != nullptr) heap_of(node).release(block_of(node));
  node.comment = nullptr;
}

}  // namespace jt_core

extern "C" int32_t add_comment(jt_parser_space *space, jt_node *node, const char *text) {
  if (space == nullptr || node == nullptr || text == nullptr) return 0;
  return jt_core::append_comment(*space, *node, text) ? 1 : 0;
}
