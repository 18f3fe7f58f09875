// Between every two tokens is a gap. What is in it - nothing, a blank, a new line, an empty one - follows from the two
// tokens, the comments between them, and from whether the author left an empty line or put a comment behind a token.
#include "core/layout.h"

#include <algorithm>

namespace sil {
namespace {

constexpr std::size_t kInvocationIndent = 1;
constexpr std::size_t kStarIndent = 4;
constexpr std::size_t kAttributeIndent = 6;
constexpr std::size_t kValueIndent = 25;
constexpr std::size_t kFoldColumn = 70;
constexpr std::string_view kBeforeComment = "  ";

enum class Join : std::uint8_t {
  kTouch,
  kBlank,
  kTouchOrFold,  // the second token on a new line where the column is behind the last one
  kBlankOrFold,  // there without the blank
  kFoldAndBlank,
  kLine,
};

// What is between two tokens.
struct Gap {
  Join join = Join::kBlank;
  std::size_t indent = 0;          // of the second token, where it begins a line
  std::size_t comment_indent = 0;  // of comments on lines of their own
  // Of an empty line behind the first token and its comment, and of one before the second token: whether it is
  // left where it is, and whether it is put there.
  bool keeps_behind = true;
  bool keeps_before = true;
  bool wants_behind = false;
  bool wants_before = false;
};

constexpr Gap line_at(std::size_t indent, std::size_t comment_indent) {
  Gap gap;
  gap.join = Join::kLine;
  gap.indent = indent;
  gap.comment_indent = comment_indent;
  return gap;
}

// Inside of an element that is no block.
constexpr Gap joined(Join join, std::size_t indent) {
  Gap gap;
  gap.join = join;
  gap.indent = indent;
  gap.comment_indent = indent;
  return gap;
}

class Layouter {
 public:
  explicit Layouter(const Document &document) : document_(document) {
    out_.reserve(document.text.size() + document.text.size() / 2);
  }

  std::string run() {
    const std::vector<SourceToken> &tokens = document_.tokens;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
      const std::size_t first_comment = i;
      while (i < tokens.size() && tokens[i].is_comment()) ++i;
      write_gap(first_comment, i);
      if (i < tokens.size()) write(tokens[i]);
    }
    out_ += '\n';
    return std::move(out_);
  }

 private:
  // ---- What is in a gap ----

  Gap gap_between(const SourceToken *before, const SourceToken *token) const {
    Gap gap = token == nullptr ? line_at(0, 0) : gap_in_front_of(before, *token);
    if (before == nullptr) return gap;
    const bool ends_frame = is_frame(*before) && document_.is_mark(*before, '>');
    gap.wants_behind = ends_frame || ends_service(*before, token);
    if (document_.kind_around(*before) == JT_SOURCE_INVOCATION && document_.is_mark(*before, '{'))
      gap.keeps_behind = false;
    return gap;
  }

  Gap gap_in_front_of(const SourceToken *before, const SourceToken &token) const {
    switch (document_.kind_around(token)) {
      case JT_SOURCE_SERVICE:
        return gap_in_service(token);
      case JT_SOURCE_INVOCATION:
        return gap_in_invocation(token);
      case JT_SOURCE_ATTRIBUTE:
      case JT_SOURCE_VALUE:
        return gap_in_attribute(before, token);
      case JT_SOURCE_STATUS:
        return gap_in_status(before, token);
      default:
        return gap_in_frame(before, token);
    }
  }

  // `< SIL v e id >`, `<? SIL v e id >`, `< ? >`, `< /? >`, `< /SIL >`.
  Gap gap_in_frame(const SourceToken *before, const SourceToken &token) const {
    const bool is_header = document_.kind_around(token) == JT_SOURCE_HEADER;
    if (document_.is_mark(token, '<')) {
      Gap gap = line_at(0, 0);
      gap.wants_before = !is_header;
      return gap;
    }
    const bool is_form = token.role == JT_ROLE_MARKER && is_form_mark(token);
    const bool is_behind_slash =
        before != nullptr && before->role == JT_ROLE_MARKER && !is_form_mark(*before);
    return joined(is_form && (is_header || is_behind_slash) ? Join::kTouch : Join::kBlank, 0);
  }

