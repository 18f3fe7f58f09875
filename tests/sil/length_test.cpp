// How long words, strings, comments, names and values may be, and what is recorded when they are longer.
#include <gtest/gtest.h>

#include "sil/template_cases.h"

namespace jt_test {
namespace {

constexpr char kNameTooLong[] = "SYNTAX ERROR: token is longer than allowable length:";
constexpr char kTokenTooLong[] =
    "SYNTAX ERROR: token length exceeds JT_MAX_TOKEN_LENGTH (1024) + QUOTES --> ";

class Length : public DecodeTest {
 protected:
  // The only value of attribute "a" in a text that is cut open for it.
  std::vector<std::string> values_of(const std::string &type, const std::string &token) {
    jt_node *const root = decoded("[ service kmt_svc_scan ] X { " + type + " a = " + token + " ; } end");
    return values(child(root, {"kmt_svc_scan", "X", "a"}));
  }
};

TEST_F(Length, OfAnInvocationNameMayBe1023) {
  const std::string name = times(1023, 'x');
  jt_node *const root =
      decoded("[ service kmt_svc_scan ] " + name + " { } { } y" + name.substr(1) + "{ } end");
  ASSERT_NE(root, nullptr);
  EXPECT_NE(child(root, {"kmt_svc_scan", name.c_str()}), nullptr);
}

TEST_F(Length, OfAnInvocationNameMayNotBe1024) {
  const std::string name = times(1024, 'x');
  expect_refused(
      {"",
       "[ service kmt_svc_scan ] " + name + " { } end",
       {cut(kNameTooLong, name), cut("SYNTAX ERROR: while parsing for \" { or end or a NAME \" at:", name)}});
}

TEST_F(Length, OfALaterInvocationNameMayNotBe1024) {
  const std::string name = times(1024, 'x');
  expect_refused(
      {"",
       "[ service kmt_svc_scan ] { } " + name + " { } end",
       {cut(kNameTooLong, name), cut("SYNTAX ERROR: while parsing for \" { or END or ( \" at:", name)}});
}

TEST_F(Length, OfAnAttributeNameMayBe1023) {
  const std::string name = times(1023, 'x');
  jt_node *const root = decoded("[ service kmt_svc_scan ] X { integer " + name + " = 1 ; } end");
  ASSERT_NE(root, nullptr);
  EXPECT_NE(child(root, {"kmt_svc_scan", "X", name.c_str()}), nullptr);
}

TEST_F(Length, OfAnAttributeNameMayNotBe1024) {
  const std::string name = times(1024, 'x');
  expect_refused({"",
                  "[ service kmt_svc_scan ] X { integer " + name + " = 1 ; } end",
                  {cut(kNameTooLong, name), cut("SYNTAX ERROR: while parsing for \" NAME \" at:", name)}});
}

TEST_F(Length, OfAServiceNameIsThatOfAnyWord) {
  const std::string name = times(2047, 'x');
  jt_node *const root = decoded("[ service " + name + " ] end");
  ASSERT_NE(root, nullptr);
  EXPECT_NE(child(root, {name.c_str()}), nullptr);
}

TEST_F(Length, OfAServiceTypeIsThatOfAnyWord) {
  const std::string type = times(2047, 't');
  expect_refused({"",
                  "[ " + type + " A ] end",
                  {cut("SYNTAX ERROR: unknown or invalid type:", type),
                   cut("SYNTAX ERROR: while parsing for \"  TYPE  \" at:", type)}});
}

TEST_F(Length, OfAnAttributeTypeIsThatOfAnyWord) {
  const std::string type = times(2047, 't');
  expect_refused({"",
                  "[ service kmt_svc_scan ] { " + type + " a ; } end",
                  {cut("WARNING: unknown attribute type:", type),
                   cut("SYNTAX ERROR: while parsing for \"  * or TYPE or } \" at:", type)}});
}

TEST_F(Length, OfAWordAsValueMayBe1024) {
  const std::string value = times(1024, 'v');
  EXPECT_EQ(values_of("string", value), std::vector<std::string>{value});
}

TEST_F(Length, OfAStringAsValueMayBe1024) {
  const std::string value = times(1024, 'v');
  EXPECT_EQ(values_of("string", "\"" + value + "\""), std::vector<std::string>{value});
}

TEST_F(Length, OfAWordAsValueMayNotBe1025) {
  const std::string value = times(1025, 'v');
  expect_refused(
      {"", "[ service kmt_svc_scan ] { string a = " + value + " ; } end", {cut(kNameTooLong, value)}});
}

TEST_F(Length, OfAStringAsValueMayNotBe1025) {
  const std::string value = times(1025, 'v');
  expect_refused(
      {"", "[ service kmt_svc_scan ] { string a = \"" + value + "\" ; } end", {cut(kNameTooLong, value)}});
}

TEST_F(Length, OfASecondValueMayNotBe1025) {
  const std::string value = times(1025, 'v');
  expect_refused(
      {"", "[ service kmt_svc_scan ] { string a = x , " + value + " ; } end", {cut(kNameTooLong, value)}});
}

TEST_F(Length, OfAValueCountsCharactersAfterEscapes) {
  std::string value;
  for (int i = 0; i < 1024; ++i) value += "\\v";
  EXPECT_EQ(values_of("string", "\"" + value + "\""), std::vector<std::string>{times(1024, '\v')});
  EXPECT_EQ(decode("[ service kmt_svc_print ] { string a = " + value + "\\v ; } end"), 0);
  EXPECT_EQ(messages(), Messages{cut(kNameTooLong, times(1025, '\v'))});
}

TEST_F(Length, OfAStringMayBe1025) {
  const std::string text = times(1025, 's');
  jt_node *const root = decoded("[ service A ] end ( KMT_STATUS_ERROR { \"" + text + "\" } )");
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(or_none(child(root, {"A"})->overridden_value), text);
}

TEST_F(Length, OfAStringMayNotBe1026) {
  const std::string text = times(1026, 's');
  expect_refused(
      {"", "[ service A ] end ( KMT_STATUS_ERROR { \"" + text + "\" } )", {cut(kTokenTooLong, text)}});
}

TEST_F(Length, OfAnEndlessStringIsReportedBeforeItsEnd) {
  expect_refused({"", "\"" + times(5000, 's'), {cut(kTokenTooLong, times(1026, 's'))}});
}

TEST_F(Length, OfAStringIsReportedFromThePlaceOfItsFormula) {
  // 1025 escapes of two bytes and one plain character: 2051 bytes read after the quote, less 1026.
  std::string text = "\"";
  for (int i = 0; i < 1025; ++i) text += "\\n";
  text += "abc\"";
  expect_refused({"", text, {cut(kTokenTooLong, text.substr(1 + 2051 - 1026))}});
}

TEST_F(Length, OfAWordMayBe2047) {
  const std::string word = times(2047, 'w');
  expect_refused({"", word, {cut("SYNTAX ERROR: while parsing for \"  <  \" at:", word)}});
}

TEST_F(Length, OfAWordMayNotBe2048) {
  const std::string word = times(2048, 'w');
  expect_refused({"", word, {cut(kTokenTooLong, word)}});
}

TEST_F(Length, OfAWordWithEscapesMayNotBe2048) {
  expect_refused({"", times(2047, 'w') + "\\n", {cut(kTokenTooLong, times(300, 'w'))}});
}

TEST_F(Length, OfAWordThatIsTooLongIsReportedInEveryPlace) {
  const std::string word = times(2048, 'w');
  for (const char *const before : {"< SIL ", "< SIL 4.2.00 ", "[ ", "[ service ", "[ service A ] ",
                                   "[ service kmt_svc_scan ] { integer ",
                                   "[ service kmt_svc_scan ] { string a = ", "[ service A ] end ( "}) {
    reopen();
    expect_refused({"", before + word + " x", {cut(kTokenTooLong, word)}});
  }
}

TEST_F(Length, OfACommentMayBe1023) {
  const std::string comment = "#" + times(1022, 'c');
  decoded(comment + "\n[ service A ] end");
  EXPECT_EQ(comments(), std::vector<std::string>{"0 template: " + comment + "\n"});
}

TEST_F(Length, OfACommentAtTheEndOfTheTextMayBe1023) {
  const std::string comment = "#" + times(1022, 'c');
  decoded("[ service A ] end " + comment);
  EXPECT_EQ(comments(), std::vector<std::string>{"0 template: " + comment + "\n"});
}

TEST_F(Length, OfACommentMayNotBe1024) {
  const std::string comment = "#" + times(1023, 'c');
  const std::string report = cut("SYNTAX ERROR: comment longer than JT_MAX_TOKEN_LENGTH -->", comment);
  expect_refused({"", comment + "\n[ service A ] end", {report}});
  reopen();
  expect_refused({"", "[ service A ] " + comment, {report}});
  reopen();
  expect_refused({"", "[ service A ] end " + comment + times(5000, 'c'), {report}});
}

TEST_F(Length, OfAllCommentsOfANodeIsNotLimited) {
  std::string text;
  std::string comment;
  for (int i = 0; i < 50; ++i) {
    text += "#" + times(1022, 'c') + "\n";
    comment += "#" + times(1022, 'c') + "\n";
  }
  decoded(text + "[ service A ] end");
  EXPECT_EQ(comments(), std::vector<std::string>{"0 template: " + comment});
}

TEST_F(Length, OfATextIsNotLimited) {
  EXPECT_NE(decode(times(100000, ' ') + "[ service A ]" + times(100000, '\n') + "end" + times(100000, '\t')),
            0);
}

}  // namespace
}  // namespace jt_test
