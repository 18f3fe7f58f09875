// Writes JSON piece by piece, laid out as jq does. Proved by tests/sil_command/json_test.cpp.
#ifndef SIL_CORE_JSON_WRITER_H
#define SIL_CORE_JSON_WRITER_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace sil {

class JsonWriter {
 public:
  void open_object() { open('{'); }
  void close_object() { close('}'); }
  void open_array() { open('['); }
  void close_array() { close(']'); }

  void key(std::string_view name);
  /// A string; bytes that are no UTF-8 become an object with their base 64.
  void text(std::string_view value);
  /// What is JSON already: a number, a word.
  void raw(std::string_view json);
  void number(std::size_t value) { raw(std::to_string(value)); }
  /// The shortest decimal that reads back to the same single; the infinite one is an object with its text.
  void real(float value);

  void member(std::string_view name, std::string_view value) {
    key(name);
    text(value);
  }

  /// All that was written, and a line feed.
  std::string take();

 private:
  void open(char bracket);
  void close(char bracket);
  void begin_item();
  void quote(std::string_view value);

  std::string out_;
  std::vector<bool> has_items_;  // of each open bracket
  bool follows_key_ = false;
};

}  // namespace sil

#endif
