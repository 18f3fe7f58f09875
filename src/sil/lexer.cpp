#include "sil/lexer.h"

#include <algorithm>
#include <cstring>

#include "base/error_store.h"
#include "base/text.h"
#include "sil/byte_set.h"

namespace jt_core {
namespace {

// More characters than this in quotes are refused.
constexpr std::size_t kMostQuoted = JT_MAX_TOKEN_LENGTH + 1;
constexpr std::size_t kMostComment = JT_MAX_TOKEN_LENGTH - 1;

constexpr std::string_view kPunctuation = "[]{}()<>=,;*!$%&^?|";  // in the order of the token kinds
static_assert(kPunctuation.size() == static_cast<std::size_t>(TokenKind::kBar) + 1);

// Backspace counts as white space.
constexpr std::string_view kSpaces = "\b\t\n\v\f\r ";

// What a byte is outside of quotes. A smaller number is that of the punctuation's token.
enum class ByteClass : std::uint8_t {
  kWord = kPunctuation.size(),
  kBackslash,
  kQuote,
  kSpace,
  kHash,
  kEndOfText
};

constexpr std::array<ByteClass, 256> classify_bytes() {
  std::array<ByteClass, 256> classes{};
  const auto at = [&classes](char c) -> ByteClass & { return classes[static_cast<unsigned char>(c)]; };
  classes.fill(ByteClass::kWord);
  for (const char c : kSpaces) at(c) = ByteClass::kSpace;
  for (std::size_t i = 0; i < kPunctuation.size(); ++i) at(kPunctuation[i]) = static_cast<ByteClass>(i);
  at('\0') = ByteClass::kEndOfText;
  at('#') = ByteClass::kHash;
  at('\\') = ByteClass::kBackslash;
  at('"') = ByteClass::kQuote;
  return classes;
}

constexpr std::array<ByteClass, 256> kClasses = classify_bytes();

ByteClass class_at(const char *position) { return kClasses[static_cast<unsigned char>(*position)]; }

constexpr ByteSet word_bytes() {
  ByteSet set{};
  for (std::size_t i = 0; i < set.size(); ++i) set[i] = kClasses[i] == ByteClass::kWord;
  return set;
}

constexpr ByteSet kWordBytes = word_bytes();
constexpr ByteSet kPlainInQuotes = all_but("\"\\");

// Behind the white space, which is mostly blanks.
const char *end_of_spaces(const char *at) {
  while (class_at(at) == ByteClass::kSpace) {
    ++at;
    while (at[0] == ' ' && at[1] == ' ') at += 2;
  }
  return at;
}

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
          if (!read_escape()) return kErrorToken;
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
    return copy_run(end_of_run(cursor_.position, kWordBytes), kMostTokenText);
  }

  // Bytes that stand for themselves, up to the length that the text may have.
  bool copy_run(const char *end, std::size_t most) {
    const auto found = static_cast<std::size_t>(end - cursor_.position);
    const std::size_t taken = std::min(found, most - length_);
    std::memcpy(cursor_.buffer.data() + length_, cursor_.position, taken);
    length_ += taken;
    cursor_.position += taken;
    return taken == found || fail(message::kTokenTooLong);
  }

  bool append(char c) {
    if (length_ == kMostTokenText) return fail(message::kTokenTooLong);
    cursor_.buffer[length_++] = c;
    return true;
  }

  bool read_escape() {
    ++cursor_.position;
    if (*cursor_.position == '\0') return fail(message::kUnexpectedEnd);
    return append(unescape(*cursor_.position++));
  }

  // In quotes the character that is one too many has been collected when it is refused.
  bool read_quoted() {
    if (length_ > 0 || quoted_) return fail(message::kQuoteInWord);
    quoted_ = true;
    ++cursor_.position;
    while (*cursor_.position != '"') {
      if (*cursor_.position == '\0') return fail(message::kUnexpectedEnd);
      const bool read = *cursor_.position == '\\'
                            ? read_escape()
                            : copy_run(end_of_run(cursor_.position, kPlainInQuotes), kMostQuoted + 1);
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
};

bool ends_comment(char c) { return c == '\0' || (c >= '\n' && c <= '\r'); }

[[gnu::noinline]] Token read_comment(jt_parser_space *space, SilCursor &cursor) {
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

[[gnu::noinline]] Token read_carefully(jt_parser_space *space, SilCursor &cursor) {
  return WordReader(space, cursor).read();
}

// The reader leaves a word to the careful one when it goes on like this.
bool goes_on(ByteClass next) { return next >= ByteClass::kWord && next <= ByteClass::kQuote; }

// One white space behind a word goes with it.
void pass(SilCursor &cursor, const char *end, ByteClass next) {
  cursor.position = end + (next == ByteClass::kSpace ? 1 : 0);
}

// Kept out of the machines' loop: inside it the bytes of a run would cost more.
[[gnu::noinline]] Token read_word(jt_parser_space *space, SilCursor &cursor) {
  const char *const begin = cursor.position;
  const char *const end = end_of_run(begin, kWordBytes);
  const std::string_view text(begin, static_cast<std::size_t>(end - begin));
  const ByteClass next = class_at(end);
  if (goes_on(next) || text.size() > kMostTokenText) return read_carefully(space, cursor);
  pass(cursor, end, next);
  return {same_name(text, "end") ? TokenKind::kEnd : TokenKind::kWord, text};
}

[[gnu::noinline]] Token read_string(jt_parser_space *space, SilCursor &cursor) {
  const char *const begin = cursor.position + 1;
  const char *const end = end_of_run(begin, kPlainInQuotes);
  const std::string_view text(begin, static_cast<std::size_t>(end - begin));
  if (*end != '"' || text.size() > kMostQuoted) return read_carefully(space, cursor);
  const ByteClass next = class_at(end + 1);
  if (goes_on(next)) return read_carefully(space, cursor);
  pass(cursor, end + 1, next);
  return {TokenKind::kString, text};
}

Token read_punctuation(SilCursor &cursor, ByteClass which) {
  const char *const begin = cursor.position;
  if (begin[0] == '|' && begin[1] == '|') {
    cursor.position = begin + 2;
    return {TokenKind::kDoubleBar, {begin, 2}};
  }
  cursor.position = begin + 1;
  return {static_cast<TokenKind>(which), {begin, 1}};
}

}  // namespace

Token next_token(jt_parser_space *space, SilCursor &cursor) {
  const char *begin = cursor.position;
  cursor.mark = begin;
  begin = end_of_spaces(begin);
  cursor.position = begin;
  const ByteClass first = class_at(begin);
  if (first == ByteClass::kWord) return read_word(space, cursor);
  if (first < ByteClass::kWord) return read_punctuation(cursor, first);
  if (first == ByteClass::kQuote) return read_string(space, cursor);
  if (first == ByteClass::kBackslash) return read_carefully(space, cursor);
  if (first == ByteClass::kHash) return read_comment(space, cursor);
  return {TokenKind::kEndOfText, {}};
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

}  // namespace jt_core
