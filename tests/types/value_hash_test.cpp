// Hashes of values: equal values have equal hashes, and what cannot be hashed says so.

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "api/value_types.h"
#include "jt.h"
#include "types/type_tables.h"

namespace jt_test {
namespace {

class ValueHash : public ::testing::Test {
 protected:
  static bool hash_value(const jt_core::HashKey *secret, const jt_type &type, const jt_value *value,
                         uint32_t &hash) {
    return jt_core::family_of(&type)->operations->hash(secret, value, hash);
  }
  uint32_t hash_of_real(float number) const {
    uint32_t hash = 0;
    EXPECT_TRUE(hash_value(secret, real, reinterpret_cast<const jt_value *>(&number), hash));
    return hash;
  }
  static const jt_type &type_of(const TypeRow &row) {
    return *get_type_from_services(nullptr, row.service, row.type);
  }
  static jt_value *value_of(const TypeRow &row) {
    std::string text = row.text;
    return type_of(row).eval(nullptr, text.data());
  }
  void expect_equal_hashes(const TypeRow &row) {
    const jt_type &type = type_of(row);
    jt_value *const value = value_of(row);
    jt_value *const copy = type.copy(nullptr, value);
    uint32_t hash = 1;
    uint32_t other = 2;
    EXPECT_TRUE(hash_value(secret, type, value, hash)) << row.type;
    EXPECT_TRUE(hash_value(secret, type, copy, other)) << row.type;
    EXPECT_EQ(hash, other) << row.type;
    type.kill(nullptr, value);
    type.kill(nullptr, copy);
  }

  static constexpr jt_core::HashKey kSecret = {1, 2};
  const jt_core::HashKey *secret = nullptr;
  const jt_type &real = *get_type_from_services(nullptr, nullptr, "real");
};

TEST_F(ValueHash, IsTheSameForAValueAndItsCopy) {
  for (const TypeRow &row : kServiceTypes) expect_equal_hashes(row);
  for (const TypeRow &row : kBaseTypes) expect_equal_hashes(row);
}

TEST_F(ValueHash, IsTheSameForAValueAndItsCopyWithASecretToo) {
  secret = &kSecret;
  for (const TypeRow &row : kServiceTypes) expect_equal_hashes(row);
  for (const TypeRow &row : kBaseTypes) expect_equal_hashes(row);
}

TEST_F(ValueHash, OfMinusZeroIsThatOfZero) {
  for (const jt_core::HashKey *const key : {static_cast<const jt_core::HashKey *>(nullptr), &kSecret}) {
    secret = key;
    EXPECT_EQ(hash_of_real(-0.0F), hash_of_real(0.0F));
    EXPECT_NE(hash_of_real(1.0F), hash_of_real(0.0F));
  }
}

// It equals every other real.
TEST_F(ValueHash, IsNotThereForARealThatIsNoNumber) {
  const float number = std::numeric_limits<float>::quiet_NaN();
  uint32_t hash = 7;
  EXPECT_FALSE(hash_value(nullptr, real, reinterpret_cast<const jt_value *>(&number), hash));
  EXPECT_EQ(hash, 7U);
}

TEST_F(ValueHash, DependsOnTheSecret) {
  const jt_core::HashKey other = {1, 3};
  const int32_t number = 1;
  const jt_type &integer = *get_type_from_services(nullptr, nullptr, "integer");
  std::vector<uint32_t> hashes(3);
  const auto *const value = reinterpret_cast<const jt_value *>(&number);
  EXPECT_TRUE(hash_value(nullptr, integer, value, hashes[0]));
  EXPECT_TRUE(hash_value(&kSecret, integer, value, hashes[1]));
  EXPECT_TRUE(hash_value(&other, integer, value, hashes[2]));
  EXPECT_NE(hashes[0], hashes[1]);
  EXPECT_NE(hashes[1], hashes[2]);
}

// Values of all other types are found by comparing one by one, and go through the type's five operations.
TEST(ValueFamilyOf, AClientsTypeIsNone) {
  const jt_type integer = *get_type_from_services(nullptr, nullptr, "integer");
  EXPECT_NE(jt_core::family_of(get_type_from_services(nullptr, nullptr, "integer")), nullptr);
  EXPECT_EQ(jt_core::family_of(&integer), nullptr);
}

TEST(ValueFamilyOf, AKindOfBlockAndTheUnknownTypeIsNone) {
  EXPECT_EQ(jt_core::family_of(get_type_from_services(nullptr, nullptr, "service")), nullptr);
  EXPECT_EQ(jt_core::family_of(&scan_type_tab[18]), nullptr);
  EXPECT_STREQ(scan_type_tab[18].name, "kmt_svc_scan");
  EXPECT_EQ(jt_core::family_of(jt_unknown_type()), nullptr);
}

TEST(ValueFamilyOf, ARowIsTheSameWhereverItIsLookedFor) {
  for (const jt_core::ServiceTypes &service : jt_core::services()) {
    for (std::int32_t row = 0; row < service.types.count; ++row) {
      const jt_type &type = service.types.rows[row];
      EXPECT_EQ(jt_core::family_of(&type) != nullptr, type.eval != nullptr) << type.name;
      EXPECT_EQ(jt_core::family_of(&type, &service.types), jt_core::family_of(&type)) << type.name;
      EXPECT_EQ(jt_core::family_of(&type, jt_core::find_service_table("kmt_svc_scan")),
                jt_core::family_of(&type))
          << type.name;
    }
  }
}

}  // namespace
}  // namespace jt_test
