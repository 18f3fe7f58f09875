// The lexer cuts SIL text into tokens, one for each call, and can hand the last one out again. It allocates
// and, as a rule, copies nothing: the text of a token is a piece of the SIL text. Only what is not there as
// it is meant (escapes, comments) is put together in the cursor's buffer, and stays until the next call.
// tests/sil/lexer_test.cpp has every kind of token.
#ifndef JT_SIL_LEXER_H
#define JT_SIL_LEXER_H

#include <array>
#include <cstdint>
#include <string_view>

#include "jt.h"

namespace jt_core {

enum class TokenKind : std::uint8_t {
  kOpenBracket,
  kCloseBracket,
  kOpenBrace,
  kCloseBrace,
  kOpenParenthesis,
  kCloseParenthesis,
  kLess,
  kGreater,
  kEquals,
  kComma,
  kSemicolon,
  kAsterisk,
  kExclamation,
  kDollar,
  kPercent,
  kAmpersand,
  kCaret,
  kQuestion,
  kBar,
  kDoubleBar,
  kWord,
  kString,     // a word that was quoted or holds an escape
  kComment,    // from "#" to the end of the line, with a line feed behind it
  kEnd,        // the bare word "end"
  kEndOfText,  // its text is empty
  kError       // has been reported
};

struct Token {
  TokenKind kind;
  std::string_view text;  // not terminated; that of a kWord lies in the SIL text
};

// The longest text of a token. In quotes the limit is lower: see kMaxQuoted in lexer.cpp.
constexpr std::size_t kMaxTokenText = 2047;

struct SilCursor {
  const char *position;  // the next unread character
  const char *mark;      // where the last call began
  const char *begin;     // of the whole text; no report points before it
  std::array<char, kMaxTokenText + 1> buffer;
};

// The next token; an error has been reported.
Token next_token(jt_parser_space *space, SilCursor &cursor);

// Makes the next call read the last token again.
void restore_token(SilCursor &cursor);

// The text of the last token, terminated, where the caller may write into it until the next call.
char *writable_text(SilCursor &cursor, const Token &token);

// The text so many characters before the current position, for the detail of a report.
const char *text_before(const SilCursor &cursor, std::size_t characters);

}  // namespace jt_core

#endif
