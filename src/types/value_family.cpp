#include "types/value_family.h"

#include <cstdlib>
#include <cstring>

#include "base/error_store.h"
#include "base/memory.h"

namespace jt_core {
namespace {

void *allocate_to_hand_over(ValueSink & /*sink*/, jt_parser_space *space, std::size_t bytes) {
  return allocate_block(space, bytes);
}

void *allocate_to_keep(ValueSink &sink, jt_parser_space *space, std::size_t bytes) {
  return allocate_kept_block(space, static_cast<KeptSink &>(sink).heap, bytes);
}

// Writes the pieces of a text as one, terminated, into a block that has space for all of them.
char *join(const ValueOperations &operations, jt_parser_space *space, const ValueText &text, void *block) {
  if (block == nullptr) {
    const bool usual = operations.no_memory == nullptr;
    report(space, usual ? message::kAllocation : operations.no_memory,
           usual ? std::string_view() : text.pieces[0]);
    return nullptr;
  }
  char *end = static_cast<char *>(block);
  for (const std::string_view piece : text.pieces) end += piece.copy(end, piece.size());
  *end = '\0';
  return static_cast<char *>(block);
}

}  // namespace

ValueSink heap_sink() { return {allocate_to_hand_over, nullptr}; }

KeptSink::KeptSink(Heap &from) : ValueSink{allocate_to_keep, nullptr}, heap(from) {}

jt_value *store_text(jt_parser_space *space, ValueSink &sink, std::string_view text) {
  auto *const storage = static_cast<char *>(sink.allocate(sink, space, text.size() + 1));
  if (storage == nullptr) return nullptr;
  std::memcpy(storage, text.data(), text.size());
  storage[text.size()] = '\0';
  return reinterpret_cast<jt_value *>(storage);
}

char *copy_value_text(const ValueOperations &operations, jt_parser_space *space, const ValueText &text) {
  return join(operations, space, text, std::malloc(text.size() + 1));
}

char *keep_value_text(const ValueOperations &operations, jt_parser_space *space, Heap &heap,
                      const ValueText &text) {
  return join(operations, space, text, heap.allocate(text.size() + 1));
}

}  // namespace jt_core
