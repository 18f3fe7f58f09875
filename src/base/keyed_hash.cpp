#include "base/keyed_hash.h"

#include <bit>

#include "base/text.h"

// Where the system hands out random numbers without a file. Elsewhere the key is only as secret as the
// address at which the heap has put the session.
#if defined(__unix__) && __has_include(<sys/random.h>)
#include <sys/random.h>
#define JT_HAS_RANDOM_NUMBERS 1
#else
#define JT_HAS_RANDOM_NUMBERS 0
#endif

namespace jt_core {
namespace {

class SipHash {
 public:
  explicit SipHash(const HashKey &key)
      : a_(key.first ^ 0x736f6d6570736575),
        b_(key.second ^ 0x646f72616e646f6d),
        c_(key.first ^ 0x6c7967656e657261),
        d_(key.second ^ 0x7465646279746573) {}

  void add(std::uint64_t word) {
    d_ ^= word;
    mix();
    mix();
    a_ ^= word;
  }

  std::uint64_t finish() {
    c_ ^= 0xFF;
    for (int i = 0; i < 4; ++i) mix();
    return a_ ^ b_ ^ c_ ^ d_;
  }

 private:
  void mix() {
    a_ += b_;
    c_ += d_;
    b_ = std::rotl(b_, 13) ^ a_;
    d_ = std::rotl(d_, 16) ^ c_;
    a_ = std::rotl(a_, 32);
    c_ += b_;
    a_ += d_;
    b_ = std::rotl(b_, 17) ^ c_;
    d_ = std::rotl(d_, 21) ^ a_;
    c_ = std::rotl(c_, 32);
  }

  std::uint64_t a_;
  std::uint64_t b_;
  std::uint64_t c_;
  std::uint64_t d_;
};

// Eight bytes at a time; the last word holds the bytes that are left and, on top, the length. `change` is
// what is done to each word, and must leave zeros as they are.
template <typename Change>
std::uint64_t hash_words(const HashKey &key, std::string_view bytes, Change change) {
  SipHash hash(key);
  std::size_t at = 0;
  for (; at + 8 <= bytes.size(); at += 8) hash.add(change(eight_at(bytes.data() + at)));
  std::uint64_t last = 0;
  for (std::size_t i = bytes.size(); i > at; --i) {
    last = last << 8U | static_cast<unsigned char>(bytes[i - 1]);
  }
  hash.add(change(last) | std::uint64_t{bytes.size()} << 56U);
  return hash.finish();
}

// Makes capitals small, in eight bytes at once. The high bit of a byte says whether it reaches A, passes Z,
// or is no letter at all.
std::uint64_t fold_eight(std::uint64_t bytes) {
  constexpr std::uint64_t kEach = 0x0101010101010101;
  const std::uint64_t low = bytes & kEach * 0x7F;
  const std::uint64_t reaches_a = low + kEach * (0x80 - 'A');
  const std::uint64_t passes_z = low + kEach * (0x7F - 'Z');
  const std::uint64_t capitals = reaches_a & ~passes_z & ~bytes & kEach * 0x80;
  return bytes | capitals >> 2U;
}

bool read_random_numbers([[maybe_unused]] HashKey &key) {
#if JT_HAS_RANDOM_NUMBERS
  return getentropy(&key, sizeof(key)) == 0;
#else
  return false;
#endif
}

// A plain hash of numbers; the second step brings high bits down to where tables look.
std::uint32_t plain_hash(std::span<const std::int32_t> numbers) {
  std::uint32_t hash = 0;
  for (const std::int32_t number : numbers) {
    hash = (hash ^ static_cast<std::uint32_t>(number)) * 2654435761U;
    hash ^= hash >> 15U;
  }
  return hash;
}

}  // namespace

HashKey make_hash_key(const void *address) {
  HashKey key{};
  if (!read_random_numbers(key)) key.first = reinterpret_cast<std::uintptr_t>(address);
  return key;
}

std::uint64_t keyed_hash(const HashKey &key, std::string_view bytes) {
  return hash_words(key, bytes, [](std::uint64_t word) { return word; });
}

std::uint64_t keyed_name_hash(const HashKey &key, std::string_view name) {
  return hash_words(key, name, fold_eight);
}

std::uint32_t hash_name(const HashKey *key, std::string_view name) {
  return key == nullptr ? name_hash(name) : static_cast<std::uint32_t>(keyed_name_hash(*key, name));
}

std::uint32_t hash_numbers(const HashKey *key, std::span<const std::int32_t> numbers) {
  if (key == nullptr) return plain_hash(numbers);
  const std::string_view bytes(reinterpret_cast<const char *>(numbers.data()), numbers.size_bytes());
  return static_cast<std::uint32_t>(keyed_hash(*key, bytes));
}

}  // namespace jt_core
