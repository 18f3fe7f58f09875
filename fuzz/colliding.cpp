// The hashes as they were, and what is easy to find against them. A name went in eight bytes at a time, each
// time the state was multiplied: whatever the first eight bytes make of the state, eight bytes behind them
// can bring it back to any other, if they happen to be characters of a name.
#include "colliding.h"

#include <cstdint>
#include <string_view>

namespace jt_fuzz {
namespace {

constexpr std::uint64_t kFolded = 0x2020202020202020;
constexpr std::uint64_t kMultiplier = 0xD6E8FEB86659FD93;
constexpr std::uint64_t kLastDigit = std::uint64_t{15} << 56U;
constexpr std::uint32_t kHomeMask = 0xFFF;

std::uint64_t joined(std::string_view eight) {
  std::uint64_t bytes = 0;
  for (std::size_t i = 0; i < 8; ++i) bytes |= std::uint64_t{static_cast<unsigned char>(eight[i])} << 8 * i;
  return bytes;
}

std::uint64_t taken_in(std::uint64_t state, std::uint64_t bytes) {
  state = (state ^ (bytes | kFolded)) * kMultiplier;
  return state ^ state >> 32U;
}

// Of a name of exactly eight bytes.
std::uint32_t hash_of(std::string_view eight) {
  const std::uint64_t state = taken_in(8, joined(eight) | kLastDigit);
  return static_cast<std::uint32_t>(state * kMultiplier >> 32U) ^
         (static_cast<unsigned char>(eight[7]) & 15U);
}

std::uint32_t hash_of(std::uint32_t number) {
  const std::uint32_t hash = number * 2654435761U;
  return hash ^ hash >> 15U;
}

// Eight letters that say the number.
std::string eight_letters(std::uint64_t number) {
  std::string name;
  for (int i = 0; i < 8; ++i, number /= 16) name += static_cast<char>('a' + number % 16);
  return name;
}

bool may_be_in_a_name(char c) {
  return static_cast<unsigned char>(c) > ' ' &&
         std::string_view("!\"#$%&()*,;<=>?[\\]^{|}").find(c) == std::string_view::npos;
}

// The eight bytes that make of this state what `wanted` makes of another; empty when they are no name. The
// last one's low bits are free, but for what they are XORed with at the end.
std::string bridge(std::uint64_t wanted) {
  if ((wanted & (kFolded | kLastDigit)) != (kFolded | kLastDigit)) return {};
  std::string eight;
  for (unsigned i = 0; i < 8; ++i) eight += static_cast<char>(wanted >> 8 * i & 0xFFU);
  eight[7] = static_cast<char>((static_cast<unsigned char>(eight[7]) & 0xF0U) | 1U);
  for (const char c : eight) {
    if (!may_be_in_a_name(c)) return {};
  }
  return eight;
}

}  // namespace

std::string twin_name(std::size_t number, char zero, char one) {
  constexpr std::size_t kLength = 20;
  std::string name;
  for (std::size_t i = 0; i < kLength; ++i) name += (number >> i & 1U) != 0 ? one : zero;
  return name;
}

std::vector<std::string> names_of_one_hash(std::size_t count) {
  constexpr std::uint64_t kMeeting = 0x0123456789ABCDEF;
  std::vector<std::string> names;
  for (std::uint64_t i = 0; names.size() < count; ++i) {
    const std::string begin = eight_letters(i);
    const std::string end = bridge(taken_in(16, joined(begin)) ^ kMeeting);
    if (!end.empty()) names.push_back(begin + end);
  }
  return names;
}

std::vector<std::string> names_of_one_home(std::size_t count) {
  std::vector<std::string> names;
  for (std::uint64_t i = 0; names.size() < count; ++i) {
    std::string name = eight_letters(i);
    if ((hash_of(name) & kHomeMask) == 0) names.push_back(std::move(name));
  }
  return names;
}

std::vector<std::string> numbers_of_one_home(std::size_t count) {
  std::vector<std::string> numbers;
  for (std::uint32_t i = 0; numbers.size() < count; ++i) {
    if ((hash_of(i) & kHomeMask) == 0) numbers.push_back(std::to_string(i));
  }
  return numbers;
}

}  // namespace jt_fuzz
