// The lexer cuts SIL text into tokens, one for each call, and can hand the last one out again. It allocates
// and, as a rule, copies nothing: the text of a token is a piece of the SIL text. Only what is not there as
// it is meant (escapes, comments) is put together in the cursor's buffer, and stays until the next call.
// tests/sil/lexer_test.cpp has every kind of token.
#ifndef JT_SIL_LEXER_H
#define JT_SIL_LEXER_H

#include <array>
#include <cstdint>
#include <string_view>

#include "base/text.h"
#include "jt.h"
#include "sil/alphabet.h"

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

// The longest text of a token, and the lower limit in quotes: more characters are refused.
constexpr std::size_t kMaxTokenText = 2047;
constexpr std::size_t kMaxQuoted = JT_MAX_TOKEN_LENGTH + 1;

// Lengths that a text may not exceed, a comment's with its "#".
constexpr std::size_t kMaxName = JT_MAX_TOKEN_LENGTH - 1;
constexpr std::size_t kMaxComment = JT_MAX_TOKEN_LENGTH - 1;

constexpr bool ends_comment(char c) { return c == '\0' || (c >= '\n' && c <= '\r'); }

struct SilCursor {
  const char *position;  // the next unread character
  const char *mark;      // where the last call began
  const char *begin;     // of the whole text; no report points before it
  std::array<char, kMaxTokenText + 1> buffer;
};

// Makes the next call read the last token again.
void restore_token(SilCursor &cursor);

// The text of the last token, terminated, where the caller may write into it until the next call.
char *writable_text(SilCursor &cursor, const Token &token);

// The text so many characters before the current position, for the detail of a report.
const char *text_before(const SilCursor &cursor, std::size_t characters);

// ---- The way of most tokens ----
//
// It stands here so that the loop over the tokens takes it in: in a static library, whose functions anyone
// may call, a large function with one caller is not inlined otherwise.

// A comment, at its "#".
Token read_comment(jt_parser_space *space, SilCursor &cursor);

// A word with escapes, or one that is not well formed, at its first byte.
Token read_word_slow(jt_parser_space *space, SilCursor &cursor);

// Whether what follows a run belongs to the same word, which only the slow path can tell.
inline bool needs_slow_path(ByteClass next) { return next >= ByteClass::kWord && next <= ByteClass::kQuote; }

// One white space behind a word goes with it.
inline void pass(SilCursor &cursor, const char *end, ByteClass next) {
  cursor.position = end + (next == ByteClass::kSpace ? 1 : 0);
}

inline Token read_word(jt_parser_space *space, SilCursor &cursor) {
  const char *const begin = cursor.position;
  const char *const end = end_of_run(begin, kWordBytes);
  const std::string_view text(begin, static_cast<std::size_t>(end - begin));
  const ByteClass next = class_of(*end);
  if (needs_slow_path(next) || text.size() > kMaxTokenText) return read_word_slow(space, cursor);
  pass(cursor, end, next);
  return {same_name(text, "end") ? TokenKind::kEnd : TokenKind::kWord, text};
}

inline Token read_string(jt_parser_space *space, SilCursor &cursor) {
  const char *const begin = cursor.position + 1;
  const char *const end = end_of_run(begin, kQuotedBytes);
  const std::string_view text(begin, static_cast<std::size_t>(end - begin));
  if (*end != '"' || text.size() > kMaxQuoted) return read_word_slow(space, cursor);
  const ByteClass next = class_of(end[1]);
  if (needs_slow_path(next)) return read_word_slow(space, cursor);
  pass(cursor, end + 1, next);
  return {TokenKind::kString, text};
}

inline Token read_punctuation(SilCursor &cursor, ByteClass which) {
  const char *const begin = cursor.position;
  if (begin[0] == '|' && begin[1] == '|') {
    cursor.position = begin + 2;
    return {TokenKind::kDoubleBar, {begin, 2}};
  }
  cursor.position = begin + 1;
  return {static_cast<TokenKind>(which), {begin, 1}};
}

// The next token; an error has been reported.
inline Token next_token(jt_parser_space *space, SilCursor &cursor) {
  cursor.mark = cursor.position;
  const char *begin = cursor.position;
  while (class_of(*begin) == ByteClass::kSpace) ++begin;
  cursor.position = begin;
  const ByteClass first = class_of(*begin);
  if (first == ByteClass::kWord) return read_word(space, cursor);
  if (first < ByteClass::kWord) return read_punctuation(cursor, first);
  if (first == ByteClass::kQuote) return read_string(space, cursor);
  if (first == ByteClass::kBackslash) return read_word_slow(space, cursor);
  if (first == ByteClass::kHash) return read_comment(space, cursor);
  return {TokenKind::kEndOfText, {}};
}

}  // namespace jt_core

#endif
