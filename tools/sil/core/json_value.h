// JSON as it was written: members in order, duplicate keys and the spelling of numbers included. Proved by
// tests/sil_command/json_test.cpp.
#ifndef SIL_CORE_JSON_VALUE_H
#define SIL_CORE_JSON_VALUE_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sil {

struct JsonMember;

struct JsonValue {
  enum class Kind { kNull, kBoolean, kNumber, kText, kArray, kObject };
  Kind kind = Kind::kNull;
  bool truth = false;
  double number = 0;
  std::string text;                 // of a text, and a number's spelling
  std::vector<JsonMember> members;  // of an object; an array's have no names
};

struct JsonMember {
  std::string name;
  JsonValue value;
};

/// What is wrong, and where: a JSON pointer, or for what is no JSON a line and a column.
struct JsonFinding {
  std::string place;
  std::string message;
};

struct JsonText {
  std::optional<JsonValue> value;
  JsonFinding problem;  // where there is no value
};

/// Reads a whole text. One nested deeper than any template is refused.
JsonText read_json(std::string_view text);

/// A step more on a JSON pointer.
std::string pointer_to(const std::string &pointer, std::string_view member);

}  // namespace sil

#endif
