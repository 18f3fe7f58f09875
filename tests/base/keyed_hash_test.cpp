// Hashes with a secret: the function's own test vectors, what is the same to it, and that no two sessions
// need have one key.
#include "base/keyed_hash.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <string>

namespace jt_test {
namespace {

// Bytes 0 to 15 as two numbers, the first byte lowest.
constexpr jt_core::HashKey kKey = {0x0706050403020100, 0x0f0e0d0c0b0a0908};

std::string counted_bytes(std::size_t length) {
  std::string bytes;
  for (std::size_t i = 0; i < length; ++i) bytes += static_cast<char>(i);
  return bytes;
}

TEST(KeyedHash, IsSipHash24) {
  EXPECT_EQ(jt_core::keyed_hash(kKey, ""), 0x726fdb47dd0e0e31);
  EXPECT_EQ(jt_core::keyed_hash(kKey, counted_bytes(1)), 0x74f839c593dc67fd);
  EXPECT_EQ(jt_core::keyed_hash(kKey, counted_bytes(8)), 0x93f5f5799a932462);
  EXPECT_EQ(jt_core::keyed_hash(kKey, counted_bytes(15)), 0xa129ca6149be45e5);
}

TEST(KeyedHash, OfANameFoldsLettersAndNothingElse) {
  std::set<std::uint64_t> hashes;
  for (int byte = 1; byte < 256; ++byte) {
    const std::string name = std::string("name-") + static_cast<char>(byte) + "x";
    hashes.insert(jt_core::keyed_name_hash(kKey, name));
  }
  EXPECT_EQ(hashes.size(), 255U - 26U);
  hashes.clear();
  for (int byte = 1; byte < 256; ++byte) {
    hashes.insert(jt_core::keyed_name_hash(kKey, std::string("eight") + static_cast<char>(byte) + "to"));
  }
  EXPECT_EQ(hashes.size(), 255U - 26U);
  EXPECT_EQ(jt_core::keyed_name_hash(kKey, "Scan_1"), jt_core::keyed_name_hash(kKey, "sCAN_1"));
  EXPECT_NE(jt_core::keyed_name_hash(kKey, "@"), jt_core::keyed_name_hash(kKey, "`"));
  EXPECT_NE(jt_core::keyed_name_hash(kKey, "_"), jt_core::keyed_name_hash(kKey, "\x7f"));
}

TEST(KeyedHash, IsThePlainOneWithoutAKey) {
  const std::array<std::int32_t, 2> numbers = {1, 2};
  EXPECT_EQ(jt_core::hash_name(nullptr, "Scan"), jt_core::hash_name(nullptr, "scan"));
  EXPECT_NE(jt_core::hash_name(nullptr, "Scan"), jt_core::hash_name(&kKey, "Scan"));
  EXPECT_EQ(jt_core::hash_numbers(nullptr, numbers), jt_core::hash_numbers(nullptr, numbers));
  EXPECT_NE(jt_core::hash_numbers(nullptr, numbers), jt_core::hash_numbers(&kKey, numbers));
}

TEST(KeyedHash, KeysDiffer) {
  const int here = 0;
  const int there = 0;
  const jt_core::HashKey one = jt_core::make_hash_key(&here);
  const jt_core::HashKey other = jt_core::make_hash_key(&there);
  EXPECT_TRUE(one.first != other.first || one.second != other.second);
}

}  // namespace
}  // namespace jt_test
