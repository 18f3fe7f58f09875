// Lists of values of which none, some or all are equal, changed in every way that there is: by calls, at the
// cursor, by destroying and by moving nodes. A vector beside the list says which is the first equal value in
// order, which is the one that is deleted or overridden.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "tree/child_index.h"
#include "tree/tree_session.h"

namespace jt_test {
namespace {

// ---- Values -----------------------------------------------------------------------------------------------

// A type, and its values by number: equal ones have the same number, and may be written in two ways.
struct Kind {
  const char *name;
  const char *type;
  int distinct;  // so many numbers give values that differ
  std::function<std::string(int number, bool otherwise)> text;
};

std::ostream &operator<<(std::ostream &out, const Kind &kind) { return out << kind.name; }

std::string two_digits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

std::string size_name(int number, bool otherwise) {
  if (number == 0) return otherwise ? "iso_a4sef" : "ISO_A4SEF";
  if (number == 1) return otherwise ? "iso_a3sef" : "ISO_A3SEF";
  return otherwise ? "no list has this" : "nor this";  // all unknown names are equal
}

const Kind kKinds[] = {
    {"Integer", "integer", 1000,
     [](int n, bool otherwise) { return (otherwise ? "+" : "0") + std::to_string(n); }},
    {"Real", "real", 1000,
     [](int n, bool otherwise) { return std::to_string(n) + (otherwise ? ".5" : ".500"); }},
    {"Boolean", "boolean", 2,
     [](int n, bool otherwise) { return std::string(n == 0 ? (otherwise ? "TRUE" : "true") : "false"); }},
    {"String", "string", 1000,
     [](int n, bool otherwise) { return (otherwise ? "S" : "s") + std::to_string(n); }},
    {"Enumeration", "enum_mediasize", 3, size_name},
    {"Timestamp", "timestamp", 1000,
     [](int n, bool) { return "2024/01/02/" + two_digits(n / 60) + "/" + two_digits(n % 60) + "/59"; }},
    {"TimeOfDay", "struct_timeofday", 1000,
     [](int n, bool otherwise) {
       return std::to_string(n / 60) + ":" + (otherwise ? "0" : "") + std::to_string(n % 60);
     }},
    {"InvocationReference", "ref_invocation", 1000,
     [](int n, bool otherwise) {
       return std::string(otherwise ? "SCAN" : "scan") + ":" + std::to_string(n);
     }},
    {"CollectionReference", "ref_collection", 1000,
     [](int n, bool otherwise) { return std::string(otherwise ? "IN" : "in") + std::to_string(n); }},
    {"Rectangle", "struct_rectangle", 300,
     [](int n, bool otherwise) { return (otherwise ? "1/1/" : "0/0/") + std::to_string(25 + n) + "/25/MM"; }},
    {"Gutter", "struct_gutter", 90,
     [](int n, bool otherwise) { return std::to_string(n) + (otherwise ? "/9/MM" : "/9/IN"); }},
    {"Magnification", "struct_magnification", 200,
     [](int n, bool) { return "MANANA/100/" + std::to_string(100 + n); }},
    {"Borders", "struct_borders", 40,
     [](int n, bool otherwise) {
       return "10/20/" + std::string(otherwise ? "30/" : "31/") + std::to_string(n) + "/MM";
     }},
    {"Unknown", "mystery", 1000,
     [](int n, bool otherwise) { return (otherwise ? "V" : "v") + std::to_string(n); }},
};

std::string kind_name(const ::testing::TestParamInfo<Kind> &info) { return info.param.name; }

// ---- The list and the vector ------------------------------------------------------------------------------

class EqualValues : public TreeTest, public ::testing::WithParamInterface<Kind> {
 protected:
  static constexpr char kService[] = "kmt_svc_scan";
  static constexpr char kName[] = "a";

  EqualValues() : job(jt_decode_template(space, "[service kmt_svc_scan]{}end")), random(20241) {
    EXPECT_EQ(jt_add_attribute(space, job, kService, GetParam().type, kName), 1);
    EXPECT_EQ(jt_set_attribute_non_compulsory(space, job, kService, kName), 1);
    attribute = get_child(space, at(job)->first_child->first_child, kName);
  }

