// The section after "<? SIL" and "<! SIL": its markers, its services, its absence, and each place where it
// can be wrong.
#include <gtest/gtest.h>

#include "sil/template_cases.h"

namespace jt_test {
namespace {

const std::string kQuestion = "<? SIL 4.2.00 ASCII id > ";
const std::string kExclaim = "<! SIL 4.2.00 ASCII id > ";

class AcceptedSection : public AcceptedText {};

TEST_P(AcceptedSection, IsKept) { expect_read(GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    Question, AcceptedSection,
    ::testing::Values(
        Reading{"Empty",
                kQuestion + "< ? > < /? > < /SIL >",
                "\n<? SIL 4.2.00 ASCII id >\n\n\n< ? >\n< /? >\n\n\n< /SIL >\n",
                {}},
        Reading{"EmptyBeforeBody",
                kQuestion + "< ? > < /? > [ service B ] end < /SIL >",
                "\n<? SIL 4.2.00 ASCII id >\n\n\n< ? >\n< /? >\n\n[service B]\nend\n\n\n< /SIL >\n",
                {}},
        Reading{"OneService",
                kQuestion + "< ? > [ service A ] end < /? > < /SIL >",
                "\n<? SIL 4.2.00 ASCII id >\n\n\n< ? >\n[service A]\nend\n\n< /? >\n\n\n< /SIL >\n",
                {}},
        Reading{"TwoServicesBeforeBody",
                kQuestion + "<?>[service A]end[service B]end</?>[service A]end</SIL>",
                "\n<? SIL 4.2.00 ASCII id >\n\n\n< ? >\n[service A]\nend\n\n[service B]\nend\n\n< /? >\n\n"
                "[service A]\nend\n\n\n< /SIL >\n",
                {}},
        Reading{"ServiceWithStatus",
                kQuestion + "< ? > [ service A ] end ( KMT_STATUS_ERROR ) < /? > < /SIL >",
                "\n<? SIL 4.2.00 ASCII id >\n\n\n< ? >\n[service A]\nend(KMT_STATUS_ERROR)\n\n< /? >\n\n"
                "\n< /SIL >\n",
                {}},
        Reading{"SlashAlone",
                kQuestion + "< ? > < / ? > < /SIL >",
                "\n<? SIL 4.2.00 ASCII id >\n\n\n< ? >\n< /? >\n\n\n< /SIL >\n",
                {}},
        Reading{"SlashAndMore",
                kQuestion + "< ? > < /anything? > < /SIL >",
                "\n<? SIL 4.2.00 ASCII id >\n\n\n< ? >\n< /? >\n\n\n< /SIL >\n",
                {}},
        Reading{"SlashInAString",
                kQuestion + "< ? > < \"/\"? > < /SIL >",
                "\n<? SIL 4.2.00 ASCII id >\n\n\n< ? >\n< /? >\n\n\n< /SIL >\n",
                {}},
        Reading{"None",
                kQuestion + "[ service B ] end < /SIL >",
                "\n<? SIL 4.2.00 ASCII id >\n\n[service B]\nend\n\n\n< /SIL >\n",
                {}},
        Reading{"AfterHeaderAttributes",
                kQuestion + "integer a ; < ? > < /? > < /SIL >",
                "\n<? SIL 4.2.00 ASCII id >\n\ninteger a = ;\n\n< ? >\n< /? >\n\n\n< /SIL >\n",
                {}}),
    case_name<Reading>);

INSTANTIATE_TEST_SUITE_P(
    Exclaim, AcceptedSection,
    ::testing::Values(
        Reading{"Empty",
                kExclaim + "<!></!></SIL>",
                "\n<! SIL 4.2.00 ASCII id >\n\n\n< ! >\n< /! >\n\n\n< /SIL >\n",
                {}},
        Reading{"OneService",
                kExclaim + "< ! > [ service A ] end < /! > < /SIL >",
                "\n<! SIL 4.2.00 ASCII id >\n\n\n< ! >\n[service A]\nend\n\n< /! >\n\n\n< /SIL >\n",
                {}},
        Reading{"SlashAlone",
                kExclaim + "< ! > [ service A ] end ( ) < / ! > < /SIL >",
                "\n<! SIL 4.2.00 ASCII id >\n\n\n< ! >\n[service A]\nend\n\n< /! >\n\n\n< /SIL >\n",
                {}}),
    case_name<Reading>);

class RefusedSection : public RefusedText {};

TEST_P(RefusedSection, IsRefusedWithTheWholeReport) { expect_refused(GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    WrongTokens, RefusedSection,
    ::testing::Values(
        Refusal{"KindExclaimAfterQuestion",
                kQuestion + "< ! > < /! > < /SIL >",
                {"SYNTAX ERROR: Illegal Block > < /! > < /SIL > ..."}},
        Refusal{"KindQuestionAfterExclaim",
                kExclaim + "< ? > < /? > < /SIL >",
                {"SYNTAX ERROR: Illegal Block > < /? > < /SIL > ..."}},
        Refusal{"KindWord", kQuestion + "< foo >", {"SYNTAX ERROR: Illegal Block> ..."}},
        Refusal{"KindString", kQuestion + "< \"?\" >", {"SYNTAX ERROR: Illegal Block> ..."}},
        Refusal{"KindSlash", kQuestion + "< /? >", {"SYNTAX ERROR: Illegal Block? > ..."}},
        Refusal{"KindLast", kQuestion + "<>", {"SYNTAX ERROR: Illegal Block ..."}},
        Refusal{
            "OpenEndWord", kQuestion + "< ? foo", {"SYNTAX ERROR: while parsing for \"  >  \" at: foo ..."}},
        Refusal{"OpenEndPunctuation",
                kExclaim + "< ! [",
                {"SYNTAX ERROR: while parsing for \"  >  \" at: [ ..."}},
        Refusal{"ContentWord",
                kQuestion + "< ? > foo < /? >",
                {"SYNTAX ERROR: while parsing for \"  [ <  \" at:foo < /? > ..."}},
        Refusal{"ContentAttribute",
                kExclaim + "< ! > * integer a ;",
                {"SYNTAX ERROR: while parsing for \"  [ <  \" at: * integer a ; ..."}},
        Refusal{"CloseWord",
                kQuestion + "< ? > < foo >",
                {"SYNTAX ERROR: while parsing for \"  /  \" at:foo > ..."}},
        Refusal{"CloseKind",
                kQuestion + "< ? > < ? >",
                {"SYNTAX ERROR: while parsing for \"  /  \" at: ? > ..."}},
        Refusal{"CloseEmptyString",
                kQuestion + "< ? > < \"\" ? >",
                {"SYNTAX ERROR: while parsing for \"  /  \" at: ? > ..."}},
        Refusal{"CloseAfterServices",
                kExclaim + "< ! > [ service A ] end < SIL >",
                {"SYNTAX ERROR: while parsing for \"  /  \" at:SIL > ..."}},
        Refusal{"CloseKindExclaimAfterQuestion",
                kQuestion + "< ? > < /! > < /SIL >",
                {"SYNTAX ERROR: Illegal Block > < /SIL > ..."}},
        Refusal{"CloseKindQuestionAfterExclaim",
                kExclaim + "< ! > < /? > < /SIL >",
                {"SYNTAX ERROR: Illegal Block > < /SIL > ..."}},
        Refusal{"CloseKindMissing", kQuestion + "< ? > < / >", {"SYNTAX ERROR: Illegal Block ..."}},
        Refusal{"CloseKindIsTheEndMarker",
                kQuestion + "< ? > [ service A ] end < /SIL >",
                {"SYNTAX ERROR: Illegal Block ..."}},
        Refusal{"CloseEndWord",
                kQuestion + "< ? > < /? foo >",
                {"SYNTAX ERROR: while parsing for \"  >  \" at:foo > ..."}},
        Refusal{"CloseEndPunctuation",
                kExclaim + "< ! > < /! ! >",
                {"SYNTAX ERROR: while parsing for \"  >  \" at: ! > ..."}}),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(
    Body, RefusedSection,
    ::testing::Values(
        Refusal{"WrongToken",
                kQuestion + "< ? > [ service A ] = end < /? >",
                {"SYNTAX ERROR: while parsing for \" { or end or a NAME \" at: = end < /? > ..."}},
        Refusal{"EndOfText",
                kQuestion + "< ? > [ service A ] end",
                {"SYNTAX ERROR: Illegal end of block at ..."}},
        Refusal{
            "EndOfTextInside", kExclaim + "< ! > [ service A", {"SYNTAX ERROR: Illegal end of block at ..."}},
        Refusal{"DuplicateService",
                kQuestion + "< ? > [ service A ] end [ service a ] end < /? >",
                {"SYNTAX ERROR: Trying to save multiple definitions for:a ..."}},
        Refusal{"AfterTheSectionWord",
                kQuestion + "< ? > < /? > foo",
                {"SYNTAX ERROR: while parsing for \" [ or < \" at: foo ..."}},
        Refusal{"AfterTheSectionEndOfText",
                kQuestion + "< ? > < /? >",
                {"SYNTAX ERROR: Illegal end of block at ..."}},
        Refusal{"SecondSection",
                kQuestion + "< ? > < /? > < ? > < /? > < /SIL >",
                {"SYNTAX ERROR: while parsing for \"  /SIL  \" at: ? > < /? > < /SIL > ..."}},
        Refusal{"SectionAfterThePlainHeader",
                "< SIL 4.2.00 ASCII id > < ? > < /? > < /SIL >",
                {"SYNTAX ERROR: while parsing for \"  /SIL  \" at: ? > < /? > < /SIL > ..."}},
        Refusal{"BodyAfterTheExclaimSection",
                kExclaim + "< ! > < /! > [ service A ] end < /SIL >",
                {"SYNTAX ERROR: while parsing for \"  <  \" at: [ service A ] end < /SIL > ..."}},
        Refusal{"BodyInPlaceOfTheExclaimSection",
                kExclaim + "[ service A ] end < /SIL >",
                {"SYNTAX ERROR: while parsing for \"  <  \" at: [ service A ] end < /SIL > ..."}}),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(
    StraightToTheEndMarker, RefusedSection,
    ::testing::Values(Refusal{"Question",
                              kQuestion + "< /SIL >",
                              {"SYNTAX ERROR: while parsing for \" [ or < \" at:/SIL > ..."}},
                      Refusal{"Exclaim",
                              kExclaim + "< /sil >",
                              {"SYNTAX ERROR: while parsing for \"  <  \" at:/sil > ..."}},
                      Refusal{"QuestionAsAString",
                              kQuestion + "< \"/SIL\" >",
                              {"SYNTAX ERROR: while parsing for \" [ or < \" at:SIL\" > ..."}}),
    case_name<Refusal>);

// The end of the text in a section is no report of its own.
INSTANTIATE_TEST_SUITE_P(
    EndOfText, RefusedSection,
    ::testing::Values(Refusal{"Kind", kQuestion + "<", {}}, Refusal{"OpenEnd", kQuestion + "< ?", {}},
                      Refusal{"Content", kQuestion + "< ? >", {}},
                      Refusal{"ContentAfterComment", kExclaim + "< ! > # c\n", {}},
                      Refusal{"Close", kQuestion + "< ? > <", {}},
                      Refusal{"CloseAfterServices", kExclaim + "< ! > [ service A ] end <", {}},
                      Refusal{"CloseKind", kQuestion + "< ? > < /", {}},
                      Refusal{"CloseEnd", kExclaim + "< ! > < / !", {}}),
    case_name<Refusal>);

// Every place of a section, up to where an unfinished string stands.
class BrokenTokenInSection : public DecodeTest, public ::testing::WithParamInterface<const char *> {};

TEST_P(BrokenTokenInSection, IsReportedByTheLexerAlone) {
  expect_refused({"", kQuestion + GetParam() + " \"abc", {"SYNTAX ERROR: unexpected EOF at -->abc ..."}});
}

INSTANTIATE_TEST_SUITE_P(EveryPlace, BrokenTokenInSection,
                         ::testing::Values("<", "< ?", "< ? >", "< ? > [ service A ] end", "< ? > <",
                                           "< ? > < /", "< ? > < / ?"));

class Section : public DecodeTest {};

TEST_F(Section, FollowsTheRootAndPointsBackToIt) {
  jt_node *const root = decoded(kQuestion + "< ? > [ service A ] end < /? > [ service B ] end < /SIL >");
  ASSERT_NE(root, nullptr);
  const jt_node *const section = root->next_sibling;
  ASSERT_NE(section, nullptr);
  EXPECT_EQ(section->node_class, JT_NODE_TEMPLATE);
  EXPECT_STREQ(section->name, "header");
  EXPECT_STREQ(section->type->name, "template");
  EXPECT_EQ(section->previous_sibling, root);
  EXPECT_EQ(section->parent, nullptr);
  EXPECT_EQ(section->next_sibling, nullptr);
  ASSERT_NE(section->first_child, nullptr);
  EXPECT_STREQ(section->first_child->name, "A");
  EXPECT_EQ(child(root, {"A"}), nullptr);
  EXPECT_NE(child(root, {"B"}), nullptr);
}

TEST_F(Section, MayUseTheNamesOfTheBody) {
  jt_node *const root = decoded(kQuestion + "< ? > [ service A ] end < /? > [ service A ] end < /SIL >");
  ASSERT_NE(root, nullptr);
  EXPECT_NE(child(root, {"A"}), nullptr);
  EXPECT_NE(child(root->next_sibling, {"A"}), nullptr);
}

TEST_F(Section, IsGoneFromTheTreeAndTheNodeTableWhenThereIsNone) {
  const jt_node *const root = decoded(kQuestion + "[ service B ] end < /SIL >");
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root->next_sibling, nullptr);
  EXPECT_EQ(slots(7), (std::vector<std::string>{"0 template", "6 header", "3 LanguageVersion",
                                                "3 CharacterEncoding", "3 InteractionID", "1 B", "free"}));
}

TEST_F(Section, CommentsBelongToItInEveryPlaceOfItsMarkers) {
  decoded(kQuestion + "<#a\n?#b\n>#c\n<#d\n/#e\n?#f\n>#root\n < /SIL >");
  EXPECT_EQ(comments(),
            (std::vector<std::string>{"0 template: #root\n", "0 header: #a\n#b\n#c\n#d\n#e\n#f\n"}));
}

TEST_F(Section, CommentsOfItsClosingMarkerDoNotBelongToItsLastService) {
  decoded(kQuestion + "< ? > [ service A ] end < #a\n / #b\n ? #c\n > < /SIL >");
  EXPECT_EQ(comments(), std::vector<std::string>{"0 header: #a\n#b\n#c\n"});
}

TEST_F(Section, CommentsBetweenItsServicesBelongToIt) {
  decoded(kExclaim + "< ! > #a\n [ #b\n service #c\n A #d\n ] end #e\n ( #f\n ) #g\n < #h\n /! > < /SIL >");
  EXPECT_EQ(comments(), std::vector<std::string>{"0 header: #a\n#b\n#c\n#d\n#e\n#f\n#g\n#h\n"});
}

}  // namespace
}  // namespace jt_test
