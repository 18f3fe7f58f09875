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
  for (const jt::Service &service : job.services()) types.push_back(service.type().value().str());
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
    texts.push_back(value.text().value().str());
  }
  EXPECT_EQ(texts, (Words{"one", "two", "three"}));
}

TEST_F(Walks, StartAgainWithTheFirst) {
  jt::Texts texts = scanner.texts("Note");
  EXPECT_EQ(*texts.begin(), "one");
  EXPECT_EQ(words_of(texts), (Words{"one", "two", "three"}));
  EXPECT_EQ(words_of(texts), (Words{"one", "two", "three"}));
}

TEST_F(Walks, OverTheSameChildrenDoNotDisturbEachOther) {
  jt::Texts one = scanner.texts("Note");
  jt::Texts other = scanner.texts("Note");
  auto at = one.begin();
  EXPECT_EQ(*at, "one");
  EXPECT_EQ(words_of(other), (Words{"one", "two", "three"}));
  EXPECT_EQ(*++at, "two");
  EXPECT_EQ(words_of(other), (Words{"one", "two", "three"}));
  EXPECT_EQ(*++at, "three");
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
  for (const jt::Value &value : scanner.values("Colour")) ADD_FAILURE() << value.text().value().c_str();
  EXPECT_TRUE(says(session.last_report(), Category::call_error, {"CALL ERROR: does not exist:Colour ..."}));
}

TEST_F(Walks, OverValuesOfAnUnknownTypeAreEmptyAndSayWhy) {
  ASSERT_TRUE(scanner.add_attribute("enum_newer", "Newer"));
  ASSERT_TRUE(scanner.add("Newer", "x"));
  for (const jt::Value &value : scanner.values("Newer")) ADD_FAILURE() << value.text().value().c_str();
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
  EXPECT_EQ(blocks_taken([&] { (void)steps_of(scanner.attributes()); }), 5);
}

// ---- Walks in walks ----

class WalksInWalks : public CppTest {
 protected:
  // What tells one invocation from the other; 0 where none is current.
  std::int32_t current() { return scanner.get<std::int32_t>("Copies").value_or(0); }

  // What a walk over three values gives while something is done at each; cut off where it would go on.
  template <typename Action>
  Words words_while(Action action) {
    Words words;
    for (const jt::Text &text : scanner.texts("Note")) {
      words.push_back(text.str());
      if (words.size() > 3) break;
      action();
    }
    return words;
  }
};

TEST_F(WalksInWalks, GiveEveryPairOfServices) {
  Words pairs;
  for (const jt::Service &one : job.services()) {
    for (const jt::Service &other : job.services()) pairs.push_back(one.c_str() + std::string(other.name()));
  }
  EXPECT_EQ(pairs, (Words{"ScannerScanner", "ScannerMail", "MailScanner", "MailMail"}));
}

TEST_F(WalksInWalks, GiveEveryAttributeOnce) {
  Words names;
  for (const jt::Text &name : scanner.attributes()) {
    names.push_back(name.str());
    EXPECT_EQ(words_of(scanner.attributes()).size(), 5U);
  }
  EXPECT_EQ(names, (Words{"Copies", "Fast", "Weight", "Sides", "Note"}));
}

TEST_F(WalksInWalks, GiveEveryPairOfValues) {
  Words pairs;
  for (const jt::Value &one : scanner.values("Note")) {
    for (const jt::Text &other : scanner.texts("Note"))
      pairs.push_back(one.text().value().str() + other.str());
  }
  EXPECT_EQ(pairs, (Words{"oneone", "onetwo", "onethree", "twoone", "twotwo", "twothree", "threeone",
                          "threetwo", "threethree"}));
}

TEST_F(WalksInWalks, GiveEveryPairOfInvocations) {
  std::vector<std::pair<std::int32_t, std::int32_t>> pairs;
  for (const jt::Service &one : scanner.invocations()) {
    const std::int32_t copies = *one.get<std::int32_t>("Copies");
    for (const jt::Service &other : scanner.invocations())
      pairs.emplace_back(copies, *other.get<std::int32_t>("Copies"));
  }
  EXPECT_EQ(pairs, (std::vector<std::pair<std::int32_t, std::int32_t>>{{3, 3}, {3, 4}, {4, 3}, {4, 4}}));
}

