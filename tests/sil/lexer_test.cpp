// The lexer by itself: the kind and the text of every token, where reading stands after it, and handing a
// token out again. What its tokens do to a template is tested in token_test.cpp.
#include "sil/lexer.h"

#include <gtest/gtest.h>

#include "support/session.h"

namespace jt_test {
namespace {

using jt_core::TokenKind;

struct Cut {
  TokenKind kind;
  std::string text;
};

bool operator==(const Cut &a, const Cut &b) { return a.kind == b.kind && a.text == b.text; }

std::ostream &operator<<(std::ostream &out, const Cut &cut) {
  return out << static_cast<int>(cut.kind) << " \"" << cut.text << "\"";
}

using Cuts = std::vector<Cut>;

class Lexer : public SessionTest {
 protected:
  void read_from(std::string of) {
    text = std::move(of);
    cursor.position = cursor.mark = cursor.begin = text.c_str();
  }

  Cut next() {
    const jt_core::Token token = jt_core::next_token(space, cursor);
    return {token.kind, std::string(token.text)};
  }

  std::size_t position() const { return static_cast<std::size_t>(cursor.position - text.c_str()); }

  // All tokens of a text, the end of it or the error included.
  Cuts cuts_of(const std::string &of) {
    read_from(of);
    Cuts cuts;
    do {
      cuts.push_back(next());
    } while (cuts.back().kind != TokenKind::kEndOfText && cuts.back().kind != TokenKind::kError &&
             cuts.size() < 100);
    return cuts;
  }

