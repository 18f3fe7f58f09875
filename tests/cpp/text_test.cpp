// Texts that jt hands out, and texts that are given to it: owners, views, NULs inside and the ways to write a
// text.
#include <cstring>

#include "cpp/cpp_session.h"

namespace jt_test {
namespace {

using jt::Category;

char *block(const char *text) { return strdup(text); }

TEST(Text, IsEmptyWithoutABlock) {
  const jt::Text text;
  EXPECT_FALSE(text);
  EXPECT_TRUE(text.empty());
  EXPECT_EQ(text.get(), nullptr);
  EXPECT_STREQ(text.c_str(), "");
}

TEST(Text, OwnsABlock) {
  const jt::Text text(block("words"));
  EXPECT_TRUE(text);
  EXPECT_FALSE(text.empty());
  EXPECT_STREQ(text.get(), "words");
  EXPECT_STREQ(text.c_str(), "words");
}

TEST(Text, OfNoBytesIsAText) {
  const jt::Text text(block(""));
  EXPECT_TRUE(text);
  EXPECT_TRUE(text.empty());
}

TEST(Text, IsAView) {
  const jt::Text text(block("words"));
  const std::string_view view = text;
  EXPECT_EQ(view, "words");
  EXPECT_EQ(text.view(), "words");
}

TEST(Text, IsCopiedIntoAString) { EXPECT_EQ(jt::Text(block("words")).str(), "words"); }

TEST(Text, ComparesByteByByte) {
  const jt::Text text(block("words"));
  EXPECT_TRUE(text == jt::Text(block("words")));
  EXPECT_TRUE(text == "words");
  EXPECT_TRUE(text == std::string("words"));
  EXPECT_TRUE(text == std::string_view("words"));
  EXPECT_TRUE("words" == text);
  EXPECT_TRUE(text != "Words");
}

TEST(Text, Moves) {
  jt::Text from(block("words"));
  jt::Text to(std::move(from));
  EXPECT_FALSE(from);  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(to, "words");
  from = std::move(to);
  EXPECT_EQ(from, "words");
}

TEST(Text, StaysWhenMovedToItself) {
  jt::Text text(block("words"));
  jt::Text &same = text;
  text = std::move(same);
  EXPECT_EQ(text, "words");
}

TEST(Text, GivesItsBlockUp) {
  jt::Text text(block("words"));
  char *const released = text.release();
  EXPECT_FALSE(text);
  EXPECT_STREQ(released, "words");
  er_free(released);
}

// ---- Arguments ----

TEST(TextArgument, PassesACTextOn) {
  const char *const text = "words";
  EXPECT_EQ(jt::TextArgument(text).c_str(), text);
  EXPECT_EQ(jt::TextArgument(nullptr).c_str(), nullptr);
  EXPECT_EQ(jt::TextArgument(text).problem(), nullptr);
}

TEST(TextArgument, PassesAStringOn) {
  const std::string text = "words";
  EXPECT_EQ(jt::TextArgument(text).c_str(), text.c_str());
}

TEST(TextArgument, PassesAnOwnedTextOn) {
  const jt::Text text(block("words"));
  EXPECT_EQ(jt::TextArgument(text).c_str(), text.get());
  EXPECT_EQ(jt::TextArgument(jt::Text()).c_str(), nullptr);
}

TEST(TextArgument, EndsAViewWithNul) {
  const std::string_view words = "some words";
  EXPECT_STREQ(jt::TextArgument(words.substr(0, 4)).c_str(), "some");
  EXPECT_STREQ(jt::TextArgument(std::string_view()).c_str(), "");
}

TEST(TextArgument, KeepsViewsUpTo63BytesOnTheStack) {
  const std::string text(64, 'x');
  const std::string_view view = text;
  EXPECT_EQ(blocks_taken([&] { jt::TextArgument argument(view.substr(1)); }), 0);
  EXPECT_EQ(blocks_taken([&] { jt::TextArgument argument(view); }), 1);
  EXPECT_EQ(jt::TextArgument(view.substr(1)).c_str(), std::string(63, 'x'));
  EXPECT_EQ(jt::TextArgument(view).c_str(), std::string(64, 'x'));
}

class GivenTexts : public CppTest {};

TEST_F(GivenTexts, AreTakenHoweverTheyAreWritten) {
  const std::string note = "Note";
  for (const jt::Result<> &set : {scanner.set("Note", "C"), scanner.set(note, std::string("string")),
                                  scanner.set(std::string_view("Note, and more").substr(0, 4), "view")}) {
    EXPECT_TRUE(set);
  }
  EXPECT_EQ(*scanner.text(jt::Text(block("Note"))), "view");
}

constexpr std::string_view kCut("Note\0more", 9);

TEST_F(GivenTexts, AreNeverCutAtANul) {
  const Words messages = {"CALL ERROR: NUL inside the text:Note ..."};
  EXPECT_TRUE(failed(scanner.text(kCut), Category::call_error, messages));
  EXPECT_TRUE(failed(scanner.text(std::string(kCut)), Category::call_error, messages));
  EXPECT_TRUE(failed(scanner.set("Note", kCut), Category::call_error, messages));
  EXPECT_EQ(*scanner.text("Note"), "one");
}

TEST_F(GivenTexts, WithANulAreRefusedByEveryCall) {
  const Words messages = {"CALL ERROR: NUL inside the text:Note ..."};
  EXPECT_TRUE(failed(session.decode(kCut), Category::call_error, messages));
  EXPECT_TRUE(failed(session.parse(kCut, "1"), Category::call_error, messages));
  EXPECT_TRUE(failed(session.parse("integer", kCut), Category::call_error, messages));
  EXPECT_TRUE(failed(session.parse("integer", "1", kCut), Category::call_error, messages));
  EXPECT_TRUE(failed(session.status(kCut), Category::call_error, messages));
  EXPECT_TRUE(failed(job.add_service(kCut, "New"), Category::call_error, messages));
  EXPECT_TRUE(failed(job.add_service("kmt_svc_scan", kCut), Category::call_error, messages));
  EXPECT_TRUE(failed(job.service(kCut).type(), Category::call_error, messages));
  EXPECT_TRUE(failed(scanner.value(kCut), Category::call_error, messages));
  EXPECT_TRUE(failed(scanner.parse(kCut, "1"), Category::call_error, messages));
  EXPECT_TRUE(failed(scanner.parse("Copies", kCut), Category::call_error, messages));
  EXPECT_TRUE(failed(scanner.set(kCut, 5), Category::call_error, messages));
  EXPECT_TRUE(failed(scanner.select_invocation(kCut), Category::call_error, messages));
}

TEST_F(GivenTexts, WithANulMakeAQuestionsAnswerNo) {
  EXPECT_FALSE(scanner.has(kCut));
  EXPECT_TRUE(
      says(session.last_report(), Category::call_error, {"CALL ERROR: NUL inside the text:Note ..."}));
}

TEST_F(GivenTexts, WithANulMakeAWalkEmpty) {
  EXPECT_EQ(words_of(scanner.texts(kCut)), Words());
  EXPECT_TRUE(
      says(session.last_report(), Category::call_error, {"CALL ERROR: NUL inside the text:Note ..."}));
  EXPECT_EQ(words_of(job.service(kCut).attributes()), Words());
  EXPECT_TRUE(jt::types_of(kCut).empty());
}

TEST_F(GivenTexts, WithANulAtTheEndAreRefusedToo) {
  EXPECT_TRUE(failed(scanner.text(std::string_view("Note", 5)), Category::call_error,
                     {"CALL ERROR: NUL inside the text:Note ..."}));
}

TEST_F(GivenTexts, ThatAreNullMatchNothing) {
  EXPECT_TRUE(failed(scanner.text(nullptr), Category::call_error, {"CALL ERROR: does not exist:(null) ..."}));
  EXPECT_TRUE(
      failed(job.service(nullptr).type(), Category::call_error, {"CALL ERROR: does not exist:(null) ..."}));
}

TEST_F(GivenTexts, ThatFindNoMemoryAreRefused) {
  const std::string text(100, 'x');
  fail_allocations(1, Failing::kOnlyOne);
  const jt::Result<> set = scanner.set("Note", std::string_view(text));
  EXPECT_EQ(allow_allocations(), 1);
  EXPECT_TRUE(failed(set, Category::memory_error, {"MEMORY ERROR: allocation error ..."}));
}

}  // namespace
}  // namespace jt_test
