// The two reference types: cutting a text into its names, and laying names out in one block.
#include "types/references.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <numeric>
#include <string_view>

#include "base/text.h"
#include "types/value_remarks.h"

namespace jt_core {
namespace {

constexpr char kSeparator = ':';

template <std::size_t Texts>
using Record = std::array<char *, Texts>;

template <std::size_t Texts>
using Parts = std::array<std::string_view, Texts>;

template <std::size_t Texts>
Parts<Texts> split(std::string_view text) {
  if constexpr (Texts == 1) {
    return {text};
  } else {
    const std::size_t separator = std::min(text.find(kSeparator), text.size());
    return {text.substr(0, separator), text.substr(std::min(separator + 1, text.size()))};
  }
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
jt_value *store(jt_parser_space *space, ValueSink &sink, const Parts<Texts> &parts) {
  const std::size_t bytes =
      std::accumulate(parts.begin(), parts.end(), sizeof(Record<Texts>),
                      [](std::size_t sum, std::string_view part) { return sum + part.size() + 1; });
  auto *const storage = static_cast<char *>(sink.allocate(sink, space, bytes));
  if (storage == nullptr) return nullptr;
  Record<Texts> record;
  char *place = storage + sizeof(record);
  for (std::size_t i = 0; i < Texts; ++i) {
    record[i] = place;
    place += parts[i].copy(place, parts[i].size());
    *place++ = '\0';
  }
  std::memcpy(storage, &record, sizeof(record));
  return reinterpret_cast<jt_value *>(storage);
}

}  // namespace

template <std::size_t Texts>
ReadResult Reference<Texts>::read(jt_parser_space *space, const ValueList * /*names*/, std::string_view text,
                                  ValueSink &sink) {
  if (text.empty()) return refuse_empty_text(sink, text);
  return made_if_there(store(space, sink, split<Texts>(text)));
}

template <std::size_t Texts>
jt_value *Reference<Texts>::copy(jt_parser_space *space, const jt_value *value, ValueSink &sink) {
  return store(space, sink, parts_of<Texts>(value));
}

// A qualifier is written only where there is one.
template <std::size_t Texts>
bool Reference<Texts>::write(jt_parser_space * /*space*/, const ValueList * /*names*/, const jt_value *value,
                             ValueText &text) {
  const Parts<Texts> parts = parts_of<Texts>(value);
  text.pieces[0] = parts.front();
  if (Texts == 1 || parts.back().empty()) return true;
  text.pieces[1] = std::string_view(&kSeparator, 1);
  text.pieces[2] = parts.back();
  return true;
}

// The factor keeps two equal texts from cancelling each other.
template <std::size_t Texts>
bool Reference<Texts>::hash(const HashKey *secret, const jt_value *value, std::uint32_t &hash) {
  hash = 0;
  for (const std::string_view part : parts_of<Texts>(value)) {
    hash = hash * 2654435761U ^ hash_name(secret, part);
  }
  return true;
}

template <std::size_t Texts>
std::int32_t Reference<Texts>::compare(const jt_value *a, const jt_value *b) {
  const Parts<Texts> left = parts_of<Texts>(a);
  const Parts<Texts> right = parts_of<Texts>(b);
  return std::equal(left.begin(), left.end(), right.begin(), same_name) ? 0 : kDifferent;
}

void InvocationReference::cut(char *text, ReadStatus /*status*/) {
  char *const separator = std::strchr(text, kSeparator);
  if (separator != nullptr) *separator = '\0';
}

template struct Reference<1>;
template struct Reference<2>;

}  // namespace jt_core