  // `[type name]` and `end`.
  Gap gap_in_service(const SourceToken &token) const {
    if (token.role == JT_ROLE_SERVICE_TYPE) return joined(Join::kTouch, 0);
    if (token.role == JT_ROLE_SERVICE_NAME) return joined(Join::kBlank, 0);
    if (document_.is_mark(token, ']')) return joined(Join::kTouchOrFold, 0);
    return line_at(0, document_.is_mark(token, '[') ? 0 : kInvocationIndent);
  }

  // ` name{`, ` {` and ` }`.
  Gap gap_in_invocation(const SourceToken &token) const {
    if (is_first_of_element(token)) return line_at(kInvocationIndent, kInvocationIndent);
    if (!document_.is_mark(token, '}')) return joined(Join::kTouchOrFold, kInvocationIndent);
    Gap gap = line_at(kInvocationIndent, kAttributeIndent);
    gap.keeps_before = false;
    return gap;
  }

  // `* type name = v1, v2;`.
  Gap gap_in_attribute(const SourceToken *before, const SourceToken &token) const {
    if (token.role == JT_ROLE_VALUE) return joined(Join::kBlankOrFold, kValueIndent);
    if (is_first_of_element(token)) return gap_before_attribute(token);
    if (token.role != JT_ROLE_PUNCTUATION) return joined(Join::kBlank, kValueIndent);
    if (document_.is_mark(token, '=')) return joined(Join::kFoldAndBlank, kValueIndent);
    const bool is_behind_equals = before != nullptr && document_.is_mark(*before, '=');
    return joined(is_behind_equals ? Join::kBlank : Join::kTouch, kValueIndent);
  }

  Gap gap_before_attribute(const SourceToken &token) const {
    if (owner_of(token) == JT_SOURCE_HEADER) return line_at(0, 0);
    return line_at(token.role == JT_ROLE_STAR ? kStarIndent : kAttributeIndent, kAttributeIndent);
  }

  // `(name{text text})`.
  Gap gap_in_status(const SourceToken *before, const SourceToken &token) const {
    const bool is_next_text =
        token.role == JT_ROLE_STATUS_TEXT && before != nullptr && before->role == JT_ROLE_STATUS_TEXT;
    const Join join = is_next_text ? Join::kBlank : Join::kTouch;
    switch (owner_of(token)) {
      case JT_SOURCE_ATTRIBUTE:
        return joined(join, kValueIndent);
      case JT_SOURCE_INVOCATION:
        return joined(join, kInvocationIndent);
      default:
        return joined(join, 0);
    }
  }

  // ---- What tokens are ----

  bool is_first_of_element(const SourceToken &token) const {
    return document_.elements[token.element].range.begin == token.range.begin;
  }

  // Of the header's line, of a section's marks or of the end marker.
  bool is_frame(const SourceToken &token) const {
    const std::int32_t kind = document_.kind_around(token);
    return kind == 0 || kind == JT_SOURCE_HEADER || kind == JT_SOURCE_SECTION;
  }

  // Whether nothing of the service is behind the token.
  bool ends_service(const SourceToken &before, const SourceToken *token) const {
    if (!before.is_in_element()) return false;
    const SourceElement *element = &document_.elements[before.element];
    if (element->kind == JT_SOURCE_STATUS && element->parent != kNowhere)
      element = &document_.elements[element->parent];
    return element->kind == JT_SOURCE_SERVICE && (token == nullptr || !document_.has(*element, *token));
  }

  // The kind of what holds the element that the token stands in.
  std::int32_t owner_of(const SourceToken &token) const {
    const std::size_t parent = document_.elements[token.element].parent;
    return parent == kNowhere ? 0 : document_.elements[parent].kind;
  }

