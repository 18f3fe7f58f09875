#include "base/memory.h"

#include <algorithm>
#include <cstdlib>

#include "base/error_store.h"

namespace jt_core {
namespace {

void *reported(jt_parser_space *space, void *block) {
  if (block == nullptr) report(space, message::kAllocation);
  return block;
}

char *fill(void *block, std::string_view text) {
  auto *const copy = static_cast<char *>(block);
  if (copy == nullptr) return nullptr;
  std::copy_n(text.data(), text.size(), copy);
  copy[text.size()] = '\0';
  return copy;
}

}  // namespace

void *allocate_block(jt_parser_space *space, std::size_t bytes) {
  return reported(space, std::malloc(bytes));
}

char *copy_text(jt_parser_space *space, std::string_view text) {
  return fill(allocate_block(space, text.size() + 1), text);
}

char *copy_plain_text(std::string_view text) { return fill(std::malloc(text.size() + 1), text); }

void *allocate_kept_block(jt_parser_space *space, Heap &heap, std::size_t bytes) {
  return reported(space, heap.allocate(bytes));
}

char *keep_text(jt_parser_space *space, Heap &heap, std::string_view text) {
  return fill(allocate_kept_block(space, heap, text.size() + 1), text);
}

char *keep_plain_text(Heap &heap, std::string_view text) {
  return fill(heap.allocate(text.size() + 1), text);
}

}  // namespace jt_core

extern "C" {

void *my_calloc(jt_parser_space *space, size_t count, int32_t size) {
  if (count == 0 || size <= 0) return nullptr;
  return jt_core::reported(space, std::calloc(count, static_cast<std::size_t>(size)));
}

int32_t er_free(void *block) {
  if (block == nullptr) return 1;
  *static_cast<char *>(block) = '\0';
  std::free(block);
  return 1;
}

}  // extern "C"
