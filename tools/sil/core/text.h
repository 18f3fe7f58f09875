// Texts as SIL takes them: letters folded as names are, what may stand as a bare word, quoting, and the bytes
// that JSON cannot carry. Proved by tests/sil_command/text_test.cpp.
#ifndef SIL_CORE_TEXT_H
#define SIL_CORE_TEXT_H

#include <optional>
#include <string>
#include <string_view>

namespace sil {

/// A to Z folded, as in the comparison of names.
char folded(char c);
bool same_name(std::string_view a, std::string_view b);

/// A byte that ends a word: white space, or one that is a token by itself or begins another kind.
bool ends_word(char c);

/// Whether a text, written as it is, is read as a word: neither empty, nor cut, nor the keyword.
bool is_bare_word(std::string_view text);

/// In double quotes, with SIL's escapes.
std::string quoted(std::string_view text);

/// As it is where that is read as a word, else in quotes.
std::string as_token(std::string_view text);

/// As it is where a shell leaves it alone, else in single quotes.
std::string for_shell(std::string_view text);

/// For a terminal: control characters as escapes, so that a text cannot steer it; line feeds too.
std::string printable(std::string_view text);

/// What a backslash and this letter stand for.
char unescaped(char letter);

bool is_utf8(std::string_view bytes);
std::string to_base64(std::string_view bytes);
std::optional<std::string> from_base64(std::string_view text);

/// The lines of a comment hold `#` to before the line end each; none where the text is no such lines, or one
/// is longer than the language allows.
bool is_comment(std::string_view text);

/// Calls a function with each line of a text, without its line feed.
template <typename F>
void for_each_line(std::string_view text, F &&take) {
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    take(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
}

}  // namespace sil

#endif