  bool is_form_mark(const SourceToken &token) const {
    const char mark = document_.text[token.range.begin];
    return mark == '?' || mark == '!';
  }

  // ---- Writing ----

  std::size_t column() const { return out_.size() - line_begin_; }

  void write(const SourceToken &token) {
    const std::string_view piece = document_.piece(token);
    out_ += piece;
    // A string may go over lines.
    const std::size_t last_line = piece.rfind('\n');
    if (last_line != std::string_view::npos) line_begin_ = out_.size() - piece.size() + last_line + 1;
    before_ = &token;
    end_of_last_ = token.range.end;
  }

  // The comments from the first to the next token, and what is around them.
  void write_gap(std::size_t first_comment, std::size_t next) {
    const std::vector<SourceToken> &tokens = document_.tokens;
    const SourceToken *const token = next < tokens.size() ? &tokens[next] : nullptr;
    const Gap gap = gap_between(before_, token);
    bool is_first_line = true;
    std::size_t i = first_comment;
    if (i < next && before_ != nullptr && lines_before(tokens[i]) == 0) write_comment_behind(tokens[i++]);
    for (; i < next; ++i) {
      write_line_end(has_empty_line(gap, tokens[i], is_first_line, false), gap.comment_indent);
      write_comment(tokens[i]);
      is_first_line = false;
    }
    if (token == nullptr) return;
    if (first_comment < next || gap.join == Join::kLine)
      return write_line_end(has_empty_line(gap, *token, is_first_line, true), gap.indent);
    write_join(gap);
  }

  std::size_t lines_before(const SourceToken &token) const {
    return count_line_ends(document_.piece(end_of_last_, token.range.begin));
  }

  void write_comment_behind(const SourceToken &comment) {
    // One behind "=" is the attribute's, and stands where its values do.
    const bool is_of_attribute = document_.is_mark(*before_, '=');
    out_ += is_of_attribute ? " " : kBeforeComment;
    if (is_of_attribute && column() < kValueIndent) out_.append(kValueIndent - column(), ' ');
    write_comment(comment);
  }

  void write_comment(const SourceToken &comment) {
    out_ += document_.piece(comment);
    end_of_last_ = comment.range.end;
  }

  // Whether an empty line is in front of what begins the first or the last line of a gap.
  bool has_empty_line(const Gap &gap, const SourceToken &token, bool is_first, bool is_last) const {
    if ((is_first && gap.wants_behind) || (is_last && gap.wants_before)) return true;
    const bool may_stay =
        gap.join == Join::kLine && (!is_first || gap.keeps_behind) && (!is_last || gap.keeps_before);
    return may_stay && lines_before(token) > 1;
  }

  void write_line_end(bool has_empty_line, std::size_t indent) {
    if (!out_.empty()) out_ += has_empty_line ? "\n\n" : "\n";
    line_begin_ = out_.size();
    out_.append(indent, ' ');
  }

  void write_join(const Gap &gap) {
    const bool may_fold = gap.join != Join::kTouch && gap.join != Join::kBlank;
    const bool is_blank = gap.join != Join::kTouch && gap.join != Join::kTouchOrFold;
    const bool is_in_front = gap.join == Join::kBlankOrFold;
    if (may_fold && column() + (is_in_front ? 1 : 0) > kFoldColumn) {
      write_line_end(false, gap.indent);
      if (is_in_front) return;
    }
    if (is_blank) out_ += ' ';
  }

  const Document &document_;
  std::string out_;
  const SourceToken *before_ = nullptr;  // the last token that is no comment
  std::size_t end_of_last_ = 0;          // behind the last token or comment
  std::size_t line_begin_ = 0;           // in what is written
};

}  // namespace

LaidOut lay_out(const Document &document) {
  if (!tokens_fit(document)) return {LaidOut::Result::kMisfit, ""};
  std::string text = Layouter(document).run();
  if (text != document.text && !has_same_tokens(document, text)) return {LaidOut::Result::kFault, ""};
  return {LaidOut::Result::kDone, std::move(text)};
}

}  // namespace sil
