// Brackets, commas and indents; escapes of strings.
#include "core/json_writer.h"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include "core/text.h"

namespace sil {

void JsonWriter::begin_item() {
  if (std::exchange(follows_key_, false) || has_items_.empty()) return;
  if (has_items_.back()) out_ += ',';
  has_items_.back() = true;
  out_ += '\n';
  out_.append(2 * has_items_.size(), ' ');
}

void JsonWriter::open(char bracket) {
  begin_item();
  out_ += bracket;
  has_items_.push_back(false);
}

void JsonWriter::close(char bracket) {
  const bool has_items = has_items_.back();
  has_items_.pop_back();
  if (has_items) {
    out_ += '\n';
    out_.append(2 * has_items_.size(), ' ');
  }
  out_ += bracket;
}

void JsonWriter::key(std::string_view name) {
  begin_item();
  quote(name);
  out_ += ": ";
  follows_key_ = true;
}

void JsonWriter::quote(std::string_view value) {
  constexpr std::string_view kLetters = "\bb\tt\nn\ff\rr\"\"\\\\";
  constexpr std::string_view kDigits = "0123456789abcdef";
  out_ += '"';
  for (const char c : value) {
    std::size_t escape = 0;
    while (escape < kLetters.size() && kLetters[escape] != c) escape += 2;
    const auto byte = static_cast<unsigned char>(c);
    if (escape + 1 < kLetters.size()) {
      out_ += '\\';
      out_ += kLetters[escape + 1];
    } else if (byte < ' ' || byte == 0x7F) {
      out_ += "\\u00";
      out_ += kDigits[byte >> 4U];
      out_ += kDigits[byte & 15U];
    } else {
      out_ += c;
    }
  }
  out_ += '"';
}

void JsonWriter::text(std::string_view value) {
  if (is_utf8(value)) {
    begin_item();
    quote(value);
    return;
  }
  open_object();
  member("base64", to_base64(value));
  close_object();
}

void JsonWriter::raw(std::string_view json) {
  begin_item();
  out_ += json;
}

void JsonWriter::real(float value) {
  if (std::isinf(value)) {
    open_object();
    member("text", "inf");
    close_object();
    return;
  }
  std::array<char, 32> digits{};
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  raw(std::string_view(digits.data(), static_cast<std::size_t>(written.ptr - digits.data())));
}

std::string JsonWriter::take() {
  out_ += '\n';
  return std::exchange(out_, {});
}

}  // namespace sil
