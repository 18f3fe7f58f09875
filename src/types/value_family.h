// What the library does with the values of a type, by calls that a reader can follow: a value is read from a
// text into a sink, copied into a sink, written as a text, and hashed. Types whose values work alike are a
// family; flat_type.h, enumeration.h, references.h and scalar_types.h hold them all. The five operations of
// an exported descriptor are thin wrappers over these (exported_operations.h). A client's own type has no
// family: its values go through its five operations.
//
// tests/types/every_type_test.cpp takes a value of each type through all of it.
#ifndef JT_TYPES_VALUE_FAMILY_H
#define JT_TYPES_VALUE_FAMILY_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "base/heap.h"
#include "base/keyed_hash.h"
#include "jt.h"
#include "types/remarks.h"
#include "types/short_text.h"

namespace jt_core {

// Where the storage of one value comes from: a block of the heap, or the cell of the node that is made for
// it. `allocate` gives storage that is not initialised, or null after "allocation error". It is called
// exactly once for each read or copy, after everything that can refuse the value. And who is told what a read
// has to remark on the text.
struct ValueSink {
  void *(*allocate)(ValueSink &sink, jt_parser_space *space, std::size_t bytes) = nullptr;
  Remarks *remarks = nullptr;  // null: nobody
};

// Makes each value a block of its own, to be handed over.
ValueSink heap_sink();

// Makes each value a block of a session's heap, to be kept.
struct KeptSink : ValueSink {
  explicit KeptSink(Heap &from);

  Heap &heap;
};

// What became of a text. One that was refused has been reported, where the type reports that at all.
enum class ReadStatus : std::uint8_t { kMade, kRefused, kNoMemory };

struct ReadResult {
  ReadStatus status;
  jt_value *value;  // null unless made
};

constexpr ReadResult kRefusedText = {ReadStatus::kRefused, nullptr};

// kNoMemory where the value is null.
constexpr ReadResult made_if_there(jt_value *value) {
  return {value != nullptr ? ReadStatus::kMade : ReadStatus::kNoMemory, value};
}

// The text of a value: up to three pieces, which lie in the value, in constant data, or in `digits`.
struct ValueText {
  std::array<std::string_view, 3> pieces{};
  ShortText digits;

  std::size_t size() const { return pieces[0].size() + pieces[1].size() + pieces[2].size(); }
};

struct ValueList;

// What a family does; `names` is the value list of an enumeration, null for all other families.
struct ValueOperations {
  ReadResult (*read)(jt_parser_space *space, const ValueList *names, std::string_view text, ValueSink &sink);

  // Null without memory; the value is not null.
  jt_value *(*copy)(jt_parser_space *space, const jt_value *value, ValueSink &sink);

  // False after a report when the value has no text. Takes no memory; the value is not null.
  bool (*write)(jt_parser_space *space, const ValueList *names, const jt_value *value, ValueText &text);

  // False when the value has none; it is not null. Values that are equal have the same.
  bool (*hash)(const HashKey *secret, const jt_value *value, std::uint32_t &hash);

  // The order of two values, neither of them null.
  std::int32_t (*compare)(const jt_value *a, const jt_value *b);

  // The order of two values of which at least one is null.
  std::int32_t (*compare_nulls)(const jt_value *a, const jt_value *b);

  // What `eval` does to the client's text when it has been read; null: nothing.
  void (*cut)(char *text, ReadStatus status);

  const char *no_memory;  // what is reported, with the text, where there is no block for it; null: the usual
  const char *null_to_kill;  // what `kill` reports for null; null: that is fine
  bool quoted;               // whether the texts stand in quotes
};

struct ValueFamily {
  const ValueOperations *operations;
  const ValueList *names;

  ReadResult read(jt_parser_space *space, std::string_view text, ValueSink &sink) const {
    return operations->read(space, names, text, sink);
  }
  bool write(jt_parser_space *space, const jt_value *value, ValueText &text) const {
    return operations->write(space, names, value, text);
  }
};

// Some families leave the text that they have read cut into its parts, and some have reports of their own.
template <typename Family>
consteval ValueOperations operations_of() {
  ValueOperations operations = {Family::read,     Family::copy, Family::write, Family::hash, Family::compare,
                                Family::kOfNulls, nullptr,      nullptr,       nullptr,      Family::kQuoted};
  if constexpr (requires(char *text) { Family::cut(text, ReadStatus::kMade); }) operations.cut = Family::cut;
  if constexpr (requires { Family::kNoMemory; }) operations.no_memory = Family::kNoMemory;
  if constexpr (requires { Family::kNullToKill; }) operations.null_to_kill = Family::kNullToKill;
  return operations;
}

template <typename Family>
constexpr ValueOperations kOperations = operations_of<Family>();

// A value with these bytes; null after "allocation error". Inline, as most callers know how many bytes.
inline jt_value *store_value(jt_parser_space *space, ValueSink &sink, const void *bytes, std::size_t count) {
  void *const storage = sink.allocate(sink, space, count);
  if (storage != nullptr) std::memcpy(storage, bytes, count);
  return static_cast<jt_value *>(storage);
}

// The same for a text and its terminator.
jt_value *store_text(jt_parser_space *space, ValueSink &sink, std::string_view text);

// A written text as a block to be handed over; null after the report that clients know of this family.
char *copy_value_text(const ValueOperations &operations, jt_parser_space *space, const ValueText &text);

// The same as a block to be kept.
char *keep_value_text(const ValueOperations &operations, jt_parser_space *space, Heap &heap,
                      const ValueText &text);

}  // namespace jt_core

#endif
