// The lexer cuts SIL text into tokens, one for each call, and can hand the last one out again. It allocates
// and, as a rule, copies nothing: the text of a token is a piece of the SIL text. Only what is not there as
// it is meant (escapes, comments) is put together in the cursor's buffer, and stays until the next call.
//
// A text ends at its NUL or, when it is read with its places, behind its last byte: the lexer is made once for
// each, so that the common way pays nothing for the other. tests/sil/lexer_test.cpp has every kind of token.
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

// Why a token is an error.
enum class LexFault : std::uint8_t {
  kUnexpectedEnd,
  kQuoteInWord,
  kWordAfterQuote,
  kTooLong,
  kCommentTooLong
};

struct SilCursor {
  const char *position;       // the next unread character
  const char *mark;           // where the last call began
  const char *begin;          // of the whole text; no report points before it
  const char *end = nullptr;  // of a text with places; null where a NUL ends it
  // The last token's, in a text with places.
  const char *token_begin = nullptr;
  const char *token_end = nullptr;
  LexFault fault{};           // of the last token that was an error
  bool has_comments = false;  // set where a comment is read in a text with places
  std::array<char, kMaxTokenText + 1> buffer;
};

// A text that ends at its NUL.
struct Terminated {
  static constexpr bool kHasPlaces = false;
  static char byte_at(const SilCursor & /*cursor*/, const char *at) { return *at; }
  static const char *end_of(const SilCursor & /*cursor*/, const char *run, const ByteSet &set) {
    return end_of_run(run, set);
  }
  static const char *behind_blanks(const SilCursor & /*cursor*/, const char *at) {
    while (class_of(*at) == ByteClass::kSpace) ++at;
    return at;
  }
};

// A text of a given length, with places. A NUL in it is read as a blank.
struct Bounded {
  static constexpr bool kHasPlaces = true;
  static char byte_at(const SilCursor &cursor, const char *at) {
    if (at == cursor.end) return '\0';
    return *at != '\0' ? *at : ' ';
  }
  static const char *end_of(const SilCursor &cursor, const char *run, const ByteSet &set) {
    return end_of_run(run, cursor.end, set);
  }
  static const char *behind_blanks(const SilCursor &cursor, const char *at) {
    return end_of_run(at, cursor.end, kBlankBytes);
  }
};

// Makes the next call read the last token again.
void restore_token(SilCursor &cursor);

// The text from a place on, and from so many characters before the current position, as far as a report shows
// it.
std::string_view text_from(const SilCursor &cursor, const char *at);
std::string_view text_before(const SilCursor &cursor, std::size_t characters);

// ---- The way of most tokens ----
//
// It stands here so that the loop over the tokens takes it in: in a static library, whose functions anyone
// may call, a large function with one caller is not inlined otherwise.

// A comment, at its "#".
template <typename Text>
Token read_comment(jt_parser_space *space, SilCursor &cursor);

// A word with escapes, or one that is not well formed, at its first byte.
template <typename Text>
Token read_word_slow(jt_parser_space *space, SilCursor &cursor);

// Whether what follows a run belongs to the same word, which only the slow path can tell.
inline bool needs_slow_path(ByteClass next) { return next >= ByteClass::kWord && next <= ByteClass::kQuote; }

// One white space behind a word goes with it.
template <typename Text>
void pass(SilCursor &cursor, const char *end, ByteClass next) {
  if constexpr (Text::kHasPlaces) cursor.token_end = end;
  cursor.position = end + (next == ByteClass::kSpace ? 1 : 0);
}

template <typename Text>
ByteClass class_at(const SilCursor &cursor, const char *at) {
  return class_of(Text::byte_at(cursor, at));
}

template <typename Text>
Token read_word(jt_parser_space *space, SilCursor &cursor) {
  const char *const begin = cursor.position;
  const char *const end = Text::end_of(cursor, begin, kWordBytes);
  const std::string_view text(begin, static_cast<std::size_t>(end - begin));
  const ByteClass next = class_at<Text>(cursor, end);
  if (needs_slow_path(next) || text.size() > kMaxTokenText) return read_word_slow<Text>(space, cursor);
  pass<Text>(cursor, end, next);
  return {same_name(text, "end") ? TokenKind::kEnd : TokenKind::kWord, text};
}

template <typename Text>
Token read_string(jt_parser_space *space, SilCursor &cursor) {
  const char *const begin = cursor.position + 1;
  const char *const end = Text::end_of(cursor, begin, kQuotedBytes);
  const std::string_view text(begin, static_cast<std::size_t>(end - begin));
  if (Text::byte_at(cursor, end) != '"' || text.size() > kMaxQuoted) {
    return read_word_slow<Text>(space, cursor);
  }
  const ByteClass next = class_at<Text>(cursor, end + 1);
  if (needs_slow_path(next)) return read_word_slow<Text>(space, cursor);
  pass<Text>(cursor, end + 1, next);
  return {TokenKind::kString, text};
}

template <typename Text>
Token read_punctuation(SilCursor &cursor, ByteClass which) {
  const char *const begin = cursor.position;
  if (begin[0] == '|' && Text::byte_at(cursor, begin + 1) == '|') {
    pass<Text>(cursor, begin + 2, ByteClass::kWord);
    return {TokenKind::kDoubleBar, {begin, 2}};
  }
  pass<Text>(cursor, begin + 1, ByteClass::kWord);
  return {static_cast<TokenKind>(which), {begin, 1}};
}

// The next token; an error has been reported.
template <typename Text = Terminated>
Token next_token(jt_parser_space *space, SilCursor &cursor) {
  cursor.mark = cursor.position;
  const char *const begin = Text::behind_blanks(cursor, cursor.position);
  cursor.position = begin;
  if constexpr (Text::kHasPlaces) cursor.token_begin = cursor.token_end = begin;
  const ByteClass first = class_at<Text>(cursor, begin);
  if (first == ByteClass::kWord) return read_word<Text>(space, cursor);
  if (first < ByteClass::kWord) return read_punctuation<Text>(cursor, first);
  if (first == ByteClass::kQuote) return read_string<Text>(space, cursor);
  if (first == ByteClass::kBackslash) return read_word_slow<Text>(space, cursor);
  if (first == ByteClass::kHash) return read_comment<Text>(space, cursor);
  return {TokenKind::kEndOfText, {}};
}

// The same of a text with places, for looking ahead: nothing is reported.
Token look_at_token(SilCursor &cursor);

}  // namespace jt_core

#endif
