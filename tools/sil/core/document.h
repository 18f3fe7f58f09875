// A text with everything that the library tells of it: tokens with their parts, elements as a tree over them, what
// was found. Nothing is lost: tokens and what is between them make the text. Proved by
// tests/sil_command/document_test.cpp.
#ifndef SIL_CORE_DOCUMENT_H
#define SIL_CORE_DOCUMENT_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jt.h"

namespace sil {

/// No element. Numbers of tokens and elements are shorter than offsets, since there are so many.
inline constexpr std::uint32_t kNowhere = ~0U;

struct SourceToken {
  jt_range range{};
  std::int32_t role = 0;             // JT_ROLE_...
  std::uint32_t element = kNowhere;  // the innermost one that it stands in

  bool is_comment() const { return role == JT_ROLE_COMMENT; }
  bool is_in_element() const { return element != kNowhere; }
};

struct SourceElement {
  std::int32_t kind = 0;            // JT_SOURCE_...
  std::uint32_t parent = kNowhere;  // by its number
  std::uint32_t first_token = 0;
  std::uint32_t behind_last_token = 0;
  std::uint32_t behind_last_descendant = 0;  // the number of the next element that is not in this one
  jt_range range{};
};

struct SourceFinding {
  std::int32_t code = 0;      // JT_FINDING_...
  std::int32_t severity = 0;  // JT_SEVERITY_...
  jt_range range{};
  jt_range found{};
  bool found_is_end = false;
  std::string expected;
  std::uint32_t expected_roles = 0;
  std::optional<jt_range> second;
  std::int32_t candidates = 0;  // JT_CANDIDATES_...
  std::string scope;
  std::string type;
};

struct Document {
  std::string_view text;  // the caller's, who keeps it
  std::vector<SourceToken> tokens;
  std::vector<SourceElement> elements;
  std::vector<SourceFinding> findings;
  bool decodes = false;

  std::string_view piece(std::size_t begin, std::size_t end) const { return text.substr(begin, end - begin); }
  std::string_view piece(jt_range range) const { return piece(range.begin, range.end); }
  std::string_view piece(const SourceToken &token) const { return piece(token.range); }
  bool is_mark(const SourceToken &token, char mark) const {
    return token.role == JT_ROLE_PUNCTUATION && text[token.range.begin] == mark;
  }
  /// The number of the first token that begins there or behind.
  std::size_t token_from(std::size_t offset) const;
  /// Whether a comment begins in a piece of the text.
  bool has_comment_in(std::size_t begin, std::size_t end) const;
  /// What the token stands in; 0 for what is in nothing.
  std::int32_t kind_around(const SourceToken &token) const {
    return token.is_in_element() ? elements[token.element].kind : 0;
  }
  /// Whether a token stands in an element, or in one of those that it holds.
  bool has(const SourceElement &element, const SourceToken &token) const {
    return token.range.begin >= element.range.begin && token.range.end <= element.range.end;
  }
};

/// All that is told of a text: what a check of it goes on to behind errors included.
Document read_document(std::string_view text);

/// Only what is found.
std::vector<SourceFinding> find_in(std::string_view text, bool &decodes);

/// Whether anything is found that is at least so bad; cheaper than to ask what.
bool has_findings(std::string_view text, std::int32_t mildest);

/// Whether a text has these tokens, in this order and in the same parts.
bool has_same_tokens(const Document &document, std::string_view text);

/// Whether the tokens make a whole template, whatever they mean: nothing is missing and nothing is too much.
bool tokens_fit(const Document &document);

/// Where lines begin. A line ends at LF, CR LF or CR.
class Lines {
 public:
  explicit Lines(std::string_view text);

  /// Counted from 1, columns in bytes.
  struct Position {
    std::size_t line;
    std::size_t column;
  };
  Position position_of(std::size_t offset) const;
  /// A line without its end.
  std::string_view line(std::size_t number) const;
  jt_range range_of_line(std::size_t number) const;
  std::size_t count() const { return begins_.size(); }

 private:
  std::string_view text_;
  std::vector<std::size_t> begins_;
};

/// The length of the line end at an offset, 0 where none is.
inline std::size_t line_end_at(std::string_view text, std::size_t offset) {
  if (offset >= text.size() || (text[offset] != '\n' && text[offset] != '\r')) return 0;
  return text.substr(offset, 2) == "\r\n" ? 2 : 1;
}

/// How many lines end in a piece of a text.
std::size_t count_line_ends(std::string_view text);

}  // namespace sil

#endif
