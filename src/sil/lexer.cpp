#include "sil/lexer.h"

#include <algorithm>
#include <cstring>

#include "base/error_store.h"

namespace jt_core {
namespace {

static_assert(kPunctuationBytes.size() == static_cast<std::size_t>(TokenKind::kBar) + 1);

constexpr Token kErrorToken = {TokenKind::kError, {}};

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
      switch (class_of(*cursor_.position)) {
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
    return copy_run(end_of_run(cursor_.position, kWordBytes), kMaxTokenText);
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
    if (length_ == kMaxTokenText) return fail(message::kTokenTooLong);
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
                            : copy_run(end_of_run(cursor_.position, kQuotedBytes), kMaxQuoted + 1);
      if (!read) return false;
      if (length_ > kMaxQuoted) return fail(message::kTokenTooLong);
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

}  // namespace

Token read_comment(jt_parser_space *space, SilCursor &cursor) {
  std::size_t length = 0;
  for (; !ends_comment(*cursor.position); ++cursor.position) {
    if (length == kMaxComment) {
      jt_error(space, message::kCommentTooLong, text_before(cursor, length));
      return kErrorToken;
    }
    cursor.buffer[length++] = *cursor.position;
  }
  cursor.buffer[length++] = '\n';
  return {TokenKind::kComment, {cursor.buffer.data(), length}};
}

Token read_word_slow(jt_parser_space *space, SilCursor &cursor) { return WordReader(space, cursor).read(); }

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
