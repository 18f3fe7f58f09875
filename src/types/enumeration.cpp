// Reading and writing names of a value list, and the names that no list knows.
#include "types/enumeration.h"

#include <array>
#include <cstring>

#include "base/error_store.h"
#include "base/markers.h"
#include "base/text.h"

namespace jt_core {
namespace {

std::uint32_t number_in(const jt_value *value) {
  std::uint32_t number = 0;
  std::memcpy(&number, value, sizeof(number));
  return number;
}

const char *unknown_name_in(const jt_value *value) {
  return reinterpret_cast<const char *>(value) + sizeof(std::uint32_t);
}

jt_value *store_unknown_name(jt_parser_space *space, ValueSink &sink, std::string_view name) {
  auto *const storage =
      static_cast<char *>(sink.allocate(sink, space, sizeof(kUnknownNameMarker) + name.size() + 1));
  if (storage == nullptr) return nullptr;
  std::memcpy(storage, &kUnknownNameMarker, sizeof(kUnknownNameMarker));
  std::memcpy(storage + sizeof(kUnknownNameMarker), name.data(), name.size());
  storage[sizeof(kUnknownNameMarker) + name.size()] = '\0';
  return reinterpret_cast<jt_value *>(storage);
}

}  // namespace

std::uint32_t evaluate_name(jt_parser_space *space, const ValueList &list, std::string_view name) {
  std::uint32_t number = kUnknownNameMarker;
  if (!find_number(list, name, number)) report(space, message::kUnknownEnumeratedName, name);
  return number;
}

std::string_view encode_number(jt_parser_space *space, const ValueList &list, std::uint32_t number) {
  const std::string_view name = find_name(list, number);
  if (name.empty()) report(space, message::kUnknownEnumeratedNumber);
  return name;
}

// A name that was kept is given back, although it counts as an error that the list has no name to write.
std::string_view enumerated_text(jt_parser_space *space, const ValueList &list, const jt_value *value) {
  const std::uint32_t number = number_in(value);
  const std::string_view name = encode_number(space, list, number);
  return number == kUnknownNameMarker ? std::string_view(unknown_name_in(value)) : name;
}

ReadResult Enumeration::read(jt_parser_space *space, const ValueList *names, std::string_view text,
                             ValueSink &sink) {
  const std::uint32_t number = evaluate_name(space, *names, text);
  if (number != kUnknownNameMarker) return made_if_there(store_value(space, sink, &number, sizeof(number)));
  remark({space, sink.remarks}, Remark::kUnknownName, text);
  jt_value *const value = store_unknown_name(space, sink, text);
  if (value == nullptr) report(space, message::kNoEnumeratedValue, text);
  return made_if_there(value);
}

bool Enumeration::write(jt_parser_space *space, const ValueList *names, const jt_value *value,
                        ValueText &text) {
  text.pieces[0] = enumerated_text(space, *names, value);
  return text.pieces[0].data() != nullptr;
}

jt_value *Enumeration::copy(jt_parser_space *space, const jt_value *value, ValueSink &sink) {
  const std::uint32_t number = number_in(value);
  return number == kUnknownNameMarker ? store_unknown_name(space, sink, unknown_name_in(value))
                                      : store_value(space, sink, &number, sizeof(number));
}

bool Enumeration::hash(const HashKey *secret, const jt_value *value, std::uint32_t &hash) {
  hash = hash_numbers(secret, std::array{static_cast<std::int32_t>(number_in(value))});
  return true;
}

std::int32_t Enumeration::compare(const jt_value *a, const jt_value *b) {
  return order_of(number_in(a), number_in(b));
}

}  // namespace jt_core
