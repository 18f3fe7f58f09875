#include "sil/escape.h"

#include <array>
#include <cstdlib>

namespace jt {
namespace {

struct Escape {
  char character;
  char letter;
};

constexpr std::array<Escape, 6> kControls = {
    {{'\b', 'b'}, {'\t', 't'}, {'\n', 'n'}, {'\v', 'v'}, {'\f', 'f'}, {'\r', 'r'}}};

// What stands behind the backslash of each byte; 0 where none is needed.
using EscapeTable = std::array<char, 256>;

constexpr EscapeTable escapes_of(std::string_view plain) {
  EscapeTable table{};
  for (const char c : plain) table[static_cast<unsigned char>(c)] = c;
  for (const Escape &control : kControls)
    table[static_cast<unsigned char>(control.character)] = control.letter;
  return table;
}

constexpr EscapeTable kInQuotes = escapes_of("\"\\");
constexpr EscapeTable kBare = escapes_of(" !\"#$%&()*,;<=>?[\\]^{|}");

char *escape_into(char *out, std::string_view text, const EscapeTable &table) {
  for (const char c : text) {
    const char letter = table[static_cast<unsigned char>(c)];
    if (letter != '\0') *out++ = '\\';
    *out++ = letter != '\0' ? letter : c;
  }
  return out;
}

}  // namespace

EscapedText::~EscapedText() { std::free(heap_); }

bool EscapedText::escape(std::string_view text, Quoting quoting) {
  char *const begin = reserve(text.size() * 2 + 2);
  if (begin == nullptr) return false;
  char *out = begin;
  const bool quotes = quoting == Quoting::kQuotes;
  if (quotes) *out++ = '"';
  out = escape_into(out, text, quotes ? kInQuotes : kBare);
  if (quotes) *out++ = '"';
  view_ = {begin, static_cast<std::size_t>(out - begin)};
  return true;
}

char *EscapedText::reserve(std::size_t bytes) {
  if (bytes <= sizeof(local_)) return local_;
  if (bytes <= heap_room_) return heap_;
  std::free(heap_);
  heap_ = static_cast<char *>(std::malloc(bytes));
  heap_room_ = heap_ != nullptr ? bytes : 0;
  return heap_;
}

}  // namespace jt
