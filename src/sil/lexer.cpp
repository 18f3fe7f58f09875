#include "sil/lexer.h"

#include <algorithm>
#include <cstring>

#include "base/error_store.h"

namespace jt_core {
namespace {

static_assert(kPunctuationBytes.size() == static_cast<std::size_t>(TokenKind::kBar) + 1);

constexpr Token kErrorToken = {TokenKind::kError, {}};

// In the order of LexFault.
constexpr const char *kFaultMessages[] = {message::kUnexpectedEnd, message::kQuoteInWord,
                                          message::kWordAfterQuote, message::kTokenTooLong,
                                          message::kCommentTooLong};

void report_fault(jt_parser_space *space, SilCursor &cursor, LexFault fault, std::string_view detail) {
  cursor.fault = fault;
  report(space, kFaultMessages[static_cast<std::size_t>(fault)], detail);
}

char unescape(char letter) {
  for (const Escape &escape : kEscapes) {
    if (escape.letter == letter) return escape.meaning;
  }
  return letter;
}

// A word with escapes, or one that is not well formed, under construction.
template <typename Text>
class WordReader {
 public:
  WordReader(jt_parser_space *space, SilCursor &cursor) : space_(space), cursor_(cursor) {}

  Token read() {
    for (;;) {
      switch (class_at<Text>(cursor_, cursor_.position)) {
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
          return finish(ByteClass::kSpace);
        default:
          return finish(ByteClass::kEndOfText);
      }
    }
  }

 private:
  bool fail(LexFault fault, std::string_view detail) {
    report_fault(space_, cursor_, fault, detail);
    return false;
  }

  // The report of most errors shows the text from the beginning of the token on.
  bool fail(LexFault fault) { return fail(fault, text_before(cursor_, length_)); }

  char next() const { return Text::byte_at(cursor_, cursor_.position); }

  bool read_run() {
    if (quoted_) return fail(LexFault::kWordAfterQuote, text_before(cursor_, 1));
    return copy_run(Text::end_of(cursor_, cursor_.position, kWordBytes), kMaxTokenText);
  }

  // Bytes that stand for themselves, up to the length that the text may have.
  bool copy_run(const char *end, std::size_t most) {
    const auto found = static_cast<std::size_t>(end - cursor_.position);
    const std::size_t taken = std::min(found, most - length_);
    std::memcpy(cursor_.buffer.data() + length_, cursor_.position, taken);
    length_ += taken;
    cursor_.position += taken;
    return taken == found || fail(LexFault::kTooLong);
  }

  bool append(char c) {
    if (length_ == kMaxTokenText) return fail(LexFault::kTooLong);
    cursor_.buffer[length_++] = c;
    return true;
  }

  bool read_escape() {
    ++cursor_.position;
    const char letter = next();
    if (letter == '\0') return fail(LexFault::kUnexpectedEnd);
    ++cursor_.position;
    return append(unescape(letter));
  }

  // In quotes the character that is one too many has been collected when it is refused.
  bool read_quoted() {
    if (length_ > 0 || quoted_) return fail(LexFault::kQuoteInWord);
    quoted_ = true;
    ++cursor_.position;
    while (next() != '"') {
      if (!read_part_of_quoted()) return false;
      if (length_ > kMaxQuoted) return fail(LexFault::kTooLong);
    }
    ++cursor_.position;
    return true;
  }

  bool read_part_of_quoted() {
    const char *const end = Text::end_of(cursor_, cursor_.position, kQuotedBytes);
    if (end != cursor_.position) return copy_run(end, kMaxQuoted + 1);
    if (next() == '\0') return fail(LexFault::kUnexpectedEnd);
    if (next() == '\\') return read_escape();
    ++cursor_.position;
    return append(' ');
  }

  Token finish(ByteClass next) {
    pass<Text>(cursor_, cursor_.position, next);
    return {TokenKind::kString, {cursor_.buffer.data(), length_}};
  }

  jt_parser_space *space_;
  SilCursor &cursor_;
  std::size_t length_ = 0;
  bool quoted_ = false;
};

}  // namespace

template <typename Text>
Token read_comment(jt_parser_space *space, SilCursor &cursor) {
  std::size_t length = 0;
  for (char c = *cursor.position; !ends_comment(c); c = Text::byte_at(cursor, ++cursor.position)) {
    if (length == kMaxComment) {
      report_fault(space, cursor, LexFault::kCommentTooLong, text_before(cursor, length));
      return kErrorToken;
    }
    cursor.buffer[length++] = c;
  }
  if constexpr (Text::kHasPlaces) {
    cursor.token_end = cursor.position;
    cursor.has_comments = true;
  }
  cursor.buffer[length++] = '\n';
  return {TokenKind::kComment, {cursor.buffer.data(), length}};
}

template <typename Text>
Token read_word_slow(jt_parser_space *space, SilCursor &cursor) {
  return WordReader<Text>(space, cursor).read();
}

template Token read_comment<Terminated>(jt_parser_space *space, SilCursor &cursor);
template Token read_comment<Bounded>(jt_parser_space *space, SilCursor &cursor);
template Token read_word_slow<Terminated>(jt_parser_space *space, SilCursor &cursor);
template Token read_word_slow<Bounded>(jt_parser_space *space, SilCursor &cursor);

Token look_at_token(SilCursor &cursor) { return next_token<Bounded>(nullptr, cursor); }

void restore_token(SilCursor &cursor) { cursor.position = cursor.mark; }

std::string_view text_from(const SilCursor &cursor, const char *at) {
  if (cursor.end == nullptr) return beginning_of(at);
  constexpr std::size_t kMost = JT_MESSAGE_SIZE;
  return {at, std::min(static_cast<std::size_t>(cursor.end - at), kMost)};
}

std::string_view text_before(const SilCursor &cursor, std::size_t characters) {
  const auto read = static_cast<std::size_t>(cursor.position - cursor.begin);
  return text_from(cursor, cursor.position - std::min(read, characters));
}

}  // namespace jt_core
