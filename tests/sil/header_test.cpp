// The opening marker: its three forms, each place where it can be wrong, what is kept of it, and what comes
// of a text that has none.
#include <gtest/gtest.h>

#include "sil/template_cases.h"

namespace jt_test {
namespace {

class RefusedHeader : public RefusedText {};

TEST_P(RefusedHeader, IsRefusedWithTheWholeReport) { expect_refused(GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    WrongTokens, RefusedHeader,
    ::testing::Values(
        Refusal{"StartWord", "foo", {"SYNTAX ERROR: while parsing for \"  <  \" at:foo ..."}},
        Refusal{
            "StartWordAfterBlank", " foo bar", {"SYNTAX ERROR: while parsing for \"  <  \" at:foo bar ..."}},
        Refusal{"StartEndKeyword", "end", {"SYNTAX ERROR: while parsing for \"  <  \" at:end ..."}},
        Refusal{"StartPunctuation", "{ }", {"SYNTAX ERROR: while parsing for \"  <  \" at:{ } ..."}},
        Refusal{"StartString", "\"<\" SIL", {"SYNTAX ERROR: while parsing for \"  <  \" at:\" SIL ..."}},
        Refusal{"OpeningWord", "< foo", {"SYNTAX ERROR: while parsing for \"  ! ? SIL  \" at: foo ..."}},
        Refusal{
            "OpeningString", "< \"SIL\"", {"SYNTAX ERROR: while parsing for \"  ! ? SIL  \" at:SIL\" ..."}},
        Refusal{"OpeningEndMarker",
                "< /SIL >",
                {"SYNTAX ERROR: while parsing for \"  ! ? SIL  \" at:/SIL > ..."}},
        Refusal{"OpeningPunctuation", "<<", {"SYNTAX ERROR: while parsing for \"  ! ? SIL  \" at:<< ..."}},
        Refusal{"OpeningTwice", "<?!SIL", {"SYNTAX ERROR: while parsing for \"  SIL  \" at:?!SIL ..."}},
        Refusal{"QuestionWord", "<? foo", {"SYNTAX ERROR: while parsing for \"  SIL  \" at: foo ..."}},
        Refusal{"ExclaimString", "<! \"SIL\"", {"SYNTAX ERROR: while parsing for \"  SIL  \" at:SIL\" ..."}},
        Refusal{
            "QuestionEndMarker", "<? /SIL >", {"SYNTAX ERROR: while parsing for \"  SIL  \" at:/SIL > ..."}},
        Refusal{
            "VersionPunctuation", "< SIL >", {"SYNTAX ERROR: while parsing for \"  version  \" at: > ..."}},
        Refusal{"VersionString",
                "< SIL \"4.2.00\" ASCII id >",
                {"SYNTAX ERROR: while parsing for \"  version  \" at:.2.00\" ASCII id > ..."}},
        Refusal{"VersionEndKeyword",
                "< SIL end ASCII id >",
                {"SYNTAX ERROR: while parsing for \"  version  \" at:end ASCII id > ..."}},
        Refusal{"IdentifierPunctuation",
                "< SIL 4.2.00 ASCII >",
                {"SYNTAX ERROR: while parsing for \"  ID  \" at: > ..."}},
        Refusal{"IdentifierString",
                "< SIL 4.2.00 ASCII \"id\" >",
                {"SYNTAX ERROR: while parsing for \"  ID  \" at:d\" > ..."}},
        Refusal{"IdentifierEndKeyword",
                "< SIL 4.2.00 ASCII End >",
                {"SYNTAX ERROR: while parsing for \"  ID  \" at:End > ..."}},
        Refusal{"CloseWord",
                "< SIL 4.2.00 ASCII id id2 >",
                {"SYNTAX ERROR: while parsing for \"  >  \" at:id2 > ..."}},
        Refusal{"ClosePunctuation",
                "< SIL 4.2.00 ASCII id [",
                {"SYNTAX ERROR: while parsing for \"  >  \" at: [ ..."}},
        Refusal{"AfterPunctuation",
                "< SIL 4.2.00 ASCII id > = 1",
                {"SYNTAX ERROR: while parsing for \"  \" at: = 1 ..."}},
        Refusal{"AfterString",
                "< SIL 4.2.00 ASCII id > \"integer\" a ;",
                {"SYNTAX ERROR: while parsing for \"  \" at:nteger\" a ; ..."}},
        Refusal{"AfterEndKeyword",
                "< SIL 4.2.00 ASCII id > end",
                {"SYNTAX ERROR: while parsing for \"  \" at: end ..."}},
        Refusal{"AfterSecondClose",
                "< SIL 4.2.00 ASCII id >>",
                {"SYNTAX ERROR: while parsing for \"  \" at:>> ..."}}),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(
    EndOfText, RefusedHeader,
    ::testing::Values(
        Refusal{"Nothing", "", {"SYNTAX ERROR: while parsing for \"  <  \" at: ..."}},
        Refusal{"OnlyWhiteSpace", " \t\n", {"SYNTAX ERROR: while parsing for \"  <  \" at:\n ..."}},
        Refusal{"OnlyComments", "# a\n# b", {"SYNTAX ERROR: while parsing for \"  <  \" at:b ..."}},
        Refusal{"Opening", "<", {"SYNTAX ERROR: while parsing for \"  ! ? SIL  \" at:< ..."}},
        Refusal{"Question", "<?", {"SYNTAX ERROR: while parsing for \"  SIL  \" at:? ..."}},
        Refusal{"Exclaim", "< ! ", {"SYNTAX ERROR: while parsing for \"  SIL  \" at:  ..."}},
        Refusal{"Version", "< SIL", {"SYNTAX ERROR: while parsing for \"  version  \" at:L ..."}},
        Refusal{"Encoding",
                "< SIL 4.2.00",
                {"SYNTAX ERROR: Non ASCII encoding\n ...",
                 "SYNTAX ERROR: while parsing for \"  ID  \" at:0 ..."}},
        Refusal{"Identifier", "< SIL 4.2.00 ASCII", {"SYNTAX ERROR: while parsing for \"  ID  \" at:I ..."}},
        Refusal{"Close", "< SIL 4.2.00 ASCII id", {"SYNTAX ERROR: while parsing for \"  >  \" at:d ..."}},
        Refusal{"After", "< SIL 4.2.00 ASCII id >", {"SYNTAX ERROR: while parsing for \"  \" at:> ..."}},
        Refusal{"AfterComment",
                "< SIL 4.2.00 ASCII id > # c\n",
                {"SYNTAX ERROR: while parsing for \"  \" at:\n ..."}},
        Refusal{"VersionOfAnotherTime",
                "< SIL 9 UTF-8",
                {"WARNING: version number mismatch\n ...", "SYNTAX ERROR: Non ASCII encoding\n ...",
                 "SYNTAX ERROR: while parsing for \"  ID  \" at:8 ..."}}),
    case_name<Refusal>);

// Every place of the marker, up to where an unfinished string stands.
class BrokenTokenInHeader : public DecodeTest, public ::testing::WithParamInterface<const char *> {};

TEST_P(BrokenTokenInHeader, IsReportedByTheLexerAlone) {
  expect_refused({"", GetParam() + std::string(" \"abc"), {"SYNTAX ERROR: unexpected EOF at -->abc ..."}});
}

INSTANTIATE_TEST_SUITE_P(EveryPlace, BrokenTokenInHeader,
                         ::testing::Values("", "<", "<?", "<!", "< SIL", "< SIL 4.2.00", "< SIL 4.2.00 ASCII",
                                           "< SIL 4.2.00 ASCII id", "< SIL 4.2.00 ASCII id >"));

class AcceptedHeader : public AcceptedText {};

TEST_P(AcceptedHeader, IsKept) { expect_read(GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    Forms, AcceptedHeader,
    ::testing::Values(
        Reading{"Plain", "< SIL 4.2.00 ASCII id > < /SIL >", "\n< SIL 4.2.00 ASCII id >\n\n\n< /SIL >\n", {}},
        Reading{"PlainWithBody",
                "< SIL 4.2.00 ASCII id > [ service A ] end < /SIL >",
                "\n< SIL 4.2.00 ASCII id >\n\n[service A]\nend\n\n\n< /SIL >\n",
                {}},
        Reading{"PlainWithStatusAtTheEnd",
                "< SIL 4.2.00 ASCII id > [ service A ] end ( ) < /SIL >",
                "\n< SIL 4.2.00 ASCII id >\n\n[service A]\nend\n\n\n< /SIL >\n",
                {}},
        Reading{"Question",
                "<? SIL 4.2.00 ASCII id > [ service A ] end < /SIL >",
                "\n<? SIL 4.2.00 ASCII id >\n\n[service A]\nend\n\n\n< /SIL >\n",
                {}},
        Reading{"Exclaim",
                "<! SIL 4.2.00 ASCII id > < ! > < /! > < /SIL >",
                "\n<! SIL 4.2.00 ASCII id >\n\n\n< ! >\n< /! >\n\n\n< /SIL >\n",
                {}},
        Reading{"BlanksEverywhere",
                "  <  ?  SIL\t4.2.00\nASCII\r\nid\f>\v[ service A ] end < /SIL >",
                "\n<? SIL 4.2.00 ASCII id >\n\n[service A]\nend\n\n\n< /SIL >\n",
                {}},
        Reading{"BlanksNowhere",
                "<?SIL 4.2.00 ASCII id>[service A]end</SIL>",
                "\n<? SIL 4.2.00 ASCII id >\n\n[service A]\nend\n\n\n< /SIL >\n",
                {}},
        Reading{"WordsInAnyCase",
                "< sil 4.2.00 ascii Id > < /sil >",
                "\n< SIL 4.2.00 ASCII Id >\n\n\n< /SIL >\n",
                {}},
        Reading{"WordsInAnyCaseAfterQuestion",
                "<? Sil 4.2.00 Ascii ID > [ service A ] end < /Sil >",
                "\n<? SIL 4.2.00 ASCII ID >\n\n[service A]\nend\n\n\n< /SIL >\n",
                {}}),
    case_name<Reading>);

INSTANTIATE_TEST_SUITE_P(VersionAndEncoding, AcceptedHeader,
                         ::testing::Values(Reading{"OtherVersion",
                                                   "< SIL 4.1 ASCII id > < /SIL >",
                                                   "\n< SIL 4.1 ASCII id >\n\n\n< /SIL >\n",
                                                   {"WARNING: version number mismatch\n ..."}},
                                           Reading{"LongerVersion",
                                                   "< SIL 4.2.000 ASCII id > < /SIL >",
                                                   "\n< SIL 4.2.000 ASCII id >\n\n\n< /SIL >\n",
                                                   {"WARNING: version number mismatch\n ..."}},
                                           Reading{"OtherEncoding",
                                                   "< SIL 4.2.00 LATIN id > < /SIL >",
                                                   "\n< SIL 4.2.00 ASCII id >\n\n\n< /SIL >\n",
                                                   {"SYNTAX ERROR: Non ASCII encoding\n ..."}},
                                           Reading{"OtherVersionAndEncoding",
                                                   "< SIL 4.1 LATIN id > < /SIL >",
                                                   "\n< SIL 4.1 ASCII id >\n\n\n< /SIL >\n",
                                                   {"WARNING: version number mismatch\n ...",
                                                    "SYNTAX ERROR: Non ASCII encoding\n ..."}},
                                           Reading{"EncodingPunctuation",
                                                   "< SIL 4.2.00 > id > < /SIL >",
                                                   "\n< SIL 4.2.00 ASCII id >\n\n\n< /SIL >\n",
                                                   {"SYNTAX ERROR: Non ASCII encoding\n ..."}},
                                           Reading{"EncodingEndKeyword",
                                                   "< SIL 4.2.00 end id > < /SIL >",
                                                   "\n< SIL 4.2.00 ASCII id >\n\n\n< /SIL >\n",
                                                   {"SYNTAX ERROR: Non ASCII encoding\n ..."}},
                                           Reading{"EncodingEmptyString",
                                                   "< SIL 4.2.00 \"\" id > < /SIL >",
                                                   "\n< SIL 4.2.00 ASCII id >\n\n\n< /SIL >\n",
                                                   {"SYNTAX ERROR: Non ASCII encoding\n ..."}},
                                           Reading{"EncodingString",
                                                   "< SIL 4.2.00 \"aSCII\" id > < /SIL >",
                                                   "\n< SIL 4.2.00 ASCII id >\n\n\n< /SIL >\n",
                                                   {}}),
                         case_name<Reading>);

class Header : public DecodeTest {};

TEST_F(Header, HangsBesideTheRootWithItsThreeAttributesInARing) {
  jt_node *const root = decoded("< SIL 4.1 latin Job-7 > [ service A ] end < /SIL >");
  ASSERT_NE(root, nullptr);
  const jt_node *const header = root->previous_sibling;
  ASSERT_NE(header, nullptr);
  EXPECT_EQ(header->node_class, JT_NODE_HEADER_PLAIN);
  EXPECT_STREQ(header->name, "header");
  EXPECT_STREQ(header->type->name, "sil_header");
  EXPECT_EQ(header->first_child, nullptr);
  const char *const expected[][2] = {
      {"LanguageVersion", "4.1"}, {"CharacterEncoding", "ASCII"}, {"InteractionID", "Job-7"}};
  const jt_node *attribute = header->parent;
  for (const auto &[name, value] : expected) {
    ASSERT_NE(attribute, nullptr) << name;
    EXPECT_EQ(attribute->node_class, JT_NODE_ATTRIBUTE) << name;
    EXPECT_STREQ(attribute->name, name);
    EXPECT_STREQ(attribute->type->name, "string") << name;
    EXPECT_STREQ(reinterpret_cast<const char *>(attribute->value), value) << name;
    EXPECT_EQ(attribute->first_child, header) << name;
    attribute = attribute->next_sibling;
  }
  EXPECT_EQ(attribute, nullptr);
}

TEST_F(Header, HasTheClassOfItsForm) {
  const struct {
    const char *text;
    int node_class;
  } cases[] = {{"<? SIL 4.2.00 ASCII id > [ service A ] end < /SIL >", JT_NODE_HEADER_QUESTION},
               {"< SIL 4.2.00 ASCII id > < /SIL >", JT_NODE_HEADER_PLAIN},
               {"<! SIL 4.2.00 ASCII id > < ! > < /! > < /SIL >", JT_NODE_HEADER_EXCLAIM}};
  for (const auto &[text, node_class] : cases) {
    const jt_node *const root = decoded(text);
    ASSERT_NE(root, nullptr);
    ASSERT_NE(root->previous_sibling, nullptr) << text;
    EXPECT_EQ(root->previous_sibling->node_class, node_class) << text;
  }
}

TEST_F(Header, IsAbsentWhenTheTextBeginsWithAService) {
  const jt_node *const root = decoded("[ service A ] end");
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root->previous_sibling, nullptr);
  EXPECT_EQ(root->next_sibling, nullptr);
  EXPECT_EQ(root->parent, nullptr);
}

TEST_F(Header, KeepsVersionAndIdentifierOfAnyTokenLength) {
  const std::string version = times(2047, '4');
  const std::string identifier = times(2047, 'i');
  const jt_node *const root = decoded("< SIL " + version + " ASCII " + identifier + " > < /SIL >");
  ASSERT_NE(root, nullptr);
  const jt_node *const first = root->previous_sibling->parent;
  EXPECT_EQ(reinterpret_cast<const char *>(first->value), version);
  EXPECT_EQ(reinterpret_cast<const char *>(first->next_sibling->next_sibling->value), identifier);
  EXPECT_EQ(messages(), Messages{"WARNING: version number mismatch\n ..."});
}

TEST_F(Header, CommentsBelongToItInEveryPlaceOfTheMarker) {
  decoded("#a\n<#b\n?#c\nSIL#d\n4.2.00#e\nASCII#f\nid#g\n>#h\n[ service A ] end #root\n < #marker\n/SIL >");
  EXPECT_EQ(comments(), (std::vector<std::string>{"0 template: #root\n#marker\n",
                                                  "6 header: #a\n#b\n#c\n#d\n#e\n#f\n#g\n#h\n"}));
}

TEST_F(Header, CommentsMoveToTheRootWhenThereIsNoHeader) {
  decoded("# one\n  # two\n[ service A ] end");
  EXPECT_EQ(comments(), std::vector<std::string>{"0 template: # one\n# two\n"});
}

TEST_F(Header, CommentsBeforeAndAfterTheFirstServiceJoinOnTheRoot) {
  decoded("# one\n[ # two\n service A ] end");
  EXPECT_EQ(comments(), std::vector<std::string>{"0 template: # one\n# two\n"});
}

TEST_F(Header, IsGoneFromTheNodeTableWhenThereIsNone) {
  decoded("[ service A ] end");
  EXPECT_EQ(slots(3), (std::vector<std::string>{"0 template", "1 A", "free"}));
}

}  // namespace
}  // namespace jt_test
