// The alphabet of SIL: what each byte is outside of quotes, and which escapes stand for which bytes. The
// lexer and the encoder both derive from these tables, so what one writes bare the other reads as part of a
// word. tests/sil/alphabet_test.cpp takes every byte through both.
#ifndef JT_SIL_ALPHABET_H
#define JT_SIL_ALPHABET_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace jt_core {

// In the order of the token kinds.
inline constexpr std::string_view kPunctuationBytes = "[]{}()<>=,;*!$%&^?|";

// Backspace counts as white space.
inline constexpr std::string_view kSpaces = "\b\t\n\v\f\r ";

// Behind a backslash these letters mean these bytes; every other character means itself.
struct Escape {
  char letter;
  char meaning;
};

inline constexpr std::array<Escape, 6> kEscapes = {
    {{'b', '\b'}, {'t', '\t'}, {'n', '\n'}, {'v', '\v'}, {'f', '\f'}, {'r', '\r'}}};

// What a byte is outside of quotes. A smaller number is that of the punctuation's token.
enum class ByteClass : std::uint8_t {
  kWord = kPunctuationBytes.size(),
  kBackslash,
  kQuote,
  kSpace,
  kHash,
  kEndOfText
};

constexpr std::size_t index_of(char c) { return static_cast<unsigned char>(c); }

consteval std::array<ByteClass, 256> classify_bytes() {
  std::array<ByteClass, 256> classes{};
  classes.fill(ByteClass::kWord);
  for (const char c : kSpaces) classes[index_of(c)] = ByteClass::kSpace;
  for (std::size_t i = 0; i < kPunctuationBytes.size(); ++i) {
    classes[index_of(kPunctuationBytes[i])] = static_cast<ByteClass>(i);
  }
  classes[index_of('\0')] = ByteClass::kEndOfText;
  classes[index_of('#')] = ByteClass::kHash;
  classes[index_of('\\')] = ByteClass::kBackslash;
  classes[index_of('"')] = ByteClass::kQuote;
  return classes;
}

inline constexpr std::array<ByteClass, 256> kByteClasses = classify_bytes();

constexpr ByteClass class_of(char c) { return kByteClasses[index_of(c)]; }

// NUL is in no set, so that every run ends at the end of a terminated text.
using ByteSet = std::array<bool, 256>;

// What may stand bare in a word.
consteval ByteSet word_bytes() {
  ByteSet set{};
  for (std::size_t i = 0; i < set.size(); ++i) set[i] = kByteClasses[i] == ByteClass::kWord;
  return set;
}

inline constexpr ByteSet kWordBytes = word_bytes();

// What stands between tokens; a NUL in a text that has a length is a blank.
consteval ByteSet blank_bytes() {
  ByteSet set{};
  for (std::size_t i = 0; i < set.size(); ++i) set[i] = kByteClasses[i] == ByteClass::kSpace;
  set[0] = true;
  return set;
}

inline constexpr ByteSet kBlankBytes = blank_bytes();

// What means itself in quotes.
consteval ByteSet quoted_bytes() {
  ByteSet set{};
  for (std::size_t i = 1; i < set.size(); ++i) {
    set[i] = kByteClasses[i] != ByteClass::kQuote && kByteClasses[i] != ByteClass::kBackslash;
  }
  return set;
}

inline constexpr ByteSet kQuotedBytes = quoted_bytes();

// What is written as it is in quotes: control characters that have an escape are not.
consteval ByteSet quoted_bytes_to_write() {
  ByteSet set = kQuotedBytes;
  for (const Escape &escape : kEscapes) set[index_of(escape.meaning)] = false;
  return set;
}

inline constexpr ByteSet kQuotedBytesToWrite = quoted_bytes_to_write();

// The first byte of a terminated text that is not in the set. Most of a text consists of bytes that stand for
// themselves. Four at a time, which is a third less to do for each.
inline const char *end_of_run(const char *at, const ByteSet &set) {
  for (;; at += 4) {
    if (!set[index_of(at[0])]) return at;
    if (!set[index_of(at[1])]) return at + 1;
    if (!set[index_of(at[2])]) return at + 2;
    if (!set[index_of(at[3])]) return at + 3;
  }
}

// The same before an end, where there need not be a terminator.
inline const char *end_of_run(const char *at, const char *end, const ByteSet &set) {
  for (; end - at >= 4; at += 4) {
    if (!set[index_of(at[0])]) return at;
    if (!set[index_of(at[1])]) return at + 1;
    if (!set[index_of(at[2])]) return at + 2;
    if (!set[index_of(at[3])]) return at + 3;
  }
  while (at != end && set[index_of(*at)]) ++at;
  return at;
}

}  // namespace jt_core

#endif
