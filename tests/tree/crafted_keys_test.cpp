// Keys that were made to meet in the index of the children: everything is found as in any other list, and the
// index has left the plain hash behind. fuzz/cost.cpp holds the cost.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "base/text.h"
#include "tree/child_index.h"
#include "tree/session.h"
#include "tree/tree_session.h"
#include "types/type_tables.h"

namespace jt_test {
namespace {

// To the plain hash a grave accent is an at sign, so all of these have one hash.
std::vector<std::string> names_of_one_hash(std::size_t count) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < count; ++i) {
    std::string name(16, '@');
    for (std::size_t bit = 0; bit < name.size(); ++bit) {
      if ((i >> bit & 1U) != 0) name[bit] = '`';
    }
    names.push_back(name);
  }
  return names;
}

class CraftedKeys : public TreeTest {
 protected:
  ~CraftedKeys() override { expect_sound(*space); }

  bool secret_is_used() const { return space->has_hash_key; }

  jt_node *const parent = scan_invocation();
};

TEST_F(CraftedKeys, NamesOfOneHashAreStillTold) {
  const std::vector<std::string> names = names_of_one_hash(1000);
  ASSERT_EQ(jt_core::name_hash(names[1]), jt_core::name_hash(names[999]));
  for (const std::string &name : names) ASSERT_NE(add_attribute(parent, "integer", name.c_str()), nullptr);
  for (std::size_t i = 0; i < names.size(); ++i) {
    jt_node *const found = get_child(space, parent, names[i].c_str());
    ASSERT_NE(found, nullptr) << i;
    EXPECT_STREQ(found->name, names[i].c_str());
  }
  EXPECT_EQ(get_child(space, parent, "@@@@@@@@@@@@@@@"), nullptr);
  EXPECT_TRUE(secret_is_used());
}

TEST_F(CraftedKeys, NamesOfOneHashGoOneByOne) {
  const std::vector<std::string> names = names_of_one_hash(400);
  for (const std::string &name : names) add_attribute(parent, "integer", name.c_str());
  for (std::size_t i = 0; i < names.size(); i += 2) {
    EXPECT_EQ(destroy_node(space, get_child(space, parent, names[i].c_str())), 1) << i;
  }
  for (std::size_t i = 0; i < names.size(); ++i) {
    EXPECT_EQ(get_child(space, parent, names[i].c_str()) != nullptr, i % 2 == 1) << i;
  }
}

TEST_F(CraftedKeys, ASecondOfAnyNameIsRefused) {
  for (const std::string &name : names_of_one_hash(300)) {
    jt_node *const node = create_typed_node(space, "integer", name.c_str(), JT_NODE_ATTRIBUTE, parent);
    EXPECT_EQ(add_unique_child(space, parent, node), 1);
    jt_node *const second = create_typed_node(space, "integer", name.c_str(), JT_NODE_ATTRIBUTE, parent);
    EXPECT_EQ(add_unique_child(space, parent, second), 0);
    destroy_node(space, second);
  }
}

TEST_F(CraftedKeys, TwoListsShareTheSecretOfTheSession) {
  jt_node *const second = add_invocation(parent->parent, "second");
  for (jt_node *const list : {parent, second}) {
    for (const std::string &name : names_of_one_hash(300)) add_attribute(list, "integer", name.c_str());
  }
  EXPECT_EQ(get_child(space, parent, parent->last_child->name), parent->last_child);
  EXPECT_TRUE(secret_is_used());
  const jt_core::HashKey secret = space->hash_key;
  for (jt_node *const list : {parent, second}) {
    for (jt_node *const child : children_of(list)) ASSERT_EQ(get_child(space, list, child->name), child);
  }
  EXPECT_EQ(std::memcmp(&secret, &space->hash_key, sizeof(secret)), 0);
}

TEST_F(CraftedKeys, AChildWithoutANameStandsAmongThem) {
  jt_node *const service = parent->parent;
  const std::vector<std::string> names = names_of_one_hash(300);
  for (const std::string &name : names) add_invocation(service, name.c_str());
  EXPECT_EQ(get_child(space, service, names[299].c_str()), service->last_child);
  EXPECT_TRUE(secret_is_used());
  add_invocation(service, nullptr);
  add_invocation(service, "behind");
  EXPECT_STREQ(get_child(space, service, "behind")->name, "behind");
  EXPECT_EQ(get_child(space, service, names[0].c_str()), parent->next_sibling);
}

TEST_F(CraftedKeys, OrdinaryNamesNeedNoSecret) {
  for (int i = 0; i < 100'000; ++i) {
    add_attribute(parent, "integer", ("Attribute" + std::to_string(i)).c_str());
  }
  EXPECT_NE(get_child(space, parent, "Attribute99999"), nullptr);
  EXPECT_NE(get_child(space, parent, "Attribute0"), nullptr);
  EXPECT_FALSE(secret_is_used());
}