  bool is_unknown() const { return !jt_core::has_known_type(*attribute); }
  std::size_t below(std::size_t limit) { return random() % limit; }
  bool one_of(std::size_t many) { return below(many) == 0; }
  std::string some_text(int number) { return GetParam().text(number % GetParam().distinct, one_of(2)); }

  int32_t add(int number) {
    return jt_add_attribute_value_string(space, job, kService, kName, some_text(number).c_str());
  }
  int32_t remove_text(int number) {
    return jt_delete_attribute_value_string(space, job, kService, kName, some_text(number).c_str());
  }
  jt_value *value_of(int number) {
    return jt_decode_value(space, GetParam().type, some_text(number).c_str(), kService);
  }
  void kill(jt_value *value) { jt_destroy_value(space, GetParam().type, value, kService); }

  int32_t remove_value(int number) {
    jt_value *const value = value_of(number);
    const int32_t removed = jt_delete_attribute_value(space, job, kService, kName, value);
    kill(value);
    return removed;
  }
  int32_t override_with(int number, int other) {
    jt_value *const value = value_of(number);
    jt_value *const new_value = value_of(other);
    const int32_t overridden = jt_override_attribute_value(space, job, kService, kName, value, new_value);
    kill(value);
    kill(new_value);
    return overridden;
  }

  // What the list should be: the nodes, and the numbers of their values.
  struct Item {
    const jt_node *node;
    int number;
  };

  std::size_t first_equal(int number) const {
    const int wanted = number % GetParam().distinct;
    std::size_t place = 0;
    while (place < items.size() && items[place].number % GetParam().distinct != wanted) ++place;
    return place;
  }
  void erase(std::size_t place) { items.erase(items.begin() + static_cast<std::ptrdiff_t>(place)); }

  // ---- One change ----

  void append(int number) {
    ASSERT_EQ(add(number), 1);
    items.push_back({attribute->last_child, number});
  }

  void insert(int number) {
    jt_node *const node = create_value_node(space, attribute->type, some_text(number).c_str());
    const std::size_t steps = below(items.size() + 2);
    reset_index(space, attribute);
    for (std::size_t i = 0; i < steps; ++i) advance_index(space, attribute);
    ASSERT_EQ(add_index_child(space, attribute, node), 1);
    const std::size_t place = std::min(steps + 1, items.size());
    items.insert(items.begin() + static_cast<std::ptrdiff_t>(steps >= items.size() ? items.size() : place),
                 {node, number});
  }

  void remove(int number) {
    const std::size_t place = first_equal(number);
    const bool by_value = !is_unknown() && one_of(2);
    ASSERT_EQ(by_value ? remove_value(number) : remove_text(number), place < items.size() ? 1 : 0);
    if (place < items.size()) erase(place);
  }

  void replace(int number, int other) {
    if (is_unknown()) return;
    const std::size_t place = first_equal(number);
    ASSERT_EQ(override_with(number, other), place < items.size() ? 1 : 0);
    if (place < items.size()) items[place].number = other;
  }

  void destroy_some() {
    const std::size_t place = below(items.size());
    ASSERT_EQ(destroy_node(space, const_cast<jt_node *>(items[place].node)), 1);
    erase(place);
  }

  // Added again, a node goes to the end.
  void move_some() {
    const Item moved = items[below(items.size())];
    ASSERT_EQ(add_child(space, attribute, const_cast<jt_node *>(moved.node)), 1);
    const auto is_moved = [&](const Item &item) { return item.node == moved.node; };
    items.erase(std::find_if(items.begin(), items.end(), is_moved));
    items.push_back(moved);
  }

  void change(std::size_t most, const std::function<int()> &some_number) {
    const bool may_grow = items.size() < most;
    switch (below(12)) {
      case 0:
      case 1:
      case 2:
        return may_grow ? append(some_number()) : remove(some_number());
      case 3:
      case 4:
        return may_grow ? insert(some_number()) : remove(some_number());
      case 5:
      case 6:
        return replace(some_number(), some_number());
      case 7:
        return items.empty() ? append(some_number()) : destroy_some();
      case 8:
        return items.empty() ? append(some_number()) : move_some();
      case 9:
        return items.empty() ? append(some_number()) : remove(items[below(items.size())].number);
      case 10:
        return items.empty() ? append(some_number())
                             : replace(items[below(items.size())].number, some_number());
      default:
        return remove(some_number());
    }
  }

