// Results, errors and lists of messages by themselves: what they hold, how they copy, move and end a program
// that uses what is not there.
#include <csignal>

#include "cpp/cpp_session.h"

namespace jt_test {
namespace {

using jt::Category;
using jt::Messages;

constexpr std::array<std::string_view, 2> kTwo = {"newer", "older"};

// ---- Messages ----

TEST(Messages, AreNoneAtFirst) {
  const Messages messages;
  EXPECT_TRUE(messages.empty());
  EXPECT_EQ(messages.size(), 0U);
  EXPECT_EQ(messages.begin(), messages.end());
  EXPECT_EQ(messages[0], "");
}

TEST(Messages, KeepCopiesInTheirOrder) {
  const Messages messages{std::span(kTwo)};
  EXPECT_FALSE(messages.empty());
  EXPECT_EQ(messages.size(), 2U);
  EXPECT_EQ(words_of(messages), (Words{"newer", "older"}));
  EXPECT_EQ(messages[1], "older");
  EXPECT_EQ(messages[2], "");
  EXPECT_NE(messages[0].data(), kTwo[0].data());
}

TEST(Messages, EndEachWithNul) {
  const Messages messages{std::span(kTwo)};
  EXPECT_STREQ(messages[0].data(), "newer");
  EXPECT_STREQ(messages[1].data(), "older");
}

TEST(Messages, AreOneBlock) {
  EXPECT_EQ(blocks_taken([] { Messages messages{std::span(kTwo)}; }), 1);
}

TEST(Messages, KeepNoMoreThanTheHistory) {
  const std::array<std::string_view, 6> six = {"1", "2", "3", "4", "5", "6"};
  EXPECT_EQ(words_of(Messages{std::span(six)}), (Words{"1", "2", "3", "4", "5"}));
}

TEST(Messages, CopyAndMove) {
  Messages messages{std::span(kTwo)};
  Messages copy = messages;
  EXPECT_EQ(words_of(copy), words_of(messages));
  const Messages moved = std::move(messages);
  EXPECT_EQ(words_of(moved), (Words{"newer", "older"}));
  copy = Messages();
  EXPECT_TRUE(copy.empty());
  copy = moved;
  EXPECT_EQ(words_of(copy), (Words{"newer", "older"}));
}

TEST(Messages, AreNoneWithoutMemory) {
  fail_allocations(1, Failing::kOnlyOne);
  const Messages messages{std::span(kTwo)};
  allow_allocations();
  EXPECT_TRUE(messages.empty());
}

// ---- Error ----

TEST(Error, SaysNothingAtFirst) {
  const jt::Error error;
  EXPECT_TRUE(says(error, Category::none, {}));
  EXPECT_EQ(error.message(), "");
}

TEST(Error, HasACategoryAndMessages) {
  const jt::Error error(Category::warning, Messages{std::span(kTwo)});
  EXPECT_TRUE(says(error, Category::warning, {"newer", "older"}));
  EXPECT_EQ(error.message(), "newer");
}

TEST(Error, Copies) {
  const jt::Error error(Category::warning, Messages{std::span(kTwo)});
  const jt::Error copy = error;
  EXPECT_TRUE(says(copy, Category::warning, {"newer", "older"}));
}

// ---- Result ----

jt::Result<std::string> good() { return std::string("value"); }
jt::Result<std::string> bad() { return jt::Error(Category::syntax_error, Messages{std::span(kTwo)}); }

TEST(Result, HoldsAValue) {
  jt::Result<std::string> result = good();
  EXPECT_TRUE(result);
  EXPECT_TRUE(result.has_value());
  EXPECT_EQ(result.value(), "value");
  EXPECT_EQ(*result, "value");
  EXPECT_EQ(result->size(), 5U);
  EXPECT_TRUE(says(result.error(), Category::none, {}));
}

TEST(Result, LetsItsValueBeChanged) {
  jt::Result<std::string> result = good();
  result.value() += '1';
  *result += '2';
  result->push_back('3');
  EXPECT_EQ(*result, "value123");
}

TEST(Result, LetsAConstantValueBeRead) {
  const jt::Result<std::string> result = good();
  EXPECT_EQ(result.value() + *result, "valuevalue");
  EXPECT_EQ(result->size(), 5U);
}

TEST(Result, GivesItsValueAway) {
  EXPECT_EQ(std::string(good().value()), "value");
  EXPECT_EQ(std::string(*good()), "value");
}

TEST(Result, HoldsAnError) {
  const jt::Result<std::string> result = bad();
  EXPECT_FALSE(result);
  EXPECT_TRUE(failed(result, Category::syntax_error, {"newer", "older"}));
  EXPECT_TRUE(says(bad().error(), Category::syntax_error, {"newer", "older"}));
}

TEST(Result, GivesSomethingElseInsteadOfNoValue) {
  EXPECT_EQ(good().value_or("other"), "value");
  EXPECT_EQ(bad().value_or("other"), "other");
  const jt::Result<std::string> result = bad();
  EXPECT_EQ(result.value_or("other"), "other");
}

TEST(Result, CopiesAndMovesWithItsValue) {
  const jt::Result<std::string> result = bad();
  jt::Result<std::string> copy = result;
  EXPECT_TRUE(failed(copy, Category::syntax_error, {"newer", "older"}));
  copy = good();
  EXPECT_EQ(*copy, "value");
}

TEST(Result, LetsTheMessagesOfATemporaryBeWalkedOver) {
  Words words;
  for (const std::string_view message : bad().error().messages()) words.emplace_back(message);
  EXPECT_EQ(words, (Words{"newer", "older"}));
}

TEST(Result, OfNothingTellsSuccess) {
  const jt::Result<> result;
  EXPECT_TRUE(result);
  EXPECT_TRUE(result.has_value());
  EXPECT_TRUE(says(result.error(), Category::none, {}));
  result.value();
  *result;
}

TEST(Result, OfNothingHoldsAnError) {
  const jt::Result<> result = bad().error();
  EXPECT_FALSE(result);
  EXPECT_TRUE(failed(result, Category::syntax_error, {"newer", "older"}));
  EXPECT_TRUE(says(jt::Result<>(result).error(), Category::syntax_error, {"newer", "older"}));
}

// ---- Going on with a result ----

jt::Result<int> size_of(const std::string &text) { return static_cast<int>(text.size()); }
jt::Result<int> refuse(const std::string &) { return jt::Error(Category::warning, {}); }

TEST(AndThen, CallsWithTheValue) {
  const jt::Result<std::string> result = good();
  EXPECT_EQ(*result.and_then(size_of), 5);
  EXPECT_EQ(*good().and_then(size_of), 5);
  EXPECT_TRUE(failed(result.and_then(refuse), Category::warning, {}));
}

TEST(AndThen, PassesAnErrorOnWithoutACall) {
  const jt::Result<std::string> result = bad();
  int calls = 0;
  const auto next = [&](const std::string &) { return ++calls, jt::Result<int>(1); };
  EXPECT_TRUE(failed(result.and_then(next), Category::syntax_error, {"newer", "older"}));
  EXPECT_TRUE(failed(bad().and_then(next), Category::syntax_error, {"newer", "older"}));
  EXPECT_EQ(calls, 0);
}

TEST(AndThen, CallsWithoutArgumentsForAResultOfNothing) {
  EXPECT_EQ(*jt::Result<>().and_then(good), "value");
  EXPECT_TRUE(failed(jt::Result<>(bad().error()).and_then(good), Category::syntax_error, {"newer", "older"}));
}

TEST(AndThen, LetsTheValueInHandBeChanged) {
  jt::Result<std::string> result = good();
  EXPECT_TRUE(result.and_then([](std::string &text) { return text += '1', jt::Result<>(); }));
  EXPECT_EQ(*result, "value1");
}

TEST(AndThen, GivesTheValueOfATemporaryAway) {
  const auto keep = [](std::unique_ptr<int> number) {
    return jt::Result<std::unique_ptr<int>>(std::move(number));
  };
  EXPECT_EQ(**jt::Result<std::unique_ptr<int>>(std::make_unique<int>(7)).and_then(keep), 7);
}

TEST(Transform, MakesSomethingElseOfTheValue) {
  const jt::Result<std::string> result = good();
  EXPECT_EQ(*result.transform(&std::string::size), 5U);
  EXPECT_EQ(*good().transform([](std::string text) { return text + '1'; }), "value1");
  EXPECT_EQ(*jt::Result<>().transform([] { return 7; }), 7);
}

TEST(Transform, CopiesWhatIsGivenByReference) {
  jt::Result<std::string> result = good();
  jt::Result<std::string> copy = result.transform([](std::string &text) -> std::string & { return text; });
  *copy += '1';
  EXPECT_EQ(*result, "value");
}

TEST(Transform, MakesAResultOfNothingOfNothing) {
  std::string seen;
  const jt::Result<> result = good().transform([&](const std::string &text) { seen = text; });
  EXPECT_TRUE(result);
  EXPECT_EQ(seen, "value");
}

TEST(Transform, PassesAnErrorOnWithoutACall) {
  int calls = 0;
  const jt::Result<std::string> result = bad();
  EXPECT_TRUE(failed(result.transform([&](const std::string &) { return ++calls; }), Category::syntax_error,
                     {"newer", "older"}));
  EXPECT_TRUE(failed(bad().transform([&](const std::string &) { ++calls; }), Category::syntax_error,
                     {"newer", "older"}));
  EXPECT_EQ(calls, 0);
}

TEST(OrElse, CallsWithTheError) {
  const auto first_message = [](const jt::Error &error) {
    return jt::Result<std::string>(std::string(error.message()));
  };
  const jt::Result<std::string> result = bad();
  EXPECT_EQ(*result.or_else(first_message), "newer");
  EXPECT_EQ(*bad().or_else(first_message), "newer");
  EXPECT_TRUE(jt::Result<>(bad().error()).or_else([](const jt::Error &) { return jt::Result<>(); }));
}

TEST(OrElse, KeepsTheValueWithoutACall) {
  int calls = 0;
  const auto other = [&](const jt::Error &) { return ++calls, bad(); };
  const jt::Result<std::string> result = good();
  EXPECT_EQ(*result.or_else(other), "value");
  EXPECT_EQ(*result, "value");
  EXPECT_EQ(*good().or_else(other), "value");
  EXPECT_EQ(calls, 0);
}

TEST(OrElse, MovesTheValueOfATemporary) {
  using Owner = jt::Result<std::unique_ptr<int>>;
  const auto other = [](const jt::Error &error) { return Owner(error); };
  EXPECT_EQ(**Owner(std::make_unique<int>(7)).or_else(other), 7);
}

void expect_abort(void (*use)()) { EXPECT_EXIT(use(), ::testing::KilledBySignal(SIGABRT), ""); }

TEST(ResultDeathTest, AbortsWhereAMissingValueIsUsed) {
  expect_abort([] { bad().value(); });
  expect_abort([] { *bad(); });
  expect_abort([] {
    jt::Result<std::string> result = bad();
    (void)result->size();
  });
  expect_abort([] { jt::Result<>(bad().error()).value(); });
  expect_abort([] { *jt::Result<>(bad().error()); });
}

}  // namespace
}  // namespace jt_test
