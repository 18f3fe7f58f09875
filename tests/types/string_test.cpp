// "string": the text itself, whatever its bytes are.
#include <gtest/gtest.h>

#include <string>

#include "types/value_cases.h"

namespace jt_test {
namespace {

class StringTest : public TypeTest {
 protected:
  StringTest() : TypeTest("", "string") {}

  std::int32_t compared_texts(const std::string &a, const std::string &b) {
    const OwnedValue first = evaluated(a);
    const OwnedValue second = evaluated(b);
    return compared(first.get(), second.get());
  }
};

struct Text {
  std::string name;
  std::string text;
};

std::ostream &operator<<(std::ostream &out, const Text &text) { return out << text.text; }

using EveryText = Each<StringTest, Text>;

TEST_P(EveryText, IsReadCopiedAndWrittenAsItIs) {
  PrivateText text(GetParam().text);
  const OwnedValue value(type->eval(space, text.get()), KillValue{space, type});
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(text.bytes(), GetParam().text);
  EXPECT_STREQ(reinterpret_cast<const char *>(value.get()), GetParam().text.c_str());
  const OwnedValue copy = copied(value.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_STREQ(reinterpret_cast<const char *>(copy.get()), GetParam().text.c_str());
  EXPECT_EQ(written(copy.get()), GetParam().text);
  EXPECT_EQ(messages(), Messages{});
}

INSTANTIATE_TEST_SUITE_P(Every, EveryText,
                         ::testing::Values(Text{"Empty", ""}, Text{"Word", "Abc"}, Text{"Blanks", "  a b  "},
                                           Text{"Quotes", "\"a\" 'b'"}, Text{"Backslashes", "a\\n\\\\b"},
                                           Text{"Lines", "a\nb\r\tc"},
                                           Text{"Punctuation", "<[{(a:b/c;d,e)}]>"},
                                           Text{"HighBytes", "\x80\xff\xc3\xa4"},
                                           Text{"ControlBytes", "\x01\x1f\x7f"},
                                           Text{"Long", std::string(5000, 's')}),
                         case_name<Text>);

TEST_F(StringTest, AValueIsNotTheTextItWasReadFrom) {
  PrivateText text("abc");
  const OwnedValue value(type->eval(space, text.get()), KillValue{space, type});
  ASSERT_NE(value, nullptr);
  *text.get() = 'x';
  EXPECT_EQ(written(value.get()), "abc");
}

TEST_F(StringTest, LettersOfEitherCaseAreEqual) {
  EXPECT_EQ(compared_texts("Abc", "aBC"), 0);
  EXPECT_EQ(compared_texts("", ""), 0);
}

TEST_F(StringTest, OrderIsTheDifferenceOfTheFirstDifferentCharacters) {
  EXPECT_EQ(compared_texts("a", "c"), -2);
  EXPECT_EQ(compared_texts("c", "a"), 2);
  EXPECT_EQ(compared_texts("A", "c"), -2);
  EXPECT_EQ(compared_texts("C", "a"), 2);
  EXPECT_EQ(compared_texts("xbx", "xax"), 1);
}

TEST_F(StringTest, AShorterTextDiffersByTheCharacterThatItLacks) {
  EXPECT_EQ(compared_texts("abcd", "abc"), 'd');
  EXPECT_EQ(compared_texts("abc", "abcd"), -'d');
  EXPECT_EQ(compared_texts("", "z"), -'z');
}

TEST_F(StringTest, CharactersAreUnsignedBytes) {
  EXPECT_EQ(compared_texts("\xff", "a"), 0xff - 'a');
  EXPECT_EQ(compared_texts("\xc4", "\xe4"), 0xc4 - 0xe4);
}

TEST_F(StringTest, NullIsSmallerThanTheEmptyText) {
  const OwnedValue empty = evaluated("");
  ASSERT_NE(empty, nullptr);
  EXPECT_EQ(compared(nullptr, empty.get()), -1);
  EXPECT_EQ(compared(empty.get(), nullptr), 1);
}

}  // namespace
}  // namespace jt_test
