// Attributes of a header: they are written like those of an invocation, end at the first "[" or "<" that
// stands where one could begin, and have one report of their own for everything that is wrong.
#include <gtest/gtest.h>

#include "sil/template_cases.h"

namespace jt_test {
namespace {

const std::string kMarker = "< SIL 4.2.00 ASCII id > ";
const std::string kWritten = "\n< SIL 4.2.00 ASCII id >\n\n";
const std::string kEnd = "\n< /SIL >\n";

class HeaderAttributes : public AcceptedText {};

TEST_P(HeaderAttributes, AreKept) {
  const Reading &reading = GetParam();
  expect_read({reading.name, kMarker + reading.text + " < /SIL >", kWritten + reading.written + kEnd,
               reading.messages});
}

INSTANTIATE_TEST_SUITE_P(
    EachRow, HeaderAttributes,
    ::testing::Values(
        Reading{"WithoutValue", "integer a ;", "integer a = ;\n", {}},
        Reading{"EqualsWithoutValue", "integer a = ;", "integer a = ;\n", {}},
        Reading{"OneValue", "integer a = 1 ;", "integer a = 1;\n", {}},
        Reading{"ThreeValues", "integer a = 1 , 2 , 3 ;", "integer a = 1, 2, 3;\n", {}},
        Reading{"StringValues", "string a = \"x y\" , z ;", "string a = \"x y\", \"z\";\n", {}},
        Reading{"Star", "* integer a ;", "* integer a = ;\n", {}},
        Reading{"StarOnlyForTheFirst", "* integer a ; integer b ;", "* integer a = ;\ninteger b = ;\n", {}},
        Reading{"StarForTheSecond", "integer a ; * integer b ;", "integer a = ;\n* integer b = ;\n", {}},
        Reading{"Two", "integer a ; integer b ;", "integer a = ;\ninteger b = ;\n", {}},
        Reading{"EmptyStatus", "integer a ; ( )", "integer a = ;\n", {}},
        Reading{"Status", "integer a ; ( KMT_STATUS_ERROR )", "integer a = ;(KMT_STATUS_ERROR)\n", {}},
        Reading{"StatusWithEmptyBraces",
                "integer a ; ( KMT_STATUS_ERROR { } )",
                "integer a = ;(KMT_STATUS_ERROR{})\n",
                {}},
        Reading{"StatusText",
                "integer a ; ( KMT_STATUS_ERROR { x = y } )",
                "integer a = ;(KMT_STATUS_ERROR{y})\n",
                {}},
        Reading{"AfterStatus",
                "integer a ; ( ) integer b ; ( ) * integer c ;",
                "integer a = ;\ninteger b = ;\n* integer c = ;\n",
                {}},
        Reading{
            "NamedLikeAHeaderValue", "string LanguageVersion = x ;", "string LanguageVersion = \"x\";\n", {}},
        Reading{"BadValueIsLeftOut",
                "integer a = 1 , 2x , 3 ; integer b ;",
                "integer a = 1, 3;\ninteger b = ;\n",
                {"SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\n2x ..."}},
        Reading{"TypeOfABlock", "service a = 1 ;", "service a = ;\n", {}}),
    case_name<Reading>);

INSTANTIATE_TEST_SUITE_P(
    EndedByAService, HeaderAttributes,
    ::testing::Values(
        Reading{"AfterSemicolon", "integer a ; [ service A ] end", "integer a = ;\n[service A]\nend\n\n", {}},
        Reading{
            "AfterStatus", "integer a ; ( ) [ service A ] end", "integer a = ;\n[service A]\nend\n\n", {}}),
    case_name<Reading>);

class RefusedHeaderAttribute : public RefusedText {};

TEST_P(RefusedHeaderAttribute, IsRefusedWithTheWholeReport) {
  const Refusal &refusal = GetParam();
  expect_refused({refusal.name, kMarker + refusal.text, refusal.messages});
}

INSTANTIATE_TEST_SUITE_P(
    WrongTokens, RefusedHeaderAttribute,
    ::testing::Values(
        Refusal{"UnknownType",
                "nosuch a ;",
                {"WARNING: unknown attribute type:nosuch ...",
                 "SYNTAX ERROR: decoding attribute at:nosuch a ; ..."}},
        Refusal{"TypeOfAService",
                "enum_mediasize a ;",
                {"WARNING: unknown attribute type:enum_mediasize ...",
                 "SYNTAX ERROR: decoding attribute at:enum_mediasize a ; ..."}},
        Refusal{"BeginPunctuation", "integer a ; ( ) =", {"SYNTAX ERROR: decoding attribute at: = ..."}},
        Refusal{"BeginCloseBrace", "integer a ; ( ) }", {"SYNTAX ERROR: decoding attribute at: } ..."}},
        Refusal{"BeginEndKeyword", "integer a ; ( ) end", {"SYNTAX ERROR: decoding attribute at: end ..."}},
        Refusal{"TypePunctuation", "* ;", {"SYNTAX ERROR: decoding attribute at: ; ..."}},
        Refusal{
            "TypeSecondStar", "* * integer a ;", {"SYNTAX ERROR: decoding attribute at: * integer a ; ..."}},
        Refusal{"TypeOpenBracket",
                "* [ service A ] end",
                {"SYNTAX ERROR: decoding attribute at: [ service A ] end ..."}},
        Refusal{"TypeUnknownAfterStar",
                "* nosuch a ;",
                {"WARNING: unknown attribute type:nosuch ...",
                 "SYNTAX ERROR: decoding attribute at:nosuch a ; ..."}},
        Refusal{"NamePunctuation", "integer ;", {"SYNTAX ERROR: decoding attribute at: ; ..."}},
        Refusal{"NameString", "integer \"a\" ;", {"SYNTAX ERROR: decoding attribute at:\" ; ..."}},
        Refusal{"NameLess", "integer <", {"SYNTAX ERROR: decoding attribute at: < ..."}},
        Refusal{"EqualsWord", "integer a 5", {"SYNTAX ERROR: decoding attribute at: 5 ..."}},
        Refusal{"EqualsOpenBracket", "integer a [", {"SYNTAX ERROR: decoding attribute at: [ ..."}},
        Refusal{"ValueComma", "integer a = ,", {"SYNTAX ERROR: decoding attribute at: , ..."}},
        Refusal{"ValueEndKeyword", "integer a = end", {"SYNTAX ERROR: decoding attribute at: end ..."}},
        Refusal{"ValueLess", "integer a = <", {"SYNTAX ERROR: decoding attribute at: < ..."}},
        Refusal{"CommaWord", "integer a = 1 2", {"SYNTAX ERROR: decoding attribute at: 2 ..."}},
        Refusal{"NextValueSemicolon", "integer a = 1 , ;", {"SYNTAX ERROR: decoding attribute at: ; ..."}},
        Refusal{"AfterPunctuation", "integer a ; =", {"SYNTAX ERROR: decoding attribute at: = ..."}},
        Refusal{"AfterCloseBrace", "integer a ; }", {"SYNTAX ERROR: decoding attribute at: } ..."}},
        Refusal{"AfterUnknownType",
                "integer a ; nosuch b ;",
                {"WARNING: unknown attribute type:nosuch ...",
                 "SYNTAX ERROR: decoding attribute at:nosuch b ; ..."}},
        Refusal{"StatusWord",
                "integer a ; ( KMT_STATUS_ERROR x )",
                {"SYNTAX ERROR: decoding attribute at:x ) ..."}},
        Refusal{"StatusTextEndWord",
                "integer a ; ( KMT_STATUS_ERROR { x } y )",
                {"SYNTAX ERROR: decoding attribute at:y ) ..."}}),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(
    EndOfText, RefusedHeaderAttribute,
    ::testing::Values(
        Refusal{"Type", "*", {"SYNTAX ERROR: decoding attribute at:* ..."}},
        Refusal{"Name", "integer", {"SYNTAX ERROR: decoding attribute at:r ..."}},
        Refusal{"Equals", "integer a", {"SYNTAX ERROR: decoding attribute at:a ..."}},
        Refusal{"Value", "integer a =", {"SYNTAX ERROR: decoding attribute at:= ..."}},
        Refusal{"Comma", "integer a = 1", {"SYNTAX ERROR: decoding attribute at:1 ..."}},
        Refusal{"NextValue", "integer a = 1 ,", {"SYNTAX ERROR: decoding attribute at:, ..."}},
        Refusal{"After", "integer a ;", {"SYNTAX ERROR: decoding attribute at:; ..."}},
        Refusal{"Status", "integer a ; (", {"SYNTAX ERROR: decoding attribute at:( ..."}},
        Refusal{"StatusEnd", "integer a ; ( KMT_STATUS_ERROR", {"SYNTAX ERROR: decoding attribute at:R ..."}},
        Refusal{
            "StatusText", "integer a ; ( KMT_STATUS_ERROR {", {"SYNTAX ERROR: decoding attribute at:{ ..."}},
        Refusal{"StatusTextEnd",
                "integer a ; ( KMT_STATUS_ERROR { x }",
                {"SYNTAX ERROR: decoding attribute at:} ..."}},
        Refusal{"AfterStatus", "integer a ; ( )", {"SYNTAX ERROR: decoding attribute at:) ..."}}),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(
    WithoutReportOfTheirOwn, RefusedHeaderAttribute,
    ::testing::Values(
        Refusal{"DuplicateName",
                "integer a ; string A ;",
                {"SYNTAX ERROR: Trying to save multiple definitions for:A ..."}},
        Refusal{"BrokenString", "integer a = \"1", {"SYNTAX ERROR: unexpected EOF at -->1 ..."}},
        Refusal{"BrokenStringAsType", "* \"1", {"SYNTAX ERROR: unexpected EOF at -->1 ..."}},
        Refusal{"BrokenStringInStatusText",
                "integer a ; ( KMT_STATUS_ERROR { \"1",
                {"SYNTAX ERROR: unexpected EOF at -->1 ..."}},
        Refusal{"LongValue",
                "string a = \"" + times(1025, 'v') + "\" ;",
                {cut("SYNTAX ERROR: token is longer than allowable length:", times(1025, 'v'))}}),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(AfterTheLengthCheck, RefusedHeaderAttribute,
                         ::testing::Values(Refusal{
                             "LongName",
                             "integer " + times(1024, 'n') + " ;",
                             {cut("SYNTAX ERROR: token is longer than allowable length:", times(1024, 'n')),
                              cut("SYNTAX ERROR: decoding attribute at:", times(1024, 'n'))}}),
                         case_name<Refusal>);

class HeaderAttribute : public DecodeTest {};

TEST_F(HeaderAttribute, IsAChildOfTheHeader) {
  jt_node *const root = decoded(kMarker + "* integer a = 7 ; ( KMT_STATUS_WARNING { why } ) < /SIL >");
  ASSERT_NE(root, nullptr);
  jt_node *const attribute = child(root->previous_sibling, {"A"});
  ASSERT_NE(attribute, nullptr);
  EXPECT_EQ(attribute->node_class, JT_NODE_ATTRIBUTE);
  EXPECT_EQ(attribute->parent, root->previous_sibling);
  EXPECT_EQ(attribute->non_compulsory, 1);
  EXPECT_EQ(status_text(*attribute), "KMT_STATUS_WARNING");
  EXPECT_STREQ(attribute->overridden_value, "why");
  EXPECT_EQ(values(attribute), std::vector<std::string>{"7"});
}

TEST_F(HeaderAttribute, NameMayHave1023Characters) {
  const std::string name = times(1023, 'n');
  jt_node *const root = decoded(kMarker + "integer " + name + " ; < /SIL >");
  ASSERT_NE(root, nullptr);
  EXPECT_NE(child(root->previous_sibling, {name.c_str()}), nullptr);
}

TEST_F(HeaderAttribute, CommentsBelongToTheHeaderUntilItHasItsName) {
  decoded(kMarker + "* #a\n integer #b\n a ; ( ) #c\n integer b ; < /SIL >");
  EXPECT_EQ(comments(), std::vector<std::string>{"7 header: #a\n#b\n#c\n"});
}

TEST_F(HeaderAttribute, CommentsBelongToItUpToItsSemicolon) {
  decoded(kMarker + "integer a #a\n = #b\n 1 #c\n , #d\n 2 ; < /SIL >");
  EXPECT_EQ(comments(), std::vector<std::string>{"3 a: #a\n#b\n#c\n#d\n"});
}

TEST_F(HeaderAttribute, CommentsBelongToTheHeaderFromItsSemicolonOn) {
  decoded(kMarker + "integer a ; #a\n ( #b\n KMT_STATUS_ERROR #c\n { #d\n x #e\n } #f\n ) #g\n < /SIL >");
  EXPECT_EQ(comments(), std::vector<std::string>{"7 header: #a\n#b\n#c\n#d\n#e\n#f\n#g\n"});
}

TEST_F(HeaderAttribute, UnknownStatusWarnsAndIsKept) {
  jt_node *const root = decoded(kMarker + "integer a ; ( LATE ) < /SIL >");
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(messages(), Messages{"WARNING: trying to evaluate as an 'enumerated' type:LATE ..."});
  EXPECT_EQ(status_text(*child(root->previous_sibling, {"a"})), "LATE");
}

}  // namespace
}  // namespace jt_test
