// The closing marker: required after a header, refused without one, and followed by nothing but white space
// and comments.
#include <gtest/gtest.h>

#include "sil/template_cases.h"

namespace jt_test {
namespace {

const std::string kPlain = "< SIL 4.2.00 ASCII id > ";
const std::string kExclaim = "<! SIL 4.2.00 ASCII id > < ! > < /! > ";

class AcceptedEndMarker : public AcceptedText {};

TEST_P(AcceptedEndMarker, EndsTheTemplate) { expect_read(GetParam()); }

const std::string kEmptyWritten = "\n< SIL 4.2.00 ASCII id >\n\n\n< /SIL >\n";

INSTANTIATE_TEST_SUITE_P(
    Forms, AcceptedEndMarker,
    ::testing::Values(Reading{"Plain", kPlain + "< /SIL >", kEmptyWritten, {}},
                      Reading{"BlanksNowhere", kPlain + "</SIL>", kEmptyWritten, {}},
                      Reading{"BlanksEverywhere", kPlain + "\n<\t/SIL\r\n> \f\v\b\n", kEmptyWritten, {}},
                      Reading{"AnyCase", kPlain + "< /sIl >", kEmptyWritten, {}},
                      Reading{"String", kPlain + "< \"/SIL\" >", kEmptyWritten, {}},
                      Reading{"EscapedWord", kPlain + "< \\/SIL >", kEmptyWritten, {}},
                      Reading{"AfterService",
                              kPlain + "[ service A ] end < /SIL >",
                              "\n< SIL 4.2.00 ASCII id >\n\n[service A]\nend\n\n\n< /SIL >\n",
                              {}},
                      Reading{"AfterSection",
                              kExclaim + "< /SIL >",
                              "\n<! SIL 4.2.00 ASCII id >\n\n\n< ! >\n< /! >\n\n\n< /SIL >\n",
                              {}}),
    case_name<Reading>);

class RefusedEndMarker : public RefusedText {};

TEST_P(RefusedEndMarker, IsRefusedWithTheWholeReport) { expect_refused(GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    WrongTokens, RefusedEndMarker,
    ::testing::Values(
        Refusal{"BeginWord", kExclaim + "foo", {"SYNTAX ERROR: while parsing for \"  <  \" at: foo ..."}},
        Refusal{"BeginPunctuation",
                kExclaim + "> < /SIL >",
                {"SYNTAX ERROR: while parsing for \"  <  \" at: > < /SIL > ..."}},
        Refusal{
            "WordOther", kPlain + "< foo >", {"SYNTAX ERROR: while parsing for \"  /SIL  \" at:foo > ..."}},
        Refusal{
            "WordOpening", kPlain + "< SIL >", {"SYNTAX ERROR: while parsing for \"  /SIL  \" at:SIL > ..."}},
        Refusal{"WordApart",
                kPlain + "< / SIL >",
                {"SYNTAX ERROR: while parsing for \"  /SIL  \" at:/ SIL > ..."}},
        Refusal{"WordLonger",
                kPlain + "< /SILS >",
                {"SYNTAX ERROR: while parsing for \"  /SIL  \" at:/SILS > ..."}},
        Refusal{"WordPunctuation",
                kPlain + "< ? >",
                {"SYNTAX ERROR: while parsing for \"  /SIL  \" at: ? > ..."}},
        Refusal{
            "CloseWord", kPlain + "< /SIL foo", {"SYNTAX ERROR: while parsing for \"  >  \" at: foo ..."}},
        Refusal{
            "ClosePunctuation", kPlain + "< /SIL <", {"SYNTAX ERROR: while parsing for \"  >  \" at: < ..."}},
        Refusal{"AfterWord",
                kPlain + "< /SIL > foo",
                {"SYNTAX ERROR: while parsing for \"  EOF  \" at: foo ..."}},
        Refusal{"AfterWords",
                kPlain + "< /SIL > foo bar",
                {"SYNTAX ERROR: while parsing for \"  EOF  \" at:foo bar ..."}},
        Refusal{"AfterAnotherMarker",
                kPlain + "< /SIL > < /SIL >",
                {"SYNTAX ERROR: while parsing for \"  EOF  \" at: < /SIL > ..."}},
        Refusal{"AfterCommentAndWord",
                kExclaim + "< /SIL > # c\nfoo",
                {"SYNTAX ERROR: while parsing for \"  EOF  \" at:\nfoo ..."}}),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(
    EndOfText, RefusedEndMarker,
    ::testing::Values(Refusal{"Missing", kExclaim, {"SYNTAX ERROR: Missing end marker ..."}},
                      Refusal{
                          "MissingAfterComment", kExclaim + "# c", {"SYNTAX ERROR: Missing end marker ..."}},
                      Refusal{"Word", kPlain + "<", {}}, Refusal{"WordAfterComment", kPlain + "< # c\n", {}},
                      Refusal{"Close", kPlain + "< /SIL", {}},
                      Refusal{"CloseAfterSection", kExclaim + "< /SIL", {}},
                      Refusal{"MissingAfterServices",
                              kPlain + "[ service A ] end",
                              {"SYNTAX ERROR: Illegal end of block at ..."}},
                      Refusal{"MissingAfterServiceStatus",
                              kPlain + "[ service A ] end ( )",
                              {"SYNTAX ERROR: Illegal end of block at ..."}}),
    case_name<Refusal>);

INSTANTIATE_TEST_SUITE_P(WithoutHeader, RefusedEndMarker,
                         ::testing::Values(Refusal{"AfterService",
                                                   "[ service A ] end < /SIL >",
                                                   {"SYNTAX ERROR: Illegal end of block at /SIL > ..."}},
                                           Refusal{"AfterServiceStatus",
                                                   "[ service A ] end ( ) < /SIL >",
                                                   {"SYNTAX ERROR: Illegal end of block at /SIL > ..."}},
                                           Refusal{"LastCharacter",
                                                   "[ service A ] end <",
                                                   {"SYNTAX ERROR: Illegal end of block at ..."}}),
                         case_name<Refusal>);

// Every place of the marker, up to where an unfinished string stands.
class BrokenTokenInEndMarker : public DecodeTest, public ::testing::WithParamInterface<const char *> {};

TEST_P(BrokenTokenInEndMarker, IsReportedByTheLexerAlone) {
  expect_refused({"", kExclaim + GetParam() + " \"abc", {"SYNTAX ERROR: unexpected EOF at -->abc ..."}});
}

INSTANTIATE_TEST_SUITE_P(EveryPlace, BrokenTokenInEndMarker,
                         ::testing::Values("", "<", "< /SIL", "< /SIL >"));

class EndMarker : public DecodeTest {};

TEST_F(EndMarker, CommentsBelongToTheRoot) {
  decoded(kExclaim + "#a\n < #b\n /SIL #c\n > #d");
  EXPECT_EQ(comments(), std::vector<std::string>{"0 template: #a\n#b\n#c\n#d\n"});
}

TEST_F(EndMarker, IsReadAfterABodyThatPushedItsLessThanBack) {
  decoded(kPlain + "[ service A ] end #a\n < #b\n /SIL >");
  EXPECT_EQ(comments(), std::vector<std::string>{"0 template: #a\n#b\n"});
}

TEST_F(EndMarker, IsNotNeededWithoutAHeader) {
  expect_read({"", "[ service A ] end # c\n", "# c\n[service A]\nend\n\n", {}});
}

}  // namespace
}  // namespace jt_test
