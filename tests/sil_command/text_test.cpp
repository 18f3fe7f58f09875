// Words, quotes, comments and the encodings of bytes.
#include "core/text.h"

#include <gtest/gtest.h>

namespace sil {
namespace {

TEST(BareWord, HasNoMarkOfTheLanguageAndIsNotTheKeyword) {
  EXPECT_TRUE(is_bare_word("word"));
  EXPECT_TRUE(is_bare_word("/SIL:it's-a_~word@1"));
  EXPECT_TRUE(is_bare_word("ends"));
  EXPECT_TRUE(is_bare_word("\x7F\xFF\x01"));
  EXPECT_FALSE(is_bare_word(""));
  EXPECT_FALSE(is_bare_word("End"));
  for (const char c : std::string_view(" \b\t\n\v\f\r[]{}()<>=,;*!$%&^?|#\"\\"))
    EXPECT_FALSE(is_bare_word(std::string("a") + c)) << c;
}

TEST(Quoted, EscapesQuotesBackslashesAndWhiteSpace) {
  EXPECT_EQ(quoted("a \"b\" \\ \b\t\n\v\f\r"), R"("a \"b\" \\ \b\t\n\v\f\r")");
}

TEST(ForShell, QuotesWhatAShellWouldRead) {
  EXPECT_EQ(for_shell("Scanner/Letter/Copies=2"), "Scanner/Letter/Copies=2");
  EXPECT_EQ(for_shell("a[2]=it's"), "'a[2]=it'\\''s'");
  EXPECT_EQ(for_shell(""), "''");
}

TEST(Printable, ShowsControlCharactersAsEscapes) {
  EXPECT_EQ(printable("a\x1b[31m\n\x7F"), "a\\x1b[31m\\x0a\\x7f");
}

TEST(Utf8, RefusesOverlongCutAndSurrogateSequences) {
  EXPECT_TRUE(is_utf8("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"));
  EXPECT_FALSE(is_utf8("\xC0\x80"));
  EXPECT_FALSE(is_utf8("\xE0\x80\x80"));
  EXPECT_FALSE(is_utf8("\xED\xA0\x80"));
  EXPECT_FALSE(is_utf8("\xF4\x90\x80\x80"));
  EXPECT_FALSE(is_utf8("\xE2\x82"));
  EXPECT_FALSE(is_utf8("\x80"));
}

TEST(Base64, GoesBothWays) {
  EXPECT_EQ(to_base64(""), "");
  EXPECT_EQ(to_base64("f"), "Zg==");
  EXPECT_EQ(to_base64("fo"), "Zm8=");
  EXPECT_EQ(to_base64("foo"), "Zm9v");
  EXPECT_EQ(from_base64("Zm9vYg=="), "foob");
  EXPECT_EQ(from_base64("Zm9"), std::nullopt);
  EXPECT_EQ(from_base64("Zm9*"), std::nullopt);
  EXPECT_EQ(from_base64("Zh=="), std::nullopt);
  EXPECT_EQ(from_base64("===="), std::nullopt);
}

TEST(Comment, IsLinesThatBeginWithItsMark) {
  EXPECT_TRUE(is_comment("# a\n#b\n"));
  EXPECT_FALSE(is_comment(""));
  EXPECT_FALSE(is_comment("# a"));
  EXPECT_FALSE(is_comment("# a\nb\n"));
  EXPECT_FALSE(is_comment("# a\r\n"));
  EXPECT_TRUE(is_comment("#" + std::string(1022, 'x') + "\n"));
  EXPECT_FALSE(is_comment("#" + std::string(1023, 'x') + "\n"));
}

}  // namespace
}  // namespace sil
