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

// Four bytes as a number, put together alike on every machine.
constexpr std::uint64_t number_of_four(const char *bytes) {
  const auto byte = [bytes](std::size_t i) { return std::uint32_t{static_cast<unsigned char>(bytes[i])}; };
  return byte(0) | byte(1) << 8U | byte(2) << 16U | byte(3) << 24U;
}

constexpr std::uint64_t number_of_eight(const char *bytes) {
  return number_of_four(bytes) | number_of_four(bytes + 4) << 32U;
}

// Names that are the same have the same hash. Eight bytes go in at a time, the last eight once more where the
// length is no multiple of eight. The bit that tells small letters from capitals is set in all of them, which
// makes no other names the same but may give some the same hash. Names that differ in nothing but the low bits
// of their last letter, as numbered ones do, get hashes that differ in nothing but these bits: in a table they
// are neighbours, and who looks for one after the other finds them in memory that was fetched already.
constexpr std::uint32_t name_hash(std::string_view name) {
  constexpr std::uint64_t kFolded = 0x2020202020202020;
  constexpr std::uint32_t kNeighbours = 0xF;
  constexpr std::uint64_t kNoNeighbours = ~(std::uint64_t{kNeighbours} << 56U);
  if (name.empty()) return 0;
  std::uint64_t hash = name.size();
  const auto take_in = [&hash](std::uint64_t bytes) {
    hash ^= bytes | kFolded;
    hash *= 0x9E3779B97F4A7C15;
    hash ^= hash >> 32U;
  };
  const char *const end = name.data() + name.size();
  std::uint64_t last_bytes = 0;  // the very last one on top
  if (name.size() >= 8) {
    for (const char *at = name.data(); at + 8 < end; at += 8) take_in(number_of_eight(at));
    last_bytes = number_of_eight(end - 8);
  } else if (name.size() >= 4) {
    last_bytes = number_of_four(end - 4) << 32U | number_of_four(name.data());
  } else {
    for (const char c : name) last_bytes = last_bytes >> 8U | std::uint64_t{static_cast<unsigned char>(c)} << 56U;
  }
  take_in(last_bytes & kNoNeighbours);
  take_in(0);  // the last bytes have reached the upper half only
  return static_cast<std::uint32_t>(hash) ^ (static_cast<unsigned char>(name.back()) & kNeighbours);
}

// A text that may be null, as a view; null reads as empty.
constexpr std::string_view view_of(const char *text) {
  return text == nullptr ? std::string_view() : std::string_view(text);
}

}  // namespace jt

#endif