  void expect_list() const {
    std::vector<const jt_node *> expected;
    for (const Item &item : items) expected.push_back(item.node);
    const Nodes children = children_of(attribute);
    ASSERT_TRUE(std::equal(children.begin(), children.end(), expected.begin(), expected.end()));
  }

  // Many changes to a list that grows to a length, then all taken away in a random order.
  void run(std::size_t most, int changes, const std::function<int()> &some_number) {
    for (int i = 0; i < changes; ++i) {
      ASSERT_NO_FATAL_FAILURE(change(most, some_number)) << "change " << i;
      ASSERT_NO_FATAL_FAILURE(expect_list()) << "change " << i;
    }
    while (!items.empty()) {
      ASSERT_NO_FATAL_FAILURE(remove(items[below(items.size())].number));
      ASSERT_NO_FATAL_FAILURE(expect_list()) << items.size() << " left";
    }
    expect_sound(*space);
  }

  int32_t job;
  jt_node *attribute;
  std::mt19937 random;
  std::vector<Item> items;
};

constexpr std::size_t kLengths[] = {1, 2, 5, 13, 14, 30, 90, 300};

int changes_for(std::size_t length) { return static_cast<int>(length * 4) + 100; }

TEST_P(EqualValues, NoneOfThem) {
  for (const std::size_t length : kLengths) {
    int next = 0;
    ASSERT_NO_FATAL_FAILURE(run(length, changes_for(length), [&] { return next++ % 1000; }));
  }
}

TEST_P(EqualValues, OneOfThem) {
  for (const std::size_t length : kLengths) {
    int next = 0;
    ASSERT_NO_FATAL_FAILURE(
        run(length, changes_for(length), [&] { return one_of(length) ? 500 : next++ % 1000; }));
  }
}

TEST_P(EqualValues, HalfOfThem) {
  for (const std::size_t length : kLengths) {
    int next = 0;
    ASSERT_NO_FATAL_FAILURE(
        run(length, changes_for(length), [&] { return one_of(2) ? 500 : next++ % 1000; }));
  }
}

TEST_P(EqualValues, AllOfThem) {
  for (const std::size_t length : kLengths) {
    ASSERT_NO_FATAL_FAILURE(run(length, changes_for(length), [] { return 1; }));
  }
}

TEST_P(EqualValues, FewOfEach) {
  for (const std::size_t length : kLengths) {
    const auto some_number = [&] { return static_cast<int>(below(length / 3 + 1)); };
    ASSERT_NO_FATAL_FAILURE(run(length, changes_for(length), some_number));
  }
}

INSTANTIATE_TEST_SUITE_P(OfEvery, EqualValues, ::testing::ValuesIn(kKinds), kind_name);

// ---- Reals that no text gives -----------------------------------------------------------------------------

// Two reals are equal when neither is the smaller one: the zeros are, and what is no number is equal to all.
class OddReals : public TreeTest {
 protected:
  OddReals() : attribute(add_attribute(scan_invocation(), "real", "a")) {}

  static bool are_equal(float a, float b) { return !(a < b) && !(a > b); }

  std::size_t first_equal(float wanted) const {
    std::size_t place = 0;
    while (place < items.size() && !are_equal(items[place], wanted)) ++place;
    return place;
  }
  static const jt_value *as_value(const float &number) { return reinterpret_cast<const jt_value *>(&number); }

  void append(float number) {
    ASSERT_EQ(add_child(space, attribute, create_value_ptr_node(space, attribute->type, as_value(number))),
              1);
    items.push_back(number);
  }

  // The first that is equal goes: its place says which it was.
  void remove(float number) {
    const std::size_t place = first_equal(number);
    jt_node *const found = jt_core::find_value(*attribute, as_value(number));
    const Nodes children = children_of(attribute);
    const auto seen =
        static_cast<std::size_t>(std::find(children.begin(), children.end(), found) - children.begin());
    ASSERT_EQ(seen, place);
    if (found == nullptr) return;
    ASSERT_EQ(destroy_node(space, found), 1);
    items.erase(items.begin() + static_cast<std::ptrdiff_t>(place));
  }