  std::string text;
  jt_core::SilCursor cursor{};
};

const Cut kEndOfText = {TokenKind::kEndOfText, ""};

TEST_F(Lexer, NumbersItsTokenKinds) {
  EXPECT_EQ(static_cast<int>(TokenKind::kOpenBracket), 0);
  EXPECT_EQ(static_cast<int>(TokenKind::kDoubleBar), 19);
  EXPECT_EQ(static_cast<int>(TokenKind::kWord), 20);
  EXPECT_EQ(static_cast<int>(TokenKind::kString), 21);
  EXPECT_EQ(static_cast<int>(TokenKind::kComment), 22);
  EXPECT_EQ(static_cast<int>(TokenKind::kEnd), 23);
  EXPECT_EQ(static_cast<int>(TokenKind::kEndOfText), 24);
  EXPECT_EQ(static_cast<int>(TokenKind::kError), 25);
}

TEST_F(Lexer, EveryPunctuationIsATokenOfItsOwn) {
  const Cuts expected = {{TokenKind::kOpenBracket, "["},
                         {TokenKind::kCloseBracket, "]"},
                         {TokenKind::kOpenBrace, "{"},
                         {TokenKind::kCloseBrace, "}"},
                         {TokenKind::kOpenParenthesis, "("},
                         {TokenKind::kCloseParenthesis, ")"},
                         {TokenKind::kLess, "<"},
                         {TokenKind::kGreater, ">"},
                         {TokenKind::kEquals, "="},
                         {TokenKind::kComma, ","},
                         {TokenKind::kSemicolon, ";"},
                         {TokenKind::kAsterisk, "*"},
                         {TokenKind::kExclamation, "!"},
                         {TokenKind::kDollar, "$"},
                         {TokenKind::kPercent, "%"},
                         {TokenKind::kAmpersand, "&"},
                         {TokenKind::kCaret, "^"},
                         {TokenKind::kQuestion, "?"},
                         {TokenKind::kBar, "|"},
                         kEndOfText};
  EXPECT_EQ(cuts_of("[]{}()<>=,;*!$%&^?|"), expected);
  EXPECT_EQ(cuts_of(" [ ] { } ( ) < > = , ; * ! $ % & ^ ? | "), expected);
}

TEST_F(Lexer, TwoBarsSideBySideAreOneToken) {
  EXPECT_EQ(cuts_of("||"), (Cuts{{TokenKind::kDoubleBar, "||"}, kEndOfText}));
  EXPECT_EQ(cuts_of("| |"), (Cuts{{TokenKind::kBar, "|"}, {TokenKind::kBar, "|"}, kEndOfText}));
  EXPECT_EQ(cuts_of("|||"), (Cuts{{TokenKind::kDoubleBar, "||"}, {TokenKind::kBar, "|"}, kEndOfText}));
  EXPECT_EQ(
      cuts_of("a||b"),
      (Cuts{{TokenKind::kWord, "a"}, {TokenKind::kDoubleBar, "||"}, {TokenKind::kWord, "b"}, kEndOfText}));
}

TEST_F(Lexer, PunctuationEndsAWord) {
  EXPECT_EQ(
      cuts_of("a{b"),
      (Cuts{{TokenKind::kWord, "a"}, {TokenKind::kOpenBrace, "{"}, {TokenKind::kWord, "b"}, kEndOfText}));
}

TEST_F(Lexer, PunctuationEndsAString) {
  EXPECT_EQ(cuts_of("\"a\",\"b\";"), (Cuts{{TokenKind::kString, "a"},
                                           {TokenKind::kComma, ","},
                                           {TokenKind::kString, "b"},
                                           {TokenKind::kSemicolon, ";"},
                                           kEndOfText}));
}

TEST_F(Lexer, EndInAnyCaseIsAKeyword) {
  for (const char *const word : {"end", "END", "End", "eNd", "enD"}) {
    EXPECT_EQ(cuts_of(word), (Cuts{{TokenKind::kEnd, word}, kEndOfText}));
  }
}

TEST_F(Lexer, EndWithMoreIsAWord) {
  for (const char *const word : {"ends", "en", "end.", "xend", "/end"}) {
    EXPECT_EQ(cuts_of(word), (Cuts{{TokenKind::kWord, word}, kEndOfText}));
  }
}

TEST_F(Lexer, EndInQuotesOrWithAnEscapeIsAString) {
  EXPECT_EQ(cuts_of("\"end\""), (Cuts{{TokenKind::kString, "end"}, kEndOfText}));
  EXPECT_EQ(cuts_of("\\end"), (Cuts{{TokenKind::kString, "end"}, kEndOfText}));
}

TEST_F(Lexer, EmptyStringIsAToken) {
  EXPECT_EQ(cuts_of("\"\""), (Cuts{{TokenKind::kString, ""}, kEndOfText}));
  EXPECT_EQ(cuts_of("\"\" \"\""), (Cuts{{TokenKind::kString, ""}, {TokenKind::kString, ""}, kEndOfText}));
}

TEST_F(Lexer, EscapeMakesAWordAString) {
  EXPECT_EQ(cuts_of("a\\nb"), (Cuts{{TokenKind::kString, "a\nb"}, kEndOfText}));
}

TEST_F(Lexer, EscapesOfEveryLetter) {
  EXPECT_EQ(cuts_of("\\b\\f\\n\\r\\t\\v"), (Cuts{{TokenKind::kString, "\b\f\n\r\t\v"}, kEndOfText}));
  for (int byte = 1; byte < 256; ++byte) {
    const std::string character(1, static_cast<char>(byte));
    if (character.find_first_of("bfnrtv") != std::string::npos) continue;
    EXPECT_EQ(cuts_of("\\" + character), (Cuts{{TokenKind::kString, character}, kEndOfText})) << byte;
    EXPECT_EQ(cuts_of("\"\\" + character + "\""), (Cuts{{TokenKind::kString, character}, kEndOfText}))
        << byte;
  }
}

TEST_F(Lexer, TextBetweenQuotesIsTakenAsItIs) {
  for (int byte = 1; byte < 256; ++byte) {
    const std::string character(1, static_cast<char>(byte));
    if (character == "\"" || character == "\\") continue;
    EXPECT_EQ(cuts_of("\"" + character + "\""), (Cuts{{TokenKind::kString, character}, kEndOfText})) << byte;
  }
}

TEST_F(Lexer, CommentRunsToTheEndOfTheLine) {
  for (const char *const end : {"\n", "\v", "\f", "\r", "\r\n", ""}) {
    EXPECT_EQ(cuts_of(std::string("# a [ \"b ") + end),
              (Cuts{{TokenKind::kComment, "# a [ \"b \n"}, kEndOfText}));
  }
}

TEST_F(Lexer, CommentEndsAWord) {
  EXPECT_EQ(cuts_of("a#b"), (Cuts{{TokenKind::kWord, "a"}, {TokenKind::kComment, "#b\n"}, kEndOfText}));
}

TEST_F(Lexer, CommentHoldsHashesAndBackslashes) {
  EXPECT_EQ(cuts_of("##\\\nx"), (Cuts{{TokenKind::kComment, "##\\\n"}, {TokenKind::kWord, "x"}, kEndOfText}));
}

TEST_F(Lexer, WhiteSpaceIsSkipped) {
  EXPECT_EQ(cuts_of(" \b\t\n\v\f\r a \b\t\n\v\f\r b \b\t\n\v\f\r "),
            (Cuts{{TokenKind::kWord, "a"}, {TokenKind::kWord, "b"}, kEndOfText}));
}

TEST_F(Lexer, EmptyTextEndsAtOnce) {
  EXPECT_EQ(cuts_of(""), Cuts{kEndOfText});
  EXPECT_EQ(cuts_of("  \n"), Cuts{kEndOfText});
}

TEST_F(Lexer, EndOfTextMayBeReadAgainAndAgain) {
  read_from("a");
  EXPECT_EQ(next(), (Cut{TokenKind::kWord, "a"}));
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(next(), kEndOfText);
    EXPECT_EQ(position(), 1U);
  }
}

TEST_F(Lexer, StandsBehindTheWhiteSpaceThatEndsAWord) {
  read_from("ab  cd");
  next();
  EXPECT_EQ(position(), 3U);
}

TEST_F(Lexer, StandsAtThePunctuationOrCommentThatEndsAWord) {
  for (const char *const of : {"ab;cd", "ab#cd", "ab|cd"}) {
    read_from(of);
    next();
    EXPECT_EQ(position(), 2U) << of;
  }
}

TEST_F(Lexer, StandsBehindPunctuationAndWhatIsBeforeIt) {
  read_from("  ; a");
  next();
  EXPECT_EQ(position(), 3U);
}

TEST_F(Lexer, StandsAtTheEndOfTheLineOfAComment) {
  read_from("#ab\ncd");
  next();
  EXPECT_EQ(position(), 3U);
}

TEST_F(Lexer, StandsAtTheEndOfTextThatEndsAWord) {
  read_from("ab");
  next();
  EXPECT_EQ(position(), 2U);
}

TEST_F(Lexer, StandsBeforeTheOffendingCharacter) {
  const struct {
    const char *text;
    std::size_t position;
  } cases[] = {{"x\"y\"", 1}, {"\"a\"\"b\"", 3}, {"\"a\"b", 3}, {"\\n\"", 2},
               {"a\\", 2},    {"\"a", 2},        {"\"a\\", 3}};
  for (const auto &[of, expected] : cases) {
    EXPECT_EQ(cuts_of(of).back().kind, TokenKind::kError) << of;
    EXPECT_EQ(position(), expected) << of;
    EXPECT_EQ(status(), JT_SYNTAX_ERROR) << of;
  }
}

TEST_F(Lexer, ReportsEachErrorOnce) {
  EXPECT_EQ(cuts_of("a b \"c"),
            (Cuts{{TokenKind::kWord, "a"}, {TokenKind::kWord, "b"}, {TokenKind::kError, ""}}));
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: unexpected EOF at -->c ..."});
}

TEST_F(Lexer, ReportsNothingElse) {
  cuts_of("[ service \"a b\" ] # comment\n end \\n || end");
  EXPECT_TRUE(messages().empty());
}

TEST_F(Lexer, RestoredTokenIsReadAgain) {
  read_from(" a [ \"b c\" #d\n || end");
  for (const Cut &expected : Cuts{{TokenKind::kWord, "a"},
                                  {TokenKind::kOpenBracket, "["},
                                  {TokenKind::kString, "b c"},
                                  {TokenKind::kComment, "#d\n"},
                                  {TokenKind::kDoubleBar, "||"},
                                  {TokenKind::kEnd, "end"},
                                  kEndOfText}) {
    EXPECT_EQ(next(), expected);
    jt_core::restore_token(cursor);
    EXPECT_EQ(next(), expected);
  }
}

TEST_F(Lexer, RestoringGoesBackToWhereTheCallBegan) {
  read_from("a   b");
  next();
  const std::size_t before = position();
  next();
  jt_core::restore_token(cursor);
  EXPECT_EQ(position(), before);
}

TEST_F(Lexer, RestoringTwiceIsRestoringOnce) {
  read_from("a b");
  next();
  next();
  jt_core::restore_token(cursor);
  jt_core::restore_token(cursor);
  EXPECT_EQ(next(), (Cut{TokenKind::kWord, "b"}));
}

TEST_F(Lexer, LongestTokens) {
  const std::string word(2047, 'w');
  EXPECT_EQ(cuts_of(word), (Cuts{{TokenKind::kWord, word}, kEndOfText}));
  EXPECT_EQ(cuts_of(word + "w").back().kind, TokenKind::kError);
  const std::string string(1025, 's');
  EXPECT_EQ(cuts_of("\"" + string + "\""), (Cuts{{TokenKind::kString, string}, kEndOfText}));
  EXPECT_EQ(cuts_of("\"" + string + "s\"").back().kind, TokenKind::kError);
  const std::string comment = "#" + std::string(1022, 'c');
  EXPECT_EQ(cuts_of(comment), (Cuts{{TokenKind::kComment, comment + "\n"}, kEndOfText}));
  EXPECT_EQ(cuts_of(comment + "c").back().kind, TokenKind::kError);
}

TEST_F(Lexer, StandsWhereATooLongTokenBecameTooLong) {
  EXPECT_EQ(cuts_of(std::string(2048, 'w')).back().kind, TokenKind::kError);
  EXPECT_EQ(position(), 2047U);
  EXPECT_EQ(cuts_of("\"" + std::string(2000, 's')).back().kind, TokenKind::kError);
  EXPECT_EQ(position(), 1027U);
}

TEST_F(Lexer, StringWithEscapesBehindItMayReachTheLengthOfAWord) {
  std::string escapes;
  for (int i = 0; i < 1022; ++i) escapes += "\\n";
  EXPECT_EQ(cuts_of("\"" + std::string(1025, 's') + "\"" + escapes),
            (Cuts{{TokenKind::kString, std::string(1025, 's') + std::string(1022, '\n')}, kEndOfText}));
  EXPECT_EQ(cuts_of("\"" + std::string(1025, 's') + "\"" + escapes + "\\n").back().kind, TokenKind::kError);
}

}  // namespace
}  // namespace jt_test
