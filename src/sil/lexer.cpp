#include "sil/lexer.h"

#include <algorithm>
#include <cstring>

#include "foundation/error_store.h"
#include "foundation/text.h"

namespace jt {
namespace {

// More characters than this in quotes are refused.
constexpr std::size_t kMostQuoted = JT_MAX_TOKEN_LENGTH + 1;
constexpr std::size_t kMostComment = JT_MAX_TOKEN_LENGTH - 1;

enum class ByteClass : std::uint8_t { kWord, kEndOfText, kSpace, kPunctuation, kHash, kBackslash, kQuote };

struct Byte {
  ByteClass byte_class = ByteClass::kWord;
  TokenKind punctuation = TokenKind::kError;
};

constexpr std::string_view kPunctuation = "[]{}()<>=,;*!$%&^?|";  // in the order of the token kinds
static_assert(kPunctuation.size() == static_cast<std::size_t>(TokenKind::kBar) + 1);

// Backspace counts as white space.
constexpr std::string_view kSpaces = "\b\t\n\v\f\r ";

constexpr std::array<Byte, 256> classify_bytes() {
  std::array<Byte, 256> bytes{};
  const auto at = [&bytes](char c) -> Byte & { return bytes[static_cast<unsigned char>(c)]; };
  for (const char c : kSpaces) at(c).byte_class = ByteClass::kSpace;
  for (std::size_t i = 0; i < kPunctuation.size(); ++i) {
    at(kPunctuation[i]) = {ByteClass::kPunctuation, static_cast<TokenKind>(i)};
  }
  at('\0').byte_class = ByteClass::kEndOfText;
  at('#').byte_class = ByteClass::kHash;
  at('\\').byte_class = ByteClass::kBackslash;
  at('"').byte_class = ByteClass::kQuote;
  return bytes;
}

constexpr std::array<Byte, 256> kBytes = classify_bytes();

const Byte &byte_at(const char *position) { return kBytes[static_cast<unsigned char>(*position)]; }
ByteClass class_at(const char *position) { return byte_at(position).byte_class; }

constexpr Token kErrorToken = {TokenKind::kError, {}};

struct Escape {
  char letter;
  char meaning;
};

constexpr std::array<Escape, 6> kEscapes = {
    {{'b', '\b'}, {'f', '\f'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'}, {'v', '\v'}}};

char unescape(char letter) {
  for (const Escape &escape : kEscapes) {
    if (escape.letter == letter) return escape.meaning;
  }
  return letter;
}

// A word with escapes, or one that is not well formed, under construction.
class WordReader {
 public:
  WordReader(jt_parser_space *space, SilCursor &cursor) : space_(space), cursor_(cursor) {}

  Token read() {
    for (;;) {
      switch (class_at(cursor_.position)) {
        case ByteClass::kWord:
          if (!read_run()) return kErrorToken;
          break;
        case ByteClass::kBackslash:
          if (!read_escape(kMostTokenText)) return kErrorToken;
          escaped_ = true;
          break;
        case ByteClass::kQuote:
          if (!read_quoted()) return kErrorToken;
          break;
        case ByteClass::kSpace:
          ++cursor_.position;
          return finish();
        default:
          return finish();
      }
    }
  }

 private:
  bool fail(const char *message, const char *detail) {
    jt_error(space_, message, detail);
    return false;
  }

  // The report of most errors shows the text from the beginning of the token on.
  bool fail(const char *message) { return fail(message, text_before(cursor_, length_)); }

  bool read_run() {
    if (quoted_) return fail(message::kWordAfterQuote, text_before(cursor_, 1));
    const char *end = cursor_.position + 1;
    while (class_at(end) == ByteClass::kWord) ++end;
    const auto found = static_cast<std::size_t>(end - cursor_.position);
    const std::size_t taken = std::min(found, kMostTokenText - length_);
    std::memcpy(cursor_.buffer.data() + length_, cursor_.position, taken);
    length_ += taken;
    cursor_.position += taken;
    return taken == found || fail(message::kTokenTooLong);
  }

  bool append(char c, std::size_t most) {
    if (length_ == most) return fail(message::kTokenTooLong);
    cursor_.buffer[length_++] = c;
    return true;
  }

  bool read_escape(std::size_t most) {
    ++cursor_.position;
    if (*cursor_.position == '\0') return fail(message::kUnexpectedEnd);
    return append(unescape(*cursor_.position++), most);
  }

  // In quotes the character that is one too many has been collected when it is refused.
  bool read_quoted() {
    if (length_ > 0 || quoted_ || escaped_) return fail(message::kQuoteInWord);
    quoted_ = true;
    ++cursor_.position;
    while (*cursor_.position != '"') {
      if (*cursor_.position == '\0') return fail(message::kUnexpectedEnd);
      const bool read = *cursor_.position == '\\' ? read_escape(kMostTokenText)
                                                  : append(*cursor_.position++, kMostTokenText);
      if (!read) return false;
      if (length_ > kMostQuoted) return fail(message::kTokenTooLong);
    }
    ++cursor_.position;
    return true;
  }

  Token finish() {
    const std::string_view text(cursor_.buffer.data(), length_);
    return {TokenKind::kString, text};
  }

  jt_parser_space *space_;
  SilCursor &cursor_;
  std::size_t length_ = 0;
  bool quoted_ = false;
  bool escaped_ = false;
};

bool ends_comment(char c) { return c == '\0' || (c >= '\n' && c <= '\r'); }

Token read_comment(jt_parser_space *space, SilCursor &cursor) {
  std::size_t length = 0;
  for (; !ends_comment(*cursor.position); ++cursor.position) {
    if (length == kMostComment) {
      jt_error(space, message::kCommentTooLong, text_before(cursor, length));
      return kErrorToken;
    }
    cursor.buffer[length++] = *cursor.position;
  }
  cursor.buffer[length++] = '\n';
  return {TokenKind::kComment, {cursor.buffer.data(), length}};
}

Token read_punctuation(SilCursor &cursor) {
  const char *const begin = cursor.position;
  const bool doubled = begin[0] == '|' && begin[1] == '|';
  const std::size_t length = doubled ? 2 : 1;
  cursor.position += length;
  return {doubled ? TokenKind::kDoubleBar : byte_at(begin).punctuation, {begin, length}};
}

// A token that stands in the SIL text as it is meant. One white space behind it goes with it.
Token finish_plain(SilCursor &cursor, const char *end, TokenKind kind, std::string_view text) {
  cursor.position = class_at(end) == ByteClass::kSpace ? end + 1 : end;
  return {kind, text};
}

bool goes_on(const char *end) {
  const ByteClass next = class_at(end);
  return next == ByteClass::kWord || next == ByteClass::kBackslash || next == ByteClass::kQuote;
}

// A word or a quoted string; what it is not sure about is left to the careful reader.
Token read_word(jt_parser_space *space, SilCursor &cursor) {
  const char *end = cursor.position;
  while (class_at(end) == ByteClass::kWord) ++end;
  const std::string_view text(cursor.position, static_cast<std::size_t>(end - cursor.position));
  if (goes_on(end) || text.size() > kMostTokenText) return WordReader(space, cursor).read();
  return finish_plain(cursor, end, same_name(text, "end") ? TokenKind::kEnd : TokenKind::kWord, text);
}

bool ends_plain_string(char c) { return c == '"' || c == '\\' || c == '\0'; }

Token read_string(jt_parser_space *space, SilCursor &cursor) {
  const char *const begin = cursor.position + 1;
  const char *end = begin;
  while (!ends_plain_string(*end)) ++end;
  const std::string_view text(begin, static_cast<std::size_t>(end - begin));
  if (*end != '"' || goes_on(end + 1) || text.size() > kMostQuoted) return WordReader(space, cursor).read();
  return finish_plain(cursor, end + 1, TokenKind::kString, text);
}

}  // namespace

Token next_token(jt_parser_space *space, SilCursor &cursor) {
  cursor.mark = cursor.position;
  while (class_at(cursor.position) == ByteClass::kSpace) ++cursor.position;
  switch (class_at(cursor.position)) {
    case ByteClass::kEndOfText:
      return {TokenKind::kEndOfText, {}};
    case ByteClass::kPunctuation:
      return read_punctuation(cursor);
    case ByteClass::kHash:
      return read_comment(space, cursor);
    case ByteClass::kQuote:
      return read_string(space, cursor);
    default:
      return read_word(space, cursor);
  }
}

void restore_token(SilCursor &cursor) { cursor.position = cursor.mark; }

char *writable_text(SilCursor &cursor, const Token &token) {
  std::memmove(cursor.buffer.data(), token.text.data(), token.text.size());
  cursor.buffer[token.text.size()] = '\0';
  return cursor.buffer.data();
}

const char *text_before(const SilCursor &cursor, std::size_t characters) {
  const auto read = static_cast<std::size_t>(cursor.position - cursor.begin);
  return cursor.position - std::min(read, characters);
}

}  // namespace jt