  void run(const std::vector<float> &numbers, std::size_t most) {
    std::mt19937 random(4711);
    for (int i = 0; i < 4000; ++i) {
      const float number = numbers[random() % numbers.size()];
      const bool grows = random() % 3 != 0 && items.size() < most;
      ASSERT_NO_FATAL_FAILURE(grows ? append(number) : remove(number)) << "change " << i << ": " << number;
    }
    while (!items.empty()) ASSERT_NO_FATAL_FAILURE(remove(items[random() % items.size()]));
  }

  jt_node *const attribute;
  std::vector<float> items;
};

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNoNumber = std::numeric_limits<float>::quiet_NaN();
constexpr float kLeast = std::numeric_limits<float>::denorm_min();

TEST_F(OddReals, ZerosAreEqualWhateverTheirSign) {
  for (const std::size_t most : {3U, 20U, 200U}) {
    ASSERT_NO_FATAL_FAILURE(run({0.0F, -0.0F, kLeast, -kLeast, 1.0F}, most));
  }
}

TEST_F(OddReals, InfinitiesAreValuesLikeOthers) {
  for (const std::size_t most : {3U, 20U, 200U}) {
    ASSERT_NO_FATAL_FAILURE(run({kInfinity, -kInfinity, 3.4e38F, 1.0F, 2.0F}, most));
  }
}

TEST_F(OddReals, WhatIsNoNumberIsEqualToTheFirst) {
  std::vector<float> numbers = {kNoNumber, -kNoNumber, kInfinity, 0.0F, -0.0F};
  for (int i = 1; i < 60; ++i) numbers.push_back(static_cast<float>(i));
  for (const std::size_t most : {3U, 20U, 200U}) {
    ASSERT_NO_FATAL_FAILURE(run(numbers, most));
  }
}

// ---- Names ------------------------------------------------------------------------------------------------

class EqualNames : public TreeTest {
 protected:
  void run(std::size_t most, const std::function<std::string(std::mt19937 &)> &some_name) {
    std::mt19937 random(815);
    jt_node *const parent = scan_invocation();
    std::vector<std::pair<jt_node *, std::string>> items;
    for (std::size_t i = 0; i < most * 6 + 200; ++i) {
      const std::string name = some_name(random);
      const auto at =
          items.begin() + static_cast<std::ptrdiff_t>(items.empty() ? 0 : random() % items.size());
      const auto action = random() % 5;
      if (items.empty() || (action < 3 && items.size() < most)) {
        items.emplace_back(add_attribute(parent, "integer", name.c_str()), name);
      } else if (action < 4) {
        ASSERT_EQ(destroy_node(space, at->first), 1);
        items.erase(at);
      } else {
        ASSERT_EQ(add_child(space, parent, at->first), 1);
        std::rotate(at, at + 1, items.end());
      }
      const auto first =
          std::find_if(items.begin(), items.end(), [&](const auto &item) { return item.second == name; });
      ASSERT_EQ(get_child(space, parent, name.c_str()), first != items.end() ? first->first : nullptr) << i;
    }
    expect_sound(*space);
  }
};

TEST_F(EqualNames, TheFirstOfThemIsFound) {
  const auto of_many = [](std::mt19937 &random) { return "n" + std::to_string(random() % 1000); };
  const auto half = [](std::mt19937 &random) {
    return random() % 2 == 0 ? std::string("same") : "n" + std::to_string(random() % 1000);
  };
  const auto of_few = [](std::mt19937 &random) { return "n" + std::to_string(random() % 5); };
  const auto same = [](std::mt19937 &) { return std::string("same"); };
  for (const std::size_t most : kLengths) {
    for (const auto &names : {std::function<std::string(std::mt19937 &)>(of_many),
                              std::function<std::string(std::mt19937 &)>(half),
                              std::function<std::string(std::mt19937 &)>(of_few),
                              std::function<std::string(std::mt19937 &)>(same)}) {
      ASSERT_NO_FATAL_FAILURE(run(most, names)) << most;
    }
  }
}

}  // namespace
}  // namespace jt_test
