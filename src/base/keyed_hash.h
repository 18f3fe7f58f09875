// Hashes with a secret. Whoever writes a file can choose names that the plain hash of text.h puts in one
// place of a table; a table that finds itself crowded changes to these hashes, whose key nobody outside can
// know. The function is SipHash-2-4, made for this purpose. tests/base/keyed_hash_test.cpp shows its
// test vector, and that names are the same to it exactly when they are the same with letters folded.
#ifndef JT_BASE_KEYED_HASH_H
#define JT_BASE_KEYED_HASH_H

#include <cstdint>
#include <span>
#include <string_view>

namespace jt_core {

struct HashKey {
  std::uint64_t first;
  std::uint64_t second;
};

// A key that differs from session to session and from run to run. The address is that of the session.
HashKey make_hash_key(const void *address);

std::uint64_t keyed_hash(const HashKey &key, std::string_view bytes);

// The same for a name, letters folded.
std::uint64_t keyed_name_hash(const HashKey &key, std::string_view name);

// The hash of a name, or of numbers: with the key, or the plain one where the key is null.
std::uint32_t hash_name(const HashKey *key, std::string_view name);
std::uint32_t hash_numbers(const HashKey *key, std::span<const std::int32_t> numbers);

}  // namespace jt_core

#endif
