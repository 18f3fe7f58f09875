// Templates of a size that nobody writes: tens of thousands of siblings, each found by name, walked, and
// deleted from the front, the back and the middle. What is left is right, whatever helps to find it.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/job.h"
#include "support/upper_case.h"

namespace jt_test {
namespace {

constexpr std::size_t kMany = 20000;
constexpr std::size_t kServices = 5000;
constexpr std::size_t kDeleted = 500;

Texts numbered(const std::string &prefix, std::size_t count) {
  Texts names;
  for (std::size_t i = 0; i < count; ++i) names.push_back(prefix + std::to_string(i));
  return names;
}

// The names that go: from the front, from the back, last one first, and from the middle.
Texts condemned(const Texts &names) {
  Texts chosen(names.begin(), names.begin() + kDeleted);
  chosen.insert(chosen.end(), names.rbegin(), names.rbegin() + kDeleted);
  const auto middle = names.begin() + static_cast<std::ptrdiff_t>(names.size() / 2);
  chosen.insert(chosen.end(), middle, middle + kDeleted);
  return chosen;
}

Texts without(const Texts &names, Texts gone) {
  std::sort(gone.begin(), gone.end());
  Texts left;
  for (const std::string &name : names) {
    if (!std::binary_search(gone.begin(), gone.end(), name)) left.push_back(name);
  }
  return left;
}

class Scale : public JobTest {
 protected:
  Scale() { decode_scan(""); }

  // Adds all, finds each, deletes some, and looks at what is left.
  template <typename Add, typename Find, typename Remove, typename Walk>
  void try_all(const Texts &names, Add add, Find find, Remove remove, Walk walk) {
    for (const std::string &name : names) ASSERT_EQ(add(name.c_str()), 1) << name;
    for (const std::string &name : names) ASSERT_EQ(find(upper_case(name).c_str()), 1) << name;
    ASSERT_EQ(walk(), names);
    const Texts gone = condemned(names);
    for (const std::string &name : gone) ASSERT_EQ(remove(name.c_str()), 1) << name;
    for (const std::string &name : gone) ASSERT_EQ(find(name.c_str()), 0) << name;
    const Texts left = without(names, gone);
    ASSERT_EQ(left.size(), names.size() - 3 * kDeleted);
    ASSERT_EQ(walk(), left);
    for (const std::string &name : left) ASSERT_EQ(find(name.c_str()), 1) << name;
    add_the_deleted_again(gone, left, add, find, walk);
  }

