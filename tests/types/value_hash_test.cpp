// Hashes of values: equal values have equal hashes, and what cannot be hashed says so.
#include "types/value_hash.h"

#include <gtest/gtest.h>

#include <string>

#include "api/value_types.h"
#include "jt.h"

namespace jt_test {
namespace {

class ValueHash : public ::testing::Test {
 protected:
  static const jt_type &type_of(const TypeRow &row) {
    return *get_type_from_services(nullptr, row.service, row.type);
  }
  static jt_value *value_of(const TypeRow &row) {
    std::string text = row.text;
    return type_of(row).eval(nullptr, text.data());
  }
  static void expect_equal_hashes(const TypeRow &row) {
    const jt_type &type = type_of(row);
    jt_value *const value = value_of(row);
    jt_value *const copy = type.copy(nullptr, value);
    uint32_t hash = 1;
    uint32_t other = 2;
    EXPECT_TRUE(jt::hash_value(type, value, hash)) << row.type;
    EXPECT_TRUE(jt::hash_value(type, copy, other)) << row.type;
    EXPECT_EQ(hash, other) << row.type;
    type.kill(nullptr, value);
    type.kill(nullptr, copy);
  }
};

TEST_F(ValueHash, IsTheSameForAValueAndItsCopy) {
  for (const TypeRow &row : kServiceTypes) expect_equal_hashes(row);
  for (const TypeRow &row : kBaseTypes) {
    if (std::string(row.type) != "real") expect_equal_hashes(row);
  }
}

TEST_F(ValueHash, IsNotThereForAReal) {
  const jt_type &real = *get_type_from_services(nullptr, nullptr, "real");
  const float number = 1.5F;
  uint32_t hash = 7;
  EXPECT_FALSE(jt::hash_value(real, reinterpret_cast<const jt_value *>(&number), hash));
  EXPECT_EQ(hash, 7U);
}

TEST_F(ValueHash, IsNotThereForNull) {
  uint32_t hash = 7;
  for (const TypeRow &row : kBaseTypes) EXPECT_FALSE(jt::hash_value(type_of(row), nullptr, hash)) << row.type;
  EXPECT_EQ(hash, 7U);
}

TEST_F(ValueHash, IsNotThereForATypeWithoutAComparison) {
  jt_type type = *get_type_from_services(nullptr, nullptr, "integer");
  type.cmp = nullptr;
  const int32_t number = 1;
  uint32_t hash = 7;
  EXPECT_FALSE(jt::hash_value(type, reinterpret_cast<const jt_value *>(&number), hash));
}

TEST_F(ValueHash, IsNotThereForAComparisonOfAClients) {
  jt_type type = *get_type_from_services(nullptr, nullptr, "integer");
  type.cmp = [](jt_parser_space *, const jt_value *, const jt_value *) -> int32_t { return 0; };
  const int32_t number = 1;
  uint32_t hash = 7;
  EXPECT_FALSE(jt::hash_value(type, reinterpret_cast<const jt_value *>(&number), hash));
}

}  // namespace
}  // namespace jt_test
