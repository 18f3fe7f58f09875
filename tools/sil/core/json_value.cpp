// The library reads; this keeps what it is told.
#include "core/json_value.h"

#include <utility>

#define JSON_NO_IO 1
#include <nlohmann/json.hpp>

namespace sil {
namespace {

constexpr std::size_t kDeepest = 64;

class Keeper : public nlohmann::json_sax<nlohmann::json> {
 public:
  bool null() override { return add({}) != nullptr; }

  bool boolean(bool truth) override {
    JsonValue value;
    value.kind = JsonValue::Kind::kBoolean;
    value.truth = truth;
    return add(std::move(value)) != nullptr;
  }

  bool number_integer(number_integer_t number) override {
    return add_number(static_cast<double>(number), std::to_string(number));
  }
  bool number_unsigned(number_unsigned_t number) override {
    return add_number(static_cast<double>(number), std::to_string(number));
  }
  bool number_float(number_float_t number, const string_t &spelling) override {
    return add_number(number, spelling);
  }

  bool string(string_t &text) override {
    JsonValue value;
    value.kind = JsonValue::Kind::kText;
    value.text = std::move(text);
    return add(std::move(value)) != nullptr;
  }

  bool binary(binary_t & /*bytes*/) override { return false; }
  bool start_object(std::size_t /*count*/) override { return open(JsonValue::Kind::kObject); }
  bool start_array(std::size_t /*count*/) override { return open(JsonValue::Kind::kArray); }
  bool end_object() override { return close(); }
  bool end_array() override { return close(); }

  bool key(string_t &name) override {
    key_ = std::move(name);
    return true;
  }

  bool parse_error(std::size_t position, const std::string & /*token*/,
                   const nlohmann::detail::exception & /*problem*/) override {
    stopped_at_ = position;
    return false;
  }

  JsonValue take() { return std::move(root_); }
  std::size_t stopped_at() const { return stopped_at_; }
  bool is_too_deep() const { return is_too_deep_; }

 private:
  JsonValue *add(JsonValue value) {
    if (open_.empty()) {
      root_ = std::move(value);
      return &root_;
    }
    return &open_.back()->members.emplace_back(JsonMember{std::move(key_), std::move(value)}).value;
  }

  bool add_number(double number, std::string spelling) {
    JsonValue value;
    value.kind = JsonValue::Kind::kNumber;
    value.number = number;
    value.text = std::move(spelling);
    return add(std::move(value)) != nullptr;
  }

  // A pointer into the vector above stays good: that one grows only when this value is closed.
  bool open(JsonValue::Kind kind) {
    is_too_deep_ = open_.size() == kDeepest;
    if (is_too_deep_) return false;
    JsonValue value;
    value.kind = kind;
    open_.push_back(add(std::move(value)));
    return true;
  }

  bool close() {
    open_.pop_back();
    return true;
  }

  JsonValue root_;
  std::vector<JsonValue *> open_;
  std::string key_;
  std::size_t stopped_at_ = 0;
  bool is_too_deep_ = false;
};

// The line and column of a byte, from 1; the reader counts the bytes that it has read.
std::string place_of(std::string_view text, std::size_t read) {
  const std::string_view before = text.substr(0, read == 0 ? 0 : read - 1);
  std::size_t line = 1;
  for (const char c : before) line += c == '\n' ? 1 : 0;
  const std::size_t begin = before.rfind('\n') == std::string_view::npos ? 0 : before.rfind('\n') + 1;
  return std::to_string(line) + ":" + std::to_string(before.size() - begin + 1);
}

}  // namespace

JsonText read_json(std::string_view text) {
  Keeper keeper;
  if (nlohmann::json::sax_parse(text.begin(), text.end(), &keeper)) return {keeper.take(), {}};
  if (keeper.is_too_deep()) return {{}, {"", "nested deeper than a template can be"}};
  return {{}, {place_of(text, keeper.stopped_at()), "this is no JSON"}};
}

std::string pointer_to(const std::string &pointer, std::string_view member) {
  std::string result = pointer + "/";
  for (const char c : member) {
    if (c == '~' || c == '/') {
      result += c == '~' ? "~0" : "~1";
    } else {
      result += c;
    }
  }
  return result;
}

}  // namespace sil
