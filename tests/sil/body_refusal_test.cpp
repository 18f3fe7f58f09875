// Bodies that are refused: a wrong token in every place, the end of the text in every place, unknown types,
// names that are already taken; with everything that is recorded, in order and to the byte.
#include <gtest/gtest.h>

#include "sil/template_cases.h"

namespace jt_test {
namespace {

class RefusedBody : public RefusedText {};

TEST_P(RefusedBody, IsRefusedWithTheWholeReport) { expect_refused(GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    Service, RefusedBody,
    ::testing::Values(
        Refusal{"BetweenServicesWord",
                "[ service A ] end ( ) foo",
                {"SYNTAX ERROR: while parsing for \" [ or < \" at: foo ..."}},
        Refusal{"BetweenServicesPunctuation",
                "[ service A ] end ( ) ( )",
                {"SYNTAX ERROR: while parsing for \" [ or < \" at: ( ) ..."}},
        Refusal{"BetweenServicesEndKeyword",
                "[ service A ] end ( ) end",
                {"SYNTAX ERROR: while parsing for \" [ or < \" at: end ..."}},
        Refusal{"TypeUnknown",
                "[ foo bar ] end",
                {"SYNTAX ERROR: unknown or invalid type:foo ...",
                 "SYNTAX ERROR: while parsing for \"  TYPE  \" at:foo bar ] end ..."}},
        Refusal{"TypeOfAServiceThatIsNotLookedUp",
                "[ kmt_svc_traikubra A ] end",
                {"SYNTAX ERROR: unknown or invalid type:kmt_svc_traikubra ...",
                 "SYNTAX ERROR: while parsing for \"  TYPE  \" at:kmt_svc_traikubra A ] end ..."}},
        Refusal{"TypeOfAnotherServiceThatIsNotLookedUp",
                "[ kmt_svc_quillform A ] end",
                {"SYNTAX ERROR: unknown or invalid type:kmt_svc_quillform ...",
                 "SYNTAX ERROR: while parsing for \"  TYPE  \" at:kmt_svc_quillform A ] end ..."}},
        Refusal{"TypeOfAnAttribute",
                "[ enum_mediasize A ] end",
                {"SYNTAX ERROR: unknown or invalid type:enum_mediasize ...",
                 "SYNTAX ERROR: while parsing for \"  TYPE  \" at:enum_mediasize A ] end ..."}},
        Refusal{"TypeString",
                "[ \"service\" A ] end",
                {"SYNTAX ERROR: while parsing for \"  TYPE  \" at:ervice\" A ] end ..."}},
        Refusal{"TypePunctuation", "[ ] end", {"SYNTAX ERROR: while parsing for \"  TYPE  \" at: ] end ..."}},
        Refusal{"TypeEndKeyword", "[ end", {"SYNTAX ERROR: while parsing for \"  TYPE  \" at: end ..."}},
        Refusal{"TypeOfTheSecond",
                "[ service A ] end [ foo B ] end",
                {"SYNTAX ERROR: unknown or invalid type:foo ...",
                 "SYNTAX ERROR: while parsing for \"  TYPE  \" at:foo B ] end ..."}},
        Refusal{"NamePunctuation",
                "[ service ] end",
                {"SYNTAX ERROR: while parsing for \"  SERVICE NAME  \" at: ] end ..."}},
        Refusal{"NameEndKeyword",
                "[ service end ] end",
                {"SYNTAX ERROR: while parsing for \"  SERVICE NAME  \" at:end ] end ..."}},
        Refusal{"NameString",
                "[ service \"A\" ] end",
                {"SYNTAX ERROR: while parsing for \"  SERVICE NAME  \" at:\" ] end ..."}},
        Refusal{
            "CloseWord", "[ service A B ] end", {"SYNTAX ERROR: while parsing for \" ] \" at:B ] end ..."}},
        Refusal{"ClosePunctuation",
                "[ service A { } end",
                {"SYNTAX ERROR: while parsing for \" ] \" at: { } end ..."}},
        Refusal{"OpenPunctuation",
                "[ service A ] ( ) end",
                {"SYNTAX ERROR: while parsing for \" { or end or a NAME \" at: ( ) end ..."}},
        Refusal{"OpenString",
                "[ service A ] \"X\" { } end",
                {"SYNTAX ERROR: while parsing for \" { or end or a NAME \" at:\" { } end ..."}},
        Refusal{"OpenAfterInvocationStatus",
                "[ service kmt_svc_scan ] { } ( ) ( )",
                {"SYNTAX ERROR: while parsing for \" { or end or a NAME \" at: ( ) ..."}},
        Refusal{"EndedWord",
                "[ service A ] end foo",
                {"SYNTAX ERROR: while parsing for \" [ or EOF or ( or <  \" at: foo ..."}},
        Refusal{"EndedEndKeyword",
                "[ service A ] end end",
                {"SYNTAX ERROR: while parsing for \" [ or EOF or ( or <  \" at: end ..."}},
        Refusal{"EndedPunctuation",
                "[ service A ] end }",
                {"SYNTAX ERROR: while parsing for \" [ or EOF or ( or <  \" at: } ..."}},
        Refusal{"StatusWord",
                "[ service A ] end ( KMT_STATUS_ERROR foo )",
                {"SYNTAX ERROR: while parsing for \" { or ) \" at:foo ) ..."}},
        Refusal{"StatusPunctuation",
                "[ service A ] end ( KMT_STATUS_ERROR ( )",
                {"SYNTAX ERROR: while parsing for \" { or ) \" at: ( ) ..."}},
        Refusal{"StatusTextPunctuation",
                "[ service A ] end ( KMT_STATUS_ERROR { = } )",
                {"SYNTAX ERROR: while parsing for \" } or STRING \" at: = } ) ..."}},
        Refusal{"StatusTextEndKeyword",
                "[ service A ] end ( KMT_STATUS_ERROR { x end } )",
                {"SYNTAX ERROR: while parsing for \" } or STRING \" at:end } ) ..."}},
        Refusal{"StatusTextEndWord",
                "[ service A ] end ( KMT_STATUS_ERROR { x } foo )",
                {"SYNTAX ERROR: while parsing for \"  )  \" at:foo ) ..."}},
        Refusal{"StatusTextEndPunctuation",
                "[ service A ] end ( KMT_STATUS_ERROR { x } }",
                {"SYNTAX ERROR: while parsing for \"  )  \" at: } ..."}}),
    case_name<Refusal>);

class RefusedInvocation : public RefusedText {};

TEST_P(RefusedInvocation, IsRefusedWithTheWholeReport) {
  const Refusal &refusal = GetParam();
  expect_refused({refusal.name, "[ service kmt_svc_scan ] " + refusal.text, refusal.messages});
}

INSTANTIATE_TEST_SUITE_P(
    Invocation, RefusedInvocation,
    ::testing::Values(
        Refusal{"NamedWord", "X Y { } end", {"SYNTAX ERROR: while parsing for \"  {  \" at:Y { } end ..."}},
        Refusal{"NamedEndKeyword", "X end", {"SYNTAX ERROR: while parsing for \"  {  \" at: end ..."}},
        Refusal{"NamedPunctuation", "X ( )", {"SYNTAX ERROR: while parsing for \"  {  \" at: ( ) ..."}},
        Refusal{"SecondNamedWord",
                "{ } X Y { } end",
                {"SYNTAX ERROR: while parsing for \"  {  \" at:Y { } end ..."}},
        Refusal{"ClosedPunctuation",
                "{ } = end",
                {"SYNTAX ERROR: while parsing for \" { or END or ( \" at: = end ..."}},
        Refusal{"ClosedString",
                "{ } \"X\" { } end",
                {"SYNTAX ERROR: while parsing for \" { or END or ( \" at:\" { } end ..."}},
        Refusal{"ClosedOpenBracket",
                "{ } [ service B ] end",
                {"SYNTAX ERROR: while parsing for \" { or END or ( \" at: [ service B ] end ..."}},
        Refusal{"ClosedAfterAttribute",
                "{ integer a ; } ; end",
                {"SYNTAX ERROR: while parsing for \" { or END or ( \" at: ; end ..."}},
        Refusal{"StatusWord",
                "{ } ( KMT_STATUS_ERROR foo ) end",
                {"SYNTAX ERROR: while parsing for \" ) or { \" at:foo ) end ..."}},
        Refusal{"StatusPunctuation",
                "{ } ( KMT_STATUS_ERROR } end",
                {"SYNTAX ERROR: while parsing for \" ) or { \" at: } end ..."}},
        Refusal{"StatusTextPunctuation",
                "{ } ( KMT_STATUS_ERROR { = } ) end",
                {"SYNTAX ERROR: while parsing for \" { or STRING \" at: = } ) end ..."}},
        Refusal{"StatusTextEndKeyword",
                "{ } ( KMT_STATUS_ERROR { end } ) end",
                {"SYNTAX ERROR: while parsing for \" { or STRING \" at:end } ) end ..."}},
        Refusal{"StatusTextEndWord",
                "{ } ( KMT_STATUS_ERROR { x } foo ) end",
                {"SYNTAX ERROR: while parsing for \" ) \" at:foo ) end ..."}},
        Refusal{"StatusTextEndPunctuation",
                "{ } ( KMT_STATUS_ERROR { x } { } ) end",
                {"SYNTAX ERROR: while parsing for \" ) \" at: { } ) end ..."}}),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(
    Attribute, RefusedInvocation,
    ::testing::Values(
        Refusal{"BeginPunctuation",
                "{ ; } end",
                {"SYNTAX ERROR: while parsing for \"  * or TYPE or } \" at: ; } end ..."}},
        Refusal{"BeginString",
                "{ \"integer\" a ; } end",
                {"SYNTAX ERROR: while parsing for \"  * or TYPE or } \" at:nteger\" a ; } end ..."}},
        Refusal{"BeginEndKeyword",
                "{ end",
                {"SYNTAX ERROR: while parsing for \"  * or TYPE or } \" at: end ..."}},
        Refusal{"BeginUnknownType",
                "{ nosuch a = 1; } end",
                {"WARNING: unknown attribute type:nosuch ...",
                 "SYNTAX ERROR: while parsing for \"  * or TYPE or } \" at:nosuch a = 1; } end ..."}},
        Refusal{"BeginTypeOfAnotherService",
                "{ enum_printmode a ; } end",
                {"WARNING: unknown attribute type:enum_printmode ...",
                 "SYNTAX ERROR: while parsing for \"  * or TYPE or } \" at:enum_printmode a ; } end ..."}},
        Refusal{"BeginAfterStatus",
                "{ integer a ; ( ) ( ) } end",
                {"SYNTAX ERROR: while parsing for \"  * or TYPE or } \" at: ( ) } end ..."}},
        Refusal{
            "StarPunctuation", "{ * ; } end", {"SYNTAX ERROR: while parsing for \" TYPE \" at: ; } end ..."}},
        Refusal{"StarTwice",
                "{ * * integer a ; } end",
                {"SYNTAX ERROR: while parsing for \" TYPE \" at: * integer a ; } end ..."}},
        Refusal{"StarUnknownType",
                "{ * nosuch a ; } end",
                {"WARNING: unknown attribute type:nosuch ...",
                 "SYNTAX ERROR: while parsing for \" TYPE \" at:nosuch a ; } end ..."}},
        Refusal{"NamePunctuation",
                "{ integer ; } end",
                {"SYNTAX ERROR: while parsing for \" NAME \" at: ; } end ..."}},
        Refusal{"NameString",
                "{ integer \"a\" ; } end",
                {"SYNTAX ERROR: while parsing for \" NAME \" at:\" ; } end ..."}},
        Refusal{"NameEndKeyword",
                "{ integer end ; } end",
                {"SYNTAX ERROR: while parsing for \" NAME \" at:end ; } end ..."}},
        Refusal{"EqualsWord",
                "{ integer a 5 ; } end",
                {"SYNTAX ERROR: while parsing for \" = ; \" at:5 ; } end ..."}},
        Refusal{"EqualsPunctuation",
                "{ integer a } end",
                {"SYNTAX ERROR: while parsing for \" = ; \" at: } end ..."}},
        Refusal{"ValuePunctuation",
                "{ integer a = , ; } end",
                {"SYNTAX ERROR: while parsing for \" ; or VALUE \" at: , ; } end ..."}},
        Refusal{"ValueEndKeyword",
                "{ integer a = end ; } end",
                {"SYNTAX ERROR: while parsing for \" ; or VALUE \" at:end ; } end ..."}},
        Refusal{"CommaWord",
                "{ integer a = 1 2 ; } end",
                {"SYNTAX ERROR: while parsing for \" , or ;  \" at:2 ; } end ..."}},
        Refusal{"CommaPunctuation",
                "{ integer a = 1 } end",
                {"SYNTAX ERROR: while parsing for \" , or ;  \" at: } end ..."}},
        Refusal{"NextValuePunctuation",
                "{ integer a = 1 , ; } end",
                {"SYNTAX ERROR: while parsing for \"  VALUE  \" at: ; } end ..."}},
        Refusal{"NextValueEndKeyword",
                "{ integer a = 1 , End ; } end",
                {"SYNTAX ERROR: while parsing for \"  VALUE  \" at:End ; } end ..."}},
        Refusal{"CompletePunctuation",
                "{ integer a ; = } end",
                {"SYNTAX ERROR: while parsing for \" } or ( or TYPE or *  \" at: = } end ..."}},
        Refusal{"CompleteString",
                "{ integer a ; \"b\" } end",
                {"SYNTAX ERROR: while parsing for \" } or ( or TYPE or *  \" at:\" } end ..."}},
        Refusal{"CompleteEndKeyword",
                "{ integer a ; end",
                {"SYNTAX ERROR: while parsing for \" } or ( or TYPE or *  \" at: end ..."}},
        Refusal{"CompleteUnknownType",
                "{ integer a ; nosuch b ; } end",
                {"WARNING: unknown attribute type:nosuch ...",
                 "SYNTAX ERROR: while parsing for \" } or ( or TYPE or *  \" at:nosuch b ; } end ..."}},
        Refusal{"StatusWord",
                "{ integer a ; ( KMT_STATUS_ERROR foo ) } end",
                {"SYNTAX ERROR: while parsing for \" ) or { \" at:foo ) } end ..."}},
        Refusal{"StatusPunctuation",
                "{ integer a ; ( KMT_STATUS_ERROR ; } end",
                {"SYNTAX ERROR: while parsing for \" ) or { \" at: ; } end ..."}},
        Refusal{"StatusTextEndWord",
                "{ integer a ; ( KMT_STATUS_ERROR { x } foo ) } end",
                {"SYNTAX ERROR: while parsing for \"  )  \" at:foo ) } end ..."}},
        Refusal{"StatusTextEndPunctuation",
                "{ integer a ; ( KMT_STATUS_ERROR { x } } } end",
                {"SYNTAX ERROR: while parsing for \"  )  \" at: } } end ..."}}),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(
    NamesTaken, RefusedBody,
    ::testing::Values(Refusal{"Service",
                              "[ service A ] end [ service a ] end",
                              {"SYNTAX ERROR: Trying to save multiple definitions for:a ..."}},
                      Refusal{"ServiceOfAnotherType",
                              "[ service A ] end [ kmt_svc_scan A ] end",
                              {"SYNTAX ERROR: Trying to save multiple definitions for:A ..."}},
                      Refusal{"Invocation",
                              "[ service kmt_svc_scan ] One { } oNE { } end",
                              {"SYNTAX ERROR: Trying to save multiple definitions for:oNE ..."}},
                      Refusal{"InvocationNotNextToTheFirst",
                              "[ service kmt_svc_scan ] One { } { } Two { } One { } end",
                              {"SYNTAX ERROR: Trying to save multiple definitions for:One ..."}},
                      Refusal{"InvocationOfAnUnknownService",
                              "[ service Foo ] X { } X { } end",
                              {"WARNING: unknown service:Foo ...", "WARNING: unknown service:Foo ...",
                               "WARNING: unknown service:Foo ...", "WARNING: unknown service:Foo ...",
                               "SYNTAX ERROR: Trying to save multiple definitions for:X ..."}},
                      Refusal{"Attribute",
                              "[ service kmt_svc_scan ] { integer a ; string A ; } end",
                              {"SYNTAX ERROR: Trying to save multiple definitions for:A ..."}}),
    case_name<Refusal>);

struct Place {
  const char *name;
  const char *text;  // up to that place
};

std::ostream &operator<<(std::ostream &out, const Place &place) { return out << place.text; }

class EndOfTextInBody : public DecodeTest, public ::testing::WithParamInterface<Place> {};

TEST_P(EndOfTextInBody, IsAnIllegalEndOfTheBlock) {
  expect_refused({"", GetParam().text, {"SYNTAX ERROR: Illegal end of block at ..."}});
}

TEST_P(EndOfTextInBody, IsAnIllegalEndAlsoAfterAHeader) {
  expect_refused({"",
                  std::string("< SIL 4.2.00 ASCII id > ") + GetParam().text,
                  {"SYNTAX ERROR: Illegal end of block at ..."}});
}

TEST_P(EndOfTextInBody, IsAnIllegalEndAlsoAfterWhiteSpaceAndComments) {
  expect_refused(
      {"", GetParam().text + std::string(" # c\n\t"), {"SYNTAX ERROR: Illegal end of block at ..."}});
}

TEST_P(EndOfTextInBody, WhenAStringBreaksOffIsReportedByTheLexerAlone) {
  expect_refused(
      {"", GetParam().text + std::string(" \"abc"), {"SYNTAX ERROR: unexpected EOF at -->abc ..."}});
}

INSTANTIATE_TEST_SUITE_P(
    EveryPlace, EndOfTextInBody,
    ::testing::Values(
        Place{"ServiceType", "["}, Place{"ServiceName", "[ service"}, Place{"ServiceClose", "[ service A"},
        Place{"ServiceOpen", "[ service A ]"}, Place{"ServiceStatus", "[ service A ] end ("},
        Place{"ServiceStatusEnd", "[ service A ] end ( KMT_STATUS_ERROR"},
        Place{"ServiceStatusText", "[ service A ] end ( KMT_STATUS_ERROR {"},
        Place{"ServiceStatusTextEnd", "[ service A ] end ( KMT_STATUS_ERROR { x }"},
        Place{"InvocationName", "[ service kmt_svc_scan ] X"},
        Place{"InvocationOpen", "[ service kmt_svc_scan ] {"},
        Place{"InvocationClosed", "[ service kmt_svc_scan ] { }"},
        Place{"InvocationStatus", "[ service kmt_svc_scan ] { } ("},
        Place{"InvocationStatusEnd", "[ service kmt_svc_scan ] { } ( KMT_STATUS_ERROR"},
        Place{"InvocationStatusText", "[ service kmt_svc_scan ] { } ( KMT_STATUS_ERROR {"},
        Place{"InvocationStatusTextEnd", "[ service kmt_svc_scan ] { } ( KMT_STATUS_ERROR { x }"},
        Place{"InvocationStatusClosed", "[ service kmt_svc_scan ] { } ( )"},
        Place{"AttributeType", "[ service kmt_svc_scan ] { *"},
        Place{"AttributeName", "[ service kmt_svc_scan ] { integer"},
        Place{"AttributeEquals", "[ service kmt_svc_scan ] { integer a"},
        Place{"AttributeValue", "[ service kmt_svc_scan ] { integer a ="},
        Place{"AttributeComma", "[ service kmt_svc_scan ] { integer a = 1"},
        Place{"AttributeNextValue", "[ service kmt_svc_scan ] { integer a = 1 ,"},
        Place{"AttributeComplete", "[ service kmt_svc_scan ] { integer a ;"},
        Place{"AttributeStatus", "[ service kmt_svc_scan ] { integer a ; ("},
        Place{"AttributeStatusEnd", "[ service kmt_svc_scan ] { integer a ; ( KMT_STATUS_ERROR"},
        Place{"AttributeStatusText", "[ service kmt_svc_scan ] { integer a ; ( KMT_STATUS_ERROR {"},
        Place{"AttributeStatusTextEnd", "[ service kmt_svc_scan ] { integer a ; ( KMT_STATUS_ERROR { x }"},
        Place{"AttributeStatusClosed", "[ service kmt_svc_scan ] { integer a ; ( )"}),
    case_name<Place>);

INSTANTIATE_TEST_SUITE_P(BrokenToken, RefusedBody,
                         ::testing::Values(Refusal{"AfterService",
                                                   "[ service A ] end \"abc",
                                                   {"SYNTAX ERROR: unexpected EOF at -->abc ..."}},
                                           Refusal{"AfterServiceStatus",
                                                   "[ service A ] end ( ) \"abc",
                                                   {"SYNTAX ERROR: unexpected EOF at -->abc ..."}}),
                         case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(
    LessThanInsideAService, RefusedBody,
    ::testing::Values(Refusal{"WithHeader",
                              "< SIL 4.2.00 ASCII id > [ service A ] < /SIL >",
                              {"SYNTAX ERROR: while parsing for \" { or end or a NAME \" at: < /SIL > ..."}},
                      Refusal{"WithoutHeader",
                              "[ service A ] <",
                              {"SYNTAX ERROR: while parsing for \" { or end or a NAME \" at: < ..."}}),
    case_name<Refusal>);

class Refused : public DecodeTest {};

TEST_F(Refused, DetailIsCutAt251BytesOfMessageAndDetail) {
  expect_refused(
      {"",
       "[ service A ] = " + times(300, 'x'),
       {cut("SYNTAX ERROR: while parsing for \" { or end or a NAME \" at:", " = " + times(300, 'x'))}});
}

TEST_F(Refused, NeverNamesAPlaceBeforeTheText) {
  expect_refused({"", ";", {"SYNTAX ERROR: while parsing for \"  <  \" at:; ..."}});
  reopen();
  expect_refused({"", "x", {"SYNTAX ERROR: while parsing for \"  <  \" at:x ..."}});
}

TEST_F(Refused, LeavesOtherTemplatesAlone) {
  const int32_t kept = decode("[ service A ] end");
  EXPECT_EQ(decode("[ service B ] X { integer a = 1 ; } end foo"), 0);
  EXPECT_EQ(live_nodes(space), 2);
  EXPECT_EQ(encoded(kept), "[service A]\nend\n\n");
}

TEST_F(Refused, GivesItsSlotsToTheNextTemplate) {
  decode("[ service A ] end");
  EXPECT_EQ(decode("[ service B ] X { integer a = 1 ; } end foo"), 0);
  EXPECT_EQ(decode("[ service C ] end"), -102);
}

}  // namespace
}  // namespace jt_test