TEST_F(WalksInWalks, MakeTheOuterInvocationCurrentAgain) {
  std::vector<std::int32_t> after_inner;
  for (const jt::Service &outer : scanner.invocations()) {
    EXPECT_EQ(steps_of(outer.invocations()), 2U);
    after_inner.push_back(current());
  }
  EXPECT_EQ(after_inner, (std::vector<std::int32_t>{3, 4}));
  EXPECT_EQ(current(), 0);
}

TEST_F(WalksInWalks, MakeTheOuterInvocationCurrentAgainWhenLeftEarly) {
  ASSERT_TRUE(scanner.select_invocation("2"));
  ASSERT_TRUE(scanner.add_invocation());
  ASSERT_TRUE(scanner.add_attribute("integer", "Copies", 5));
  std::vector<std::int32_t> after_inner;
  for (const jt::Service &outer : scanner.invocations()) {
    for (const jt::Service &inner : scanner.invocations()) {
      if (inner.get<std::int32_t>("Copies").value() == 4) break;
    }
    after_inner.push_back(outer.get<std::int32_t>("Copies").value());
  }
  EXPECT_EQ(after_inner, (std::vector<std::int32_t>{3, 4, 5}));
}

TEST_F(WalksInWalks, MakeTheInvocationsOfThreeLevelsCurrentAgain) {
  Words after;
  for (const jt::Service &outer : scanner.invocations()) {
    for (const jt::Service &middle : scanner.invocations()) {
      EXPECT_EQ(steps_of(scanner.invocations()), 2U);
      after.push_back("middle " + middle.text("Copies").value().str());
    }
    after.push_back("outer " + outer.text("Copies").value().str());
  }
  EXPECT_EQ(after, (Words{"middle 3", "middle 4", "outer 3", "middle 3", "middle 4", "outer 4"}));
}

TEST_F(WalksInWalks, KeepTheReportOfTheInnerEnd) {
  jt::Invocations outer = scanner.invocations();
  ASSERT_TRUE(outer.begin() != outer.end());
  (void)scanner.remove_attribute("Colour");
  EXPECT_EQ(steps_of(scanner.invocations()), 2U);
  EXPECT_TRUE(says(session.last_report(), Category::none, {}));
}

TEST_F(WalksInWalks, LeaveOtherServicesAlone) {
  const jt::Service mail = job.service("Mail");
  ASSERT_TRUE(mail.add_invocation());
  ASSERT_TRUE(mail.first_invocation());
  for (const jt::Service &outer : scanner.invocations()) {
    EXPECT_EQ(steps_of(mail.invocations()), 2U);
    EXPECT_TRUE(outer.has("Copies"));
    EXPECT_FALSE(mail.next_invocation());
  }
}

TEST_F(WalksInWalks, LeaveOtherTemplatesAlone) {
  const jt::Template other = decoded(kJob);
  const jt::Service twin = other.service("Scanner");
  jt::Invocations outer = scanner.invocations();
  ASSERT_TRUE(outer.begin() != outer.end());
  EXPECT_EQ(steps_of(twin.invocations()), 2U);
  EXPECT_FALSE(twin.has("Copies"));
  EXPECT_EQ(current(), 3);
}

TEST_F(WalksInWalks, ReturnToTheInvocationOfAWalkThatWasMoved) {
  jt::Invocations begun = scanner.invocations();
  ASSERT_TRUE(++begun.begin() != begun.end());
  const jt::Invocations outer = std::move(begun);
  EXPECT_EQ(steps_of(scanner.invocations()), 2U);
  EXPECT_EQ(current(), 4);
}

