// Text helpers that know no locale: letters A to Z fold, digits are 0 to 9, everything else is a byte. Names
// of every kind (services, attributes, types, enumerations) are compared and hashed through here, so that a
// look-up by hash and one by comparison can never disagree.
#ifndef JT_FOUNDATION_TEXT_H
#define JT_FOUNDATION_TEXT_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace jt {

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

// Most names are written like the one that they are compared with, to the letter.
constexpr bool same_name(std::string_view a, std::string_view b) {
  return a.size() == b.size() && (a == b || compare_names(a, b) == 0);
}

// Names that are the same have the same hash. Four bytes go in at a time, put together alike on every
// machine; the bit that tells small letters from capitals is set in all of them, which makes no other names
// the same but may give some the same hash.
constexpr std::uint32_t name_hash(std::string_view name) {
  constexpr std::uint32_t kFolded = 0x20202020;
  const auto byte = [&name](std::size_t i) { return std::uint32_t{static_cast<unsigned char>(name[i])}; };
  auto hash = static_cast<std::uint32_t>(name.size());
  const auto take_in = [&hash](std::uint32_t bytes) {
    hash = (hash ^ (bytes | kFolded)) * 2654435761U;
    hash ^= hash >> 15U;
  };
  std::size_t at = 0;
  for (; at + 4 <= name.size(); at += 4) {
    take_in(byte(at) | byte(at + 1) << 8U | byte(at + 2) << 16U | byte(at + 3) << 24U);
  }
  std::uint32_t rest = 0;
  for (; at < name.size(); ++at) rest = rest << 8U | byte(at);
  take_in(rest);
  return hash;
}

// A text that may be null, as a view; null reads as empty.
constexpr std::string_view view_of(const char *text) {
  return text == nullptr ? std::string_view() : std::string_view(text);
}

}  // namespace jt

#endif
