// The steps that the families of value types have in common.
#include "types/type_operations.h"

#include <cstring>

#include "foundation/error_store.h"
#include "foundation/memory.h"
#include "foundation/text.h"

namespace jt {

jt_value *store_value(jt_parser_space *space, const void *bytes, std::size_t count) {
  void *const block = take_value_block(space, count);
  if (block != nullptr) std::memcpy(block, bytes, count);
  return static_cast<jt_value *>(block);
}

jt_value *store_text(jt_parser_space *space, std::string_view text) {
  auto *const block = static_cast<char *>(take_value_block(space, text.size() + 1));
  if (block == nullptr) return nullptr;
  std::memcpy(block, text.data(), text.size());
  block[text.size()] = '\0';
  return reinterpret_cast<jt_value *>(block);
}

std::int32_t kill_block(jt_parser_space * /*space*/, jt_value *value) { return er_free(value); }

void report_bad_value(jt_parser_space *space, std::string_view type_name, const char *text) {
  report_joined(space, message::kBadValueBegin, type_name, message::kBadValueEnd, text);
}

}  // namespace jt
