// Folding, quoting and the two encodings of bytes.
#include "core/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace sil {
namespace {

constexpr std::string_view kPunctuation = "[]{}()<>=,;*!$%&^?|";
constexpr std::string_view kBase64 = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::size_t kLongestComment = 1023;

struct Escape {
  char letter;
  char byte;
};
constexpr std::array kEscapes = {Escape{'b', '\b'}, Escape{'t', '\t'}, Escape{'n', '\n'},
                                 Escape{'v', '\v'}, Escape{'f', '\f'}, Escape{'r', '\r'}};

bool is_blank(char c) { return c == ' ' || (c >= '\b' && c <= '\r'); }

// How many bytes a sequence of UTF-8 has, by its first one, and between which bytes the second one lies.
struct Sequence {
  unsigned first, last;
  std::size_t length;
  unsigned second_from, second_to;
};
constexpr std::array kSequences = {
    Sequence{0x00, 0x7F, 1, 0x80, 0xBF}, Sequence{0xC2, 0xDF, 2, 0x80, 0xBF},
    Sequence{0xE0, 0xE0, 3, 0xA0, 0xBF}, Sequence{0xE1, 0xEC, 3, 0x80, 0xBF},
    Sequence{0xED, 0xED, 3, 0x80, 0x9F}, Sequence{0xEE, 0xEF, 3, 0x80, 0xBF},
    Sequence{0xF0, 0xF0, 4, 0x90, 0xBF}, Sequence{0xF1, 0xF3, 4, 0x80, 0xBF},
    Sequence{0xF4, 0xF4, 4, 0x80, 0x8F},
};

unsigned byte_of(char c) { return static_cast<unsigned char>(c); }

bool is_between(char c, unsigned low, unsigned high) { return byte_of(c) >= low && byte_of(c) <= high; }

// The length of the sequence that a text begins with, 0 where it begins with none.
std::size_t sequence_length(std::string_view text) {
  for (const Sequence &row : kSequences) {
    if (!is_between(text[0], row.first, row.last)) continue;
    if (text.size() < row.length) return 0;
    for (std::size_t i = 1; i < row.length; ++i) {
      const bool second = i == 1;
      if (!is_between(text[i], second ? row.second_from : 0x80, second ? row.second_to : 0xBF)) return 0;
    }
    return row.length;
  }
  return 0;
}

// What three bytes are in four letters; a byte that is not there is a zero.
std::uint32_t group_of(std::string_view bytes) {
  std::uint32_t group = 0;
  for (std::size_t i = 0; i < 3; ++i) group = group << 8 | (i < bytes.size() ? byte_of(bytes[i]) : 0U);
  return group;
}

}  // namespace

char folded(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool same_name(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return folded(x) == folded(y); });
}

bool ends_word(char c) {
  return c == '\0' || is_blank(c) || c == '#' || c == '"' || c == '\\' ||
         kPunctuation.find(c) != std::string_view::npos;
}

bool is_bare_word(std::string_view text) {
  return !text.empty() && std::none_of(text.begin(), text.end(), ends_word) && !same_name(text, "end");
}

std::string quoted(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) {
    const auto *const row = std::find_if(kEscapes.begin(), kEscapes.end(),
                                         [c](const Escape &escape) { return escape.byte == c; });
    if (row != kEscapes.end() || c == '"' || c == '\\') result += '\\';
    result += row != kEscapes.end() ? row->letter : c;
  }
  return result + '"';
}

std::string as_token(std::string_view text) { return is_bare_word(text) ? std::string(text) : quoted(text); }

std::string for_shell(std::string_view text) {
  static constexpr std::string_view kPlain = "%+,-./:=@_";
  const auto is_plain = [](char c) {
    return (folded(c) >= 'a' && folded(c) <= 'z') || (c >= '0' && c <= '9') ||
           kPlain.find(c) != std::string_view::npos;
  };
  if (!text.empty() && std::all_of(text.begin(), text.end(), is_plain)) return std::string(text);
  std::string result = "'";
  for (const char c : text) {
    if (c == '\'') {
      result += "'\\''";
    } else {
      result += c;
    }
  }
  return result + '\'';
}

std::string printable(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string result;
  for (const char c : text) {
    if (byte_of(c) >= ' ' && byte_of(c) != 0x7F) {
      result += c;
    } else {
      result += "\\x";
      result += kDigits[byte_of(c) >> 4];
      result += kDigits[byte_of(c) & 15U];
    }
  }
  return result;
}

char unescaped(char letter) {
  for (const Escape &escape : kEscapes)
    if (escape.letter == letter) return escape.byte;
  return letter;
}

bool is_utf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = sequence_length(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

std::string to_base64(std::string_view bytes) {
  std::string text;
  for (; !bytes.empty(); bytes.remove_prefix(std::min<std::size_t>(3, bytes.size()))) {
    const std::uint32_t group = group_of(bytes);
    for (std::size_t i = 0; i < 4; ++i)
      text += i <= bytes.size() ? kBase64[group >> (18 - 6 * i) & 63U] : '=';
  }
  return text;
}

std::optional<std::string> from_base64(std::string_view text) {
  if (text.size() % 4 != 0) return {};
  std::size_t padding = 0;
  while (padding < 2 && padding < text.size() && text[text.size() - 1 - padding] == '=') ++padding;
  std::string bytes;
  std::uint32_t group = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool is_padding = i >= text.size() - padding;
    const std::size_t digit = is_padding ? 0 : kBase64.find(text[i]);
    if (digit == std::string_view::npos) return {};
    group = group << 6 | static_cast<std::uint32_t>(digit);
    if (i % 4 != 3) continue;
    for (const unsigned shift : {16U, 8U, 0U}) bytes += static_cast<char>(group >> shift & 255U);
    group = 0;
  }
  bytes.resize(bytes.size() - padding);
  return to_base64(bytes) == text ? std::optional(std::move(bytes)) : std::nullopt;
}

bool is_comment(std::string_view text) {
  bool good = !text.empty() && text.back() == '\n';
  for_each_line(text, [&good](std::string_view line) {
    good = good && line.starts_with('#') && line.size() <= kLongestComment &&
           line.find_first_of(std::string_view("\v\f\r\0", 4)) == std::string_view::npos;
  });
  return good;
}

}  // namespace sil
