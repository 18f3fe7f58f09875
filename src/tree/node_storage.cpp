#include "tree/node_storage.h"

#include <cstring>

#include "foundation/parser_space.h"
#include "tree/child_index.h"
#include "tree/comment.h"
#include "tree/node.h"
#include "types/status.h"

namespace jt {
namespace {

static_assert(alignof(jt_node) == kPieceUnit);

bool is_block_of_its_own(const jt_node &node, const void *address) {
  return address != nullptr && !in_piece(&node, address);
}

bool owns_status(const jt_node &node) { return node.status != nullptr && !is_shared_status(node.status); }

void release_status(jt_parser_space &space, jt_node &node) {
  if (owns_status(node)) kill_status(&space, const_cast<jt_status *>(node.status));
  node.status = nullptr;
}

}  // namespace

jt_node *take_node(jt_parser_space &space, std::size_t bytes) {
  const std::size_t room = bytes <= kMaxPiece - sizeof(jt_node) ? bytes : 0;
  auto *const node = static_cast<jt_node *>(take_piece(space, sizeof(jt_node) + room));
  if (node == nullptr) return nullptr;
  static constexpr jt_node kEmpty = {};
  const PieceHead head = node->piece;
  std::memcpy(node, &kEmpty, sizeof(kEmpty));
  node->piece = head;
  return node;
}

NodeRoom::NodeRoom(jt_parser_space &space, jt_node &node)
    : space_(space), node_(node), used_(sizeof(jt_node)) {}

char *NodeRoom::place(std::string_view text) {
  if (node_.piece.units() * kPieceUnit < used_ + text.size() + 1) {
    mark_owner(node_);
    return copy_text(&space_, text);
  }
  char *const place = reinterpret_cast<char *>(&node_) + used_;
  std::memcpy(place, text.data(), text.size());
  place[text.size()] = '\0';
  used_ += text.size() + 1;
  return place;
}

ValuePlacement::ValuePlacement(jt_parser_space &space, bool of_library, std::string_view evaluated)
    : BlockSource{take, evaluated}, space_(space) {
  if (of_library) {
    space_.block_source = this;
  } else {
    space_.must_visit = true;
  }
}

ValuePlacement::~ValuePlacement() { space_.block_source = nullptr; }

// A value that does not fit behind a record is a block of its own.
void *ValuePlacement::take(BlockSource &source, jt_parser_space &space, std::size_t bytes) {
  auto &self = static_cast<ValuePlacement &>(source);
  void *block = nullptr;
  if (bytes > kMaxPiece - sizeof(jt_node)) {
    block = take_unset_block(&space, bytes);
  } else {
    self.node_ = take_node(space, bytes);
    if (self.node_ != nullptr) block = self.node_ + 1;
  }
  self.failed_ = block == nullptr;
  return block;
}

void mark_owner(jt_node &node) {
  node.may_own_blocks = true;
  mark_piece(&node);
}

jt_parser_space &session_of(const jt_node &node) { return session_of_piece(&node); }

void release_text(jt_node &node, char *&text) {
  if (is_block_of_its_own(node, text)) er_free(text);
  text = nullptr;
}

void release_value(jt_parser_space &space, jt_node &node) {
  const bool owned = is_block_of_its_own(node, node.value) && has_known_type(node);
  if (owned && node.type->kill != nullptr) node.type->kill(&space, node.value);
  node.value = nullptr;
}

void adopt_status(jt_parser_space &space, jt_node &node, const jt_status *status) {
  release_status(space, node);
  node.status = status;
  if (owns_status(node)) mark_owner(node);
}

namespace {

[[gnu::noinline]] void release_blocks(jt_parser_space &space, jt_node &node) {
  release_comment(node);
  for (char **const text : {&node.name, &node.unresolved_type_name, &node.overridden_value}) {
    release_text(node, *text);
  }
  release_value(space, node);
  release_status(space, node);
  release_index(node);
}

}  // namespace

// Most nodes own nothing but their piece.
void release_node(jt_parser_space &space, jt_node *node) {
  if (node->may_own_blocks) release_blocks(space, *node);
  release_piece(space, node);
}

void release_all_nodes(jt_parser_space &space) {
  release_all_pieces(space, [](jt_parser_space &owner, void *piece) {
    auto *const node = static_cast<jt_node *>(piece);
    if (node->may_own_blocks) release_blocks(owner, *node);
  });
}

}  // namespace jt
