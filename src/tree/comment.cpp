#include "tree/comment.h"

#include <cstring>

#include "foundation/error_store.h"
#include "foundation/memory.h"
#include "tree/node.h"

namespace jt {
namespace {

// Stands in front of the text that the node points to.
struct CommentBlock {
  std::size_t length;
  std::size_t room;  // bytes for text, its terminator included
};

CommentBlock *block_of(const jt_node &node) { return reinterpret_cast<CommentBlock *>(node.comment) - 1; }

char *text_of(CommentBlock *block) { return reinterpret_cast<char *>(block + 1); }

// Makes room for a text of that length, keeping what is there.
bool reserve(jt_parser_space &space, jt_node &node, std::size_t length) {
  if (node.comment != nullptr && block_of(node)->room > length) return true;
  const std::size_t room = node.comment == nullptr ? length + 1 : length * 2;
  auto *const block = static_cast<CommentBlock *>(take_block(&space, sizeof(CommentBlock) + room));
  if (block == nullptr) return false;
  block->room = room;
  if (node.comment != nullptr) {
    block->length = block_of(node)->length;
    std::memcpy(text_of(block), node.comment, block->length);
    release_comment(node);
  }
  node.comment = text_of(block);
  return true;
}

}  // namespace

bool append_comment(jt_parser_space &space, jt_node &node, std::string_view text) {
  const std::size_t old_length = node.comment != nullptr ? block_of(node)->length : 0;
  if (!reserve(space, node, old_length + text.size())) {
    report(&space, message::kNoComment, text);
    return false;
  }
  std::memcpy(node.comment + old_length, text.data(), text.size());
  block_of(node)->length = old_length + text.size();
  node.comment[old_length + text.size()] = '\0';
  return true;
}

bool move_comment(jt_parser_space &space, jt_node &from, jt_node &to) {
  if (from.comment == nullptr) return true;
  if (to.comment != nullptr) return append_comment(space, to, from.comment);
  to.comment = from.comment;
  from.comment = nullptr;
  return true;
}

void release_comment(jt_node &node) {
  if (node.comment != nullptr) er_free(block_of(node));
  node.comment = nullptr;
}

}  // namespace jt
