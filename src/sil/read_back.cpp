#include "sil/read_back.h"

namespace jt_core {

TokenKind kind_written(std::string_view text) {
  if (text.empty()) return TokenKind::kEndOfText;
  if (text.size() == 2 && text[0] == '|' && text[1] == '|') return TokenKind::kDoubleBar;
  const ByteClass first = class_of(text.front());
  if (first < ByteClass::kWord && text.size() == 1) return static_cast<TokenKind>(first);
  const char *const end = text.data() + text.size();
  if (text.size() > kMaxTokenText || end_of_run(text.data(), end, kWordBytes) != end)
    return TokenKind::kError;
  return same_name(text, "end") ? TokenKind::kEnd : TokenKind::kWord;
}

bool is_name(std::string_view text) { return text.size() <= kMaxName && is_header_word(text); }

bool is_header_word(std::string_view text) { return kind_written(text) == TokenKind::kWord; }

bool is_comment(std::string_view text) {
  while (!text.empty()) {
    std::size_t length = 0;
    while (length < text.size() && !ends_comment(text[length])) ++length;
    if (text.front() != '#' || length > kMaxComment || length == text.size() || text[length] != '\n')
      return false;
    text.remove_prefix(length + 1);
  }
  return true;
}

}  // namespace jt_core
