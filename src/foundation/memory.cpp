#include "foundation/memory.h"

#include <algorithm>
#include <cstdlib>

#include "foundation/parser_space.h"

namespace jt {
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

void *take_block(jt_parser_space *space, std::size_t bytes) { return reported(space, std::calloc(1, bytes)); }

void *take_unset_block(jt_parser_space *space, std::size_t bytes) {
  return reported(space, std::malloc(bytes));
}

void *take_value_block(jt_parser_space *space, std::size_t bytes) {
  if (space == nullptr || space->block_source == nullptr) return take_unset_block(space, bytes);
  return space->block_source->take(*space->block_source, *space, bytes);
}

std::string_view measured(const jt_parser_space *space, const char *text) {
  const BlockSource *const source = space != nullptr ? space->block_source : nullptr;
  return source != nullptr && source->text.data() == text ? source->text : std::string_view(text);
}

char *copy_text(jt_parser_space *space, std::string_view text) {
  return fill(take_unset_block(space, text.size() + 1), text);
}

char *offered_room(const jt_parser_space *space, std::size_t bytes) {
  const bool offered = space != nullptr && space->text_room != nullptr && bytes <= space->text_room->bytes;
  return offered ? space->text_room->begin : nullptr;
}

char *take_value_text(jt_parser_space *space, std::size_t bytes) {
  char *const room = offered_room(space, bytes);
  return room != nullptr ? room : static_cast<char *>(take_unset_block(space, bytes));
}

char *copy_value_text(jt_parser_space *space, std::string_view text) {
  return fill(take_value_text(space, text.size() + 1), text);
}

char *copy_plain_text(std::string_view text) { return fill(std::malloc(text.size() + 1), text); }

}  // namespace jt

extern "C" {

void *my_calloc(jt_parser_space *space, size_t count, int32_t size) {
  if (count == 0 || size <= 0) return nullptr;
  return jt::reported(space, std::calloc(count, static_cast<std::size_t>(size)));
}

int32_t er_free(void *block) {
  if (block == nullptr) return 1;
  *static_cast<char *>(block) = '\0';
  std::free(block);
  return 1;
}

}  // extern "C"
