#include "types/value_family.h"

#include <cstring>

#include "base/memory.h"

namespace jt_core {
namespace {

void *allocate_block(ValueSink & /*sink*/, jt_parser_space *space, std::size_t bytes) {
  return allocate_unset_block(space, bytes);
}

}  // namespace

ValueSink heap_sink() { return {allocate_block, nullptr}; }

jt_value *store_text(jt_parser_space *space, ValueSink &sink, std::string_view text) {
  auto *const storage = static_cast<char *>(sink.allocate(sink, space, text.size() + 1));
  if (storage == nullptr) return nullptr;
  std::memcpy(storage, text.data(), text.size());
  storage[text.size()] = '\0';
  return reinterpret_cast<jt_value *>(storage);
}

void join_pieces(const ValueText &text, char *out) {
  for (const std::string_view piece : text.pieces) out += piece.copy(out, piece.size());
  *out = '\0';
}

char *copy_value_text(jt_parser_space *space, const ValueText &text) {
  auto *const block = static_cast<char *>(allocate_unset_block(space, text.size() + 1));
  if (block != nullptr) join_pieces(text, block);
  return block;
}

}  // namespace jt_core