TEST_F(WalksInWalks, TakeTurns) {
  jt::Texts one = scanner.texts("Note");
  jt::Texts other = scanner.texts("Note");
  auto slow = one.begin();
  auto fast = other.begin();
  EXPECT_EQ(*++fast, "two");
  EXPECT_EQ(*++slow, "two");
  EXPECT_EQ(*++fast, "three");
  EXPECT_EQ(*++slow, "three");
  EXPECT_TRUE(++fast == other.end());
  EXPECT_TRUE(++slow == one.end());
}

TEST_F(WalksInWalks, KnowOneCursorByEverySpelling) {
  Words words;
  for (const jt::Text &text : scanner.texts("Note")) {
    words.push_back(text.str());
    EXPECT_EQ(steps_of(job.service("SCANNER").texts("nOTE")), 3U);
  }
  EXPECT_EQ(words, (Words{"one", "two", "three"}));
}

TEST_F(WalksInWalks, AreNotDisturbedByReadingTheFirstText) {
  EXPECT_EQ(words_while([&] { EXPECT_EQ(*scanner.text("Note"), "one"); }), (Words{"one", "two", "three"}));
}

TEST_F(WalksInWalks, AreNotDisturbedByReadingTheFirstValue) {
  EXPECT_EQ(words_while([&] { EXPECT_TRUE(scanner.value("Note")); }), (Words{"one", "two", "three"}));
}

TEST_F(WalksInWalks, OverAttributesKeepTheirPlaceInAWalkOverInvocations) {
  EXPECT_EQ(blocks_taken([&] {
              jt::Invocations outer = scanner.invocations();
              (void)outer.begin();
              for (const jt::Text &name : scanner.attributes())
                (void)(name && steps_of(scanner.invocations()));
            }),
            5);
}

TEST_F(WalksInWalks, GoOnInTheRangeThatTheyAreMovedTo) {
  jt::Invocations outer = scanner.invocations();
  ASSERT_TRUE(outer.begin() != outer.end());
  {
    jt::Invocations kept = scanner.invocations();
    {
      jt::Invocations inner = scanner.invocations();
      EXPECT_TRUE(++inner.begin() != inner.end());
      kept = std::move(inner);
    }
    EXPECT_EQ(current(), 4);
  }
  EXPECT_EQ(current(), 3);
}

TEST_F(WalksInWalks, OverOtherChildrenTakeOneCallForEachStep) {
  EXPECT_EQ(blocks_taken([&] {
              for (const jt::Text &text : scanner.texts("Note")) (void)(text && scanner.text("Copies"));
            }),
            6);
}

TEST_F(WalksInWalks, MayBeMovedAndOutliveTheirSession) {
  jt::Session other("other");
  const jt::Template second = other.decode(kJob).value();
  jt::Texts texts = second.service("Scanner").texts("Note");
  jt::Texts inner = second.service("Scanner").texts("Note");
  EXPECT_EQ(*texts.begin(), "one");
  EXPECT_EQ(*inner.begin(), "one");
  jt::Texts moved = std::move(texts);
  other = jt::Session();
  inner = std::move(moved);
  EXPECT_EQ(words_of(inner), Words());
}

TEST_F(WalksInWalks, GoOnWhenAnotherRangeIsPutInTheirPlace) {
  jt::Texts outer = scanner.texts("Note");
  auto at = outer.begin();
  jt::Texts inner = scanner.texts("Note");
  EXPECT_EQ(*inner.begin(), "one");
  inner = job.service("Mail").texts("To");
  EXPECT_EQ(words_of(inner), Words{"office@example.org"});
  EXPECT_EQ(*++at, "two");
}

TEST_F(WalksInWalks, AreWalkedAsCopies) {
  jt::Services services = job.services();
  auto at = services.begin();
  jt::Services copy = services;
  EXPECT_EQ(words_of(copy), (Words{"Scanner", "Mail"}));
  EXPECT_EQ((++at)->name(), "Mail");
}

// ---- With the algorithms of std::ranges, where the standard library has them ----

#ifdef __cpp_lib_ranges

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
      *std::ranges::max_element(values, {}, [](const auto &value) { return value.text().value().str(); })
           ->text(),
      "two");
}

#endif

}  // namespace
}  // namespace jt_test