// Whatever the secret, a reference to "x:x" must not have a hash of its own kind.
TEST(ReferenceHashes, OfTwoEqualTextsUseAllOfTheirBits) {
  const jt_type &type = *get_type_from_services(nullptr, nullptr, "ref_invocation");
  const jt_core::HashKey secret = {1, 2};
  std::set<std::uint32_t> hashes;
  for (int i = 0; i < 10'000; ++i) {
    std::string text = std::to_string(i) + ":" + std::to_string(i);
    jt_value *const value = type.eval(nullptr, text.data());
    std::uint32_t hash = 0;
    EXPECT_TRUE(jt_core::family_of(&type)->operations->hash(&secret, value, hash));
    hashes.insert(hash);
    type.kill(nullptr, value);
  }
  EXPECT_GT(hashes.size(), 9'990U);
}

// Numbers that the plain hash puts side by side, one in each slot: a run without gaps, although each is where
// it belongs. Nothing is far from home until one goes, or is looked for in vain.
class LongRun : public CraftedKeys {
 protected:
  static std::uint32_t home_of(std::int32_t number) {
    return jt_core::hash_numbers(nullptr, std::array<std::int32_t, 1>{number}) % 2048;
  }

  LongRun() {
    std::vector<bool> taken(kLength);
    for (std::int32_t number = 0; numbers.size() < kLength; ++number) {
      const std::uint32_t home = home_of(number);
      if (home >= kLength || taken[home]) continue;
      taken[home] = true;
      numbers.push_back(number);
      add_child(space, attribute, create_value_ptr_node(space, attribute->type, value_of(numbers.back())));
    }
    EXPECT_NE(find(numbers[100]), nullptr);
    EXPECT_FALSE(secret_is_used());
  }

  static const jt_value *value_of(const std::int32_t &number) {
    return reinterpret_cast<const jt_value *>(&number);
  }
  jt_node *find(std::int32_t number) { return jt_core::find_value(*attribute, value_of(number)); }

  void expect_all_found_but(std::int32_t missing) {
    for (const std::int32_t number : numbers) {
      jt_node *const found = find(number);
      ASSERT_EQ(found != nullptr, number != missing) << number;
      if (found != nullptr) {
        EXPECT_EQ(std::memcmp(found->value, &number, sizeof(number)), 0) << number;
      }
    }
  }

  static constexpr std::size_t kLength = 600;
  jt_node *const attribute = add_attribute(parent, "integer", "numbers");
  std::vector<std::int32_t> numbers;
};

TEST_F(LongRun, IsLeftWhenOneGoes) {
  const auto first =
      std::find_if(numbers.begin(), numbers.end(), [](auto number) { return home_of(number) == 0; });
  EXPECT_EQ(destroy_node(space, find(*first)), 1);
  EXPECT_TRUE(secret_is_used());
  expect_all_found_but(*first);
}

TEST_F(LongRun, IsLeftWhenOneIsLookedForInVain) {
  std::int32_t missing = numbers.back() + 1;
  while (home_of(missing) != 0) ++missing;
  EXPECT_EQ(find(missing), nullptr);
  EXPECT_TRUE(secret_is_used());
  expect_all_found_but(missing);
}

// Two numbers for each of the last slots of a table: half of them begin it again from the front, and are the
// first to come when it grows. They then take the slots of the others, which are put too far from where they
// belong.
TEST_F(CraftedKeys, ATableThatGrowsLeavesTheRunThatItMakes) {
  constexpr std::uint32_t kSlots = 1024;
  constexpr std::uint32_t kFirst = kSlots - 124;
  std::vector<std::vector<std::int32_t>> numbers_at(kSlots);
  std::vector<std::int32_t> elsewhere;
  for (std::int32_t number = 0; number < 300'000; ++number) {
    const std::uint32_t home =
        jt_core::hash_numbers(nullptr, std::array<std::int32_t, 1>{number}) % (2 * kSlots);
    if (home >= kFirst && home < kSlots) numbers_at[home].push_back(number);
    if (home >= 200 && home < 800 && numbers_at[home].empty()) {
      numbers_at[home].push_back(number);
      elsewhere.push_back(number);
    }
  }
  jt_node *const attribute = add_attribute(parent, "integer", "numbers");
  std::vector<std::int32_t> numbers(elsewhere.begin(), elsewhere.begin() + 264);
  for (std::uint32_t home = kFirst; home < kSlots; ++home) {
    ASSERT_GE(numbers_at[home].size(), 2U);
    numbers.insert(numbers.end(), {numbers_at[home][0], numbers_at[home][1]});
  }
  const auto add = [&](const std::int32_t &number) {
    add_child(space, attribute,
              create_value_ptr_node(space, attribute->type, reinterpret_cast<const jt_value *>(&number)));
  };
  const auto find = [&](const std::int32_t &number) {
    return jt_core::find_value(*attribute, reinterpret_cast<const jt_value *>(&number));
  };
  for (const std::int32_t number : numbers) add(number);
  ASSERT_EQ(numbers.size(), kSlots / 2);
  EXPECT_EQ(find(numbers.back()), attribute->last_child);
  EXPECT_FALSE(secret_is_used());
  numbers.push_back(elsewhere.back());
  add(numbers.back());
  EXPECT_TRUE(secret_is_used());
  const Nodes children = children_of(attribute);
  for (std::size_t i = 0; i < numbers.size(); ++i) ASSERT_EQ(find(numbers[i]), children[i]) << i;
}

}  // namespace
}  // namespace jt_test
