// Each repair behind an error: what stands behind it is read in its place, so that the next mistake is found, and
// nothing else.
#include <gtest/gtest.h>

#include "sil/source_texts.h"

namespace jt_test {
namespace {

struct Case {
  const char *name;
  std::string text;
  Lines findings;
};

std::ostream &operator<<(std::ostream &out, const Case &each) { return out << each.text; }

class Recovery : public ::testing::TestWithParam<Case> {};

TEST_P(Recovery, FindsWhatIsBehindTheError) { EXPECT_EQ(findings_in(GetParam().text), GetParam().findings); }

const Case kCases[] = {
    {"AStatementWithoutAName",
     "[kmt_svc_scan S] { integer = 1; integr b; } end",
     {"1:28 error syntax-expected 27-28, a name",
      "1:33 error attribute-type-unknown 32-38, marks } ( *, a type, types of kmt_svc_scan"}},
    {"AQuotedName",
     "[kmt_svc_scan S] { integer \"n\" = 1; integr b; } end",
     {"1:28 error syntax-expected 27-30, a name",
      "1:37 error attribute-type-unknown 36-42, marks } ( *, a type, types of kmt_svc_scan"}},
    {"AStatementWithoutAnEqualsSign",
     "[kmt_svc_scan S] { integer a 1; integr b; } end",
     {"1:29 error syntax-expected 28-28, found 29-30, marks = ;",
      "1:33 error attribute-type-unknown 32-38, marks } ( *, a type, types of kmt_svc_scan"}},
    {"TheNextStatementBehindAMissingSemicolon",
     "[kmt_svc_scan S] { integer a = 1\n integer b; integr c; } end",
     {"1:33 error syntax-expected 32-32, found 34-41, marks , ;",
      "2:13 error attribute-type-unknown 45-51, marks } ( *, a type, types of kmt_svc_scan"}},
    {"AWordBeforeAStatement",
     "[kmt_svc_scan S] { foo integer a = 1; integr b; } end",
     {"1:20 error attribute-type-unknown 19-22, marks } *, a type, types of kmt_svc_scan",
      "1:39 error attribute-type-unknown 38-44, marks } ( *, a type, types of kmt_svc_scan"}},
    {"ASecondSemicolonBeforeAStatus",
     "[kmt_svc_scan S] { integer a; ; (KMT_STATUS_ERROR) integr b; } end",
     {"1:31 error syntax-expected 30-31, marks } ( *, a type",
      "1:52 error attribute-type-unknown 51-57, marks } *, a type, types of kmt_svc_scan"}},
    {"AStatusOfTwoWords",
     "[kmt_svc_scan S] { integer a; (KMT_STATUS_ERROR Y) integr b; } end",
     {"1:49 error syntax-expected 48-49, marks { )",
      "1:52 error attribute-type-unknown 51-57, marks } *, a type, types of kmt_svc_scan"}},
    {"AStatusOfAnInvocation",
     "[kmt_svc_scan S] { } (KMT_STATUS_ERROR Y) { integr b; } end",
     {"1:40 error syntax-expected 39-40, marks { )",
      "1:45 error attribute-type-unknown 44-50, marks } *, a type, types of kmt_svc_scan"}},
    {"BracesInASkippedStatement",
     "[kmt_svc_scan S] { integer a = & (X {y}); integr b; } end",
     {"1:32 error syntax-expected 31-32, marks ;, a value",
      "1:43 error attribute-type-unknown 42-48, marks } ( *, a type, types of kmt_svc_scan"}},
    {"AStatusOfADroppedStatement",
     "[kmt_svc_scan S] { integer & a; (KMT_STATUS_ERROR {x}) integr b; } end",
     {"1:28 error syntax-expected 27-28, a name",
      "1:56 error attribute-type-unknown 55-61, marks } *, a type, types of kmt_svc_scan"}},
    {"AnInvocationThatIsNotClosedAtEnd",
     "[kmt_svc_scan S] { integer a;\nend [kmt_svc_scan T] { integr b; } end",
     {"1:30 error syntax-unclosed 29-29, found 30-33, marks } ( *, a type, second 17-18",
      "2:24 error attribute-type-unknown 53-59, marks } *, a type, types of kmt_svc_scan"}},
    {"AnInvocationThatIsNotClosedAtTheNextOne",
     "[kmt_svc_scan S] { integer a;\nB { integr b; } end",
     {"1:30 error syntax-unclosed 29-29, found 30-31, marks } ( *, a type, second 17-18",
      "2:5 error attribute-type-unknown 34-40, marks } *, a type, types of kmt_svc_scan"}},
    {"AnInvocationWithAQuotedName",
     "[kmt_svc_scan S] { integer a; } \"b c\" { integr d; } end",
     {"1:33 error syntax-expected 32-37, marks { ( end, a invocation name",
      "1:41 error attribute-type-unknown 40-46, marks } *, a type, types of kmt_svc_scan"}},
    {"AServiceWithoutItsClosingBracket",
     "[kmt_svc_scan S { integr b; } end",
     {"1:16 error syntax-expected 15-15, found 16-17, marks ]",
      "1:19 error attribute-type-unknown 18-24, marks } *, a type, types of kmt_svc_scan"}},
    {"AServiceWithoutAName",
     "[kmt_svc_scan] { integr b; } end",
     {"1:14 error syntax-expected 13-14, a service name",
      "1:18 error attribute-type-unknown 17-23, marks } *, a type, types of kmt_svc_scan"}},
    {"AServiceWithoutANameWhoseNameIsNotTaken",
     "[kmt_svc_scan] {} end [service kmt_svc_scan] {} end",
     {"1:14 error syntax-expected 13-14, a service name"}},
    {"AServiceWithAQuotedName",
     "[kmt_svc_scan \"S T\"] { integr b; } end",
     {"1:15 error syntax-expected 14-19, a service name",
      "1:24 error attribute-type-unknown 23-29, marks } *, a type, types of kmt_svc_scan"}},
    {"AServiceOfUnknownType",
     "[kmt_svc_coffee S] { x y; } end [kmt_svc_scan T] { integr c; } end",
     {"1:2 error service-type-unknown 1-15, a service type, services",
      "1:52 error attribute-type-unknown 51-57, marks } *, a type, types of kmt_svc_scan"}},
    {"AServiceWithoutItsOpeningBracket",
     "[kmt_svc_scan S] end kmt_svc_scan T] { integr c; } end",
     {"1:22 error syntax-expected 21-33, marks [ ( <",
      "1:40 error attribute-type-unknown 39-45, marks } *, a type, types of kmt_svc_scan"}},
    {"WordsBetweenServices",
     "[kmt_svc_scan S] end junk [kmt_svc_scan T] { integr c; } end",
     {"1:22 error syntax-expected 21-25, marks [ ( <",
      "1:46 error attribute-type-unknown 45-51, marks } *, a type, types of kmt_svc_scan"}},
    {"WordsInFrontOfEverything",
     "Hello you [kmt_svc_scan S] { integr b; } end",
     {"1:1 error syntax-expected 0-5, marks [ <",
      "1:30 error attribute-type-unknown 29-35, marks } *, a type, types of kmt_svc_scan"}},
    {"MarksThatNoHeaderPromises",
     "[kmt_svc_scan S] end <?> [kmt_svc_scan T] { integr b; } end",
     {"1:22 error block-illegal 21-22",
      "1:45 error attribute-type-unknown 44-50, marks } *, a type, types of kmt_svc_scan"}},
    {"AHeaderWithoutItsFirstMark",
     "SIL 4.2.00 ASCII id > [kmt_svc_scan S] { integr b; } end </SIL>",
     {"1:1 error syntax-expected 0-3, marks [ <",
      "1:42 error attribute-type-unknown 41-47, marks } *, a type, types of kmt_svc_scan"}},
    {"AHeaderWithoutAnIdentifier",
     "< SIL 4.2.00 ASCII > [kmt_svc_scan S] { integr b; } end </SIL>",
     {"1:20 error syntax-expected 19-20, a identifier",
      "1:41 error attribute-type-unknown 40-46, marks } *, a type, types of kmt_svc_scan"}},
    {"AHeaderWithoutItsLastMark",
     "< SIL 4.2.00 ASCII id [kmt_svc_scan S] { integr b; } end </SIL>",
     {"1:23 error syntax-expected 22-23, marks >",
      "1:42 error attribute-type-unknown 41-47, marks } *, a type, types of kmt_svc_scan"}},
    {"ASectionWithoutItsFirstMark",
     "<? SIL 4.2.00 ASCII id > ?> [kmt_svc_scan S] {integr b;} end </?> </SIL>",
     {"1:26 error syntax-expected 25-26, marks [ < *",
      "1:47 error attribute-type-unknown 46-52, marks } *, a type, types of kmt_svc_scan"}},
    {"ASectionsEndWithoutItsFirstMark",
     "<? SIL 4.2.00 ASCII id > <?> [kmt_svc_scan S] end /?> [kmt_svc_scan T] {integr b;} end </SIL>",
     {"1:51 error syntax-expected 50-51, marks [ ( <",
      "1:73 error attribute-type-unknown 72-78, marks } *, a type, types of kmt_svc_scan"}},
    {"ANameThatIsTaken",
     "[kmt_svc_scan S] { integer a; integer A = 1; integr b; } end",
     {"1:39 error name-duplicate 38-39, second 27-28",
      "1:46 error attribute-type-unknown 45-51, marks } ( *, a type, types of kmt_svc_scan"}},
    {"AStringThatRanOverLines",
     "[kmt_svc_scan S] { string a = \"x;\n string b = \"y\";\n integr c; } end",
     {"1:31 error string-over-lines 30-33, found 30-47",
      "3:2 error attribute-type-unknown 52-58, marks } ( *, a type, types of kmt_svc_scan"}},
    {"AHeadersStatement",
     "< SIL 4.2.00 ASCII id > integer = 1; integr b; </SIL>",
     {"1:33 error syntax-expected 32-33, a name",
      "1:38 error attribute-type-unknown 37-43, marks [ ( < *, a type, types"}},
};

INSTANTIATE_TEST_SUITE_P(Texts, Recovery, ::testing::ValuesIn(kCases),
                         [](const ::testing::TestParamInfo<Case> &each) {
                           return std::string(each.param.name);
                         });

TEST(RecoveryFromAByteOrderMark, ReadsTheTextBehindIt) {
  EXPECT_EQ(findings_in("\xEF\xBB\xBF< SIL 4.2.00 ASCII id > [kmt_svc_scan S] { integr b; } end < /SIL >"),
            (Lines{"1:1 error text-bom 0-3",
                   "1:47 error attribute-type-unknown 46-52, marks } *, a type, types of kmt_svc_scan"}));
}

TEST(RecoveryFromALongValue, ReadsTheRestOfItsStatement) {
  const std::string text = "[kmt_svc_scan S] { string a = " + std::string(1100, 'x') + ", b; integr c; } end";
  EXPECT_EQ(
      findings_in(text),
      (Lines{"1:31 error syntax-length 30-1130",
             "1:1136 error attribute-type-unknown 1135-1141, marks } ( *, a type, types of kmt_svc_scan"}));
}

// Repairs hand a token on to each other; none of them may wait for the next one forever.
TEST(Recovery, EndsWhateverFollowsWhatever) {
  const std::vector<std::string> tokens = {"[",       "]",   "{",    "}",     "(",  ")",     "<",   ">",
                                           "=",       ",",   ";",    "*",     "!",  "?",     "/",   "end",
                                           "integer", "SIL", "/SIL", "\"s\"", "\"", "# c\n", "x\"y"};
  for (const std::string before :
       {"", "[kmt_svc_scan S] { integer a", "< SIL 4.2.00 ASCII id > ", "<? SIL 4 ASCII id > <?>"}) {
    for (const std::string &first : tokens) {
      for (const std::string &second : tokens) {
        for (const std::string &third : tokens) {
          EXPECT_LE(findings_in(before + " " + first + " " + second + " " + third).size(), 6U);
        }
      }
    }
  }
}

}  // namespace
}  // namespace jt_test
