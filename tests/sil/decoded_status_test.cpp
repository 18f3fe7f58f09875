// Statuses that a text carries: which tokens are one, what is kept of them at the three levels, and the
// warning for a name that is not known.
#include <gtest/gtest.h>

#include "sil/template_cases.h"

namespace jt_test {
namespace {

// A place for a status in a text, and the way to its node.
struct Level {
  const char *name;
  const char *before;
  const char *after;
  std::vector<const char *> path;
  const char *text_of_empty_braces;
};

std::ostream &operator<<(std::ostream &out, const Level &level) { return out << level.name; }

class StatusAt : public DecodeTest, public ::testing::WithParamInterface<Level> {
 protected:
  const jt_node *node_with(const std::string &status_text) {
    jt_node *node = decoded(GetParam().before + status_text + GetParam().after);
    for (const char *name : GetParam().path) node = get_child(space, node, name);
    return node;
  }
};

INSTANTIATE_TEST_SUITE_P(
    EveryLevel, StatusAt,
    ::testing::Values(Level{"Service", "[ service kmt_svc_scan ] end ", "", {"kmt_svc_scan"}, "(none)"},
                      Level{
                          "Invocation", "[ service kmt_svc_scan ] X { } ", " end", {"kmt_svc_scan", "X"}, ""},
                      Level{"Attribute",
                            "[ service kmt_svc_scan ] X { integer a ; ",
                            " } end",
                            {"kmt_svc_scan", "X", "a"},
                            ""}),
    case_name<Level>);

class HeaderStatus : public DecodeTest {};

TEST_P(StatusAt, IsAbsentWithoutParentheses) {
  const jt_node *const node = node_with("");
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(node->status, nullptr);
  EXPECT_EQ(node->overridden_value, nullptr);
}

TEST_P(StatusAt, IsAbsentInEmptyParentheses) {
  const jt_node *const node = node_with("( )");
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(node->status, nullptr);
  EXPECT_EQ(node->overridden_value, nullptr);
}

TEST_P(StatusAt, IsKnownInAnyCase) {
  const jt_node *const node = node_with("( kmt_Status_COMPLETED )");
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(status_text(*node), "KMT_STATUS_COMPLETED");
  EXPECT_EQ(node->overridden_value, nullptr);
  EXPECT_TRUE(messages().empty());
}

TEST_P(StatusAt, MayBeAnyNameOfTheBaseList) {
  const jt_node *const node = node_with("( mm )");
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(status_text(*node), "MM");
}

TEST_P(StatusAt, WithAnUnknownNameWarnsOnceAndIsKept) {
  const jt_node *const node = node_with("( LATE )");
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(status(), JT_WARNING);
  EXPECT_EQ(messages(), Messages{"WARNING: trying to evaluate as an 'enumerated' type:LATE ..."});
  EXPECT_EQ(status_text(*node), "LATE");
}

TEST_P(StatusAt, MayBeAnyTokenButACloseParenthesis) {
  const char *const tokens[][2] = {
      {"[", "["}, {"]", "]"}, {"{", "{"}, {"}", "}"},         {"(", "("},     {"<", "<"},      {">", ">"},
      {"=", "="}, {",", ","}, {";", ";"}, {"*", "*"},         {"!", "!"},     {"$", "$"},      {"%", "%"},
      {"&", "&"}, {"^", "^"}, {"?", "?"}, {"|", "|"},         {"||", "||"},   {"end", "end"},  {"END", "END"},
      {"w", "w"}, {"7", "7"}, {"-", "-"}, {"\"s t\"", "s t"}, {"\")\"", ")"}, {"a\\ b", "a b"}};
  for (const auto &[token, name] : tokens) {
    reopen();
    const jt_node *const node = node_with(std::string("( ") + token + " )");
    ASSERT_NE(node, nullptr) << token;
    EXPECT_EQ(messages(),
              Messages{std::string("WARNING: trying to evaluate as an 'enumerated' type:") + name + " ..."});
    EXPECT_EQ(status_text(*node), name);
  }
}

// Whatever is no token ends the text or the decoding in its own words. So the expectations of these places,
// "STATUS or )" and ") or STATUS", are never reported.
TEST_P(StatusAt, IsNeverReportedAsExpected) {
  const auto refusal_of = [&](const std::string &inside) {
    reopen();
    EXPECT_EQ(decode(GetParam().before + inside), 0) << inside;
    return messages();
  };
  EXPECT_EQ(refusal_of("("), Messages{"SYNTAX ERROR: Illegal end of block at ..."});
  EXPECT_EQ(refusal_of("( #c\n"), Messages{"SYNTAX ERROR: Illegal end of block at ..."});
  EXPECT_EQ(refusal_of("( \""), Messages{"SYNTAX ERROR: unexpected EOF at --> ..."});
  EXPECT_EQ(refusal_of("( \\"), Messages{"SYNTAX ERROR: unexpected EOF at --> ..."});
  EXPECT_EQ(refusal_of("( a\"b\" )"),
            Messages{"SYNTAX ERROR: quotes inside a string constant at -->a\"b\" ) ..."});
  EXPECT_EQ(refusal_of("( \"a\"b )"), Messages{"SYNTAX ERROR: quotes inside a value token at -->\"b ) ..."});
}

TEST_F(HeaderStatus, IsNeverReportedAsExpected) {
  const std::string before = "< SIL 4.2.00 ASCII id > integer a ; ( ";
  const auto refusal_of = [&](const std::string &inside) {
    reopen();
    EXPECT_EQ(decode(before + inside), 0) << inside;
    return messages();
  };
  EXPECT_EQ(refusal_of(""), Messages{"SYNTAX ERROR: decoding attribute at:  ..."});
  EXPECT_EQ(refusal_of("#c\n"), Messages{"SYNTAX ERROR: decoding attribute at:\n ..."});
  EXPECT_EQ(refusal_of("\""), Messages{"SYNTAX ERROR: unexpected EOF at --> ..."});
}

TEST_P(StatusAt, MayBeAnEmptyString) {
  const jt_node *const node = node_with("( \"\" )");
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(messages(), Messages{"WARNING: trying to evaluate as an 'enumerated' type: ..."});
  EXPECT_NE(node->status, nullptr);
  EXPECT_EQ(status_text(*node), "");
}

TEST_P(StatusAt, KeepsTheTextInItsBraces) {
  const jt_node *const node = node_with("( KMT_STATUS_ERROR { \"paper jam\" } )");
  ASSERT_NE(node, nullptr);
  EXPECT_STREQ(node->overridden_value, "paper jam");
}

TEST_P(StatusAt, KeepsTheLastTextInItsBraces) {
  const jt_node *const node = node_with("( KMT_STATUS_ERROR { one two \"three four\" } )");
  ASSERT_NE(node, nullptr);
  EXPECT_STREQ(node->overridden_value, "three four");
}

TEST_P(StatusAt, KeepsNoTextOfEmptyBracesOnAServiceAlone) {
  for (const char *const braces : {"{ }", "{ \"\" }", "{ one \"\" }"}) {
    reopen();
    const jt_node *const node = node_with(std::string("( KMT_STATUS_ERROR ") + braces + " )");
    ASSERT_NE(node, nullptr) << braces;
    EXPECT_EQ(status_text(*node), "KMT_STATUS_ERROR");
    EXPECT_EQ(or_none(node->overridden_value), GetParam().text_of_empty_braces) << braces;
  }
}

TEST_P(StatusAt, MayHaveATextOfAnyTokenLength) {
  const std::string text = times(2047, 't');
  const jt_node *const node = node_with("( KMT_STATUS_ERROR { " + text + " } )");
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(or_none(node->overridden_value), text);
}

TEST_P(StatusAt, DoesNotTouchTheNodesAboveIt) {
  const jt_node *const node = node_with("( KMT_STATUS_ERROR { x } )");
  ASSERT_NE(node, nullptr);
  for (const jt_node *above = node->parent; above != nullptr; above = above->parent) {
    EXPECT_EQ(above->status, nullptr);
    EXPECT_EQ(above->overridden_value, nullptr);
  }
}

class AttributeStatusText : public DecodeTest {};

TEST_F(AttributeStatusText, IsTheTextOfAnyTokenButACloseBrace) {
  const char *const tokens[][2] = {
      {"[", "["},   {"]", "]"},     {"{", "{"},       {"(", "("},     {")", ")"},
      {"<", "<"},   {">", ">"},     {"=", "="},       {",", ","},     {";", ";"},
      {"*", "*"},   {"!", "!"},     {"$", "$"},       {"%", "%"},     {"&", "&"},
      {"^", "^"},   {"?", "?"},     {"|", "|"},       {"| |", "|"},   {"||", "||"},
      {"|||", "|"}, {"end", "end"}, {"word", "word"}, {"\"}\"", "}"}, {"a\\}b", "a}b"}};
  for (const auto &[token, text] : tokens) {
    reopen();
    jt_node *const root =
        decoded(std::string("[ service A ] X { integer a ; ( KMT_STATUS_ERROR { ") + token + " } ) } end");
    ASSERT_NE(root, nullptr) << token;
    EXPECT_STREQ(child(root, {"A", "X", "a"})->overridden_value, text);
  }
}

class Statuses : public DecodeTest {};

TEST_F(Statuses, OfAllThreeLevelsStandSideBySide) {
  expect_read({"",
               "[ service kmt_svc_scan ] X { integer a ; ( KMT_STATUS_IGNORED { one } ) } ( KMT_STATUS_ERROR "
               "{ two } ) end ( KMT_STATUS_WARNING { three } )",
               "[service kmt_svc_scan]\n X{\n      integer a = ;(KMT_STATUS_IGNORED{one})\n "
               "}(KMT_STATUS_ERROR{two})\nend(KMT_STATUS_WARNING{three})\n\n",
               {}});
}

TEST_F(Statuses, OfALongUnknownNameAreKeptWhole) {
  const std::string name = times(2047, 's');
  jt_node *const root = decoded("[ service A ] end ( " + name + " )");
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(messages(), Messages{cut("WARNING: trying to evaluate as an 'enumerated' type:", name)});
  EXPECT_EQ(status_text(*child(root, {"A"})), name);
}

}  // namespace
}  // namespace jt_test
