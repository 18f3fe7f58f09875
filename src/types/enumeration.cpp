// Reading and writing names of a value list, and the names that no list knows.
#include "types/enumeration.h"

#include <algorithm>
#include <cstring>

#include "foundation/error_store.h"
#include "foundation/markers.h"
#include "foundation/memory.h"
#include "foundation/text.h"
#include "types/type_operations.h"

namespace jt {
namespace {

const char *unknown_name_in(const jt_value *value) {
  return reinterpret_cast<const char *>(value) + sizeof(std::uint32_t);
}

jt_value *store_unknown_name(jt_parser_space *space, std::string_view name) {
  auto *const block = static_cast<char *>(take_value_block(space, sizeof(kUnknownName) + name.size() + 1));
  if (block == nullptr) return nullptr;
  std::memcpy(block, &kUnknownName, sizeof(kUnknownName));
  char *const end = std::copy(name.begin(), name.end(), block + sizeof(kUnknownName));
  *end = '\0';
  return reinterpret_cast<jt_value *>(block);
}

}  // namespace

std::uint32_t evaluate_name(jt_parser_space *space, const ValueList &list, std::string_view name) {
  std::uint32_t number = kUnknownName;
  if (!find_number(list, name, number)) report(space, message::kUnknownEnumeratedName, name);
  return number;
}

std::string_view encode_number(jt_parser_space *space, const ValueList &list, std::uint32_t number) {
  const std::string_view name = find_name(list, number);
  if (name.empty()) report(space, message::kUnknownEnumeratedNumber);
  return name;
}

std::uint32_t enumerated_number(const jt_value *value) {
  std::uint32_t number = 0;
  std::memcpy(&number, value, sizeof(number));
  return number;
}

jt_value *eval_enumerated(jt_parser_space *space, const ValueList &list, const char *text) {
  if (text == nullptr) return nullptr;
  const std::string_view name = measured(space, text);
  const std::uint32_t number = evaluate_name(space, list, name);
  if (number != kUnknownName) return store_value(space, &number, sizeof(number));
  jt_value *const value = store_unknown_name(space, name);
  if (value == nullptr) report(space, message::kNoEnumeratedValue, name);
  return value;
}

jt_value *copy_enumerated(jt_parser_space *space, const jt_value *value) {
  if (value == nullptr) return nullptr;
  const std::uint32_t number = enumerated_number(value);
  return number == kUnknownName ? store_unknown_name(space, unknown_name_in(value))
                                : store_value(space, &number, sizeof(number));
}

// A name that was kept is given back, although it counts as an error that the list has no name to write.
std::string_view enumerated_text(jt_parser_space *space, const ValueList &list, const jt_value *value) {
  const std::uint32_t number = enumerated_number(value);
  const std::string_view name = encode_number(space, list, number);
  return number == kUnknownName ? std::string_view(unknown_name_in(value)) : name;
}

char *deval_enumerated(jt_parser_space *space, const ValueList &list, const jt_value *value) {
  if (value == nullptr) return nullptr;
  const std::string_view text = enumerated_text(space, list, value);
  if (text.data() == nullptr) return nullptr;
  if (offered_room(space, text.size() + 1) != nullptr) return copy_value_text(space, text);
  char *const copy = copy_plain_text(text);
  if (copy == nullptr) report(space, message::kNoEnumeratedText, text);
  return copy;
}

std::int32_t cmp_enumerated(jt_parser_space * /*space*/, const jt_value *a, const jt_value *b) {
  if (a == nullptr || b == nullptr) return order_of_nulls(a, b);
  return order(enumerated_number(a), enumerated_number(b));
}

}  // namespace jt
