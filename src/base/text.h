// Text helpers that know no locale: letters A to Z fold, digits are 0 to 9, everything else is a byte. Names
// of every kind (services, attributes, types, enumerations) are compared and hashed through here, so that a
// look-up by hash and one by comparison can never disagree. tests/base/text_test.cpp takes every byte through
// them.
#ifndef JT_BASE_TEXT_H
#define JT_BASE_TEXT_H

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace jt_core {

constexpr unsigned char fold(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte + ('a' - 'A')) : byte;
}

constexpr bool is_digit(char c) { return c >= '0' && c <= '9'; }

// Order of two names, letters folded: negative, 0 or positive.
constexpr int compare_names(std::string_view a, std::string_view b) {
  const std::size_t common = a.size() < b.size() ? a.size() : b.size();
  for (std::size_t i = 0; i < common; ++i) {
    if (fold(a[i]) != fold(b[i])) return fold(a[i]) - fold(b[i]);
  }
  return a.size() < b.size() ? -1 : (a.size() > b.size() ? 1 : 0);
}

// Bytes as one number, alike on every machine: the first byte is the lowest.
template <typename Number>
constexpr std::uint64_t joined(const char *bytes) {
  std::array<char, sizeof(Number)> copy{};
  std::copy_n(bytes, copy.size(), copy.begin());
  const auto number = std::bit_cast<Number>(copy);
  if constexpr (std::endian::native == std::endian::little) {
    return number;
  } else {
    return sizeof(Number) == 8 ? __builtin_bswap64(number)
                               : __builtin_bswap32(static_cast<std::uint32_t>(number));
  }
}

constexpr std::uint64_t eight_at(const char *bytes) { return joined<std::uint64_t>(bytes); }

// The last eight bytes of a text as a little-endian number. A shorter text is shifted up and filled with
// zeros below.
constexpr std::uint64_t last_eight(std::string_view text) {
  const char *const end = text.data() + text.size();
  if (text.size() >= 8) return eight_at(end - 8);
  if (text.size() > 4) return joined<std::uint32_t>(end - 4) << 32U | joined<std::uint32_t>(text.data());
  std::uint64_t bytes = 0;
  for (const char c : text) bytes = bytes >> 8U | std::uint64_t{static_cast<unsigned char>(c)} << 56U;
  return bytes;
}

// Most names are written like the one that they are compared with, to the letter. Where the call is not taken
// in by each caller, a decode takes 2 % more instructions.
[[gnu::always_inline]] constexpr bool same_name(std::string_view a, std::string_view b) {
  return a.size() == b.size() && (a == b || compare_names(a, b) == 0);
}

// Names that are the same have the same hash. Eight bytes go in at a time, the last eight once more where the
// length is no multiple of eight. The bit that tells small letters from capitals is set in all of them, which
// makes no other names the same but may give some the same hash.
constexpr std::uint32_t name_hash(std::string_view name) {
  constexpr std::uint64_t kFolded = 0x2020202020202020;
  constexpr std::uint64_t kMultiplier = 0xD6E8FEB86659FD93;
  if (name.empty()) return 0;
  std::uint64_t hash = name.size();
  const auto take_in = [&hash](std::uint64_t bytes) {
    hash = (hash ^ (bytes | kFolded)) * kMultiplier;
    hash ^= hash >> 32U;
  };
  for (std::size_t i = 0; i + 8 < name.size(); i += 8) take_in(eight_at(name.data() + i));
  take_in(last_eight(name));
  return static_cast<std::uint32_t>(hash * kMultiplier >> 32U);
}

// A text that may be null, as a view; null reads as empty.
constexpr std::string_view view_of(const char *text) {
  return text == nullptr ? std::string_view() : std::string_view(text);
}

}  // namespace jt_core

#endif
