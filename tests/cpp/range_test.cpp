// The walks over services, invocations, attributes and values: as range-based for, with the algorithms of
// std::ranges, again from the start, left early, and where there is nothing to walk over.
#include <algorithm>
#include <iterator>

#include "cpp/cpp_session.h"

namespace jt_test {
namespace {

using jt::Category;

class Walks : public CppTest {};

TEST_F(Walks, GiveTheServices) {
  EXPECT_EQ(words_of(job.services()), (Words{"Scanner", "Mail"}));
  EXPECT_TRUE(says(session.last_report(), Category::none, {}));
}

TEST_F(Walks, GiveServicesThatCanBeCalled) {
  Words types;
  for (const jt::Service &service : job.services()) types.push_back(service.type()->str());
  EXPECT_EQ(types, (Words{"kmt_svc_scan", "kmt_svc_email"}));
}

TEST_F(Walks, MakeOneInvocationAfterTheOtherCurrent) {
  std::vector<int> copies;
  for (const jt::Service &at : scanner.invocations()) copies.push_back(*at.get<std::int32_t>("Copies"));
  EXPECT_EQ(copies, (std::vector<int>{3, 4}));
  EXPECT_FALSE(scanner.has("Copies"));
}

TEST_F(Walks, GiveTheAttributes) {
  EXPECT_EQ(words_of(scanner.attributes()), (Words{"Copies", "Fast", "Weight", "Sides", "Note"}));
}

TEST_F(Walks, GiveTheValuesAsTexts) {
  EXPECT_EQ(words_of(scanner.texts("Note")), (Words{"one", "two", "three"}));
  EXPECT_EQ(words_of(job.service("Mail").texts("Nothing")), Words());
}

TEST_F(Walks, GiveTheValues) {
  Words texts;
  for (const jt::Value &value : scanner.values("Note")) {
    EXPECT_STREQ(value.type()->name, "string");
    texts.push_back(value.text()->str());
  }
  EXPECT_EQ(texts, (Words{"one", "two", "three"}));
}

TEST_F(Walks, StartAgainWithTheFirst) {
  jt::Texts texts = scanner.texts("Note");
  EXPECT_EQ(*texts.begin(), "one");
  EXPECT_EQ(words_of(texts), (Words{"one", "two", "three"}));
  EXPECT_EQ(words_of(texts), (Words{"one", "two", "three"}));
}

TEST_F(Walks, OverTheSameChildrenDisturbEachOther) {
  jt::Texts one = scanner.texts("Note");
  jt::Texts other = scanner.texts("Note");
  auto at = one.begin();
  EXPECT_EQ(*at, "one");
  EXPECT_EQ(words_of(other), (Words{"one", "two", "three"}));
  EXPECT_TRUE(++at == one.end());
}

TEST_F(Walks, OverOtherChildrenDoNotDisturbEachOther) {
  Words words;
  for (const jt::Text &attribute : scanner.attributes()) {
    for (const jt::Text &value : scanner.texts(attribute))
      words.push_back(attribute.str() + '=' + value.str());
  }
  EXPECT_EQ(words, (Words{"Copies=3", "Fast=TRUE", "Weight=0.500000", "Sides=TWO_SIDED", "Note=one",
                          "Note=two", "Note=three"}));
}

TEST_F(Walks, KeepTheNamesTheyWereGiven) {
  jt::Texts texts = job.service(std::string("Scanner")).texts(std::string("Note"));
  EXPECT_EQ(words_of(texts), (Words{"one", "two", "three"}));
}

TEST_F(Walks, LeaveTheInvocationCurrentWhereTheyAreLeft) {
  for (const jt::Service &at : scanner.invocations()) {
    if (!at.invocation_name()) break;
  }
  EXPECT_EQ(*scanner.get<std::int32_t>("Copies"), 4);
}

TEST_F(Walks, LetElementsBeTaken) {
  std::vector<jt::Text> names;
  for (jt::Text &name : scanner.attributes()) names.push_back(std::move(name));
  EXPECT_EQ(names.size(), 5U);
  EXPECT_EQ(names[3], "Sides");
}

TEST_F(Walks, AreEmptyWhereThereIsNothingAndSayWhy) {
  const jt::Service fax = job.service("Fax");
  EXPECT_EQ(words_of(fax.attributes()), Words());
  EXPECT_TRUE(says(session.last_report(), Category::call_error, {"CALL ERROR: does not exist:Fax ..."}));
  EXPECT_EQ(words_of(fax.invocations()), Words());
  EXPECT_EQ(words_of(scanner.texts("Colour")), Words());
  EXPECT_TRUE(says(session.last_report(), Category::call_error, {"CALL ERROR: does not exist:Colour ..."}));
  for (const jt::Value &value : scanner.values("Colour")) ADD_FAILURE() << value.text()->c_str();
  EXPECT_TRUE(says(session.last_report(), Category::call_error, {"CALL ERROR: does not exist:Colour ..."}));
}

TEST_F(Walks, OverValuesOfAnUnknownTypeAreEmptyAndSayWhy) {
  ASSERT_TRUE(scanner.add_attribute("enum_newer", "Newer"));
  ASSERT_TRUE(scanner.add("Newer", "x"));
  for (const jt::Value &value : scanner.values("Newer")) ADD_FAILURE() << value.text()->c_str();
  EXPECT_TRUE(
      says(session.last_report(), Category::call_error, {"CALL ERROR: unknown data typeenum_newer ..."}));
  EXPECT_EQ(words_of(scanner.texts("Newer")), Words{"x"});
}

TEST_F(Walks, EndWhereMemoryEnds) {
  jt::Texts texts = scanner.texts("Note");
  auto at = texts.begin();
  fail_allocations(1, Failing::kOnlyOne);
  ++at;
  EXPECT_EQ(allow_allocations(), 1);
  EXPECT_TRUE(at == texts.end());
  EXPECT_EQ(session.last_category(), Category::memory_error);
}

TEST_F(Walks, TakeOneBlockForEachName) {
  EXPECT_EQ(blocks_taken([&] { std::ranges::for_each(scanner.attributes(), [](const auto &) {}); }), 5);
}

// ---- With the algorithms of std::ranges ----

using Algorithms = Walks;

TEST_F(Algorithms, FindAService) {
  jt::Services services = job.services();
  const auto found = std::ranges::find(services, "Mail", &jt::Service::name);
  ASSERT_TRUE(found != services.end());
  EXPECT_EQ(*found->text("To"), "office@example.org");
}

TEST_F(Algorithms, FindTheInvocationThatHasAnAttribute) {
  jt::Invocations invocations = scanner.invocations();
  const auto found =
      std::ranges::find_if(invocations, [](const jt::Service &at) { return !at.has("Sides"); });
  ASSERT_TRUE(found != invocations.end());
  EXPECT_EQ(*found->get<std::int32_t>("Copies"), 4);
}

TEST_F(Algorithms, CountAndCompare) {
  EXPECT_EQ(std::ranges::count_if(scanner.attributes(), [&](const auto &name) { return scanner.has(name); }),
            5);
  EXPECT_EQ(std::ranges::distance(scanner.texts("Note")), 3);
  const Words words = {"one", "two", "three"};
  EXPECT_TRUE(std::ranges::equal(scanner.texts("Note"), words, {}, &jt::Text::view));
  EXPECT_TRUE(std::ranges::none_of(scanner.values("Note"), [](const jt::Value &value) { return !value; }));
}

TEST_F(Algorithms, CopyAndMove) {
  Words words;
  std::ranges::transform(scanner.texts("Note"), std::back_inserter(words), &jt::Text::str);
  EXPECT_EQ(words, (Words{"one", "two", "three"}));
  std::vector<jt::Value> values;
  std::ranges::move(scanner.values("Note"), std::back_inserter(values));
  EXPECT_EQ(values.size(), 3U);
  EXPECT_EQ(
      *std::ranges::max_element(values, {}, [](const auto &value) { return value.text()->str(); })->text(),
      "two");
}

}  // namespace
}  // namespace jt_test