  template <typename Add, typename Find, typename Walk>
  void add_the_deleted_again(const Texts &gone, Texts all, Add add, Find find, Walk walk) {
    for (const std::string &name : gone) ASSERT_EQ(add(name.c_str()), 1) << name;
    all.insert(all.end(), gone.begin(), gone.end());
    ASSERT_EQ(walk(), all);
    for (const std::string &name : all) ASSERT_EQ(find(name.c_str()), 1) << name;
  }
};

TEST_F(Scale, TwentyThousandAttributes) {
  try_all(
      numbered("name", kMany), [&](const char *name) { return add_attribute("integer", name); },
      [&](const char *name) { return jt_exists_attribute(space, job, "Scan", name); },
      [&](const char *name) { return delete_attribute(name); }, [&] { return attribute_names(); });
  EXPECT_TRUE(quiet());
}

TEST_F(Scale, FiveThousandServices) {
  job = jt_create_template(space);
  try_all(
      numbered("Service", kServices),
      [&](const char *name) { return jt_add_service(space, job, "service", name); },
      [&](const char *name) { return jt_exists_service(space, job, name); },
      [&](const char *name) { return jt_delete_service(space, job, name); }, [&] { return service_names(); });
  EXPECT_TRUE(quiet());
}

TEST_F(Scale, TwentyThousandValuesOfAString) {
  ASSERT_EQ(add_attribute("string", "v"), 1);
  const Texts texts = numbered("Text ", kMany);
  for (const std::string &text : texts) ASSERT_EQ(add_text("v", text.c_str()), 1);
  ASSERT_EQ(values("v"), texts);
  const Texts gone = condemned(texts);
  for (const std::string &text : gone) ASSERT_EQ(delete_text("v", upper_case(text).c_str()), 1) << text;
  EXPECT_TRUE(quiet());
  for (const std::string &text : gone) ASSERT_EQ(delete_text("v", text.c_str()), 0) << text;
  EXPECT_EQ(values("v"), without(texts, gone));
}

TEST_F(Scale, TwentyThousandTypedValues) {
  ASSERT_EQ(add_attribute("integer", "v"), 1);
  Texts texts;
  for (uint32_t i = 0; i < kMany; ++i) {
    ASSERT_EQ(add_value("v", as_value(i)), 1);
    texts.push_back(std::to_string(i));
  }
  ASSERT_EQ(values("v"), texts);
  const Texts gone = condemned(texts);
  for (const std::string &text : gone) {
    ASSERT_EQ(delete_value("v", as_value(static_cast<uint32_t>(std::stoul(text)))), 1) << text;
  }
  EXPECT_TRUE(quiet());
  EXPECT_EQ(values("v"), without(texts, gone));
}

TEST_F(Scale, TwentyThousandTextsOfAnUnknownType) {
  ASSERT_EQ(add_attribute("future", "v"), 1);
  const Texts texts = numbered("t", kMany);
  for (const std::string &text : texts) ASSERT_EQ(add_text("v", text.c_str()), 1);
  const Texts gone = condemned(texts);
  for (const std::string &text : gone) ASSERT_EQ(delete_text("v", upper_case(text).c_str()), 1) << text;
  EXPECT_EQ(values("v"), without(texts, gone));
}

TEST_F(Scale, OfManyEqualValuesTheFirstGoesEachTime) {
  ASSERT_EQ(add_attribute("string", "v"), 1);
  for (std::size_t i = 0; i < kMany; ++i) ASSERT_EQ(add_text("v", i % 2 == 0 ? "Same" : "SAME"), 1);
  for (std::size_t i = 0; i < kMany - 2; ++i) ASSERT_EQ(delete_text("v", "same"), 1);
  EXPECT_EQ(values("v"), (Texts{"Same", "SAME"}));
}

TEST_F(Scale, ManyValuesAreReplacedByOne) {
  ASSERT_EQ(add_attribute("string", "v"), 1);
  for (const std::string &text : numbered("t", kMany)) ASSERT_EQ(add_text("v", text.c_str()), 1);
  EXPECT_EQ(set_text("v", "only"), 1);
  EXPECT_EQ(values("v"), Texts{"only"});
  EXPECT_EQ(delete_text("v", "t7"), 0);
  EXPECT_EQ(delete_text("v", "ONLY"), 1);
}

TEST_F(Scale, ManyInvocationsAreFoundByNameAndByNumber) {
  job = jt_create_template(space);
  ASSERT_EQ(jt_add_service(space, job, "kmt_svc_scan", "Scan"), 1);
  const Texts names = numbered("run", kServices);
  for (const std::string &name : names) {
    ASSERT_EQ(jt_add_invocation(space, job, "Scan"), 1);
    ASSERT_EQ(jt_set_invocation_name(space, job, "Scan", name.c_str()), 1);
  }
  for (const std::string &name : names) {
    ASSERT_EQ(jt_named_invocation(space, job, "Scan", upper_case(name).c_str()), 1);
    ASSERT_EQ(take_text(jt_get_invocation_name(space, job, "Scan")), name);
  }
  EXPECT_EQ(jt_named_invocation(space, job, "Scan", "5000"), 1);
  EXPECT_EQ(take_text(jt_get_invocation_name(space, job, "Scan")), "run4999");
  EXPECT_EQ(jt_named_invocation(space, job, "Scan", "5001"), 0);
}

TEST_F(Scale, AllOfManyInvocationsAreDeleted) {
  for (std::size_t i = 1; i < kServices; ++i) ASSERT_EQ(jt_add_invocation(space, job, "Scan"), 1);
  for (std::size_t i = 0; i < kServices; ++i) ASSERT_EQ(jt_delete_invocation(space, job, "Scan"), 1);
  EXPECT_EQ(jt_delete_invocation(space, job, "Scan"), 0);
  EXPECT_EQ(encoded(), "[kmt_svc_scan Scan]\nend\n\n");
}

}  // namespace
}  // namespace jt_test
