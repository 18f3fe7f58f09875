// The two reference types: cutting a text into its names, and laying names out in one block.
#include "types/references.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <numeric>
#include <string_view>

#include "foundation/error_store.h"
#include "foundation/memory.h"
#include "foundation/text.h"
#include "types/type_operations.h"

namespace jt {
namespace {

constexpr char kSeparator = ':';

template <std::size_t Texts>
using Record = std::array<char *, Texts>;

template <std::size_t Texts>
using Parts = std::array<std::string_view, Texts>;

template <std::size_t Texts>
constexpr std::string_view kNullReference =
    Texts == 2 ? message::kNullInvocationReference : message::kNullCollectionReference;

Parts<1> split(char *text, Parts<1> /*shape*/) { return {text}; }

Parts<2> split(char *text, Parts<2> /*shape*/) {
  char *const separator = std::strchr(text, kSeparator);
  if (separator == nullptr) return {text, ""};
  *separator = '\0';
  return {text, separator + 1};
}

template <std::size_t Texts>
Parts<Texts> parts_of(const jt_value *value) {
  Record<Texts> record;
  std::memcpy(&record, value, sizeof(record));
  Parts<Texts> parts;
  std::transform(record.begin(), record.end(), parts.begin(), view_of);
  return parts;
}

template <std::size_t Texts>
jt_value *store(jt_parser_space *space, const Parts<Texts> &parts) {
  const std::size_t bytes =
      std::accumulate(parts.begin(), parts.end(), sizeof(Record<Texts>),
                      [](std::size_t sum, std::string_view part) { return sum + part.size() + 1; });
  auto *const block = static_cast<char *>(take_value_block(space, bytes));
  if (block == nullptr) return nullptr;
  Record<Texts> record;
  char *place = block + sizeof(record);
  for (std::size_t i = 0; i < Texts; ++i) {
    record[i] = place;
    place = std::copy(parts[i].begin(), parts[i].end(), place);
    *place++ = '\0';
  }
  std::memcpy(block, &record, sizeof(record));
  return reinterpret_cast<jt_value *>(block);
}

char *join(jt_parser_space *space, const Parts<1> &parts) { return copy_value_text(space, parts[0]); }

char *join(jt_parser_space *space, const Parts<2> &parts) {
  const auto &[name, qualifier] = parts;
  if (qualifier.empty()) return copy_value_text(space, name);
  char *const text = take_value_text(space, name.size() + 1 + qualifier.size() + 1);
  if (text == nullptr) return nullptr;
  char *const separator = std::copy(name.begin(), name.end(), text);
  *separator = kSeparator;
  *std::copy(qualifier.begin(), qualifier.end(), separator + 1) = '\0';
  return text;
}

}  // namespace

template <std::size_t Texts>
jt_value *Reference<Texts>::eval(jt_parser_space *space, char *text) {
  return is_absent(text) ? nullptr : store(space, split(text, Parts<Texts>{}));
}

template <std::size_t Texts>
jt_value *Reference<Texts>::copy(jt_parser_space *space, const jt_value *value) {
  return value != nullptr ? store(space, parts_of<Texts>(value)) : nullptr;
}

template <std::size_t Texts>
char *Reference<Texts>::deval(jt_parser_space *space, const jt_value *value) {
  return value != nullptr ? join(space, parts_of<Texts>(value)) : nullptr;
}

template <std::size_t Texts>
std::int32_t Reference<Texts>::cmp(jt_parser_space * /*space*/, const jt_value *a, const jt_value *b) {
  if (a == nullptr || b == nullptr) return equality_of_nulls(a, b);
  const Parts<Texts> left = parts_of<Texts>(a);
  const Parts<Texts> right = parts_of<Texts>(b);
  return std::equal(left.begin(), left.end(), right.begin(), same_name) ? 0 : kDifferent;
}

template <std::size_t Texts>
std::int32_t Reference<Texts>::kill(jt_parser_space *space, jt_value *value) {
  if (value != nullptr) return kill_block(space, value);
  report(space, kNullReference<Texts>);
  return 0;
}

template struct Reference<1>;
template struct Reference<2>;

}  // namespace jt
