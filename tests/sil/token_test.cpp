// What a text is cut into, seen through the values, names and statuses that come out of it, and every way in
// which a token can be broken.
#include <gtest/gtest.h>

#include "sil/template_cases.h"

namespace jt_test {
namespace {

struct Spelling {
  const char *name;
  const char *token;
  const char *text;
};

std::ostream &operator<<(std::ostream &out, const Spelling &spelling) { return out << spelling.token; }

class ValueToken : public DecodeTest, public ::testing::WithParamInterface<Spelling> {};

TEST_P(ValueToken, HasThisText) {
  jt_node *const root =
      decoded(std::string("[ service kmt_svc_scan ] X { string a = ") + GetParam().token + "; } end");
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(values(child(root, {"kmt_svc_scan", "X", "a"})), std::vector<std::string>{GetParam().text});
}

INSTANTIATE_TEST_SUITE_P(
    Words, ValueToken,
    ::testing::Values(Spelling{"Letters", "aZ", "aZ"}, Spelling{"Digits", "0123456789", "0123456789"},
                      Spelling{"Signs", "'+-./:_~@`", "'+-./:_~@`"}, Spelling{"Ends", "ends", "ends"},
                      Spelling{"EndWithMore", "end.", "end."}, Spelling{"EndAfterMore", "-end", "-end"},
                      Spelling{"LowBytes", "\x01\x02\x03\x04\x05\x06\x07", "\x01\x02\x03\x04\x05\x06\x07"},
                      Spelling{"MiddleBytes", "\x0e\x0f\x10\x11\x18\x1b\x1f", "\x0e\x0f\x10\x11\x18\x1b\x1f"},
                      Spelling{"HighBytes", "\x7f\x80\x81\xa0\xc3\xa9\xfe\xff",
                               "\x7f\x80\x81\xa0\xc3\xa9\xfe\xff"},
                      Spelling{"AfterEveryWhiteSpace", " \b\t\n\v\f\rx", "x"},
                      Spelling{"BeforeWhiteSpace", "x\b", "x"}),
    case_name<Spelling>);

INSTANTIATE_TEST_SUITE_P(
    Strings, ValueToken,
    ::testing::Values(
        Spelling{"Empty", "\"\"", ""}, Spelling{"Blank", "\" \"", " "}, Spelling{"End", "\"end\"", "end"},
        Spelling{"WhiteSpace", "\"\b\t\n\v\f\r \"", "\b\t\n\v\f\r "},
        Spelling{"Punctuation", "\"[]{}()<>=,;*!$%&^?|||\"", "[]{}()<>=,;*!$%&^?|||"},
        Spelling{"Hash", "\"a # b\"", "a # b"},
        Spelling{"OtherBytes", "\"\x01\x07\x0e\x1f\x7f\x80\xff\"", "\x01\x07\x0e\x1f\x7f\x80\xff"},
        Spelling{"EscapedQuote", "\"a\\\"b\"", "a\"b"}, Spelling{"EscapedBackslash", "\"a\\\\b\"", "a\\b"},
        Spelling{"EscapedControls", "\"\\b\\t\\n\\v\\f\\r\"", "\b\t\n\v\f\r"},
        Spelling{"EscapedOthers", "\"\\a\\0\\N\\x\\ \\#\\\n\"", "a0Nx #\n"},
        Spelling{"BackslashAfterTheClosingQuote", "\"a\"\\n", "a\n"},
        Spelling{"BackslashAfterTheClosingQuoteOfNothing", "\"\"\\;", ";"}),
    case_name<Spelling>);

INSTANTIATE_TEST_SUITE_P(
    EscapedWords, ValueToken,
    ::testing::Values(Spelling{"Controls", "\\b\\t\\n\\v\\f\\r", "\b\t\n\v\f\r"},
                      Spelling{"LineFeedInTheMiddle", "a\\nb", "a\nb"},
                      Spelling{"Punctuation", "\\[\\]\\{\\}\\(\\)\\<\\>\\=\\,\\;\\*\\!\\$\\%\\&\\^\\?\\|",
                               "[]{}()<>=,;*!$%&^?|"},
                      Spelling{"Blank", "a\\ b", "a b"}, Spelling{"RealLineFeed", "a\\\nb", "a\nb"},
                      Spelling{"Quote", "a\\\"b", "a\"b"}, Spelling{"QuoteFirst", "\\\"", "\""},
                      Spelling{"Hash", "\\#a", "#a"}, Spelling{"Backslash", "\\\\", "\\"},
                      Spelling{"End", "e\\nd", "e\nd"}, Spelling{"EndThatIsNoKeyword", "\\end", "end"},
                      Spelling{"HighByte", "\\\x80", "\x80"}),
    case_name<Spelling>);

class BrokenToken : public RefusedText {};

TEST_P(BrokenToken, IsReportedOnceWithItsPlace) { expect_refused(GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    EndOfText, BrokenToken,
    ::testing::Values(
        Refusal{"AfterBackslash", "\\", {"SYNTAX ERROR: unexpected EOF at --> ..."}},
        Refusal{"AfterBackslashInAWord", "ab\\", {"SYNTAX ERROR: unexpected EOF at -->b\\ ..."}},
        Refusal{"AfterBackslashBehindABlank", " ab\\", {"SYNTAX ERROR: unexpected EOF at -->b\\ ..."}},
        Refusal{"AfterSecondBackslash", "a\\b\\", {"SYNTAX ERROR: unexpected EOF at -->b\\ ..."}},
        Refusal{"AfterQuote", "\"", {"SYNTAX ERROR: unexpected EOF at --> ..."}},
        Refusal{"InAString", "\"abc", {"SYNTAX ERROR: unexpected EOF at -->abc ..."}},
        Refusal{"InAStringOfWords", " \"ab cd\nef", {"SYNTAX ERROR: unexpected EOF at -->ab cd\nef ..."}},
        Refusal{"InAStringAfterAnEscape", "\"a\\n", {"SYNTAX ERROR: unexpected EOF at -->\\n ..."}},
        Refusal{"InAStringAfterAnEscapedQuote", "\"a\\\"", {"SYNTAX ERROR: unexpected EOF at -->\\\" ..."}},
        Refusal{"AfterBackslashInAString", "\"ab\\", {"SYNTAX ERROR: unexpected EOF at -->b\\ ..."}},
        Refusal{"AfterBackslashThatOpensAString", "\"\\", {"SYNTAX ERROR: unexpected EOF at --> ..."}},
        Refusal{"AfterBackslashBehindAString", "\"ab\"\\", {"SYNTAX ERROR: unexpected EOF at -->\"\\ ..."}}),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(
    Quotes, BrokenToken,
    ::testing::Values(
        Refusal{"AfterALetter", "x\"y\"", {"SYNTAX ERROR: quotes inside a string constant at -->x\"y\" ..."}},
        Refusal{"AfterAWord",
                " xyz\"a b\" c",
                {"SYNTAX ERROR: quotes inside a string constant at -->xyz\"a b\" c ..."}},
        Refusal{
            "AfterAnEscape", "\\n\"y\"", {"SYNTAX ERROR: quotes inside a string constant at -->n\"y\" ..."}},
        Refusal{"AfterAString",
                "\"a\"\"b\"",
                {"SYNTAX ERROR: quotes inside a string constant at -->\"\"b\" ..."}},
        Refusal{
            "AfterAnEmptyString", "\"\"\"", {"SYNTAX ERROR: quotes inside a string constant at -->\" ..."}},
        Refusal{"AfterAStringAndAnEscape",
                "\"a\"\\n\"b\"",
                {"SYNTAX ERROR: quotes inside a string constant at -->\\n\"b\" ..."}}),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(
    WordsAfterAString, BrokenToken,
    ::testing::Values(
        Refusal{"Letter", "\"a\"b", {"SYNTAX ERROR: quotes inside a value token at -->\"b ..."}},
        Refusal{"Digit", "\"abc\"1 x", {"SYNTAX ERROR: quotes inside a value token at -->\"1 x ..."}},
        Refusal{"AfterAnEmptyString", "\"\"b", {"SYNTAX ERROR: quotes inside a value token at -->\"b ..."}},
        Refusal{"HighByte", "\"a\"\x80", {"SYNTAX ERROR: quotes inside a value token at -->\"\x80 ..."}},
        Refusal{"LowByte", "\"a\"\x01", {"SYNTAX ERROR: quotes inside a value token at -->\"\x01 ..."}},
        Refusal{"AfterAStringAndAnEscape",
                "\"a\"\\nb",
                {"SYNTAX ERROR: quotes inside a value token at -->nb ..."}}),
    case_name<Refusal>);

class Token : public DecodeTest {};

TEST_F(Token, PunctuationAndWordsNeedNoBlanks) {
  expect_read({"",
               "[service A]X{*integer a=1,2;(KMT_STATUS_ERROR{x})string b;}(KMT_STATUS_ERROR{y})end",
               "[service A]\n X{\n    * integer a = 1, 2;(KMT_STATUS_ERROR{x})\n      string b = ;\n "
               "}(KMT_STATUS_ERROR{y})\nend\n\n",
               {"WARNING: unknown service:A ...", "WARNING: unknown service:A ..."}});
}

TEST_F(Token, EveryWhiteSpaceSeparatesWords) {
  for (const char *const blank : {" ", "\b", "\t", "\n", "\v", "\f", "\r"}) {
    jt_node *const root = decoded(std::string("[service") + blank + "A]end");
    ASSERT_NE(root, nullptr) << static_cast<int>(blank[0]);
    EXPECT_NE(child(root, {"A"}), nullptr);
  }
}

TEST_F(Token, NoOtherByteSeparatesWords) {
  for (int byte = 1; byte < 256; ++byte) {
    if ((byte >= 8 && byte <= 13) ||
        std::string(" !\"#$%&()*,;<=>?[\\]^{|}").find(static_cast<char>(byte)) != std::string::npos) {
      continue;
    }
    const std::string name = std::string("A") + static_cast<char>(byte) + "B";
    jt_node *const root = decoded("[service " + name + "]end");
    ASSERT_NE(root, nullptr) << byte;
    EXPECT_NE(child(root, {name.c_str()}), nullptr) << byte;
  }
}

TEST_F(Token, EndInQuotesIsAStatusTextLikeAnyOther) {
  jt_node *const root = decoded("[ service A ] end ( KMT_STATUS_ERROR { \"end\" } )");
  ASSERT_NE(root, nullptr);
  EXPECT_STREQ(child(root, {"A"})->overridden_value, "end");
}

TEST_F(Token, WordWithAnEscapeIsNoName) {
  expect_refused(
      {"", "[ service \\A ] end", {"SYNTAX ERROR: while parsing for \"  SERVICE NAME  \" at:A ] end ..."}});
}

TEST_F(Token, PlaceOfAWordThatPunctuationEndsIsOneBeforeIt) {
  expect_refused({"", "[ service A B] end", {"SYNTAX ERROR: while parsing for \" ] \" at: B] end ..."}});
}

TEST_F(Token, TextAfterAnErrorIsNotLookedAt) {
  expect_refused({"",
                  "x\"y\" \"unfinished",
                  {"SYNTAX ERROR: quotes inside a string constant at -->x\"y\" \"unfinished ..."}});
}

}  // namespace
}  // namespace jt_test
